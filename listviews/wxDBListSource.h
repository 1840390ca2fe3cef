#pragma once

#include "vesta/String.h"

#include <wx/colour.h>
#include <wx/cursor.h>
#include <wx/gdicmn.h>

#include <vector>

class wxDC;

/// Where the rows of a list come from: its body asks for what it is about to show. `row` is a row
/// that the list has, unless said otherwise. Main thread.
class wxDBListSource
{
public:
    virtual bool             IsRowSelected(int row) = 0;
    virtual std::vector<int> GetSelection() = 0;
    virtual void             PrepareToDraw(int row) = 0; ///< Before the row is asked for.
    virtual String           GetDisplayText(int row, int column) = 0;
    virtual wxColour         GetRowColor(int row) = 0; ///< Of its text.
    virtual wxColour         GetRowBGColor(int row) = 0;
    virtual void             CleanupAfterDraw(int row) = 0;
    /// Draws a cell in the context's font and text colour. `rect`: pixels of the body.
    virtual void DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) = 0;
    /// Pixels that the cell takes when nothing of it is cut off.
    virtual int GetCellWidth(wxDC& dc, int row, int column) = 0;
    /// The mouse cursor over the body; row and column are -1 where there is none.
    virtual wxCursor CustomizeCursor(int row, int column, int x, int y) = 0;

protected:
    ~wxDBListSource() = default;
};
