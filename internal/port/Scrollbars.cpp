#include "internal/port/Scrollbars.h"

#include <wx/window.h>

#include <gtk/gtk.h>

#include <vector>

namespace internal
{
namespace
{
// Not handled: the key goes on to the window's parents.
gboolean StopScrollKey(GtkWidget* widget, GtkScrollType, gboolean, void*)
{
    g_signal_stop_emission_by_name(widget, "scroll-child");
    return FALSE;
}
} // namespace

void UseSolidScrollbars(wxWindow& window)
{
    // By name: the GTK 2 port has no such property, and nothing to be told.
    static const char* const kProperty = "overlay-scrolling";
    GtkWidget* const         widget = window.GetHandle();
    if (widget && g_object_class_find_property(G_OBJECT_GET_CLASS(widget), kProperty))
    {
        g_object_set(widget, kProperty, FALSE, nullptr);
    }
}

#if GTK_CHECK_VERSION(3, 0, 0)
void MoveContent(wxWindow& window, const std::function<void()>& move)
{
    std::vector<GtkWidget*> hidden;
    for (const wxWindow* const child : window.GetChildren())
    {
        if (!child->IsTopLevel() && !gtk_widget_get_visible(child->GetHandle()))
        {
            hidden.push_back(child->GetHandle());
            // Visible by name only: it is not mapped.
            gtk_widget_set_child_visible(hidden.back(), FALSE);
            gtk_widget_show(hidden.back());
        }
    }
    move();
    for (GtkWidget* const widget : hidden)
    {
        gtk_widget_hide(widget);
        gtk_widget_set_child_visible(widget, TRUE);
    }
}
#else
void MoveContent(wxWindow&, const std::function<void()>& move)
{
    move();
}
#endif

#if GTK_CHECK_VERSION(3, 16, 0)
namespace
{
// Not shown, but scrolled all the same.
constexpr GtkPolicyType kHidden = GTK_POLICY_EXTERNAL;

wxSize LeastOf(GtkWidget* bar)
{
    wxSize least;
    gtk_widget_get_preferred_width(bar, &least.x, nullptr);
    gtk_widget_get_preferred_height(bar, &least.y, nullptr);
    return least;
}

GtkPolicyType Fitting(GtkPolicyType policy, bool fits)
{
    if (fits)
    {
        return policy == kHidden ? GTK_POLICY_AUTOMATIC : policy;
    }
    return policy == GTK_POLICY_NEVER ? policy : kHidden;
}
} // namespace

void FitScrollbars(wxWindow& window, const wxSize& size)
{
    if (!GTK_IS_SCROLLED_WINDOW(window.GetHandle()))
    {
        return;
    }
    auto* const   scrolled = GTK_SCROLLED_WINDOW(window.GetHandle());
    const wxSize  across = LeastOf(gtk_scrolled_window_get_hscrollbar(scrolled));
    const wxSize  down = LeastOf(gtk_scrolled_window_get_vscrollbar(scrolled));
    const bool    hasDown = size.x >= down.x && size.y >= down.y;
    const bool    hasBoth = size.x >= across.x + down.x && size.y >= across.y + down.y;
    GtkPolicyType horizontal = GTK_POLICY_NEVER;
    GtkPolicyType vertical = GTK_POLICY_NEVER;
    gtk_scrolled_window_get_policy(scrolled, &horizontal, &vertical);
    gtk_scrolled_window_set_policy(scrolled, Fitting(horizontal, hasBoth),
                                   Fitting(vertical, hasDown));
}
#else
void FitScrollbars(wxWindow&, const wxSize&)
{
}
#endif

void RefuseNativeScrollKeys(wxWindow& window)
{
    GtkWidget* const widget = window.GetHandle();
    if (GTK_IS_SCROLLED_WINDOW(widget))
    {
        g_signal_connect(widget, "scroll-child", G_CALLBACK(StopScrollKey), nullptr);
    }
}

void EndScrollbarPress(wxWindow& window)
{
    if (!GTK_IS_SCROLLED_WINDOW(window.GetHandle()))
    {
        return;
    }
    auto* const scrolled = GTK_SCROLLED_WINDOW(window.GetHandle());
    for (GtkWidget* const bar : {gtk_scrolled_window_get_vscrollbar(scrolled),
                                 gtk_scrolled_window_get_hscrollbar(scrolled)})
    {
        if (bar)
        {
            GdkEvent* const event = gdk_event_new(GDK_BUTTON_RELEASE);
            gboolean        handled = FALSE;
            g_signal_emit_by_name(bar, "button-release-event", event, &handled);
            gdk_event_free(event);
        }
    }
}
} // namespace internal
