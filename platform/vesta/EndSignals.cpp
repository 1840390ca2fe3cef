#include "vesta/EndSignals.h"

#include "vesta/CallEntry.h"
#include "vesta/Exception.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace
{
constexpr int          kSignals[] = {SIGTERM, SIGINT, SIGHUP};
constexpr std::uint8_t kEnd = 0; // in the pipe, which else carries the numbers of signals

std::atomic<bool> s_IsInUse{false};
std::atomic<int>  s_Pipe[2] = {{-1}, {-1}}; // made once and kept: a handler may be about to write
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler reads them");

void OnSignal(int signal);

// Those that `OnSignal` handles kill again.
void LetSignalsKill()
{
    for (const int signal : kSignals)
    {
        struct sigaction current = {};
        if (sigaction(signal, nullptr, &current) == 0 && current.sa_handler == OnSignal)
        {
            current.sa_handler = SIG_DFL;
            sigaction(signal, &current, nullptr);
        }
    }
}

void Write(std::uint8_t byte)
{
    while (write(s_Pipe[1], &byte, 1) < 0 && errno == EINTR)
    {
    }
}

// Only what a signal handler may call.
void OnSignal(int signal)
{
    const int error = errno;
    LetSignalsKill();
    Write(static_cast<std::uint8_t>(signal));
    errno = error;
}

void CatchSignals()
{
    for (const int signal : kSignals)
    {
        struct sigaction action = {};
        if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_DFL)
        {
            action = {};
            action.sa_handler = OnSignal;
            action.sa_flags = SA_RESTART;
            sigaction(signal, &action, nullptr);
        }
    }
}

bool MakePipe()
{
    int ends[2];
    if (s_Pipe[1] < 0 && pipe2(ends, O_CLOEXEC) == 0)
    {
        s_Pipe[0] = ends[0];
        s_Pipe[1] = ends[1];
    }
    return s_Pipe[1] >= 0;
}

std::uint8_t Read()
{
    std::uint8_t byte = kEnd;
    while (read(s_Pipe[0], &byte, 1) < 0 && errno == EINTR)
    {
    }
    return byte;
}
} // namespace

EndSignals::EndSignals(std::function<void(int signal)> tell)
{
    CALL_ENTRY("EndSignals::EndSignals");
    if (s_IsInUse.exchange(true))
    {
        return;
    }
    if (!MakePipe())
    {
        s_IsInUse = false;
        LogWarning("Signals will end the program at once: there is no pipe to tell of them");
        return;
    }
    m_Thread = std::thread(
        [tell = std::move(tell)]
        {
            for (std::uint8_t signal = Read(); signal != kEnd; signal = Read())
            {
                tell(signal);
            }
        });
    CatchSignals();
}

EndSignals::~EndSignals()
{
    if (m_Thread.joinable())
    {
        LetSignalsKill();
        Write(kEnd);
        m_Thread.join();
        s_IsInUse = false;
    }
}
