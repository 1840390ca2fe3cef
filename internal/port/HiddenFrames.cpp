#include "internal/port/HiddenFrames.h"

#include <gtk/gtk.h>

namespace internal
{
namespace
{
// The window manager tells by a property of the window.
void HearOfProperties(GtkWidget* widget, bool hears)
{
    GdkWindow* const window = gtk_widget_get_window(widget);
    if (GTK_IS_WINDOW(widget) && window)
    {
        const int events = gdk_window_get_events(window);
        gdk_window_set_events(window, GdkEventMask(hears ? events | GDK_PROPERTY_CHANGE_MASK
                                                         : events & ~GDK_PROPERTY_CHANGE_MASK));
    }
}

gboolean OnHide(GSignalInvocationHint*, guint, const GValue* values, void*)
{
    HearOfProperties(static_cast<GtkWidget*>(g_value_get_object(values)), false);
    return TRUE; // the next time too
}

gboolean OnShow(GSignalInvocationHint*, guint, const GValue* values, void*)
{
    HearOfProperties(static_cast<GtkWidget*>(g_value_get_object(values)), true);
    return TRUE;
}
} // namespace

void ForgetHiddenFrames()
{
    static const gulong s_Hooks[] = {
        g_signal_add_emission_hook(g_signal_lookup("hide", GTK_TYPE_WIDGET), 0, OnHide, nullptr,
                                   nullptr),
        g_signal_add_emission_hook(g_signal_lookup("show", GTK_TYPE_WIDGET), 0, OnShow, nullptr,
                                   nullptr)};
    static_cast<void>(s_Hooks);
}
} // namespace internal
