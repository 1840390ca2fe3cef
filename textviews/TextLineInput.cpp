#include "internal/input/PadKey.h"
#include "textviews/drawing/FontExtents.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

#include <wx/menu.h>
#include <wx/weakref.h>

#include <algorithm>
#include <climits>
#include <cstdlib>

namespace
{
/// What a key with or without Ctrl scrolls.
struct KeyScroll
{
    int                key;
    const wxEventType& plain; ///< References: event types get their values at start-up.
    const wxEventType& withCtrl;
    int                orientation;
};

// Home and End scroll sideways with Ctrl too: the way to the first and the last line is Ctrl with
// Page Up and Page Down, and the menu, although that shows other keys.
const KeyScroll kKeyScrolls[] = {
    {WXK_HOME, wxEVT_SCROLLWIN_TOP, wxEVT_SCROLLWIN_TOP, wxHORIZONTAL},
    {WXK_END, wxEVT_SCROLLWIN_BOTTOM, wxEVT_SCROLLWIN_BOTTOM, wxHORIZONTAL},
    {WXK_LEFT, wxEVT_SCROLLWIN_LINEUP, wxEVT_SCROLLWIN_LINEUP, wxHORIZONTAL},
    {WXK_RIGHT, wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_LINEDOWN, wxHORIZONTAL},
    {WXK_UP, wxEVT_SCROLLWIN_LINEUP, wxEVT_SCROLLWIN_LINEUP, wxVERTICAL},
    {WXK_DOWN, wxEVT_SCROLLWIN_LINEDOWN, wxEVT_SCROLLWIN_LINEDOWN, wxVERTICAL},
    {WXK_PAGEUP, wxEVT_SCROLLWIN_PAGEUP, wxEVT_SCROLLWIN_TOP, wxVERTICAL},
    {WXK_PAGEDOWN, wxEVT_SCROLLWIN_PAGEDOWN, wxEVT_SCROLLWIN_BOTTOM, wxVERTICAL},
};

struct MenuEntry
{
    int         id; ///< 0 for a separator.
    const char* label;
};

constexpr MenuEntry kStandardEntries[] = {
    {wxTextLineCtrl::id_SaveAs, wxTRANSLATE("Save As...\tCtrl+S")},
    {0, nullptr},
    {wxTextLineCtrl::id_Search, wxTRANSLATE("Search...\tCtrl+F")},
    {0, nullptr},
    {wxTextLineCtrl::id_SelectAll, wxTRANSLATE("Select All\tCtrl+A")},
    {wxTextLineCtrl::id_SelectNone, wxTRANSLATE("Select None\tEsc")},
    {0, nullptr},
    {wxTextLineCtrl::id_Copy, wxTRANSLATE("Copy\tCtrl+C")},
    {wxTextLineCtrl::id_CopyPlain, wxTRANSLATE("Copy as Plain Text")},
    {0, nullptr},
    {wxTextLineCtrl::id_ScrollToTop, wxTRANSLATE("Scroll to Top\tCtrl+Home")},
    {wxTextLineCtrl::id_ScrollToBottom, wxTRANSLATE("Scroll to Bottom\tCtrl+End")},
};
} // namespace

void wxTextLineCtrl::OnLeftClick(wxMouseEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnLeftClick");
    if (!TakeFocus())
    {
        return;
    }
    m_Selecting = true;
    const int line = Geometry().LineAt(event.GetY());
    if (BeginPart(event, line))
    {
        // no lines, then
    }
    else if (event.ShiftDown() && m_Selection->Place() != -1)
    {
        m_Selection->Drag(line, m_Lines->Count());
    }
    else
    {
        m_Selection->Click(line, m_Lines->Count());
    }
    GatherLater();
    HoldMouse();
}

void wxTextLineCtrl::OnLeftUp(wxMouseEvent&)
{
    CALL_ENTRY("wxTextLineCtrl::OnLeftUp");
    StopSelecting();
}

void wxTextLineCtrl::OnCaptureLoss(wxMouseCaptureLostEvent&)
{
    CALL_ENTRY("wxTextLineCtrl::OnCaptureLoss");
    StopSelecting();
}

