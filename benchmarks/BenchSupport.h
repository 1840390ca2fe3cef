#pragma once

#include "vesta/String.h"

#include <benchmark/benchmark.h>

#include <wx/frame.h>

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

/// What the benchmarks of windows share: the toolkit's start and end, a shown frame with a client
/// area of 1600 x 900 pixels, the lines of the workload, and the process's memory.

/// Lines of 40 to 160 characters, 100 in the mean, that look like a render log. The same in every
/// run; there are some thousand, to be used over and over.
const std::vector<String>& WorkloadLines();

/// A frame that is shown and holds the window that `make` makes; closed by
/// `CloseFrame`.
wxFrame* OpenFrame(const std::function<wxWindow*(wxFrame*)>& make);
void     CloseFrame(wxFrame* frame);

/// Handles the events that wait.
void PumpEvents();
/// Pumps until the condition holds; ends the program when it does not within ten seconds.
void PumpUntil(const std::function<bool()>& condition);

/// A control in a shown frame of its own. `Control` is made for the frame and has a member
/// `window`.
template <class Control> class ControlStage
{
public:
    ControlStage()
    {
        m_Frame = OpenFrame(
            [this](wxFrame* frame)
            {
                m_Control = std::make_unique<Control>(frame);
                return m_Control->window;
            });
        PumpEvents();
    }
    ~ControlStage() { CloseFrame(m_Frame); }
    ControlStage(const ControlStage&) = delete;
    ControlStage& operator=(const ControlStage&) = delete;

    Control* operator->() const { return m_Control.get(); }

private:
    wxFrame*                 m_Frame;
    std::unique_ptr<Control> m_Control;
};

/// Work that a window does beside its life.
struct SlicedWork
{
    double took = 0;    ///< Seconds from the wish to the end.
    double longest = 0; ///< Seconds without a look at the events.
};
/// Asks for it, and pumps until it is done.
SlicedWork MeasureSlices(const std::function<void()>& ask, const std::function<bool()>& isBusy);
/// What is reported of several times; "longest_ms" is the longest of all.
void Report(benchmark::State& state, const SlicedWork& work);

/// Resident memory of the process, in bytes.
size_t ResidentBytes();

using Clock = std::chrono::steady_clock;
double SecondsSince(Clock::time_point start);

/// How repaints are measured: 200 of them, or 50 of slow ones; in milliseconds.
void Repaints(benchmark::internal::Benchmark* benchmark);
void FewRepaints(benchmark::internal::Benchmark* benchmark);
/// Runs `work`, which returns the seconds that it took, once an iteration; the median becomes the
/// counter "median_ms".
void MeasureMedian(benchmark::State& state, const std::function<double()>& work);

/// Runs all benchmarks of the program under the toolkit; to be returned from main.
int RunBenchmarks(int argc, char** argv);
