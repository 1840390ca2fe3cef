// tolvan-master: see `master_Help`.

#include "master/Master.h"
#include "master/Options.h"
#include "tolvan/Components.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/File.h"
#include "vesta/FileLock.h"
#include "vesta/Log.h"
#include "vesta/Platform.h"

#include <csignal>
#include <cstdio>

namespace
{

constexpr int kLockTime = 5000; // milliseconds: for a master that is just ending

void OpenLog(const CommandLine& commandLine)
{
    const bool isVerbose = commandLine.Has("verbose");
    Log::s_GlobalLog->SetLevels(isVerbose ? log_Debug : log_Info,
                                isVerbose ? log_Debug : log_System);
    const Path folder = master::LogFolder(commandLine);
    Log::s_GlobalLog->Open((folder / (component_Master + ".log")).Text());
}

bool SaysOtherRuns()
{
    if (!Components::DidStart(component_Master))
    {
        return false;
    }
    std::puts("A master of this user runs already");
    LogInfo("A master of this user runs already; this one ends");
    return true;
}

int Run(const CommandLine& commandLine)
{
    const master::Options options = master::ReadOptions(commandLine);
    OpenLog(commandLine);
    if (SaysOtherRuns())
    {
        return 0;
    }
    const FileLock lock(SocketFolder::ForMaster(), kLockTime);
    if (!lock.IsHeld())
    {
        // Either the other one has just begun, or something is wrong with the folder.
        return SaysOtherRuns() ? 0 : 1;
    }
    LogSystem(SFormat("tolvan-master %s started: process %d, %d slots", TOLVAN_VERSION,
                      Platform::GetProcessId(), options.slots));
    Master(options).Run();
    LogSystem("tolvan-master has ended");
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // A client that goes and a log at the system's limit are no reasons to end.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    const CommandLine commandLine = master::MasterCommandLine(argc, argv);
    if (commandLine.Has("help"))
    {
        std::fputs(master::master_Help, stdout);
        return 0;
    }
    if (commandLine.Has("version"))
    {
        std::puts("tolvan-master " TOLVAN_VERSION);
        return 0;
    }
    try
    {
        return Run(commandLine);
    }
    catch (Exception* exception)
    {
        exception->Log();
        std::fprintf(stderr, "tolvan-master: %s %s\n", exception->Text().c_str(),
                     exception->Text2().c_str());
        delete exception;
    }
    catch (const std::exception& exception)
    {
        LogError(String("tolvan-master: ") + exception.what());
    }
    return 1;
}
