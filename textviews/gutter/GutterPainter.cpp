#include "textviews/gutter/GutterPainter.h"

#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"
#include "textviews/gutter/OriginColours.h"

namespace textviews
{
namespace
{
constexpr double kTextShare = 0.5; // of the colour behind the text in the gutter's

// Of the view's own colour, which tells whether the view is enabled.
wxColour GroundOf(const wxColour& textGround)
{
    const wxColour ground =
        internal::MixColours(textGround, wxtGetColor(color_WindowBGDarker), kTextShare);
    return ground.IsOk() ? ground : textGround;
}

wxRect Left(wxRect band, int width)
{
    band.width = width;
    return band;
}
} // namespace

GutterPainter::GutterPainter(LinePainter& painter, const TextGeometry& geometry,
                             const GutterLayout& layout, const wxColour& textGround)
    : m_Painter(painter),
      m_Geometry(geometry),
      m_Layout(layout),
      m_Palette(GroundOf(textGround), wxtGetColor(color_Selected), wxtGetColor(color_TextBlue))
{
}

void GutterPainter::DrawLine(int line, const LineState& state, const GutterRow& row)
{
    if (m_Layout.width == 0)
    {
        return;
    }
    const wxRect    band = Left(m_Geometry.BandOf(line), m_Layout.width);
    const wxColour& ground = m_Palette.Band(state);
    m_Painter.Fill(band, ground);
    const wxColour ink = wxtReadableColor(wxtGetColor(color_TextGrey), ground);
    m_Painter.SetInks({ink, ink, wxColour()});
    m_Painter.SetBold(false);
    DrawText(row.number, m_Layout.numberEnd, band.y);
    DrawText(row.time, m_Layout.timeEnd, band.y);
    DrawOrigin(row, band, ground);
    if (state.bookmarked)
    {
        DrawRibbon(band, ground);
    }
}

void GutterPainter::DrawOrigin(const GutterRow& row, const wxRect& band, const wxColour& ground)
{
    if (row.place < 0 || m_Layout.barWidth == 0)
    {
        return;
    }
    const wxColour ink = OriginColour(row.place, ground);
    m_Painter.Fill({m_Layout.barLeft, band.y, m_Layout.barWidth, band.height}, ink);
    m_Painter.SetInks({ink, ink, wxColour()});
    m_Painter.DrawAt(row.origin, m_Layout.originLeft, band.y);
}

void GutterPainter::DrawRibbon(const wxRect& band, const wxColour& ground)
{
    const wxColour colour = wxtFocusColor({ground});
    for (const wxRect& row :
         RibbonRows(m_Layout.markLeft, band.y, m_Geometry.columnWidth, band.height))
    {
        m_Painter.Fill(row, colour);
    }
}

void GutterPainter::DrawText(const std::string& text, int end, int top)
{
    m_Painter.DrawPlain(text, end - static_cast<int>(text.size()) * m_Geometry.columnWidth, top);
}

void GutterPainter::DrawBelowLines()
{
    if (m_Layout.width > 0)
    {
        m_Painter.Fill(Left(m_Geometry.BelowLines(), m_Layout.width), m_Palette.Band({}));
    }
}
} // namespace textviews
