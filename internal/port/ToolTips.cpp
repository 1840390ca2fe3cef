#include "internal/port/ToolTips.h"

#include <gtk/gtk.h>
#include <wx/window.h>

namespace internal
{
// The toolkit looks for itself when its loop is idle: until then a new text may have come.
void UnsetToolTipHere(wxWindow& window)
{
    if (window.GetToolTipText().empty())
    {
        return;
    }
    window.UnsetToolTip();
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
} // namespace internal
