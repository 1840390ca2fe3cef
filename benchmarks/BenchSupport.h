#pragma once

#include "benchmarks/FrameTime.h"

#include <wx/frame.h>

#include <memory>

/// What the benchmarks of wxWidgets' windows share: the toolkit's start and end, and a shown frame
/// with a client area of 1600 x 900 pixels.

/// A frame that is shown and holds the window that `make` makes; closed by
/// `CloseFrame`.
wxFrame* OpenFrame(const std::function<wxWindow*(wxFrame*)>& make);
void     CloseFrame(wxFrame* frame);

/// Handles the events that wait.
void PumpEvents();
void PumpFor(double seconds);
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

/// Runs all benchmarks of the program under the toolkit; to be returned from main.
int RunBenchmarks(int argc, char** argv);
