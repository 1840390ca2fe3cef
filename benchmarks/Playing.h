#pragma once

#include "benchmarks/FrameTime.h"

#include <functional>

class Hand;

/// A window under a real pointer for some seconds, while its program's loop runs as in any program:
/// how smooth that is. For every toolkit whose loop is GLib's.

constexpr int kStepsPerSecond = 60;
constexpr int kPlaySeconds = 5;

/// How the program's loop is run, and ended from another thread.
struct PlayLoop
{
    std::function<void()> run;
    std::function<void()> end;
};

class Play
{
public:
    /// To be called by the window whenever it paints something new.
    void FrameShown();
    /// Has the hand act `kStepsPerSecond` times a second for `kPlaySeconds`, from a thread of its
    /// own.
    void Run(const PlayLoop& loop, const std::function<void(Hand& hand, int step)>& act);
    /// Counters: frames, the longest time between two of them, the longest time that the loop was
    /// away from its events, and the processor's time of the whole play.
    void Report(benchmark::State& state) const;

private:
    Clock::time_point m_Start;
    Clock::time_point m_LastFrame;
    int               m_Frames = 0;
    double            m_LongestGap = 0; // seconds, as all below
    double            m_Blocked = 0;
    double            m_Processor = 0;
};

/// A stream of lines, told by the clock: however late it is asked, all that were due come.
constexpr int kLinesPerSecond = 20000;
constexpr int kFeedMs = 20; ///< Milliseconds between two looks at it.

class LineFeed
{
public:
    explicit LineFeed(int linesPerSecond) : m_LinesPerSecond(linesPerSecond) {}

    /// Passes on the numbers of the lines that are due, in their order.
    void Pass(const std::function<void(int line)>& pass);

private:
    int               m_LinesPerSecond;
    Clock::time_point m_Start = Clock::now();
    int               m_Passed = 0;
};

/// Twenty notches a second, up for a second and down for a second.
void TurnWheel(Hand& hand, int step);

/// Where between 0 and 1 a pointer is that goes to and fro, both in its turn within two seconds.
double ToAndFro(int step);
