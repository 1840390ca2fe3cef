#pragma once

#include <wx/event.h>
#include <wx/timer.h>

#include <chrono>
#include <functional>

namespace listviews
{
/// Work that would keep a window waiting, done a slice at a time with events and repaints between.
/// Who works may destroy it. Main thread.
class Slices : public wxEvtHandler
{
public:
    /// `work` does a slice; it asks for the next one.
    explicit Slices(std::function<void()> work);
    ~Slices() override;

    void GoOn();      ///< With another slice, when the events that wait have been handled.
    void LookAgain(); ///< In a moment: what is waited for is up to the user.
    void Stop();

private:
    void OnTimer(wxTimerEvent& event);

    std::function<void()> m_Work;
    wxTimer               m_Timer;
};

/// The end of a slice that begins now.
std::chrono::steady_clock::time_point EndOfSlice();
/// Runs `step` over and over until the slice is over; whether there is more: it answers false when
/// it is done.
bool RunSlice(const std::function<bool()>& step);
} // namespace listviews
