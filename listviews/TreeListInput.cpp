#include "internal/input/PadKey.h"
#include "listviews/tree/TreeCell.h"
#include "listviews/tree/TreeState.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/listbase.h>
#include <wx/weakref.h>

#include <chrono>
#include <map>

namespace
{
constexpr auto kTypingPause = std::chrono::seconds(1);
} // namespace

// Whoever handles an event may change the model or destroy the list: after each of them everything
// is looked at anew.

// False when the list has gone or the node must not open.
bool wxDBTreeListCtrl::SendTreeEvent(wxEventType type, int row)
{
    const wxWeakRef<wxDBTreeListCtrl> self(this);
    wxDBTreeListEvent                 event(type, *this, row, NodeAt(row));
    ProcessWindowEvent(event);
    return self && !IsBeingDeleted() && event.IsAllowed();
}

bool wxDBTreeListCtrl::MayOpenNow(int row) const
{
    bool may = false;
    Ask("Looking at a node", [&] { may = MayOpen(row); });
    return may;
}

// Opens by the user's wish, the whole of it or only the node.
void wxDBTreeListCtrl::OpenByHand(int row, bool whole)
{
    const bool wasOpen = IsOpen(row);
    if (!MayOpenNow(row))
    {
        return;
    }
    const wxDBTreeNode node = NodeAt(row);
    if (!wasOpen && !SendTreeEvent(wxEVT_TREELIST_ITEM_EXPANDING, row))
    {
        return;
    }
    // A handler may have brought the children only now, or taken the node away.
    if (NodeAt(row) == node && (whole ? OpenAllIn(row) : Open(row)) && !wasOpen)
    {
        SendTreeEvent(wxEVT_TREELIST_ITEM_EXPANDED, row);
    }
}

void wxDBTreeListCtrl::ToggleByHand(int row)
{
    if (!FinishSelecting())
    {
        return;
    }
    if (IsOpen(row))
    {
        Close(row);
    }
    else
    {
        OpenByHand(row, false);
    }
}

// Selects that row only, as the arrow keys of a list do.
void wxDBTreeListCtrl::GoToRow(int row)
{
    wxDBListBody& body = *GetBody();
    if (body.SelectOnly(row, wxPoint(0, 0)))
    {
        SetLastSelect(row < GetItemCount() ? row : -1);
        EnsureVisible(row);
        body.RedrawMarks();
    }
}

// Whether the key has a meaning for the row.
bool wxDBTreeListCtrl::PressKey(int row, int key)
{
    if (!FinishSelecting())
    {
        return true;
    }
    const int parent = ParentRow(row);
    switch (key)
    {
    case WXK_LEFT:
    case '-':
        if (IsOpen(row))
        {
            Close(row);
            return true;
        }
        break;
    case WXK_RIGHT:
        if (IsOpen(row) && GetLevel(row + 1) > GetLevel(row))
        {
            GoToRow(row + 1);
            return true;
        }
        break;
    case '*':
        OpenByHand(row, true);
        return true;
    default:
        break;
    }
    if ((key == WXK_LEFT || key == WXK_BACK) && parent >= 0)
    {
        GoToRow(parent);
        return true;
    }
    if ((key == WXK_RIGHT || key == '+') && !IsOpen(row) && MayOpenNow(row))
    {
        OpenByHand(row, false);
        return true;
    }
    return key == '+' || key == '-';
}

void wxDBTreeListCtrl::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxDBTreeListCtrl::OnKey");
    static const std::map<int, int> s_Signs = {
        {WXK_NUMPAD_ADD, '+'}, {WXK_NUMPAD_SUBTRACT, '-'}, {WXK_NUMPAD_MULTIPLY, '*'}};
    const int  row = GetFocusRow();
    const int  key = internal::OffThePad(event.GetKeyCode());
    const auto sign = s_Signs.find(key);
    const bool isMeant =
        key == WXK_LEFT || key == WXK_RIGHT || key == WXK_BACK || sign != s_Signs.end();
    if (!isMeant || event.HasAnyModifiers() || row < 0 || row >= GetItemCount() ||
        !PressKey(row, sign != s_Signs.end() ? sign->second : key))
    {
        event.Skip();
    }
}

// Signs come as characters: on which keys they are, and with Shift or without, is the keyboard's.
void wxDBTreeListCtrl::OnChar(wxKeyEvent& event)
{
    CALL_ENTRY("wxDBTreeListCtrl::OnChar");
    const int  row = GetFocusRow();
    const auto key = static_cast<int>(static_cast<unsigned>(event.GetUnicodeKey()));
    const bool isSign = key == '+' || key == '-' || key == '*';
    // A sign among typed letters belongs to the name that they are the beginning of.
    const auto now = std::chrono::steady_clock::now();
    const bool isTyped = now - m_Tree->typed < kTypingPause;
    m_Tree->typed = isSign && !isTyped ? m_Tree->typed : now;
    if (!isSign || isTyped || event.ControlDown() || event.AltDown() || row < 0 ||
        row >= GetItemCount() || !PressKey(row, key))
    {
        event.Skip();
    }
}

// The row whose expander is there, or -1.
int wxDBTreeListCtrl::ExpanderRowAt(const wxPoint& point) const
{
    const int row = (point.y + GetScrollPos(wxVERTICAL)) / GetRowHeight();
    if (point.y < 0 || row >= GetItemCount())
    {
        return -1;
    }
    const listviews::TreeCellGeometry geometry(GetBody()->GetCellRect(row, GetTreeColumn()),
                                               GetLevel(row));
    return geometry.Press().Contains(point) && MayOpenNow(row) ? row : -1;
}

void wxDBTreeListCtrl::OnPress(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBTreeListCtrl::OnPress");
    const wxWeakRef<wxDBTreeListCtrl> self(this);
    const wxPoint                     point = event.GetPosition();
    const int                         row = (point.y + GetScrollPos(wxVERTICAL)) / GetRowHeight();
    if (ExpanderRowAt(point) >= 0)
    {
        GetBody()->SetFocus();
        if (self && !IsBeingDeleted() && ExpanderRowAt(point) == row)
        {
            ToggleByHand(row);
        }
    }
    else if (event.LeftDClick() && !event.HasAnyModifiers() && row < GetItemCount() &&
             MayOpenNow(row))
    {
        ToggleByHand(row);
    }
    else
    {
        event.Skip();
        return;
    }
    if (self && !IsBeingDeleted())
    {
        HoverExpander(point); // another one may be there now
    }
}

void wxDBTreeListCtrl::OnMotion(wxMouseEvent& event)
{
    event.Skip();
    HoverExpander(event.Dragging() ? wxDefaultPosition : event.GetPosition());
}

void wxDBTreeListCtrl::OnLeave(wxMouseEvent& event)
{
    event.Skip();
    HoverExpander(wxDefaultPosition);
}

void wxDBTreeListCtrl::HoverExpander(const wxPoint& point)
{
    const int row = point == wxDefaultPosition ? -1 : ExpanderRowAt(point);
    m_Tree->pointer = point;
    if (row == m_Tree->hoverRow)
    {
        return;
    }
    for (const int changed : {m_Tree->hoverRow, row})
    {
        if (changed >= 0)
        {
            RedrawCell(changed, GetTreeColumn());
        }
    }
    m_Tree->hoverRow = row;
}
