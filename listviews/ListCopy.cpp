#include "listviews/copying/TableCopy.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/clipbrd.h>

#include <algorithm>

void wxDBListCtrl::CopySelection()
{
    CALL_ENTRY("wxDBListCtrl::CopySelection");
    if (!FinishSelecting())
    {
        return;
    }
    std::vector<int> rows = GetSelection();
    // Another part of the program may have it open: to open it again is an error, and to close it
    // would take it from that part.
    if (rows.empty() || wxTheClipboard->IsOpened())
    {
        return;
    }
    if (!std::is_sorted(rows.begin(), rows.end()))
    {
        std::sort(rows.begin(), rows.end());
    }
    listviews::TableText table;
    std::vector<int>     columns;
    for (int column = 0; column < GetColumnCount(); ++column)
    {
        if (IsColumnShown(column))
        {
            columns.push_back(column);
            table.Add(GetColumnName(column));
        }
    }
    table.EndRow();
    m_Copier->Begin(std::move(rows), std::move(table),
                    [this, columns](int row, listviews::TableText& text)
                    {
                        if (row < 0 || row >= GetItemCount())
                        {
                            return;
                        }
                        for (const int column : columns)
                        {
                            text.Add(GetDisplayText(row, column));
                        }
                        text.EndRow();
                    });
}

bool wxDBListCtrl::IsCopying() const
{
    return m_Copier->IsBusy();
}

void wxDBListCtrl::FinishCopying()
{
    m_Copier->Finish();
}
