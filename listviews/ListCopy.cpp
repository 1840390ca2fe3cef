#include "listviews/copying/TableDataObject.h"
#include "listviews/copying/TableText.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/clipbrd.h>

#include <algorithm>

void wxDBListCtrl::CopySelection()
{
    CALL_ENTRY("wxDBListCtrl::CopySelection");
    std::vector<int> rows = GetSelection();
    // Another part of the program may have it open: to open it again is an error, and to close it
    // would take it from that part.
    if (rows.empty() || wxTheClipboard->IsOpened())
    {
        return;
    }
    std::sort(rows.begin(), rows.end());
    listviews::TableText table;
    const auto           addRow = [&](const auto& textOf)
    {
        for (int column = 0; column < GetColumnCount(); ++column)
        {
            if (IsColumnShown(column))
            {
                table.Add(textOf(column));
            }
        }
        table.EndRow();
    };
    addRow([this](int column) { return GetColumnName(column); });
    for (const int row : rows)
    {
        if (row >= 0 && row < GetItemCount())
        {
            addRow([this, row](int column) { return GetDisplayText(row, column); });
        }
    }
    if (wxTheClipboard->Open())
    {
        wxTheClipboard->SetData(new listviews::TableDataObject(table.Take()));
        wxTheClipboard->Flush();
        wxTheClipboard->Close();
    }
}
