#pragma once

#include "jobwidgets/JobMarks.h"

#include <wx/gdicmn.h>

/// A list of the library whose column of states has marks.
template <class List, int Column> class MarkedList : public List
{
public:
    using List::List;

    void DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override
    {
        if (column == Column)
        {
            rect = wxtDrawJobMark(dc, rect, this->GetDisplayText(row, column));
        }
        List::DrawCell(dc, row, column, rect, selected);
    }
    int GetCellWidth(wxDC& dc, int row, int column) override
    {
        return List::GetCellWidth(dc, row, column) +
               (column == Column ? wxtJobMarkWidth(this->GetRowHeight()) : 0);
    }
};
