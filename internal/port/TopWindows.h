#pragma once

#include <gtk/gtk.h>

#include <memory>

namespace internal
{
struct FreeList
{
    void operator()(GList* list) const { g_list_free(list); }
};
/// A list of the port, but not what it holds.
using List = std::unique_ptr<GList, FreeList>;

/// Whether it is a menu, a tooltip or a list that has popped up. A dialog is of another kind.
inline bool IsPopUp(GtkWidget* widget)
{
    return GTK_IS_WINDOW(widget) &&
           gtk_window_get_window_type(GTK_WINDOW(widget)) == GTK_WINDOW_POPUP;
}

/// The first top-level window of the program for which the function returns true, shown or not;
/// null without one.
template <class Accepts> GtkWidget* FindTopWindow(Accepts accepts)
{
    const List windows(gtk_window_list_toplevels());
    for (const GList* one = windows.get(); one; one = one->next)
    {
        if (accepts(GTK_WIDGET(one->data)))
        {
            return GTK_WIDGET(one->data);
        }
    }
    return nullptr;
}

/// The window that has the keyboard, as a dialog keeps it while something has popped up in it. Null
/// while the keyboard is another program's, or on its way from one window to the next.
inline GtkWidget* ActiveWindow()
{
    return FindTopWindow([](GtkWidget* window)
                         { return gtk_window_is_active(GTK_WINDOW(window)); });
}
} // namespace internal