void wxTextLineCtrl::OnMouseMove(wxMouseEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnMouseMove");
    const int line = Geometry().LineAt(event.GetY());
    SetHighlightLine(line);
    if (m_Selecting && m_Selection->Span().Line() != -1)
    {
        DragPart(event.GetPosition());
    }
    else if (m_Selecting)
    {
        m_Selection->Drag(line, m_Lines->Count());
        GatherLater();
        AutoScroll(event.GetY());
    }
}

// One line for every motion outside the view.
void wxTextLineCtrl::AutoScroll(int y)
{
    if (y < 0)
    {
        ScrollBy(wxEVT_SCROLLWIN_LINEUP, wxVERTICAL);
    }
    else if (y > GetClientSize().y)
    {
        ScrollBy(wxEVT_SCROLLWIN_LINEDOWN, wxVERTICAL);
    }
}

void wxTextLineCtrl::ScrollBy(wxEventType type, int orientation)
{
    wxScrollWinEvent event(type, 0, orientation);
    event.SetEventObject(this);
    Scroll(event);
}

void wxTextLineCtrl::ScrollToTop()
{
    CALL_ENTRY("wxTextLineCtrl::ScrollToTop");
    ScrollBy(wxEVT_SCROLLWIN_TOP, wxVERTICAL);
}

void wxTextLineCtrl::ScrollToBottom()
{
    CALL_ENTRY("wxTextLineCtrl::ScrollToBottom");
    ScrollBy(wxEVT_SCROLLWIN_BOTTOM, wxVERTICAL);
}

void wxTextLineCtrl::OnMouseLeave(wxMouseEvent&)
{
    CALL_ENTRY("wxTextLineCtrl::OnMouseLeave");
    SetHighlightLine(-1);
}

void wxTextLineCtrl::OnRightClick(wxMouseEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnRightClick");
    if (TakeFocus())
    {
        const bool isByKey = m_MenuPlace != wxDefaultPosition;
        m_MenuLine = isByKey ? m_Selection->Place() : Geometry().LineAt(event.GetY());
        wxMenu menu;
        HandleContextMenu(menu, true);
    }
}

void wxTextLineCtrl::HandleContextMenu(wxMenu& menu, bool addStandardItems)
{
    CALL_ENTRY("wxTextLineCtrl::HandleContextMenu");
    if (addStandardItems)
    {
        for (const MenuEntry& entry : kStandardEntries)
        {
            if (entry.id == 0)
            {
                menu.AppendSeparator();
            }
            else if (entry.id != id_CopyPlain || m_Escapes != Escapes::Raw)
            {
                menu.Append(entry.id, wxGetTranslation(entry.label));
            }
            if (entry.id == id_Search && GetSearchPanel() && GetSearchPanel()->OffersOnlyMatching())
            {
                menu.AppendCheckItem(id_OnlyMatching, _("Only Matching Lines\tCtrl+Shift+F"))
                    ->Check(GetSearchPanel()->GetOnlyMatching());
            }
        }
        AddReadingCommands(menu);
    }
    const wxWeakRef<wxTextLineCtrl> self(this);
    m_MenuIsOpen = true;
    PopupMenu(&menu, m_MenuPlace);
    if (self)
    {
        m_MenuIsOpen = false;
        m_MenuLine = -1;
    }
}

void wxTextLineCtrl::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnKey");
    event.Skip(); // the parent sees every key too
    const int key = internal::OffThePad(event.GetKeyCode());
    if (event.ShiftDown() && SelectByKey(key, event.ControlDown()))
    {
        return;
    }
    for (const KeyScroll& scroll : kKeyScrolls)
    {
        if (scroll.key == key)
        {
            ScrollBy(event.ControlDown() ? scroll.withCtrl : scroll.plain, scroll.orientation);
            return;
        }
    }
    if (OffersReadingCommands() && RunReadingCommand(ReadingCommandOf(event)))
    {
        return;
    }
    if (key == WXK_ESCAPE)
    {
        SelectNone();
        StopSearch();
        StopFindingError();
        StopSaving();
        StopCopying();
    }
    else if (key == WXK_F3)
    {
        FindAgain(!event.ShiftDown());
    }
    else if (event.ControlDown() && event.ShiftDown() && key == 'F')
    {
        ToggleOnlyMatching();
    }
    else if (event.ControlDown())
    {
        OnCtrlKey(key);
    }
}

