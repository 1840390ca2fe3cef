#include "jobwidgets/JobMarks.h"

#include "appearance/wxTolvanColors.h"
#include "jobwidgets/JobColors.h"
#include "jobwidgets/marks/MarkShape.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>

#include <algorithm>
#include <cmath>

namespace
{
// Pixels.
constexpr int kMargin = 3;     // left of the mark, as of a cell's text
constexpr int kOverMark = 10;  // of the cell's height
constexpr int kSmallest = 7;   // side of a mark
constexpr int kLeastText = 12; // that a mark has to leave

// Odd, so that it has a middle.
int SideIn(int cellHeight)
{
    return std::max(cellHeight - kOverMark, kSmallest) | 1;
}

void Fill(wxDC& dc, const std::vector<wxRect>& rects, const wxPoint& from, const wxColour& colour)
{
    if (!colour.IsOk())
    {
        return;
    }
    const wxDCBrushChanger brush(dc, wxBrush(colour));
    for (wxRect rect : rects)
    {
        rect.Offset(from);
        dc.DrawRectangle(rect);
    }
}
} // namespace

int wxtJobMarkWidth(int cellHeight)
{
    return kMargin + SideIn(cellHeight);
}

wxRect wxtDrawJobMark(wxDC& dc, const wxRect& cell, const String& state)
{
    CALL_ENTRY("wxtDrawJobMark");
    const int width = wxtJobMarkWidth(cell.height);
    const int side = SideIn(cell.height);
    if (state.empty() || cell.width < width + kLeastText || cell.height < side)
    {
        return cell;
    }
    // In the screen's own pixels.
    const int     pixels = std::max(1, static_cast<int>(std::lround(dc.GetContentScaleFactor())));
    const auto&   mark = jobwidgets::PixelsOf(jobwidgets::ShapeOf(state), side * pixels, pixels);
    const wxPoint from = wxPoint(cell.x + kMargin, cell.y + (cell.height - side) / 2) * pixels;
    const wxDCPenChanger pen(dc, *wxTRANSPARENT_PEN);
    double               x, y;
    dc.GetUserScale(&x, &y);
    dc.SetUserScale(x / pixels, y / pixels);
    Fill(dc, mark.whole, from, dc.GetTextForeground());
    Fill(dc, mark.inside, from, wxtGetColor(wxtJobStateColor(state)));
    dc.SetUserScale(x, y);
    return wxRect(cell.x + width, cell.y, cell.width - width, cell.height);
}
