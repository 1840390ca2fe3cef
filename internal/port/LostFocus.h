#pragma once

#include <wx/event.h>

class wxWindow;

namespace internal
{
/// A window with the focus that is disabled, hidden or destroyed, by itself or with one that it
/// lies in, leaves nobody with the keys: neither port moves the focus on.

/// Such a window, which lives on, may have lost the focus; that of an inactive window counts, too.
/// Sent, once the handlers that are at work have ended, to windows that `WatchFocus` was called
/// for, and not passed on to their parents. Passes the focus on unless a handler keeps the event.
class FocusLostEvent : public wxEvent
{
public:
    explicit FocusLostEvent(wxWindow& window);
    wxEvent* Clone() const override { return new FocusLostEvent(*this); }
};
wxDECLARE_EVENT(EVT_FOCUS_LOST, FocusLostEvent);

/// Has the window, which exists already, pass the focus on from now on.
void WatchFocus(wxWindow& window);

/// Moves the focus on from the window as the Tab key would, if the window cannot have it and nobody
/// in its top-level window has it.
void PassFocusOn(wxWindow& window);
} // namespace internal
