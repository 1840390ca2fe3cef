#include "master/StartMaster.h"

#include "vesta/Application.h"
#include "vesta/Descriptor.h"
#include "vesta/Platform.h"

#include <cerrno>
#include <csignal>
#include <cstring>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

/// Words in the form that the system takes. They are made before the fork: after it, only calls
/// that are safe between threads are.
struct Words
{
    Words(const Path& program, const std::vector<String>& options) : texts(options)
    {
        texts.insert(texts.begin(), program.Text());
        for (String& text : texts)
        {
            pointers.push_back(text.data());
        }
        pointers.push_back(nullptr);
    }
    std::vector<String> texts;
    std::vector<char*>  pointers;
};

[[noreturn]] void Report(int reportTo)
{
    const int error = errno;
    // Nobody else could be told if this failed.
    [[maybe_unused]] const ssize_t written = write(reportTo, &error, sizeof error);
    _exit(1);
}

/// In the second process: becomes the program, or reports why not.
[[noreturn]] void BecomeProgram(const Words& words, int reportTo)
{
    const int nowhere = open("/dev/null", O_RDWR);
    if (nowhere < 0 || dup2(nowhere, STDIN_FILENO) < 0 || dup2(nowhere, STDOUT_FILENO) < 0 ||
        dup2(nowhere, STDERR_FILENO) < 0)
    {
        Report(reportTo);
    }
    // Whoever calls may block signals that end the program.
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    close_range(STDERR_FILENO + 1, ~0u, CLOSE_RANGE_CLOEXEC);
    execv(words.pointers[0], words.pointers.data());
    Report(reportTo);
}

/// In the first process: leaves the session and starts the second one, whose parent is then gone.
[[noreturn]] void Detach(const Words& words, int reportTo)
{
    setsid();
    const pid_t second = fork();
    if (second < 0)
    {
        Report(reportTo);
    }
    if (second == 0)
    {
        BecomeProgram(words, reportTo);
    }
    _exit(0);
}

/// What the new processes report before the pipe closes: 0 when all went well.
int ReadReport(int reportFrom)
{
    int     error = 0;
    ssize_t count = 0;
    do
    {
        count = read(reportFrom, &error, sizeof error);
    } while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(sizeof error) ? error : 0;
}

} // namespace

String StartMaster(const std::vector<String>& options)
{
    return StartInBackground(Path(Platform::GetProgramFolder()) / "tolvan-master", options);
}

String StartInBackground(const Path& program, const std::vector<String>& options)
{
    if (Application* const application = Application::the_Application)
    {
        application->WriteOptions(); // They may be the new program's too.
    }
    const Words words(program, options);
    Descriptor  reportFrom;
    Descriptor  reportTo;
    if (!Descriptor::MakePipe(reportFrom, reportTo))
    {
        return program.Text() + " cannot be started: " + std::strerror(errno);
    }
    const pid_t first = fork();
    if (first == 0)
    {
        Detach(words, reportTo.Get());
    }
    int error = first < 0 ? errno : 0;
    reportTo.Close();
    if (first > 0)
    {
        error = ReadReport(reportFrom.Get());
        while (waitpid(first, nullptr, 0) < 0 && errno == EINTR)
        {
        }
    }
    return error == 0 ? String() : program.Text() + " cannot be started: " + std::strerror(error);
}
