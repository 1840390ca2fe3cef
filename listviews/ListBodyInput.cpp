#include "internal/input/PadKey.h"
#include "listviews/model/ListModel.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListSource.h"
#include "vesta/CallEntry.h"

#include <algorithm>

// Whoever handles the list's events may remove rows and columns, or the list itself: after each of
// them everything is looked at anew.

bool wxDBListBody::DeselectAll(bool resetAnchor)
{
    CALL_ENTRY("wxDBListBody::DeselectAll");
    m_Selecting->Drop();
    const int column = Geometry().ColumnAt(0);
    for (const int row : m_Source.GetSelection())
    {
        if (!SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(0, 0), column, row))
        {
            return false;
        }
    }
    RedrawMarks();
    if (resetAnchor)
    {
        m_Model.SetAnchor(-1);
    }
    return true;
}

// False when the list is gone. `then`: once every row is told of.
bool wxDBListBody::SelectByClick(const wxMouseEvent& event, std::function<void()> then)
{
    const int row = Geometry().RowAt(event.GetY());
    if (!EndSelecting(IsAdding(event.ControlDown()) || event.ShiftDown()))
    {
        return false;
    }
    m_Model.caret = -1; // the keys go on from where the hand has clicked
    const bool isRange = event.ShiftDown() && !m_SingleSelection && m_Model.anchor >= 0;
    if (!ProcessSelection(event, row, isRange, std::move(then)))
    {
        return false;
    }
    // A range that is changed with Shift keeps the row that it began with.
    if (!isRange || event.ControlDown())
    {
        m_Model.anchor = isRange || m_Model.HasRow(row) ? row : -1;
    }
    return true;
}

bool wxDBListBody::ProcessSelection(const wxMouseEvent& event, int row, bool isRange,
                                    std::function<void()> then)
{
    CALL_ENTRY("wxDBListBody::ProcessSelection");
    const bool            adding = IsAdding(event.ControlDown());
    listviews::RowsToTell rows;
    rows.point = event.GetPosition();
    rows.off = adding ? std::vector<int>() : m_Source.GetSelection();
    if (isRange)
    {
        rows.first = std::min(m_Model.anchor, row);
        rows.last = std::max(m_Model.anchor, row);
    }
    else if (adding && m_Model.HasRow(row) && m_Source.IsRowSelected(row))
    {
        return SendListEvent(wxEVT_LIST_ITEM_DESELECTED, rows.point, row);
    }
    else
    {
        rows.first = rows.last = row;
    }
    return m_Selecting->Begin(std::move(rows), std::move(then));
}

// What has not been told yet is told now, or is out of date. False when the list is gone.
bool wxDBListBody::EndSelecting(bool adding)
{
    if (adding)
    {
        return m_Selecting->Finish();
    }
    m_Selecting->Drop();
    return true;
}

bool wxDBListBody::SelectOnly(int row, const wxPoint& point)
{
    CALL_ENTRY("wxDBListBody::SelectOnly");
    m_Selecting->Drop();
    RedrawMarks();
    return m_Selecting->Begin({m_Source.GetSelection(), row, row, point});
}

void wxDBListBody::OnLDown(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnLDown");
    if (TakeFocus())
    {
        UnsetToolTip(); // which the press has closed: nothing is to open it again
        HoldMouse();
        SelectByClick(event, nullptr);
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
    if (m_Selecting->Finish())
    {
        SendListEvent(wxEVT_LIST_ITEM_ACTIVATED, event.GetPosition(), -1);
    }
}

void wxDBListBody::OnRDown(wxMouseEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnRDown");
    if (!TakeFocus())
    {
        return;
    }
    UnsetToolTip();
    const wxPoint point = event.GetPosition();
    const int     row = Geometry().RowAt(point.y);
    const auto    tell = [=] { SendListEvent(wxEVT_LIST_ITEM_RIGHT_CLICK, point, row); };
    if (!m_Model.HasRow(row) || !m_Source.IsRowSelected(row))
    {
        SelectByClick(event, tell);
    }
    else if (m_Selecting->Finish())
    {
        tell();
    }
}

void wxDBListBody::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxDBListBody::OnKey");
    const int key = internal::OffThePad(event.GetKeyCode());
    // With Alt they may be at a menu entry, which has its turn when nobody else has taken them.
    if ((key != WXK_UP && key != WXK_DOWN) || event.AltDown() || event.MetaDown())
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
    if (!EndSelecting(adding))
    {
        return;
    }
    const int     row = m_Model.anchor + step;
    const wxPoint point = GetItemRect(row).GetPosition();
    m_Model.SetAnchor(row);
    const bool alive =
        adding ? SendListEvent(wxEVT_LIST_ITEM_SELECTED, point, row) : SelectOnly(row, point);
    if (alive)
    {
        m_Model.SetAnchor(std::min(m_Model.anchor, m_Model.rowCount - 1)); // rows may have gone
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
    RedrawMarks();
}
