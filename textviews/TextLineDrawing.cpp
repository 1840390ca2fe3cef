#include "appearance/Contrast.h"
#include "internal/drawing/ColorMix.h"
#include "internal/scrolling/ScrollModel.h"
#include "textviews/drawing/Continuation.h"
#include "textviews/drawing/DrawnLines.h"
#include "textviews/drawing/FontExtents.h"
#include "textviews/drawing/LinePainter.h"
#include "textviews/drawing/PieceDrawing.h"
#include "textviews/drawing/TextPalette.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/gutter/GutterPainter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/rules/Ruling.h"
#include "textviews/search/VisibleHits.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>

namespace
{
// Each line, or where lines wrap each row, that is drawn, with the number that the picture has it
// under.
template <class Act> void ForDrawn(textviews::TextGeometry& geometry, int end, const Act& act)
{
    for (int line = geometry.FirstDrawnLine(); line < end && !geometry.wraps; ++line)
    {
        act(line, line);
    }
    int drawn = geometry.FirstDrawnLine();
    for (const textviews::TextRow& row : geometry.rows)
    {
        geometry.row = &row;
        act(row.line, drawn++);
    }
    geometry.row = nullptr;
}

// What the gutter tells of a line stands at the first of its rows.
bool BeginsLine(const textviews::TextGeometry& geometry)
{
    return !geometry.row || geometry.row->row == 0;
}
} // namespace

textviews::TextGeometry wxTextLineCtrl::Geometry() const
{
    textviews::TextGeometry geometry;
    geometry.lineHeight = m_LineHeight;
    geometry.columnWidth = m_ColumnWidth;
    geometry.scroll = {GetScrollPos(wxHORIZONTAL), GetScrollPos(wxVERTICAL)};
    geometry.client = GetClientSize();
    geometry.lineCount = m_Lines->Count();
    geometry.textLeft = m_Gutter->layout.width;
    geometry.wraps = IsWrapped();
    if (geometry.wraps)
    {
        geometry.rows = Wrap().RowsFrom(TopNow());
    }
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
    textviews::TextGeometry      geometry = Geometry();
    const std::unique_ptr<wxDC>  buffer = m_Buffer.NewDC();
    textviews::LinePainter       painter(*buffer, m_Font->font, geometry, *m_Places);
    const textviews::TextPalette palette = Palette();
    textviews::GutterPainter     gutter(painter, geometry, m_Gutter->layout, palette.Band({}));
    const std::vector<wxRect>    stale =
        geometry.wraps && !m_Drawn->IsAt(geometry.Place(), geometry.FirstDrawnLine())
               ? std::vector<wxRect>{wxRect(geometry.client)}
               : StaleAreas();
    m_Drawn->Show(geometry.Place(), geometry.FirstDrawnLine());
    m_Hits->BeginPicture();
    m_Ruling->visible.BeginPicture();
    ForDrawn(geometry, EndOfDrawnLines(geometry),
             [&](int line, int drawn)
             {
                 const wxRect band = geometry.BandOf(line);
                 if (std::any_of(stale.begin(), stale.end(),
                                 [&band](const wxRect& area) { return area.Intersects(band); }))
                 {
                     DrawLine(geometry, palette, painter, line);
                     textviews::LineState state = StateOf(line);
                     m_Drawn->Draw(drawn, state);
                     const bool begins = BeginsLine(geometry);
                     state.bookmarked = state.bookmarked && begins;
                     textviews::GutterRow row = GutterRowOf(line);
                     if (!begins) // its place is that of the whole line
                     {
                         row = {{}, {}, {}, row.place};
                     }
                     gutter.DrawLine(line, state, row);
                 }
             });
    painter.Fill(geometry.BelowLines(), palette.Band({}));
    gutter.DrawBelowLines();
    DrawFocus(palette, painter);
    UpdateOverview();
    if (m_Hits->IsIncomplete() || m_Ruling->visible.IsIncomplete())
    {
        CallAfter([this] { Redraw(); });
    }
    if (geometry.wraps &&
        !Wrap().IsSettled(TopNow(), GetScrollPos(wxVERTICAL),
                          GetScrollRange(wxVERTICAL) - GetScrollThumb(wxVERTICAL)))
    {
        CallAfter(&wxTextLineCtrl::SettleTop);
    }
}

textviews::LineLook wxTextLineCtrl::LookOf(const textviews::LineState&   state,
                                           const textviews::TextPalette& palette) const
{
    const wxColour& band = palette.Band(state);
    const wxColour  ink =
        state.quiet ? wxtReadableColor(wxtGetColor(color_TextGrey), band) : GetForegroundColour();
    textviews::LineLook look{
        *m_Colours, m_ReadableSelection && state.selected ? textviews::ReadableInk(ink, band) : ink,
        band};
    look.isRuled = !state.selected && m_Ruling->visible.IsOn();
    return look;
}

