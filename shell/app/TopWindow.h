#pragma once

#include <wx/event.h>
#include <wx/eventfilter.h>

#include <functional>
#include <memory>

namespace shell
{
/// Makes the event for the top window that it is given.
using EventMaker = std::function<std::unique_ptr<wxEvent>(wxWindow& top)>;

/// Whether there is a top window. On the main thread this is what the application says. On any
/// other it is what the main thread has seen last, and false may also mean that it has not looked
/// yet: `AskForTopWindow` is for whoever must not miss a window that has only just been made.
bool HasTopWindow();

/// Calls `answer` on the main thread with the application's top window, or with null when there is
/// none: at once there; from any other thread when the main thread gets to it, by way of the
/// application object, which outlives every window.
void AskForTopWindow(std::function<void(wxWindow* top)> answer);

/// Posts an event to the top window with AddPendingEvent; any thread. Without a top window nothing
/// is made. `make` runs on the main thread.
void PostToTopWindow(EventMaker make);

/// Keeps what other threads may know of the top window. It looks at the events that come with
/// windows being made, shown and destroyed. Main thread.
class TopWindowWatch : public wxEventFilter
{
public:
    TopWindowWatch();
    ~TopWindowWatch() override;

    int FilterEvent(wxEvent& event) override;

    /// For whoever has just made a window: no event comes with that. Without a watch it does
    /// nothing.
    static void Look();
};
} // namespace shell
