#include "listviews/refresh/RefreshEvent.h"

#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"

#include <wx/listbase.h>

#include <algorithm>
#include <climits>

namespace listviews
{
wxDEFINE_EVENT(EVT_REFRESH_BEGINS, RefreshEvent);
wxDEFINE_EVENT(EVT_REFRESH_ENDS, RefreshEvent);

namespace
{
bool Has(const wxDBListCtrl& list, int row)
{
    return row >= 0 && row < list.GetItemCount();
}

RowMark MarkOf(wxDBListCtrl& list, int row)
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

void RestoreSelection(wxDBListCtrl& list, const RowMarks& found)
{
    std::vector<bool> wanted(static_cast<size_t>(list.GetItemCount()));
    for (const RowMark& mark : found.selected)
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
    for (const RowMark& mark : found.selected)
    {
        if (!Select(list, mark.row, true))
        {
            return;
        }
    }
}
RowMarks MarksOf(wxDBListCtrl& list)
{
    RowMarks marks;
    for (const int row : list.GetSelection())
    {
        if (Has(list, row))
        {
            marks.selected.push_back(MarkOf(list, row));
        }
    }
    marks.anchor = MarkOf(list, list.GetLastSelect());
    if (list.GetFocusRow() != list.GetLastSelect())
    {
        marks.caret = MarkOf(list, list.GetFocusRow());
    }
    marks.scroll = list.GetScrollPos(wxVERTICAL);
    const int top = marks.scroll / list.GetRowHeight();
    const int last = top + list.GetScrollThumb(wxVERTICAL) / list.GetRowHeight();
    for (int row = top; row <= std::min(last, list.GetItemCount() - 1); ++row)
    {
        marks.seen.push_back(MarkOf(list, row));
    }
    return marks;
}

// Without an anchor the arrow keys would be dead: one whose row has gone stays near its place.
void RestoreKeys(wxDBListCtrl& list, const RowMarks& before, const RowMarks& found)
{
    const int nearest = std::min(before.anchor.row, list.GetItemCount() - 1);
    list.SetLastSelect(found.anchor.row >= 0 ? found.anchor.row : nearest);
    list.SetFocusRow(found.caret.row);
}

void RestoreScroll(wxDBListCtrl& list, const RowMarks& before, const RowMarks& found)
{
    const long long scroll = ScrollAfter(before, found, list.GetRowHeight());
    list.SetScrollPos(wxVERTICAL, static_cast<int>(std::clamp<long long>(scroll, 0, INT_MAX)));
}

RowMarks RestoreMarks(wxDBListCtrl& list, const RowMarks& marks,
                      const std::function<bool()>& isOver)
{
    MarkSearch search(marks, list.GetItemCount());
    while (search.Step([&list](int row) { return list.GetRowKey(row); }) && !isOver())
    {
    }
    const RowMarks found = search.Found();
    RestoreKeys(list, marks, found);
    RestoreScroll(list, marks, found);
    RestoreSelection(list, found);
    return found;
}
} // namespace listviews
