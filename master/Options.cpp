#include "master/Options.h"

#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/Platform.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace master
{
const char* const master_Help =
    "tolvan-master: runs the jobs of a farm of one machine, and tells its clients of them.\n"
    "\n"
    "  --jobs FOLDER          jobs (*.job) to run at the start ($TOLVAN_JOBS, else\n"
    "                         share/tolvan/jobs beside the program's folder)\n"
    "  --modules FOLDER       job types (*.module) ($TOLVAN_MODULES, else \"modules\" in the "
    "user's\n"
    "                         folder, else share/tolvan/modules beside the program's folder)\n"
    "  --run-folder FOLDER    where every job gets a folder for its output and its log\n"
    "                         ($XDG_STATE_HOME/tolvan, else ~/.local/state/tolvan)\n"
    "  --slots N              jobs that run at once (the number of processors)\n"
    "  --stay                 go on when no client is connected and no job is left\n"
    "  --grace SECONDS        how long to wait for a client after the last one has gone (3)\n"
    "  --first-client SECONDS how long to wait for the first client (30)\n"
    "  --log-dir FOLDER       folder of the log file TolvanMaster.log\n"
    "  --verbose              debug lines in the log and on the console\n"
    "  --help, --version      say so and end\n"
    "\n"
    "Only one master of a user runs; another one says so and ends with 0. It ends by itself when\n"
    "the last client has gone and every job has ended.\n"
    "\n"
    "A job's processes form a process group of their own. Commands: Suspend stops them (a "
    "suspended\n"
    "job takes no slot; a waiting one is kept from starting), Resume lets them go on, Kill sends\n"
    "SIGTERM and after 3 seconds SIGKILL, Retry runs an ended job from its start, Set Priority\n"
    "(0 to 100) orders the waiting ones. When a job's first process has ended, what is left of "
    "its\n"
    "group is killed.\n"
    "\n"
    "The whole output of a job stands in output.log in its folder (that of earlier runs in\n"
    "output.1.log to output.4.log). A line that begins with \"PROGRESS 37\" sets the job's "
    "progress\n"
    "in percent; one that begins with \"FRAME 3/40\" says that 3 of 40 frames are done.\n"
    "\n"
    "SIGTERM and SIGINT end the master and its jobs. SIGUSR1 asks all connected clients to "
    "close.\n";

namespace
{

constexpr int kMostSlots = 1024;
constexpr int kMostSeconds = 1000000;

/// A whole number from the command line; anything but one from `low` to `high` is refused.
int NumberOption(const CommandLine& commandLine, const char* option, int low, int high,
                 int otherwise)
{
    if (!commandLine.Has(option))
    {
        return otherwise;
    }
    const String    text = commandLine.Value(option).Trim();
    const long long number = text.ToInt(low - 1LL);
    // The way back shows what ToInt leaves out: "12x" is not 12.
    if (number < low || number > high || String::FromInt(number) != text)
    {
        Exception::Throw("Master", "ReadOptions", ec_BadData,
                         SFormat("--%s must be a number from %d to %d, not '%s'", option, low, high,
                                 text.c_str()));
    }
    return static_cast<int>(number);
}

/// The first of the option, the environment's variable and the default.
Path ChooseFolder(const CommandLine& commandLine, const char* option, const char* variable,
                  const Path& otherwise)
{
    const char* const named = std::getenv(variable);
    return commandLine.Has(option) ? Path(commandLine.Value(option))
           : named && *named       ? Path(named)
                                   : otherwise;
}

Path StateFolder()
{
    const char* const state = std::getenv("XDG_STATE_HOME");
    if (state && state[0] == '/')
    {
        return Path(state) / "tolvan";
    }
    const char* const home = std::getenv("HOME");
    if (home && home[0] == '/')
    {
        return Path(home) / ".local/state/tolvan";
    }
    return SocketFolder::GetTemporary() / "runs";
}

/// Jobs run in folders of their own: a relative name would mean another place there.
Path Absolute(const Path& path)
{
    char* const full = path.IsEmpty() || path.Text()[0] == '/' ? nullptr : realpath(".", nullptr);
    Path        absolute = full ? Path(full) / path.Text() : path;
    std::free(full);
    return absolute;
}

} // namespace

CommandLine MasterCommandLine(int argc, const char* const* argv)
{
    return CommandLine(
        argc, argv, {"jobs", "modules", "run-folder", "slots", "grace", "first-client", "log-dir"});
}

Options ReadOptions(const CommandLine& commandLine)
{
    Options options;
    options.ownFolder = Platform::GetProgramFolder();
    const Path share = options.ownFolder.Branch() / "share" / "tolvan";
    options.jobsFolder = Absolute(ChooseFolder(commandLine, "jobs", "TOLVAN_JOBS", share / "jobs"));
    options.modulesFolder = Absolute(commandLine.Value("modules"));
    options.runFolder = Absolute(commandLine.Value("run-folder"));
    if (options.runFolder.IsEmpty())
    {
        options.runFolder = StateFolder();
    }
    const int processors = static_cast<int>(std::thread::hardware_concurrency());
    options.slots = NumberOption(commandLine, "slots", 1, kMostSlots, std::max(1, processors));
    options.stays = commandLine.Has("stay");
    options.grace = std::chrono::seconds(NumberOption(commandLine, "grace", 0, kMostSeconds, 3));
    options.firstClient =
        std::chrono::seconds(NumberOption(commandLine, "first-client", 0, kMostSeconds, 30));
    return options;
}

Path LogFolder(const CommandLine& commandLine)
{
    if (commandLine.Has("log-dir"))
    {
        return Absolute(commandLine.Value("log-dir"));
    }
    return File::s_UserDir.empty() ? SocketFolder::GetTemporary() : File::GetUserDir() / "logs";
}
} // namespace master
