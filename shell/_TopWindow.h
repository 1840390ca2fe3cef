#pragma once

#include <wx/event.h>
#include <wx/eventfilter.h>

#include <functional>
#include <memory>

/// Makes the event for the top window that it is given.
using _EventMaker = std::function<std::unique_ptr<wxEvent>(wxWindow& top)>;

/// Whether there is a top window. Any thread; off the main thread as of the latest event.
bool _HasTopWindow();

/// Brings an event to the application's top window; any thread. On the main thread it is posted
/// with AddPendingEvent; from any other it goes there by way of the application object, which
/// outlives every window, so that no window is touched off the main thread. Without a top window
/// (at once, or by the time that the main thread gets to it) nothing is made. `make` runs on the
/// main thread.
void _PostToTopWindow(_EventMaker make);

/// Keeps what other threads may know of the top window: whether there is one. It looks at the
/// events that come with windows being made, shown and destroyed. Main thread.
class _TopWindowWatch : public wxEventFilter
{
public:
    _TopWindowWatch();
    ~_TopWindowWatch() override;

    int FilterEvent(wxEvent& event) override;
};
