#include "listviews/wxListRefresh.h"

#include "listviews/refresh/RowMarks.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"

#include <wx/listbase.h>

#include <algorithm>
#include <climits>

namespace
{
bool Has(const wxDBListCtrl& list, int row)
{
    return row >= 0 && row < list.GetItemCount();
}

listviews::RowMark MarkOf(wxDBListCtrl& list, int row)
{
    return {Has(list, row) ? list.GetRowKey(row) : String(), row};
}

// False when the list is gone.
bool Select(wxDBListCtrl& list, int row, bool selected)
{
    return !Has(list, row) || list.IsRowSelected(row) == selected ||
           list.GetBody()->SendListEvent(selected ? wxEVT_LIST_ITEM_SELECTED
                                                  : wxEVT_LIST_ITEM_DESELECTED,
                                         wxPoint(0, 0), 0, row);
}
} // namespace

wxListRefresh::wxListRefresh(wxDBListCtrl& list)
    : m_List(&list), m_Marks(std::make_unique<listviews::RowMarks>())
{
    CALL_ENTRY("wxListRefresh::wxListRefresh");
    for (const int row : list.GetSelection())
    {
        if (Has(list, row))
        {
            m_Marks->selected.push_back(MarkOf(list, row));
        }
    }
    m_Marks->anchor = MarkOf(list, list.GetLastSelect());
    if (list.GetFocusRow() != list.GetLastSelect())
    {
        m_Marks->caret = MarkOf(list, list.GetFocusRow());
    }
    m_Marks->scroll = list.GetScrollPos(wxVERTICAL);
    const int top = m_Marks->scroll / list.GetRowHeight();
    const int last = top + list.GetScrollThumb(wxVERTICAL) / list.GetRowHeight();
    for (int row = top; row <= std::min(last, list.GetItemCount() - 1); ++row)
    {
        m_Marks->seen.push_back(MarkOf(list, row));
    }
}

wxListRefresh::~wxListRefresh()
{
    CALL_ENTRY("wxListRefresh::~wxListRefresh");
    Guarded("The refresh of a list",
            [this]
            {
                if (m_List && !m_List->IsBeingDeleted())
                {
                    Restore();
                }
            });
}

void wxListRefresh::Restore()
{
    wxDBListCtrl&       list = *m_List;
    const int           count = list.GetItemCount();
    listviews::RowMarks found = *m_Marks;
    listviews::FindAgain(found, count, [&list](int row) { return list.GetRowKey(row); });
    // Without an anchor the arrow keys would be dead: one whose row has gone stays near its place.
    const int nearest = std::min(m_Marks->anchor.row, count - 1);
    list.SetLastSelect(found.anchor.row >= 0 ? found.anchor.row : nearest);
    list.SetFocusRow(found.caret.row);
    const long long scroll = listviews::ScrollAfter(*m_Marks, found, list.GetRowHeight());
    list.SetScrollPos(wxVERTICAL, static_cast<int>(std::clamp<long long>(scroll, 0, INT_MAX)));
    RestoreSelection(found);
}

void wxListRefresh::RestoreSelection(const listviews::RowMarks& found)
{
    wxDBListCtrl&     list = *m_List;
    std::vector<bool> wanted(static_cast<size_t>(list.GetItemCount()));
    for (const listviews::RowMark& mark : found.selected)
    {
        if (mark.row >= 0)
        {
            wanted[static_cast<size_t>(mark.row)] = true;
        }
    }
    for (const int row : list.GetSelection())
    {
        const auto index = static_cast<size_t>(row);
        if (row >= 0 && index < wanted.size() && !wanted[index] && !Select(list, row, false))
        {
            return;
        }
    }
    for (const listviews::RowMark& mark : found.selected)
    {
        if (!Select(list, mark.row, true))
        {
            return;
        }
    }
}
