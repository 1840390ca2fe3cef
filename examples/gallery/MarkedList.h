#pragma once

#include "jobwidgets/JobMarks.h"

#include <wx/gdicmn.h>

/// A list of the library whose column of states, wherever it stands, has marks.
template <class List, int Type> class MarkedList : public List
{
public:
    using List::List;

    void DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override
    {
        if (this->GetColumn(column).type == Type)
        {
            rect = wxtDrawJobMark(dc, rect, this->GetDisplayText(row, column));
        }
        List::DrawCell(dc, row, column, rect, selected);
    }
    int GetCellWidth(wxDC& dc, int row, int column) override
    {
        return List::GetCellWidth(dc, row, column) +
               (this->GetColumn(column).type == Type ? wxtJobMarkWidth(this->GetRowHeight()) : 0);
    }
};
