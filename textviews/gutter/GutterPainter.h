#pragma once

#include "textviews/drawing/LinePainter.h"
#include "textviews/drawing/TextPalette.h"
#include "textviews/gutter/GutterLayout.h"

#include <string>

namespace textviews
{
/// What the gutter tells of a line.
struct GutterRow
{
    std::string number;     ///< ASCII.
    std::string time;       ///< The same.
    std::string origin;     ///< The name of the place that it comes from; any text.
    int         place = -1; ///< That one's number; -1: none is known.
};

/// Draws the gutter of a view, in the scheme's colours, over what text has left there.
class GutterPainter
{
public:
    /// `textGround`: the colour behind the text, which the gutter's is made of.
    GutterPainter(LinePainter& painter, const TextGeometry& geometry, const GutterLayout& layout,
                  const wxColour& textGround);

    void DrawLine(int line, const LineState& state, const GutterRow& row);
    void DrawBelowLines();

private:
    void DrawRibbon(const wxRect& band, const wxColour& ground);
    void DrawOrigin(const GutterRow& row, const wxRect& band, const wxColour& ground);
    void DrawText(const std::string& text, int end, int top);

    LinePainter&        m_Painter;
    const TextGeometry& m_Geometry;
    const GutterLayout& m_Layout;
    TextPalette         m_Palette;
};
} // namespace textviews