// Moves the end of the selection, which begins with a line that is seen. False: it is another key.
bool wxTextLineCtrl::SelectByKey(int key, bool ctrl)
{
    const int count = m_Lines->Count();
    const int step = textviews::SelectionStep(key, ctrl, GetClientSize().y / m_LineHeight);
    if (step == 0)
    {
        return false;
    }
    if (count == 0)
    {
        return true;
    }
    if (m_Selection->Place() == -1)
    {
        m_Selection->Click(Geometry().WholeLine(step > 0), count);
    }
    else
    {
        const int  end = m_Selection->Place();
        const bool isByRows = IsWrapped() && std::abs(step) != 1 && std::abs(step) != INT_MAX;
        m_Selection->Drag(isByRows ? Wrap().LineAfterRows(end, step)
                                   : textviews::LineAfter(end, step, count),
                          count);
    }
    GatherLater();
    ShowLine(m_Selection->End());
    return true;
}

void wxTextLineCtrl::ShowLine(int line)
{
    if (IsWrapped())
    {
        GoToTop(Wrap().Showing(TopNow(), line));
        return;
    }
    const long long top = static_cast<long long>(line) * m_LineHeight;
    const long long last = top + m_LineHeight - GetClientSize().y;
    const int       position = GetScrollPos(wxVERTICAL);
    if (top < position || last > position)
    {
        ScrollTo(wxVERTICAL, top < position ? top : last);
    }
}

// By a key, which has no place: as a click with the right button there, for derived views with a
// menu of their own, too.
void wxTextLineCtrl::OnContextMenu(wxContextMenuEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnContextMenu");
    if (event.GetPosition() != wxDefaultPosition)
    {
        event.Skip();
        return;
    }
    const wxWeakRef<wxTextLineCtrl> self(this);
    const textviews::TextGeometry   geometry = Geometry();
    const int                       line = m_Selection->Place();
    const wxRect band = line < 0 ? wxRect(0, 0, 1, m_LineHeight) : geometry.BandOf(line);
    m_MenuPlace = wxPoint(geometry.textLeft + m_ColumnWidth,
                          std::clamp(band.GetBottom(), 0, geometry.client.y));
    wxMouseEvent press(wxEVT_RIGHT_DOWN);
    press.SetEventObject(this);
    press.SetPosition(m_MenuPlace);
    ProcessWindowEvent(press);
    if (self)
    {
        m_MenuPlace = wxDefaultPosition;
    }
}

void wxTextLineCtrl::OnCtrlKey(int key)
{
    switch (key)
    {
    case 'A':
        SelectAll();
        break;
    case 'C':
        BeginCopying();
        break;
    case 'F':
        ToggleSearch();
        break;
    case 'S':
        SaveOrTell();
        break;
    case '+':
    case '=': // the same key on many keyboards
    case WXK_NUMPAD_ADD:
        ChangeTextSize(m_TextSize + 1);
        break;
    case '-':
    case WXK_NUMPAD_SUBTRACT:
        ChangeTextSize(m_TextSize - 1);
        break;
    case '0':
    case WXK_NUMPAD0:
        ChangeTextSize(textviews::_FontExtents::k_Points);
        break;
    default:
        break;
    }
}

void wxTextLineCtrl::OnMenu(wxCommandEvent& event)
{
    CALL_ENTRY("wxTextLineCtrl::OnMenu");
    switch (event.GetId())
    {
    case id_SelectAll:
        SelectAll();
        break;
    case id_SelectNone:
        SelectNone();
        break;
    case id_Copy:
        BeginCopying();
        break;
    case id_CopyPlain:
        BeginCopying(true);
        break;
    case id_ScrollToTop:
        ScrollToTop();
        break;
    case id_ScrollToBottom:
        ScrollToBottom();
        break;
    case id_SaveAs:
        SaveOrTell();
        break;
    case id_Search:
        ToggleSearch();
        break;
    case id_OnlyMatching:
        ToggleOnlyMatching();
        break;
    default:
        if (!RunReadingCommand(event.GetId()))
        {
            event.Skip();
        }
        break;
    }
}
