#pragma once

#include "appearance/tabs/TabRow.h"

#include <wx/aui/auibook.h>
#include <wx/weakref.h>

class wxtNotebook;
class wxtTabArt;

namespace internal
{
class EnabledEvent;
}

namespace appearance
{
/// Draws the tabs of one pane of a notebook, and takes what pointer and wheel do to them, in place
/// of the toolkit's own handlers: these look at every tab for each of them, and begin presses that
/// they do not end. Keeps nothing of the tabs but how far they are scrolled.
class TabStrip : public wxEvtHandler
{
public:
    TabStrip(wxtNotebook& book, wxAuiTabCtrl& tabs);

    wxAuiTabCtrl* Tabs() const { return m_Tabs; } ///< Null once they are gone.
    TabRow        Row() const;
    /// Where the row of tabs is on the screen.
    wxRect ScreenRect() const;
    /// Scrolls as little as needed for a tab to be seen.
    void ShowTab(int index);
    /// Where the menu or the list of a tab opens.
    wxPoint BelowTab(int index) const;

private:
    struct Spot
    {
        enum Part
        {
            nothing,
            tab,
            slot, ///< The close button of a tab.
            button
        };
        Part                part = nothing;
        int                 index = -1; ///< Of the tab or the button.
        wxWeakRef<wxWindow> page;

        bool operator==(const Spot& other) const
        {
            return part == other.part && index == other.index && page == other.page;
        }
    };

    wxtTabArt& Art() const;
    bool       HasCloseButton(const wxAuiNotebookPage& page) const;
    int        SlotState(const wxAuiNotebookPage& page, int index) const;
    int        ButtonState(const TabRow& row, int button) const;
    bool       CanPress(const TabRow& row, int button) const;
    TabRow     RowWith(int shown) const;
    Spot       SpotAt(const wxPoint& point) const;
    void       Hover(const Spot& spot);
    void       HoverAt(const wxPoint& point);
    void       HoverNothing();
    void       FollowTabs();
    void       SetTip(const Spot& spot);
    void       PressButton(int button);
    void       Scroll(int tabs);
    bool       IsDragStart(const wxPoint& point) const;
    bool       Tell(wxEventType type, const wxWindow* page);

    void OnPaint(wxPaintEvent& event);
    void OnLeftDown(wxMouseEvent& event);
    void OnLeftUp(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnLeave(wxMouseEvent& event);
    void OnMiddle(wxMouseEvent& event);
    void OnRight(wxMouseEvent& event);
    void OnChar(wxKeyEvent& event);
    void OnWheel(wxMouseEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnEnabled(internal::EnabledEvent& event);
    void OnCaptureLost(wxMouseCaptureLostEvent& event);
    void OnDestroy(wxWindowDestroyEvent& event);
    void OnSize(wxSizeEvent& event);

    wxtNotebook&            m_Book;
    wxWeakRef<wxAuiTabCtrl> m_Tabs;
    Spot                    m_Hover;
    bool                    m_IsPointerIn = false;
    wxPoint                 m_Pointer;    ///< Where it was last; client area.
    Spot                    m_Press;      ///< Of the left button.
    wxPoint                 m_PressPoint; ///< Client area.
    Spot                    m_MiddlePress;
    int                     m_WheelTurn = 0;
    int                     m_Width = 0; ///< Pixels.
};
} // namespace appearance
