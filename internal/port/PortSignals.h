#pragma once

#include <wx/event.h>

class wxWindow;

namespace internal
{
/// What the port tells of a window and the toolkit does not pass on.

/// A window has been enabled or disabled: by itself, or with a window that it lies in. Sent to
/// windows that `WatchEnabling` was called for, and not passed on to their parents.
class EnabledEvent : public wxEvent
{
public:
    explicit EnabledEvent(bool enabled);
    wxEvent* Clone() const override { return new EnabledEvent(*this); }
    bool     IsEnabled() const { return m_Enabled; }

private:
    bool m_Enabled;
};
wxDECLARE_EVENT(EVT_ENABLED, EnabledEvent);

/// Has the window, which exists already, get `EVT_ENABLED` from now on.
void WatchEnabling(wxWindow& window);

/// Has the Tab key pass the window by whenever the function says no. The program and the mouse can
/// give it the focus all the same. Once for a window.
void AskBeforeTab(wxWindow& window, bool (*isStop)(const wxWindow& window));

/// Has the focus stay in the window when an arrow key comes that it has no use for, or uses and
/// passes on: the port would move the focus to the neighbour on that side. Once for a window.
void KeepFromArrows(wxWindow& window);
} // namespace internal
