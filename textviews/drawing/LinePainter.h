#pragma once

#include "internal/text/TextPainter.h"
#include "textviews/drawing/StyleColours.h"
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

    void SetInks(const TextInks& inks);
    void SetBold(bool bold) { m_Painter.SetBold(bold); }
    /// Draws the characters of the line that lie at least in part in the stretch.
    void DrawLine(int line, std::string_view text, const Cells& cells);
    /// Draws a part of a line from that cell on, as far as `end`.
    void DrawPart(int line, std::string_view text, int64_t cell, int64_t end);
    /// Draws printable ASCII characters, from that place on, cell by cell.
    void DrawPlain(std::string_view ascii, int x, int y);
    /// Draws any text from that place on, cell by cell.
    void DrawAt(std::string_view text, int x, int y);
    void Fill(const wxRect& rect, const wxColour& colour) { m_Painter.Fill(rect, colour); }
    /// Nothing waits to be drawn any more.
    void Flush() { m_Painter.Flush(); }
    /// Keeps what is drawn from now on within these rectangles, until `Unclip`.
    void ClipTo(const std::vector<wxRect>& rects) { m_Painter.ClipTo(rects); }
    void Unclip() { m_Painter.Unclip(); }

private:
    int  DrawCharacter(std::string_view text, size_t& byte, int x, int y);
    void DrawStandIn(const TextCell& cell, int x, int y);

    internal::TextPainter m_Painter;
    const TextGeometry&   m_Geometry;
    TextPlaces&           m_Places;
    TextInks              m_Inks;
};
} // namespace textviews
