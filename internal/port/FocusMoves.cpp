#include "internal/port/FocusMoves.h"

#include "internal/port/SignalData.h"

#include <wx/toplevel.h>
#include <wx/weakref.h>
#include <wx/window.h>

namespace internal
{
namespace
{
struct TabStop
{
    wxWeakRef<wxWindow> window;
    bool (*isStop)(const wxWindow& window);
};

struct ArrowStop
{
    wxWeakRef<wxWindow> window;
};

// Asked of every widget on the way of the Tab key, before it takes the focus.
gboolean OnFocusMove(GtkWidget* widget, GtkDirectionType, TabStop* asked)
{
    const wxWindow* const window = asked->window;
    if (window && !asked->isStop(*window))
    {
        g_signal_stop_emission_by_name(widget, "focus");
    }
    return FALSE; // the focus has not been taken
}

// Asked of the widget that has the focus first.
gboolean OnArrowMove(GtkWidget*, GtkDirectionType direction, ArrowStop* kept)
{
    const bool isTab = direction == GTK_DIR_TAB_FORWARD || direction == GTK_DIR_TAB_BACKWARD;
    return kept->window && kept->window->HasFocus() && !isTab; // where it shall be
}
} // namespace

void FocusWithin(wxWindow& window)
{
    auto* const top = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(&window));
    if (top && top->IsShown() && !top->IsActive())
    {
        gtk_widget_grab_focus(window.m_wxwindow ? window.m_wxwindow : window.GetHandle());
    }
    else
    {
        window.SetFocus();
    }
}

void AskBeforeTab(wxWindow& window, bool (*isStop)(const wxWindow& window))
{
    Connect(window.GetHandle(), "focus", OnFocusMove, new TabStop{&window, isStop});
}

void KeepFromArrows(wxWindow& window)
{
    Connect(window.GetHandle(), "focus", OnArrowMove, new ArrowStop{&window});
}
} // namespace internal
