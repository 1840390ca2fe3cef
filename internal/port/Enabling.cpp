#include "internal/port/Enabling.h"

#include "internal/port/SignalData.h"

#include <wx/weakref.h>
#include <wx/window.h>

namespace internal
{
wxDEFINE_EVENT(EVT_ENABLED, EnabledEvent);

namespace
{
struct Watched
{
    wxWeakRef<wxWindow> window;
    bool                enabled;
};

// The state is more than being enabled, and changes with the mouse, too.
void OnState(GtkWidget*, int, Watched* watched)
{
    wxWindow* const window = watched->window;
    if (!window || window->IsBeingDeleted() || window->IsEnabled() == watched->enabled)
    {
        return;
    }
    watched->enabled = !watched->enabled;
    EnabledEvent event(watched->enabled);
    event.SetEventObject(window);
    event.SetId(window->GetId());
    // No exception may pass the port's own code.
    window->GetEventHandler()->SafelyProcessEvent(event);
}
} // namespace

EnabledEvent::EnabledEvent(bool enabled) : wxEvent(wxID_ANY, EVT_ENABLED), m_Enabled(enabled)
{
}

void WatchEnabling(wxWindow& window)
{
    static const char* const kWatched = "tolvan-enabling-watched";
    GtkWidget* const         widget = window.GetHandle();
    if (g_object_get_data(G_OBJECT(widget), kWatched))
    {
        return;
    }
    g_object_set_data(G_OBJECT(widget), kWatched, widget);
    // Of two names: the first is unknown to the GTK 2 port.
    const bool        hasFlags = g_signal_lookup("state-flags-changed", GTK_TYPE_WIDGET) != 0;
    const char* const signal = hasFlags ? "state-flags-changed" : "state-changed";
    Connect(widget, signal, OnState, new Watched{&window, window.IsEnabled()});
}
} // namespace internal
