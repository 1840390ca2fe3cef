#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/event.h>
#include <wx/menu.h>
#include <wx/weakref.h>

#include <vector>

class wxTopLevelWindow;

/// Registers a window that the user has opened, so that the window menu lists it until it closes.
/// A non-empty name groups it with others under a heading. A visible window that was never given a
/// real size is brought to the middle of the main window's display.
TOLVAN_API void wxOpenUserWindow(wxTopLevelWindow* window, const String& name);
/// The window menu, filled anew: whoever shows it asks for it every time. It may be put into a menu
/// bar or another menu, which then owns it; else the registry does. In a menu bar it follows the
/// windows that open and close by itself.
TOLVAN_API wxMenu* wxGetOpenWindowMenu();

/// The windows that the user has opened beside the main one, and the menu that lists them.
/// Main thread.
class TOLVAN_API OpenWindows : public wxEvtHandler
{
public:
    /// Command ids of the menu.
    enum
    {
        id_MainWindow = 24000,
        id_FirstWindow = 24001,
        id_LastWindow = 24100, ///< More windows than fit are not listed.
        id_CloseAll = 24101,
        id_CollectAll = 24102
    };

    struct Datum
    {
        wxWeakRef<wxTopLevelWindow> window; ///< Null once it is gone without having been closed.
        String                      group;
    };

    static OpenWindows* const _this; ///< The only one.

    OpenWindows();
    ~OpenWindows() override;

    void    AddWindow(wxTopLevelWindow* window, const String& name);
    wxMenu* GetMenu();
    /// Forgets all windows, and deletes the menu unless somebody else owns it. Called at exit.
    void Clear();

    /// Takes the window off the list, even if another handler then vetoes the close.
    void OnClose(wxCloseEvent& event);
    /// Ids of windows are places in the list as it is now, not as it was when the menu was filled.
    void OnCommand(wxCommandEvent& event);
    /// Puts the window in the middle of the display that `reference` lies on, at least half as
    /// large as the reference window. Nothing without both.
    void CenterOnDisplay(wxWindow* reference, wxWindow* window);

private:
    void BindTo(wxWindow* top);
    void RefillLater();
    void DropDeadWindows();
    void AppendWindows(wxMenu& menu);
    void RaiseWindow(size_t place);
    void CloseAll();
    void CollectAll();

    std::vector<Datum> m_Windows;
    wxWeakRef<wxMenu>  m_Menu; ///< Null before it is asked for, or when its owner has deleted it.
};
