#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/event.h>
#include <wx/weakref.h>

#include <vector>

class wxMenu;
class wxTopLevelWindow;

/// Registers a window that the user has opened, so that the window menu lists it until it closes.
/// A non-empty name groups it with others under a heading. A visible window that was never given a
/// real size is brought to the middle of the main window's display.
TOLVAN_API void wxOpenUserWindow(wxTopLevelWindow* window, const String& name);
/// The window menu, filled anew. Owned by the registry: whoever shows it asks for it every time.
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
    /// Forgets all windows.
    void Clear();
    /// The number of windows that are registered and alive.
    size_t Count();

    void OnClose(wxCloseEvent& event);
    void OnCommand(wxCommandEvent& event);
    /// Puts the window in the middle of the display that `reference` lies on, at least half as
    /// large as the reference window.
    void CenterOnDisplay(wxWindow* reference, wxWindow* window);

private:
    void DropDeadWindows();
    void AppendWindows(wxMenu& menu);

    std::vector<Datum> m_Windows;
    wxMenu*            m_Menu = nullptr;
};
