#include "listviews/keys/RowSelector.h"

#include "listviews/model/ListModel.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListSource.h"

#include <wx/listbase.h>

namespace listviews
{
RowSelector::RowSelector(wxDBListBody& body, wxDBListSource& source, const ListModel& model)
    : m_Body(body), m_Source(source), m_Model(model)
{
}

bool RowSelector::Set(int row, bool selected)
{
    if (!m_Model.HasRow(row) || m_Source.IsRowSelected(row) == selected)
    {
        return true;
    }
    return m_Body.SendListEvent(selected ? wxEVT_LIST_ITEM_SELECTED : wxEVT_LIST_ITEM_DESELECTED,
                                wxPoint(0, 0), 0, row);
}

bool RowSelector::Alone(int row)
{
    return Range(row, row, false);
}

bool RowSelector::Range(int first, int last, bool adding)
{
    if (!adding)
    {
        for (const int row : m_Source.GetSelection())
        {
            if ((row < first || row > last) && !Set(row, false))
            {
                return false;
            }
        }
    }
    // The handlers may have rows come and go.
    for (int row = first; row <= last && row < m_Model.rowCount; ++row)
    {
        if (!Set(row, true))
        {
            return false;
        }
    }
    return true;
}

bool RowSelector::Toggle(int row)
{
    return Set(row, !m_Source.IsRowSelected(row));
}
} // namespace listviews
