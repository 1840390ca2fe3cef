#include "appearance/Contrast.h"
#include "internal/drawing/ColorMix.h"
#include "internal/scrolling/ScrollModel.h"
#include "textviews/drawing/DrawnLines.h"
#include "textviews/drawing/FontExtents.h"
#include "textviews/drawing/LinePainter.h"
#include "textviews/drawing/TextPalette.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/search/VisibleHits.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>

textviews::TextGeometry wxTextLineCtrl::Geometry() const
{
    textviews::TextGeometry geometry;
    geometry.lineHeight = m_LineHeight;
    geometry.columnWidth = m_ColumnWidth;
    geometry.scroll = {GetScrollPos(wxHORIZONTAL), GetScrollPos(wxVERTICAL)};
    geometry.client = GetClientSize();
    geometry.lineCount = m_Lines->Count();
    return geometry;
}

textviews::TextPalette wxTextLineCtrl::Palette() const
{
    return textviews::TextPalette(GetBackgroundColour(), wxtGetColor(color_Selected),
                                  wxtGetColor(color_TextBlue));
}

void wxTextLineCtrl::DrawBitmap()
{
    CALL_ENTRY("wxTextLineCtrl::DrawBitmap");
    const textviews::TextGeometry geometry = Geometry();
    const std::unique_ptr<wxDC>   buffer = m_Buffer.NewDC();
    textviews::LinePainter        painter(*buffer, m_Font->font, geometry, *m_Places);
    const textviews::TextPalette  palette = Palette();
    const int                     end = EndOfDrawnLines(geometry);
    const std::vector<wxRect>     stale = StaleAreas();
    const auto                    isStale = [&stale](const wxRect& band)
    {
        return std::any_of(stale.begin(), stale.end(),
                           [&band](const wxRect& area) { return area.Intersects(band); });
    };
    m_Drawn->Show(geometry.scroll, geometry.FirstDrawnLine());
    m_Hits->BeginPicture();
    for (int line = geometry.FirstDrawnLine(); line < end; ++line)
    {
        if (isStale(geometry.BandOf(line)))
        {
            DrawLine(geometry, palette, painter, line);
            m_Drawn->Draw(line, StateOf(line));
        }
    }
    painter.Fill(geometry.BelowLines(), palette.Band({}));
    DrawFocus(palette, painter);
    if (m_Hits->IsIncomplete())
    {
        CallAfter([this] { Redraw(); });
    }
}

wxColour wxTextLineCtrl::InkOf(const textviews::LineState&   state,
                               const textviews::TextPalette& palette) const
{
    const wxColour ink = GetForegroundColour();
    return m_ReadableSelection && state.selected ? textviews::ReadableInk(ink, palette.Band(state))
                                                 : ink;
}

void wxTextLineCtrl::DrawLine(const textviews::TextGeometry& geometry,
                              const textviews::TextPalette&  palette,
                              textviews::LinePainter& painter, int line) const
{
    const textviews::LineState state = StateOf(line);
    painter.Fill(geometry.BandOf(line), palette.Band(state));
    painter.SetColour(InkOf(state, palette));
    painter.DrawLine(line, m_Lines->Line(line),
                     {geometry.FirstDrawnCell(), geometry.EndOfDrawnCells()});
    DrawMarks(geometry, palette, painter, line);
    if (line == m_MarkedLine)
    {
        DrawHit(geometry, palette, painter);
    }
}

// Lines that have come at the end, and those that are selected or pointed at and were not, or were
// and are not.
void wxTextLineCtrl::AskForChangedLines()
{
    TellFollowing();
    const textviews::TextGeometry geometry = Geometry();
    if (geometry.scroll != m_Drawn->Scroll())
    {
        Redraw();
        return;
    }
    const int end = EndOfDrawnLines(geometry);
    for (int line = geometry.FirstDrawnLine(); line < end; ++line)
    {
        if (!m_Drawn->IsAs(line, StateOf(line)))
        {
            Redraw(geometry.BandOf(line));
        }
    }
}

// Along the view's edges, which selected lines may reach too.
void wxTextLineCtrl::DrawFocus(const textviews::TextPalette& palette,
                               textviews::LinePainter&       painter) const
{
    if (!HasFocus())
    {
        return;
    }
    const wxColour colour = wxtFocusColor({palette.Band({}), palette.Band({true, false, false})});
    for (const wxRect& part : wxtFocusShape(wxRect(GetClientSize())))
    {
        painter.Fill(part, colour);
    }
}

int wxTextLineCtrl::EndOfDrawnLines(const textviews::TextGeometry& geometry) const
{
    // Before the first size event the base has not counted them yet.
    return geometry.EndOfDrawnLines(
        std::max(m_VisibleLines, internal::VisibleUnits(geometry.client.y, m_LineHeight)));
}

textviews::LineState wxTextLineCtrl::StateOf(int line) const
{
    return {m_Selection->Contains(line), line == m_HoverLine, line == m_MarkedLine};
}

// The hit is its cells with every colour inverted, in a box with rounded corners. The ports can't
// invert alike, so that it is drawn anew in the inverted colours.
void wxTextLineCtrl::DrawHit(const textviews::TextGeometry& geometry,
                             const textviews::TextPalette&  palette,
                             textviews::LinePainter&        painter) const
{
    const std::string_view text = m_Lines->Line(m_MarkedLine);
    const auto             cellOf = [&](int column)
    { return m_Places->AtColumn(m_MarkedLine, text, column).cell; };
    const int left = geometry.XOf(cellOf(m_MatchColumn));
    const int right = geometry.XOf(cellOf(m_MatchColumn + m_MatchLength));
    wxRect    box(left, geometry.TopOf(m_MarkedLine), right - left, m_LineHeight);
    // A hit of any length costs no more than what is seen of it.
    box.Intersect(wxRect(geometry.client).Inflate(m_LineHeight));
    if (box.IsEmpty())
    {
        return;
    }
    const auto     rows = textviews::RoundedRows(box, m_ColumnWidth / 2);
    const wxColour inverted = internal::InvertedColour(palette.Band(StateOf(m_MarkedLine)));
    for (const wxRect& row : rows)
    {
        painter.Fill(row, inverted);
    }
    painter.SetColour(internal::InvertedColour(InkOf(StateOf(m_MarkedLine), palette)));
    painter.DrawLineWithin(rows, m_MarkedLine, text,
                           {geometry.FirstDrawnCell(), geometry.EndOfDrawnCells()});
}
