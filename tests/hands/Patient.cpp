#include "tests/hands/Patient.h"

#include "tests/hands/StrangeTheme.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <thread>

namespace fs = std::filesystem;

namespace
{
constexpr auto kPause = std::chrono::milliseconds(2); // between two looks
constexpr int  kLowest = 19; // priority of the master and its jobs: they are not what is tried

// Not "BUG", of the port's graphics: its own menus say it where they find no room.
const char* const kComplaints[] = {"CRITICAL",       "assert \"",        "Sanitizer",
                                   "runtime error:", "terminate called", "Unhandled"};

// Only the toolkit's dialogs for files have such views: where one is closed within half a second of
// a letter, a timer of its own finds them gone.
const char* const kOfFileDialogs[] = {"gtk_tree_view_", "gtk_tree_selection_"};

const std::pair<const char*, const char*> kFolders[] = {{"home", "HOME"},
                                                        {"config", "XDG_CONFIG_HOME"},
                                                        {"state", "XDG_STATE_HOME"},
                                                        {"runtime", "XDG_RUNTIME_DIR"},
                                                        {"user", "TOLVAN_USER_DIR"},
                                                        {"modules", "TOLVAN_MODULES"},
                                                        {"jobs", "TOLVAN_JOBS"},
                                                        {"work", "PWD"}};

bool IsComplaint(const std::string& line, const char* complaint)
{
    const auto has = [&line](const char* word) { return line.find(word) != std::string::npos; };
    return has(complaint) &&
           std::none_of(std::begin(kOfFileDialogs), std::end(kOfFileDialogs), has);
}

// The children of this process, those too whose parents have ended.
std::vector<pid_t> Children()
{
    const std::string self = std::to_string(getpid());
    std::ifstream     file("/proc/self/task/" + self + "/children");
    return {std::istream_iterator<pid_t>(file), {}};
}

// The toolkit's search for emoji, which the menus of its text fields lead to, loses the words of
// each one it looks at. Nothing is left to be suppressed by: only the allocator stands on the
// stack.
void HideEmoji(const std::string& folder)
{
    fs::create_directory(folder);
    std::ofstream(folder + "/en.data"); // none at all
    setenv("G_RESOURCE_OVERLAYS", ("/org/gtk/libgtk/emoji=" + folder).c_str(), 1);
}

// With a farm of jobs that talk, and this process in its working folder.
String MakeFolder()
{
    std::string folder = (fs::temp_directory_path() / "tolvan-hand-XXXXXX").string();
    if (!mkdtemp(&folder[0]))
    {
        throw std::runtime_error("no scratch folder");
    }
    fs::copy(HAND_FARM, folder, fs::copy_options::recursive);
    for (const auto& [name, variable] : kFolders)
    {
        const fs::path each = fs::path(folder) / name;
        fs::create_directory(each);
        fs::permissions(each, fs::perms::owner_all);
        setenv(variable, each.c_str(), 1);
    }
    HideEmoji(folder + "/emoji");
    StrangeTheme::Use(folder + "/data");
    std::ofstream(folder + "/user/Colors.ini") << "scheme = 1\n";
    fs::current_path(getenv("PWD"));
    return folder;
}
} // namespace

bool WaitUntil(int deadlineMs, const std::function<bool()>& condition)
{
    const auto end = Clock::now() + std::chrono::milliseconds(deadlineMs);
    while (!condition())
    {
        if (Clock::now() > end)
        {
            return false;
        }
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

Patient::Patient(std::vector<String> command, const String& master) : m_Command(std::move(command))
{
    // What the program leaves behind becomes a child of this process.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    m_Command.front() = fs::absolute(m_Command.front().c_str()).string();
    const String masterProgram =
        master.empty() ? "" : fs::absolute(master.c_str()).c_str(); // before the folder changes
    m_Folder = MakeFolder();
    if (!master.empty())
    {
        m_Master =
            std::make_unique<Program>(std::vector<String>{masterProgram, "--stay", "--slots", "2",
                                                          "--run-folder", m_Folder + "/runs"},
                                      m_Folder + "/master-said");
        setpriority(PRIO_PROCESS, static_cast<id_t>(m_Master->id), kLowest);
    }
    Start();
}

Patient::~Patient()
{
    m_Program.reset();
    m_Master.reset();
    for (auto children = Children(); !children.empty(); children = Children())
    {
        for (const pid_t child : children)
        {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
        }
    }
    std::error_code ignored;
    fs::remove_all(m_Folder.c_str(), ignored);
}

void Patient::Start()
{
    m_Program = std::make_unique<Program>(m_Command, m_Folder + "/said");
}

bool Patient::End(int deadlineMs)
{
    if (!HasEnded())
    {
        m_Program->Signal(SIGTERM);
    }
    return WaitUntil(deadlineMs, [this] { return HasEnded(); });
}

std::string Patient::Said() const
{
    std::string said;
    for (const char* const name : {"/said", "/master-said"})
    {
        std::ifstream file(m_Folder + name);
        said.append(std::istreambuf_iterator<char>(file), {});
    }
    return said;
}

std::string Patient::Fault()
{
    if (HasEnded() && m_Program->ExitCode() != 0)
    {
        return "it ended with " + std::to_string(m_Program->ExitCode()); // -1: by a signal
    }
    std::istringstream said(Said());
    for (std::string line; std::getline(said, line);)
    {
        for (const char* const complaint : kComplaints)
        {
            if (IsComplaint(line, complaint))
            {
                return std::string("it said ") + complaint;
            }
        }
    }
    return "";
}
