#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <vector>

/// How the benchmarks of windows measure, whatever the toolkit: a repaint is over when the display
/// server has done all that it was asked for. Two times tell of it: the whole time, and the
/// processor time of the program itself, all its threads, which is the part that its toolkit and
/// its controls are to blame for. The rest is the display server's work and waiting for it.

using Clock = std::chrono::steady_clock;
double Seconds(Clock::duration time);
double SecondsSince(Clock::time_point start);

/// Of this process, all its threads, since its start.
double ProcessorSeconds();
/// Resident memory of the process.
size_t ResidentBytes();

/// Returns when the display server has done what this program has asked it for. Defined by the
/// support of each toolkit, for the connection that the toolkit itself draws through.
void WaitForDisplay();

/// Seconds.
struct FrameTime
{
    double whole = 0;  ///< Until the display server was done.
    double client = 0; ///< Processor time of the program.
};

/// Measures from its making on.
class FrameWatch
{
public:
    /// Waits for the display server.
    FrameTime Shown() const;

private:
    Clock::time_point m_Start = Clock::now();
    double            m_Processor = ProcessorSeconds();
};

/// How repaints are measured: 200 of them, or 50 of slow ones; in milliseconds.
void Repaints(benchmark::internal::Benchmark* benchmark);
void FewRepaints(benchmark::internal::Benchmark* benchmark);
/// How long work is measured, once or so.
void Once(benchmark::internal::Benchmark* benchmark);

/// The time of one iteration; the mean of the client's becomes the counter "client_ms".
void Report(benchmark::State& state, const FrameTime& time);
/// Runs `work` once an iteration; the medians become the counters "median_ms" and "client_ms".
void MeasureMedian(benchmark::State& state, const std::function<FrameTime()>& work);
