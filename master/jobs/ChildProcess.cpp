#include "master/jobs/ChildProcess.h"

#include <boost/process/args.hpp>
#include <boost/process/child.hpp>
#include <boost/process/error.hpp>
#include <boost/process/exe.hpp>
#include <boost/process/extend.hpp>
#include <boost/process/io.hpp>
#include <boost/process/pipe.hpp>
#include <boost/process/start_dir.hpp>

#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace process = boost::process;

namespace master
{
namespace
{

void StayOpen(int descriptor)
{
    fcntl(descriptor, F_SETFD, 0);
}

/// Has the system kill the caller's process group, stopped processes too, as soon as no writing end
/// of the pipe is open any more: when the program that holds it ends. The caller's own one closes
/// when it loads its program, so it does not matter if the other program has ended by then.
void DieWith(int life)
{
    fcntl(life, F_SETOWN, -getpid());
    fcntl(life, F_SETSIG, SIGKILL);
    fcntl(life, F_SETFL, O_ASYNC);
    prctl(PR_SET_PDEATHSIG, SIGTERM); // For a program that closes whatever it finds open.
}

/// Runs in the new process before the program does. Only calls that are safe after a fork.
void PrepareChild(int life, int kept)
{
    setpgid(0, 0);
    DieWith(life);
    // Signals that this program ignores or blocks would stay so in the job.
    signal(SIGPIPE, SIG_DFL);
    signal(SIGXFSZ, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    // From the first one after the standard ones on; they close when the program is loaded, so
    // that a failure to load it can still be reported.
    close_range(3, ~0u, CLOSE_RANGE_CLOEXEC);
    StayOpen(life);
    if (kept >= 0)
    {
        StayOpen(kept);
    }
}

/// A child that could not be started has ended, but is not collected by the library.
template <class Executor> void CollectFailed(Executor& executor)
{
    if (executor.pid > 0)
    {
        waitpid(executor.pid, nullptr, 0);
    }
}

std::vector<std::string> PlainStrings(const std::vector<String>& words)
{
    return {words.begin(), words.end()};
}

} // namespace

String ChildExit::Describe() const
{
    if (isSignal)
    {
        return SFormat("The program was ended by signal %d (%s)", code, strsignal(code));
    }
    return SFormat("The program ended with exit code %d", code);
}

ChildProcess::~ChildProcess()
{
    if (IsAlive())
    {
        SignalGroup(SIGKILL);
        waitpid(m_Id, nullptr, 0);
    }
}

String ChildProcess::Start(const ChildSpec& childSpec)
{
    std::error_code error;
    Descriptor      life;
    if (!Descriptor::MakePipe(life, m_Life))
    {
        return childSpec.program.Text() + " cannot be started: " + std::strerror(errno);
    }
    try
    {
        process::pipe  pipe;
        process::child child(
            process::exe = childSpec.program.Text(), process::args = PlainStrings(childSpec.words),
            process::start_dir = std::string(childSpec.folder.Text()),
            (process::std_in < process::null), ((process::std_out & process::std_err) > pipe),
            process::extend::on_exec_setup = [&](auto&)
            { PrepareChild(life.Get(), childSpec.kept); },
            process::extend::on_error = [](auto& executor, const auto&)
            { CollectFailed(executor); },
            error);
        if (!error)
        {
            m_Id = child.id();
            child.detach(); // it is collected below, and nothing must kill it before
            // Both sides set the group: whichever comes first, it is there before any signal.
            setpgid(m_Id, m_Id);
            m_Output = Descriptor(pipe.native_source());
            pipe.assign_source(-1);
            fcntl(m_Output.Get(), F_SETFL, O_NONBLOCK);
        }
    }
    catch (const std::system_error& failure) // no pipe to be had
    {
        error = failure.code();
    }
    return error ? childSpec.program.Text() + " cannot be started: " + error.message() : String();
}

void ChildProcess::SignalGroup(int signal) const
{
    if (IsAlive())
    {
        kill(-m_Id, signal);
    }
}

bool ChildProcess::Collect(ChildExit& exit)
{
    siginfo_t info = {};
    if (!IsAlive() || waitid(P_PID, static_cast<id_t>(m_Id), &info, WEXITED | WNOHANG | WNOWAIT) ||
        info.si_pid == 0)
    {
        return false;
    }
    // Before it is collected: its number, which is the group's too, cannot have a new owner yet.
    SignalGroup(SIGKILL);
    waitpid(m_Id, nullptr, 0);
    m_Id = 0;
    m_Life.Close();
    exit.isSignal = info.si_code != CLD_EXITED;
    exit.code = info.si_status;
    return true;
}
} // namespace master
