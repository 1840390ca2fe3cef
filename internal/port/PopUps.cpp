#include "internal/port/PopUps.h"

#include "internal/port/TopWindows.h"

#include <wx/window.h>

namespace internal
{
namespace
{
constexpr int kMostMenus = 20; // one in the other

// The innermost one that is open.
bool CloseMenu()
{
    GtkWidget* const menu = gtk_grab_get_current();
    const bool       isOpen = GTK_IS_MENU_SHELL(menu);
    if (isOpen)
    {
        gtk_menu_shell_cancel(GTK_MENU_SHELL(menu));
    }
    return isOpen;
}

// A message box or a file dialog; those of our own are none of the port's. The search in a file
// dialog's list takes the input of all other windows, and goes with its dialog.
bool CloseStockDialog()
{
    GtkWidget* const holder = gtk_grab_get_current();
    GtkWidget* const box = IsPopUp(holder) ? ActiveWindow() : holder;
    const bool       isOpen = GTK_IS_DIALOG(box);
    if (isOpen)
    {
        gtk_dialog_response(GTK_DIALOG(box), GTK_RESPONSE_DELETE_EVENT);
    }
    return isOpen;
}
} // namespace

bool IsShutOut(const wxWindow& window)
{
    GtkWidget* const holder = gtk_grab_get_current();
    return holder && gtk_widget_get_toplevel(holder) != gtk_widget_get_toplevel(window.GetHandle());
}

void ShutOutOthers(wxWindow& window)
{
    gtk_window_set_modal(GTK_WINDOW(window.GetHandle()), TRUE);
}

bool ClosePopUps()
{
    int closed = 0;
    for (; closed < kMostMenus && CloseMenu(); ++closed)
    {
    }
    return closed > 0 || CloseStockDialog();
}
} // namespace internal
