#include "benchmarks/FrameTime.h"

#include <X11/Xlib.h>
#include <X11/extensions/Xdamage.h>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

/// How long programs take from their start until nothing is painted any more, and what memory they
/// have then: the one that shows the most of ours, and one that is nothing but a window.

// This program draws nothing.
void WaitForDisplay()
{
}

namespace
{
constexpr double kQuiet = 0.3;    // seconds without painting: less than a caret takes to blink
constexpr double kPatience = 20;  // seconds
constexpr int    kSettleMs = 100; // between two programs

/// Hears of everything that is painted on the display.
class Screen
{
public:
    Screen() : m_Display(XOpenDisplay(nullptr))
    {
        int errors = 0;
        if (m_Display && XDamageQueryExtension(m_Display.get(), &m_Events, &errors))
        {
            m_Damage = XDamageCreate(m_Display.get(), DefaultRootWindow(m_Display.get()),
                                     XDamageReportRawRectangles);
            XSync(m_Display.get(), False);
        }
    }

    bool IsThere() const { return m_Damage != None; }
    void Forget() { TakePaints(); }
    /// Seconds from the start until the last paint; negative when there is none, or no end.
    double LastPaint(Clock::time_point start)
    {
        double last = -1;
        while (last < 0 || SecondsSince(start) < last + kQuiet)
        {
            pollfd connection{ConnectionNumber(m_Display.get()), POLLIN, 0};
            poll(&connection, 1, 10);
            if (TakePaints())
            {
                last = SecondsSince(start);
            }
            if (SecondsSince(start) > kPatience)
            {
                return -1;
            }
        }
        return last;
    }

private:
    struct Closing
    {
        void operator()(Display* display) const { XCloseDisplay(display); }
    };

    bool TakePaints()
    {
        bool any = false;
        while (XPending(m_Display.get()) > 0)
        {
            XEvent event;
            XNextEvent(m_Display.get(), &event);
            any |= event.type == m_Events + XDamageNotify;
        }
        return any;
    }

    std::unique_ptr<Display, Closing> m_Display;
    int                               m_Events = 0;
    Damage                            m_Damage = None;
};

// Megabytes of that name.
double MemoryOf(pid_t program, const std::string& name)
{
    std::ifstream file("/proc/" + std::to_string(program) + "/smaps_rollup");
    for (std::string word; file >> word;)
    {
        double kilobytes = 0;
        if (word == name + ":" && file >> kilobytes)
        {
            return kilobytes / 1024;
        }
    }
    return 0;
}

double ProcessorSecondsOf(pid_t program)
{
    std::ifstream file("/proc/" + std::to_string(program) + "/stat");
    std::string   field;
    double        ticks = 0;
    for (int i = 1; i <= 15 && file >> field; ++i)
    {
        ticks += i >= 14 ? std::atof(field.c_str()) : 0;
    }
    return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

pid_t Run(const char* program, const char* argument)
{
    const pid_t child = fork();
    if (child == 0)
    {
        if (!std::freopen("/dev/null", "w", stdout) || !std::freopen("/dev/null", "w", stderr))
        {
            _exit(EXIT_FAILURE);
        }
        execl(program, program, argument, static_cast<char*>(nullptr));
        _exit(EXIT_FAILURE);
    }
    return child;
}

void Measure(benchmark::State& state, const char* program, const char* argument)
{
    Screen screen;
    if (!screen.IsThere())
    {
        state.SkipWithError("the display does not tell of what is painted");
        return;
    }
    for (auto _ : state)
    {
        screen.Forget();
        const auto   start = Clock::now();
        const pid_t  child = Run(program, argument);
        const double last = screen.LastPaint(start);
        Report(state, {last, ProcessorSecondsOf(child)});
        state.counters["resident_mb"] = MemoryOf(child, "Rss");
        state.counters["own_mb"] = MemoryOf(child, "Private_Dirty");
        kill(child, SIGTERM);
        waitpid(child, nullptr, 0);
        usleep(kSettleMs * 1000);
        if (last < 0)
        {
            state.SkipWithError("it paints nothing, or has no end");
            return;
        }
    }
}

void Register(const char* name, const char* program, const char* argument)
{
    benchmark::RegisterBenchmark(name, [=](benchmark::State& state)
                                 { Measure(state, program, argument); })
        ->Iterations(5)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}
} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
    {
        return EXIT_FAILURE;
    }
    // Without a master: what is shown comes from this program alone.
    Register("Start", BENCH_MONITOR, "--no-start");
    Register("Start<a wxFrame>", BENCH_EMPTY, nullptr);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return EXIT_SUCCESS;
}
