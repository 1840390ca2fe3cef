#include "textviews/drawing/Continuation.h"

#include "appearance/Contrast.h"

#include <algorithm>

namespace textviews
{
// Down from the line above, and to the right.
std::vector<wxRect> ContinuationRows(int left, int top, int width, int rowHeight)
{
    const int thick = std::max(rowHeight / 14, 1);
    const int stem = left + width / 4;
    const int foot = top + rowHeight / 2;
    const int head = top + rowHeight / 6;
    return {wxRect(stem, head, thick, foot - head + thick),
            wxRect(stem, foot, std::max(width / 2, 2), thick)};
}

void DrawContinuation(LinePainter& painter, const TextGeometry& geometry, const wxColour& colour,
                      const wxColour& band)
{
    const wxColour ink = wxtReadableColor(colour, band);
    const int      width = geometry.row->indent * geometry.columnWidth;
    const int      left = geometry.XOf(geometry.row->first) - width;
    for (const wxRect& part : ContinuationRows(left, geometry.row->top, width, geometry.lineHeight))
    {
        painter.Fill(part, ink);
    }
}
} // namespace textviews
