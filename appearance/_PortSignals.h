#pragma once

#include "vesta/Export.h"

#include <wx/event.h>

class wxWindow;

/// What the port tells of a window and the toolkit does not pass on.

/// A window has been enabled or disabled: by itself, or with a window that it lies in. Sent to
/// windows that `_WatchEnabling` was called for, and not passed on to their parents.
class TOLVAN_API _EnabledEvent : public wxEvent
{
public:
    explicit _EnabledEvent(bool enabled);
    wxEvent* Clone() const override { return new _EnabledEvent(*this); }
    bool     IsEnabled() const { return m_Enabled; }

private:
    bool m_Enabled;
};
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, _EVT_ENABLED, _EnabledEvent);

/// Has the window, which exists already, get `_EVT_ENABLED` from now on.
TOLVAN_API void _WatchEnabling(wxWindow& window);

/// Has the Tab key pass the window by whenever the function says no. The program and the mouse can
/// give it the focus all the same. Once for a window.
TOLVAN_API void _AskBeforeTab(wxWindow& window, bool (*isStop)(const wxWindow& window));

/// Has the focus stay in the window when an arrow key comes that it has no use for, or uses and
/// passes on: the port would move the focus to the neighbour on that side. Once for a window.
TOLVAN_API void _KeepFromArrows(wxWindow& window);
