#include "tests/hands/Patient.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
constexpr auto kPause = std::chrono::milliseconds(2); // between two looks
constexpr int  kLowest = 19; // priority of the master and its jobs: they are not what is tried

// Not "BUG", of the port's graphics: its own menus say it where they find no room.
const char* const kComplaints[] = {"CRITICAL",       "assert \"",        "Sanitizer",
                                   "runtime error:", "terminate called", "Unhandled"};

// A job that says something for a while.
const char* const kModule = "[Type]\nId = 11111111-2222-3333-4444-555555555555\nName = Talk\n"
                            "Execute = /bin/sh ../../talk %Word%\n"
                            "[Parameter Word]\nDefault = abc\n"
                            "[Parameter Kind]\nChoices = one;two;three\nDefault = one\n"
                            "[Command Suspend]\nStates = Waiting;Running\n"
                            "[Command Resume]\nStates = Suspended\n"
                            "[Command Retry]\nStates = Done;Failed;Killed\n"
                            "[Command Kill]\nStates = Waiting;Running;Suspended\n"
                            "[Command Set Priority]\nItems = 10;50;90\n";
const char* const kTalk = "i=0\nwhile [ $i -lt 100 ]; do i=$((i + 1))\n"
                          "echo FRAME $i/100 \"$1\"; sleep 0.1; done\n";
const char* const kJob = "[Job]\nType = Talk\nName = Talk\n[Parameters]\nWord = loud\n";

// Found as a shell does, and from the folder that it runs in too.
std::string Absolute(const std::string& program)
{
    const bool isPath = program.find('/') != std::string::npos;
    return isPath ? fs::absolute(program).string() : program;
}

void Write(const std::string& file, const std::string& text)
{
    std::ofstream(file) << text;
}

// The children of this process, those too whose parents have ended.
std::vector<pid_t> Children()
{
    const std::string self = std::to_string(getpid());
    std::ifstream     file("/proc/self/task/" + self + "/children");
    return {std::istream_iterator<pid_t>(file), {}};
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

Patient::Patient(std::vector<std::string> command, const std::string& master)
    : m_Command(std::move(command))
{
    // What the program leaves behind becomes a child of this process.
    prctl(PR_SET_CHILD_SUBREAPER, 1);
    m_Command.front() = Absolute(m_Command.front());
    MakeFolder();
    if (!master.empty())
    {
        const pid_t id =
            Launch({Absolute(master), "--stay", "--slots", "2", "--jobs", m_Folder + "/jobs",
                    "--modules", m_Folder + "/modules", "--run-folder", m_Folder + "/runs"});
        setpriority(PRIO_PROCESS, static_cast<id_t>(id), kLowest);
    }
    Start();
}

Patient::~Patient()
{
    for (auto children = Children(); !children.empty(); children = Children())
    {
        for (const pid_t child : children)
        {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
        }
    }
    std::error_code ignored;
    fs::remove_all(m_Folder, ignored);
}

void Patient::MakeFolder()
{
    std::string pattern = (fs::temp_directory_path() / "tolvan-hand-XXXXXX").string();
    if (!mkdtemp(&pattern[0]))
    {
        throw std::runtime_error("no scratch folder");
    }
    m_Folder = pattern;
    const std::pair<const char*, const char*> folders[] = {{"home", "HOME"},
                                                           {"config", "XDG_CONFIG_HOME"},
                                                           {"data", "XDG_DATA_HOME"},
                                                           {"state", "XDG_STATE_HOME"},
                                                           {"runtime", "XDG_RUNTIME_DIR"},
                                                           {"user", "TOLVAN_USER_DIR"},
                                                           {"modules", "TOLVAN_MODULES"},
                                                           {"jobs", "TOLVAN_JOBS"},
                                                           {"work", "PWD"}};
    for (const auto& [name, variable] : folders)
    {
        const std::string folder = m_Folder + "/" + name;
        fs::create_directory(folder);
        fs::permissions(folder, fs::perms::owner_all);
        setenv(variable, folder.c_str(), 1);
    }
    Write(m_Folder + "/talk", kTalk);
    Write(m_Folder + "/modules/talk.module", kModule);
    for (const char* const name : {"1", "2", "3"})
    {
        Write(m_Folder + "/jobs/" + name + ".job", kJob);
    }
}

pid_t Patient::Launch(const std::vector<std::string>& command) const
{
    const pid_t id = fork();
    if (id != 0)
    {
        return id;
    }
    const int said = open((m_Folder + "/said").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    dup2(said, STDOUT_FILENO);
    dup2(said, STDERR_FILENO);
    std::vector<char*> words;
    for (const std::string& word : command)
    {
        words.push_back(const_cast<char*>(word.c_str()));
    }
    words.push_back(nullptr);
    if (chdir((m_Folder + "/work").c_str()) == 0)
    {
        execvp(words[0], words.data());
    }
    _exit(127);
}

void Patient::Start()
{
    m_Id = Launch(m_Command);
    m_Ended = false;
}

bool Patient::HasEnded()
{
    m_Ended = m_Ended || waitpid(m_Id, &m_Status, WNOHANG) == m_Id;
    return m_Ended;
}

bool Patient::End(int deadlineMs)
{
    if (!HasEnded())
    {
        kill(m_Id, SIGTERM);
    }
    return WaitUntil(deadlineMs, [this] { return HasEnded(); });
}

std::string Patient::Said() const
{
    std::ifstream file(m_Folder + "/said");
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Patient::Fault() const
{
    if (m_Ended && m_Status != 0)
    {
        return WIFSIGNALED(m_Status) ? "it ended by signal " + std::to_string(WTERMSIG(m_Status))
                                     : "it ended with " + std::to_string(WEXITSTATUS(m_Status));
    }
    const std::string        said = Said();
    const char* const* const complaint =
        std::find_if(std::begin(kComplaints), std::end(kComplaints),
                     [&](const char* each) { return said.find(each) != std::string::npos; });
    return complaint == std::end(kComplaints) ? "" : std::string("it said ") + *complaint;
}
