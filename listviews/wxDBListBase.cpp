#include "listviews/wxDBListBase.h"

#include "listviews/model/ListModel.h"

#include <wx/weakref.h>

// clang-format off
wxBEGIN_EVENT_TABLE(wxDBListBase, wxDoubleBufferedWindow)
    EVT_MOUSE_CAPTURE_LOST(wxDBListBase::CaptureLost)
wxEND_EVENT_TABLE()
// clang-format on

wxDBListBase::wxDBListBase(wxWindow& list, listviews::ListModel& model, long style)
    : wxDoubleBufferedWindow(&list, wxID_ANY, style), m_List(list), m_Model(model)
{
    m_Buffer.UseScreen();
    m_KeepsDrawn = true;
}

listviews::ListGeometry wxDBListBase::Geometry() const
{
    return m_Model.Geometry({m_List.GetScrollPos(wxHORIZONTAL), m_List.GetScrollPos(wxVERTICAL)},
                            GetClientSize());
}

bool wxDBListBase::SendListEvent(int type, const wxPoint& point, int row)
{
    return SendListEvent(type, point, -1, row);
}

bool wxDBListBase::SendListEvent(int type, const wxPoint& point, int column, int row)
{
    return TellList(type, point, column, row) != Outcome::Gone;
}

// No entry in the call trace: it runs for each of very many rows, and who calls it has one.
wxDBListBase::Outcome wxDBListBase::TellList(int type, const wxPoint& point, int column, int row)
{
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
    const bool taken = m_List.GetEventHandler()->ProcessEvent(event);
    if (!self || m_List.IsBeingDeleted())
    {
        return Outcome::Gone;
    }
    return taken ? Outcome::Taken : Outcome::Passed;
}

void wxDBListBase::CaptureLost(wxMouseCaptureLostEvent&)
{
}
