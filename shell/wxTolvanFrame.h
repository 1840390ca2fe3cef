#pragma once

#include "appearance/wxTolvanColors.h"
#include "vesta/Export.h"
#include "vesta/Signal.h"
#include "vesta/String.h"

#include <wx/frame.h>

#include <set>

/// Stores the window's position and size under `name` in the options file.
TOLVAN_API void wxSaveWindowPos(wxWindow* window, const String& name);
/// Puts the window where `wxSaveWindowPos` found it, `offset` pixels further right and down, and
/// raises it. Without a usable stored geometry, or when that lies on no display, the window is
/// centred on its parent.
TOLVAN_API void wxSetWindowPos(wxWindow* window, const String& name, int offset);

/// Base of the programs' top-level frames: remembers position, normal size, maximised and
/// full-screen state, and switches the colour scheme of the whole program. The first frame made is
/// the main frame. Main thread.
class TOLVAN_API wxTolvanFrame : public wxFrame, public wxtColorManaged
{
public:
    /// A frame without parent. The first one becomes the main frame and loads the colour scheme; a
    /// later one belongs to the main frame and goes with it.
    explicit wxTolvanFrame(const wxString& title, const wxPoint& position = wxDefaultPosition,
                           const wxSize& size = wxDefaultSize, long style = wxDEFAULT_FRAME_STYLE);
    /// A tool frame that floats over its parent. It too goes with the main frame.
    wxTolvanFrame(wxWindow* parent, const wxString& title, long style);
    ~wxTolvanFrame() override;

    static wxTolvanFrame* s_Frame; ///< The main frame, or null.
    /// Loses all its slots whenever a frame is destroyed.
    static Signal0<> s_WinClosed;

    /// The frame's normal size has been restored, or its size has changed otherwise. `restoring`:
    /// it has just left the maximised or full-screen state.
    virtual void SizeHasChanged(const wxSize& newSize, const wxSize& oldSize, bool restoring);
    virtual void PositionHasChanged(const wxPoint& newPos, const wxPoint& oldPos);

    /// Takes position, size and state from section "Window" of the options file. A frame that was
    /// minimised comes back open.
    void LoadWindowPosition();
    void SaveWindowPosition() const;

    static bool IsMenuOpen(); ///< Whether a menu of a frame is open.
    /// Closes the menu, message box or file dialog of the toolkit that is open. Whether there was
    /// one: whoever showed it has still to get the control back before the window may go.
    static bool ClosePopUp();

    /// Switches the scheme of this program, saves it and tells the system's other programs. A
    /// negative code changes nothing. The current code.
    static int SetColorScheme(int scheme);
    /// Makes all frames and dialogs of this program take their colours from the table again.
    static void ProcessColorChange();

    wxVisualAttributes GetDefaultAttributes() const override;

protected:
    /// Set by the derived frame when its interface is complete: moves and sizes before that are the
    /// toolkit's own and are not remembered.
    bool m_Built = false;

private:
    void BecomeMainFrame();
    void JoinMainFrame();
    void NoteState();
    void OnMove(wxMoveEvent& event);
    void OnSize(wxSizeEvent& event);
    void OnMenuOpen(wxMenuEvent& event);
    void OnMenuClose(wxMenuEvent& event);
    void OnActivate(wxActivateEvent& event);

    wxPoint m_Position;   ///< While neither iconised, maximised nor full screen.
    wxSize  m_LastSize;   ///< Of the last size event that was acted on.
    wxSize  m_NormalSize; ///< To return to from the maximised or full-screen state.
    bool    m_WasMaximized = false;
    bool    m_WasFullScreen = false;
    bool    m_MaximizedBehind = false; ///< What leaving the full-screen state leads to.

    static bool s_MenuOpen;

    wxDECLARE_EVENT_TABLE();
};

/// All other frames of the program, tool frames too.
extern TOLVAN_API std::set<wxTolvanFrame*> g_ChildFrames;
