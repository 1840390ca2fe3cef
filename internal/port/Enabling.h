#pragma once

#include <wx/event.h>

class wxWindow;

namespace internal
{
/// A window has been enabled or disabled: by itself, or with a window that it lies in, of which the
/// toolkit tells nobody. Sent to windows that `WatchEnabling` was called for, and not passed on to
/// their parents.
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
} // namespace internal
