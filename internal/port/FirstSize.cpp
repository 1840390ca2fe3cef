#include "internal/port/FirstSize.h"

#include <wx/window.h>

#include <gtk/gtk.h>

namespace internal
{
namespace
{
#if GTK_CHECK_VERSION(3, 0, 0)
// The text of a control is measured anew when its style is told to have changed.
void TakeFont(GtkWidget* widget, void*)
{
    g_signal_emit_by_name(widget, "style-updated");
    gtk_widget_queue_resize(widget);
    if (GTK_IS_CONTAINER(widget))
    {
        gtk_container_forall(GTK_CONTAINER(widget), TakeFont, nullptr);
    }
}
#else
void TakeFont(GtkWidget* widget, void*)
{
    gtk_widget_ensure_style(widget);
    if (GTK_IS_CONTAINER(widget))
    {
        gtk_container_forall(GTK_CONTAINER(widget), TakeFont, nullptr);
    }
}
#endif

void ForgetSizes(wxWindow& window)
{
    for (wxWindow* const child : window.GetChildren())
    {
        if (!child->IsTopLevel())
        {
            ForgetSizes(*child);
            child->InvalidateBestSize();
        }
    }
}
} // namespace

void TakeFonts(wxWindow& window)
{
    if (GtkWidget* const widget = window.GetHandle())
    {
        TakeFont(widget, nullptr);
        ForgetSizes(window);
    }
}
} // namespace internal
