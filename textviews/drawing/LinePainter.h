#pragma once

#include "internal/text/TextPainter.h"
#include "textviews/lines/TextCells.h"
#include "textviews/lines/TextGeometry.h"

#include <string_view>

namespace textviews
{
/// Draws the text of lines on the grid of cells: the one place where that is done. Every character
/// stands exactly in its cells, whatever the font's advances.
class LinePainter
{
public:
    /// A stretch of cells, [first, end).
    struct Cells
    {
        int64_t first = 0;
        int64_t end = 0;
    };

    LinePainter(wxDC& dc, const wxFont& font, const TextGeometry& geometry, TextPlaces& places);

    void SetColour(const wxColour& colour) { m_Painter.SetColour(colour); }
    /// Draws the characters of the line that lie at least in part in the stretch.
    void DrawLine(int line, std::string_view text, const Cells& cells);
    /// The same, cut off outside the rectangles.
    void DrawLineWithin(const std::vector<wxRect>& rects, int line, std::string_view text,
                        const Cells& cells);
    void Fill(const wxRect& rect, const wxColour& colour) { m_Painter.Fill(rect, colour); }

private:
    int DrawCharacter(std::string_view text, size_t& byte, int x, int y);

    internal::TextPainter m_Painter;
    const TextGeometry&   m_Geometry;
    TextPlaces&           m_Places;
};
} // namespace textviews
