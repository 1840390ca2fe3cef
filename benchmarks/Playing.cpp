#include "benchmarks/Playing.h"

#include "tests/hands/Hand.h"

#include <glib.h>

#include <algorithm>
#include <cmath>
#include <thread>

namespace
{
constexpr double kPi = 3.14159265358979;
constexpr int    kTurnSteps = 2 * kStepsPerSecond;

/// The longest time that the loop did not look at its events: from the end of one look to the
/// beginning of the next.
class LoopWatch
{
public:
    LoopWatch()
    {
        s_Longest = 0;
        s_Looked = Clock::now();
        s_Poll = g_main_context_get_poll_func(nullptr);
        g_main_context_set_poll_func(nullptr, &Poll);
    }
    ~LoopWatch() { g_main_context_set_poll_func(nullptr, s_Poll); }
    LoopWatch(const LoopWatch&) = delete;
    LoopWatch& operator=(const LoopWatch&) = delete;

    static double Longest() { return s_Longest; }

private:
    static gint Poll(GPollFD* descriptors, guint count, gint timeout)
    {
        s_Longest = std::max(s_Longest, SecondsSince(s_Looked));
        const gint ready = s_Poll(descriptors, count, timeout);
        s_Looked = Clock::now();
        return ready;
    }

    static GPollFunc         s_Poll;
    static Clock::time_point s_Looked;
    static double            s_Longest; // seconds
};
GPollFunc         LoopWatch::s_Poll = nullptr;
Clock::time_point LoopWatch::s_Looked;
double            LoopWatch::s_Longest = 0;
} // namespace

double ToAndFro(int step)
{
    return (1 - std::cos(2 * kPi * step / kTurnSteps)) / 2;
}

void TurnWheel(Hand& hand, int step)
{
    constexpr int kStepsPerNotch = kStepsPerSecond / 20;
    if (step % kStepsPerNotch == 0)
    {
        hand.Notch(step / kStepsPerSecond % 2 != 0);
    }
}

void LineFeed::Pass(const std::function<void(int line)>& pass)
{
    const int due = static_cast<int>(SecondsSince(m_Start) * m_LinesPerSecond);
    for (; m_Passed < due; ++m_Passed)
    {
        pass(m_Passed);
    }
}

void Play::FrameShown()
{
    m_LongestGap = std::max(m_LongestGap, SecondsSince(m_LastFrame));
    m_LastFrame = Clock::now();
    ++m_Frames;
}

void Play::Run(const PlayLoop& loop, const std::function<void(Hand& hand, int step)>& act)
{
    const LoopWatch watch;
    m_Frames = 0;
    m_LongestGap = 0;
    m_Start = m_LastFrame = Clock::now();
    const double processor = ProcessorSeconds();
    std::thread  acting(
         [&, start = m_Start]
         {
            Hand hand;
            for (int step = 0; step < kPlaySeconds * kStepsPerSecond; ++step)
            {
                std::this_thread::sleep_until(start + step * std::chrono::microseconds(1000000) /
                                                           kStepsPerSecond);
                act(hand, step);
            }
            loop.end();
         });
    loop.run();
    m_LongestGap = std::max(m_LongestGap, SecondsSince(m_LastFrame));
    m_Processor = ProcessorSeconds() - processor;
    m_Blocked = LoopWatch::Longest();
    acting.join();
}

void Play::Report(benchmark::State& state) const
{
    state.counters["frames"] = m_Frames;
    state.counters["longest_gap_ms"] = m_LongestGap * 1e3;
    state.counters["blocked_ms"] = m_Blocked * 1e3;
    state.counters["processor_s"] = m_Processor;
}
