#include "internal/input/PadKey.h"
#include "listviews/model/ListModel.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListSource.h"
#include "vesta/CallEntry.h"

#include <algorithm>

// Whoever handles the list's events may remove rows and columns, or the list itself: after each of
// them everything is looked at anew.

bool wxDBListBody::DeselectAll(bool resetAnchor)
{
    CALL_ENTRY("wxDBListBody::DeselectAll");
    for (const int row : m_Source.GetSelection())
    {
        if (!SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(0, 0), row))
        {
            return false;
        }
    }
    if (resetAnchor)
    {
        m_Model.SetAnchor(-1);
    }
    return true;
}

bool wxDBListBody::SelectRange(int first, int last, const wxPoint& point)
{
    const int column = Geometry().ColumnAt(point.x);
    for (int row = first; row <= std::min(last, m_Model.rowCount - 1); ++row)
    {
        if (!SendListEvent(wxEVT_LIST_ITEM_SELECTED, point, column, row))
        {
            return false;
        }
    }
    return true;
}

int wxDBListBody::ProcessSelection(const wxMouseEvent& event, bool& alive)
{
    CALL_ENTRY("wxDBListBody::ProcessSelection");
    return SelectRow(event, Geometry().RowAt(event.GetY()), alive);
}

int wxDBListBody::SelectRow(const wxMouseEvent& event, int row, bool& alive)
{
    if (event.ShiftDown() && m_Model.anchor >= 0)
    {
        alive = SelectRange(std::min(m_Model.anchor, row), std::max(m_Model.anchor, row),
                            event.GetPosition());
        return row;
    }
    if (!m_Model.HasRow(row))
    {
        return -1;
    }
    const bool off = event.ControlDown() && m_Source.IsRowSelected(row);
    alive = SendListEvent(off ? wxEVT_LIST_ITEM_DESELECTED : wxEVT_LIST_ITEM_SELECTED,
                          event.GetPosition(), row);
    return row;
}

// False when the list is gone.
bool wxDBListBody::SelectByClick(const wxMouseEvent& event)
{
    const bool adding = IsAdding(event.ControlDown());
    m_Model.caret = -1; // the keys go on from where the hand has clicked
    bool      alive = adding || DeselectAll(m_SingleSelection || !event.ShiftDown());
    const int row = alive ? ProcessSelection(event, alive) : -1;
    // A range that is changed with Shift keeps the row that it began with.
    if (alive && (m_SingleSelection || event.ControlDown() || m_Model.anchor < 0))
    {
        m_Model.anchor = row;
    }
    return alive;
}

void wxDBListBody::OnLDown(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnLDown");
    if (TakeFocus())
    {
        HoldMouse();
        SelectByClick(event);
    }
}

void wxDBListBody::OnLUp(wxMouseEvent&)
{
    CALL_ENTRY("wxDBListBody::OnLUp");
    LetMouseGo();
}

void wxDBListBody::OnDoubleClick(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnDoubleClick");
    SendListEvent(wxEVT_LIST_ITEM_ACTIVATED, event.GetPosition(), -1);
}

void wxDBListBody::OnRDown(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnRDown");
    if (!TakeFocus())
    {
        return;
    }
    const int row = Geometry().RowAt(event.GetY());
    if ((m_Model.HasRow(row) && m_Source.IsRowSelected(row)) || SelectByClick(event))
    {
        SendListEvent(wxEVT_LIST_ITEM_RIGHT_CLICK, event.GetPosition(), row);
    }
}

void wxDBListBody::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnKey");
    const int key = internal::OffThePad(event.GetKeyCode());
    if (key != WXK_UP && key != WXK_DOWN)
    {
        event.Skip();
        return;
    }
    const bool up = key == WXK_UP;
    const int  from = m_Model.FocusRow();
    if (up ? from > 0 : from >= 0 && from < m_Model.rowCount - 1)
    {
        m_Model.SetAnchor(from);
        MoveAnchor(up ? -1 : 1, event);
    }
}

void wxDBListBody::MoveAnchor(int step, const wxKeyEvent& event)
{
    const bool adding = IsAdding(event.ShiftDown() || event.ControlDown());
    if (!adding && !DeselectAll(false))
    {
        return;
    }
    m_Model.SetAnchor(std::clamp(m_Model.anchor + step, -1, m_Model.rowCount - 1));
    if (m_Model.anchor < 0)
    {
        return; // the rows have gone meanwhile
    }
    wxMouseEvent click;
    click.SetPosition(GetItemRect(m_Model.anchor).GetPosition());
    bool alive = true;
    // The row may be too far out of sight to be found from its place again.
    SelectRow(click, m_Model.anchor, alive);
    if (alive)
    {
        ShowAnchor();
    }
}

// A line at a time, so that the eye can follow; from far away at once.
void wxDBListBody::ShowAnchor()
{
    const int below = GetClientSize().y - m_LineHeight;
    const int top = GetItemRect(m_Model.anchor).y;
    if (top < m_LineHeight)
    {
        ScrollLines(-1);
    }
    else if (top > below)
    {
        ScrollLines(1);
    }
    if (top < -2 * m_LineHeight || top > below + 2 * m_LineHeight)
    {
        ShowRow(m_Model.anchor);
    }
    Redraw();
}
