#include "internal/port/ToolTips.h"

#include "internal/port/TopWindows.h"

#include <gtk/gtk.h>
#include <wx/window.h>

#include <utility>

namespace internal
{
namespace
{
bool s_areRefused = false;

bool IsBelowOther(GtkWidget* widget)
{
    GtkWidget* const holder = gtk_grab_get_current();
    GtkWidget* const top = gtk_widget_get_toplevel(widget);
    return holder && gtk_widget_get_toplevel(holder) != top && !IsPopUp(top);
}

// In place of the toolkit's own answer.
gboolean MayShow(GtkWidget* widget, gint x, gint y, gboolean isByKey, GtkTooltip* tip)
{
    gboolean isShown = FALSE;
    if ((!s_areRefused || isByKey) && !IsBelowOther(widget))
    {
        g_signal_chain_from_overridden_handler(widget, x, y, isByKey, tip, &isShown);
    }
    return isShown;
}
} // namespace

// The toolkit looks for itself when its loop is idle: until then a new text may have come.
void UnsetToolTipHere(wxWindow& window)
{
    if (window.GetToolTipText().empty())
    {
        return;
    }
    window.UnsetToolTip();
    LookAtToolTip(window);
}

void LookAtToolTip(const wxWindow& window)
{
    GtkWidget* const widget = window.GetHandle();
    if (widget && gtk_widget_get_realized(widget))
    {
        gtk_widget_trigger_tooltip_query(widget);
    }
}

void SetToolTipHere(wxWindow& window, const wxString& text)
{
    if (text != window.GetToolTipText())
    {
        UnsetToolTipHere(window);
        window.SetToolTip(text);
    }
}

void RefuseToolTips(bool refuse)
{
    s_areRefused = refuse;
}

void KeepToolTipsBelow()
{
    static bool s_isDone = false;
    if (!std::exchange(s_isDone, true))
    {
        g_type_class_ref(GTK_TYPE_WIDGET); // or the signal might not be there yet
        g_signal_override_class_handler("query-tooltip", GTK_TYPE_WIDGET, G_CALLBACK(&MayShow));
    }
}
} // namespace internal