void wxTextLineCtrl::DrawLine(const textviews::TextGeometry& geometry,
                              const textviews::TextPalette&  palette,
                              textviews::LinePainter& painter, int line) const
{
    const textviews::LineLook look = LookOf(StateOf(line), palette);
    painter.Fill(geometry.BandOf(line), look.band);
    if (geometry.row && geometry.row->row > 0)
    {
        textviews::DrawContinuation(painter, geometry, wxtGetColor(color_TextGrey), look.band);
    }
    DrawText(geometry, look, painter, line);
    DrawMarks(geometry, look, painter, line);
    DrawSpan(geometry, palette, painter, line);
    if (line == m_MarkedLine)
    {
        DrawHit(geometry, look, painter);
    }
}

void wxTextLineCtrl::DrawText(const textviews::TextGeometry& geometry,
                              const textviews::LineLook& look, textviews::LinePainter& painter,
                              int line) const
{
    if (look.isRuled && DrawRuled(geometry, look, painter, line))
    {
        return;
    }
    const std::string_view              text = m_Lines->Line(line);
    const textviews::LinePainter::Cells seen{geometry.FirstDrawnCell(), geometry.EndOfDrawnCells()};
    if (const textviews::ShownPieces* const pieces = m_Shown->PiecesOf(line, text))
    {
        textviews::DrawPieces(painter, geometry, look, line, text, *pieces, seen);
        return;
    }
    painter.SetInks(look.InksOf({}));
    painter.DrawLine(line, text, seen);
}

// Lines that have come at the end, and those that are selected or pointed at and were not, or were
// and are not.
void wxTextLineCtrl::AskForChangedLines()
{
    TellFollowing();
    UpdateOverview();
    textviews::TextGeometry geometry = Geometry();
    if (!m_Drawn->IsAt(geometry.Place(), geometry.FirstDrawnLine()))
    {
        Redraw();
        return;
    }
    ForDrawn(geometry, EndOfDrawnLines(geometry),
             [&](int line, int drawn)
             {
                 if (!m_Drawn->IsAs(drawn, StateOf(line)))
                 {
                     Redraw(geometry.BandOf(line));
                 }
             });
}

// Along the view's edges, which selected lines may reach too.
void wxTextLineCtrl::DrawFocus(const textviews::TextPalette& palette,
                               textviews::LinePainter&       painter) const
{
    if (!HasFocus())
    {
        return;
    }
    const wxColour colour = wxtFocusColor({palette.Band({}), palette.Band({true})});
    for (const wxRect& part : wxtFocusShape(wxRect(GetClientSize() - wxSize(OverviewWidth(), 0))))
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
    const textviews::LineSpan& span = m_Selection->Span();
    return {m_Selection->Contains(line),
            line == m_HoverLine,
            line == m_MarkedLine,
            IsMarked(line),
            line == span.Line() ? span.Bytes() : textviews::ByteSpan{},
            IsQuiet(line)};
}

// The hit is its cells with every colour inverted, in a box with rounded corners. The ports can't
// invert alike, so that it is drawn anew in the inverted colours.
void wxTextLineCtrl::DrawHit(const textviews::TextGeometry& geometry,
                             const textviews::LineLook& look, textviews::LinePainter& painter) const
{
    const std::vector<wxRect> rows = HitRows(geometry);
    if (rows.empty())
    {
        return;
    }
    for (const wxRect& row : rows)
    {
        painter.Fill(row, internal::InvertedColour(look.band));
    }
    textviews::LineLook inverted = look;
    inverted.isInverted = true;
    inverted.isRuled = false;
    painter.ClipTo(rows);
    DrawText(geometry, inverted, painter, m_MarkedLine);
    painter.Unclip();
}

// A box for each stretch of cells that it is shown in; none where only what is not shown was hit.
std::vector<wxRect> wxTextLineCtrl::HitRows(const textviews::TextGeometry& geometry) const
{
    std::vector<wxRect> rows;
    for (const textviews::ShownCells& cells : CellsOfHit())
    {
        const int left = geometry.XOf(geometry.Within(cells.first));
        wxRect    box(left, geometry.TopOf(m_MarkedLine),
                      geometry.XOf(geometry.Within(cells.end)) - left, m_LineHeight);
        // A hit of any length costs no more than what is seen of it.
        box.Intersect(wxRect(geometry.client).Inflate(m_LineHeight));
        if (!box.IsEmpty())
        {
            const auto more = textviews::RoundedRows(box, m_ColumnWidth / 2);
            rows.insert(rows.end(), more.begin(), more.end());
        }
    }
    return rows;
}
