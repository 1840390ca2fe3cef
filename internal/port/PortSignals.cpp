#include "internal/port/PortSignals.h"

#include <wx/weakref.h>
#include <wx/window.h>

#include <glib-object.h>

namespace internal
{
wxDEFINE_EVENT(EVT_ENABLED, EnabledEvent);

namespace
{
struct Enabling
{
    wxWeakRef<wxWindow> window;
    bool                enabled;
};

struct TabStop
{
    wxWeakRef<wxWindow> window;
    bool (*isStop)(const wxWindow& window);
};

struct ArrowStop
{
    wxWeakRef<wxWindow> window;
};

template <class Data> void Free(void* data, GClosure*)
{
    delete static_cast<Data*>(data);
}

GObject* WidgetOf(wxWindow& window)
{
    return reinterpret_cast<GObject*>(window.GetHandle());
}

// The state is more than being enabled, and changes with the mouse, too.
void OnState(GObject*, int, Enabling* watched)
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

// Asked of every widget on the way of the Tab key, before it takes the focus.
gboolean OnFocusMove(GObject* widget, int, TabStop* asked)
{
    const wxWindow* const window = asked->window;
    if (window && !asked->isStop(*window))
    {
        g_signal_stop_emission_by_name(widget, "focus");
    }
    return FALSE; // the focus has not been taken
}

// Asked of the widget that has the focus first.
gboolean OnArrowMove(GObject*, int direction, ArrowStop* kept)
{
    constexpr int kLastTab = 1; // the port counts both ways of the Tab key before the four arrows
    return kept->window && kept->window->HasFocus() && direction > kLastTab; // where it shall be
}

template <class Data, class Handler>
void Connect(GObject* widget, const char* signal, Handler* handler, Data* data)
{
    g_signal_connect_data(widget, signal, reinterpret_cast<GCallback>(handler), data, Free<Data>,
                          GConnectFlags{});
}
} // namespace

EnabledEvent::EnabledEvent(bool enabled) : wxEvent(wxID_ANY, EVT_ENABLED), m_Enabled(enabled)
{
}

void WatchEnabling(wxWindow& window)
{
    static const char* const kWatched = "tolvan-enabling-watched";
    GObject* const           widget = WidgetOf(window);
    if (g_object_get_data(widget, kWatched))
    {
        return;
    }
    g_object_set_data(widget, kWatched, widget);
    // Of two names: the first is unknown to the GTK 2 port.
    const bool        hasFlags = g_signal_lookup("state-flags-changed", G_OBJECT_TYPE(widget)) != 0;
    const char* const signal = hasFlags ? "state-flags-changed" : "state-changed";
    Connect(widget, signal, OnState, new Enabling{&window, window.IsEnabled()});
}

void AskBeforeTab(wxWindow& window, bool (*isStop)(const wxWindow& window))
{
    Connect(WidgetOf(window), "focus", OnFocusMove, new TabStop{&window, isStop});
}

void KeepFromArrows(wxWindow& window)
{
    Connect(WidgetOf(window), "focus", OnArrowMove, new ArrowStop{&window});
}
} // namespace internal
