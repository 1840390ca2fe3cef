#include "listviews/wxDBListBase.h"

#include "listviews/cells/ListGeometry.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/CallEntry.h"

// clang-format off
wxBEGIN_EVENT_TABLE(wxDBListBase, wxDoubleBufferedWindow)
    EVT_MOUSE_CAPTURE_LOST(wxDBListBase::CaptureLost)
wxEND_EVENT_TABLE()
// clang-format on

wxDBListBase::wxDBListBase(wxDBListCtrl* list, long style)
    : wxDoubleBufferedWindow(list, wxID_ANY, style), m_List(*list)
{
}

listviews::ListGeometry wxDBListBase::Geometry() const
{
    const wxDBListBody&     body = *m_List.m_Body;
    listviews::ListGeometry geometry;
    geometry.rowHeight = body.m_LineHeight;
    geometry.scroll = wxPoint(body.GetScrollPos(wxHORIZONTAL), body.GetScrollPos(wxVERTICAL));
    geometry.client = GetClientSize();
    geometry.widths.reserve(m_List.m_Columns.size());
    for (const wxDBListCtrl::ColumnHeader& column : m_List.m_Columns)
    {
        geometry.widths.push_back(column.width);
    }
    return geometry;
}

bool wxDBListBase::SendListEvent(int type, const wxPoint& point, int row)
{
    return SendListEvent(type, point, -1, row);
}

bool wxDBListBase::SendListEvent(int type, const wxPoint& point, int column, int row)
{
    CALL_ENTRY("wxDBListBase::SendListEvent");
    const wxWeakRef<wxDBListBase> self(this);
    wxListEvent                   event(static_cast<wxEventType>(type), m_List.GetId());
    event.SetEventObject(&m_List);
    event.SetPoint(point);
    if (column == -1 || row == -1)
    {
        const listviews::ListGeometry geometry = Geometry();
        column = column == -1 ? geometry.ColumnAt(point.x) : column;
        row = row == -1 ? geometry.RowAt(point.y) : row;
    }
    event.SetColumn(column);
    event.SetIndex(row);
    m_List.GetEventHandler()->ProcessEvent(event);
    return self && !m_List.IsBeingDeleted();
}

void wxDBListBase::CaptureLost(wxMouseCaptureLostEvent&)
{
}
