#include "internal/port/LostFocus.h"

#include "internal/port/SignalData.h"

#include <wx/toplevel.h>
#include <wx/weakref.h>

#include <algorithm>
#include <vector>

namespace internal
{
wxDEFINE_EVENT(EVT_FOCUS_LOST, FocusLostEvent);

namespace
{
// Under which a widget keeps that it, or the window that it belongs to, is watched.
const char* const kWatched = "tolvan-focus-watched";

using Watched = wxWeakRef<wxWindow>;

// The watched window that the widget belongs to, or lies in; null without one.
wxWindow* WatchedWindow(GtkWidget* widget)
{
    for (; widget; widget = gtk_widget_get_parent(widget))
    {
        if (const void* const watched = g_object_get_data(G_OBJECT(widget), kWatched))
        {
            return *static_cast<const Watched*>(watched);
        }
    }
    return nullptr;
}

// Whether anybody has taken the focus. `fromHere`: who comes behind the widget only.
bool MoveForward(GtkWidget* widget, bool fromHere)
{
    GtkWidget* child = widget;
    while (GtkWidget* const parent = gtk_widget_get_parent(child))
    {
        gtk_container_set_focus_child(GTK_CONTAINER(parent), fromHere ? child : nullptr);
        child = parent;
    }
    gboolean hasMoved = FALSE;
    g_signal_emit_by_name(child, "focus", GTK_DIR_TAB_FORWARD, &hasMoved);
    return hasMoved;
}

bool NobodyHasIt(const wxWindow* top)
{
    return top && GTK_IS_WINDOW(top->GetHandle()) && top->IsShown() && !top->IsBeingDeleted() &&
           !gtk_window_get_focus(GTK_WINDOW(top->GetHandle()));
}

// From where it was, which the port has forgotten together with the focus; then from the start.
void MoveOn(GtkWidget* from)
{
    if (!MoveForward(from, true))
    {
        MoveForward(from, false);
    }
}

// The window, and where the focus goes on when that is gone: what comes behind it, then what it
// lies in; the same for that.
std::vector<Watched> WaysOn(wxWindow* window)
{
    std::vector<Watched> ways{window};
    for (; !window->IsTopLevel(); window = window->GetParent())
    {
        ways.emplace_back(window->GetNextSibling());
        ways.emplace_back(window->GetParent());
    }
    return ways;
}

void GoOn(const std::vector<Watched>& ways, const wxWindow* top)
{
    if (wxWindow* const window = ways.front())
    {
        FocusLostEvent event(*window);
        window->GetEventHandler()->ProcessEvent(event);
        return;
    }
    const auto way = std::find_if(ways.begin(), ways.end(), [](auto& each) { return each.get(); });
    if (way != ways.end() && NobodyHasIt(top))
    {
        MoveOn((*way)->GetHandle());
    }
}

// Before the focus moves. Why it does shows later: it is hidden or destroyed after that.
void OnSetFocus(GtkWindow* top, GtkWidget* next, void*)
{
    wxWindow* const window = next ? nullptr : WatchedWindow(gtk_window_get_focus(top));
    wxWindow* const frame = window ? wxGetTopLevelParent(window) : nullptr;
    if (frame && !frame->IsBeingDeleted())
    {
        frame->CallAfter([ways = WaysOn(window), frame] { GoOn(ways, frame); });
    }
}

void OnFocusLost(FocusLostEvent& event)
{
    PassFocusOn(*static_cast<wxWindow*>(event.GetEventObject()));
}
} // namespace

FocusLostEvent::FocusLostEvent(wxWindow& window) : wxEvent(window.GetId(), EVT_FOCUS_LOST)
{
    SetEventObject(&window);
}

void WatchFocus(wxWindow& window)
{
    auto* const     widget = G_OBJECT(window.GetHandle());
    const wxWindow* top = wxGetTopLevelParent(&window);
    if (g_object_get_data(widget, kWatched) || !top || top == &window)
    {
        return;
    }
    g_object_set_data_full(widget, kWatched, new Watched(&window),
                           [](void* watched) { delete static_cast<Watched*>(watched); });
    window.Bind(EVT_FOCUS_LOST, OnFocusLost);
    if (GTK_IS_WINDOW(top->GetHandle()) &&
        !g_signal_handler_find(top->GetHandle(), G_SIGNAL_MATCH_FUNC, 0, 0, nullptr,
                               reinterpret_cast<void*>(OnSetFocus), nullptr))
    {
        g_signal_connect(top->GetHandle(), "set-focus", G_CALLBACK(OnSetFocus), nullptr);
    }
}

void PassFocusOn(wxWindow& window)
{
    const bool canHaveIt = window.IsEnabled() && window.IsShownOnScreen();
    if (!canHaveIt && NobodyHasIt(wxGetTopLevelParent(&window)))
    {
        MoveOn(window.GetHandle());
    }
}
} // namespace internal
