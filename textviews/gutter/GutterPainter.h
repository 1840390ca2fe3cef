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
    std::string number; ///< ASCII.
    std::string time;   ///< The same.
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
    void DrawText(const std::string& text, int end, int top);

    LinePainter&        m_Painter;
    const TextGeometry& m_Geometry;
    const GutterLayout& m_Layout;
    TextPalette         m_Palette;
};
} // namespace textviews
