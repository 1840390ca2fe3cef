#include "internal/port/Layout.h"

#include <wx/window.h>

#include <gtk/gtk.h>

namespace internal
{
#if GTK_CHECK_VERSION(3, 0, 0)
namespace
{
// The mark goes when the widget is asked for its size.
void TakeMark(GtkWidget* widget, void*)
{
    GtkRequisition ignored;
    gtk_widget_get_preferred_size(widget, &ignored, nullptr);
    if (GTK_IS_CONTAINER(widget))
    {
        gtk_container_forall(GTK_CONTAINER(widget), TakeMark, nullptr);
    }
}

bool HasChildren(GtkWidget* widget)
{
    GList* const children = gtk_container_get_children(GTK_CONTAINER(widget));
    g_list_free(children);
    return children;
}

// Who is laid out puts its children in their places. Scrolled windows, which are dear, are so only
// with what lies in them.
void AskAgain(GtkWidget* widget, void*)
{
    if (GTK_IS_CONTAINER(widget))
    {
        gtk_container_forall(GTK_CONTAINER(widget), AskAgain, nullptr);
        if (!GTK_IS_SCROLLED_WINDOW(widget) && HasChildren(widget))
        {
            gtk_widget_queue_resize_no_redraw(widget);
        }
    }
}
} // namespace

void FinishLayout(wxWindow& top)
{
    if (GtkWidget* const widget = top.GetHandle())
    {
        TakeMark(widget, nullptr);
        AskAgain(widget, nullptr);
        gtk_container_check_resize(GTK_CONTAINER(widget));
        TakeMark(widget, nullptr); // of what asked for a layout meanwhile
    }
}
#else
void FinishLayout(wxWindow&)
{
}
#endif
} // namespace internal
