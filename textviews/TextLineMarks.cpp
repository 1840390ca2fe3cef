#include "appearance/wxTolvanColors.h"
#include "textviews/drawing/HitMarks.h"
#include "textviews/drawing/LinePainter.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/lines/LineStore.h"
#include "textviews/search/VisibleHits.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>
#include <tuple>

void wxTextLineCtrl::MarkHits(std::shared_ptr<textviews::HitFinder> finder)
{
    CALL_ENTRY("wxTextLineCtrl::MarkHits");
    if (finder || m_Hits->IsOn())
    {
        m_Hits->SetFinder(std::move(finder));
        Redraw();
    }
}

// All hits in what is seen of the line, but for the one that the search has come to.
std::vector<wxRect> wxTextLineCtrl::MarksOf(const textviews::TextGeometry& geometry, int line) const
{
    const std::string_view     stored = m_Lines->Line(line);
    const int64_t              left = geometry.FirstDrawnCell();
    const int64_t              right = geometry.EndOfDrawnCells();
    const textviews::TextPlace first = m_Places->AtCell(line, stored, left);
    const textviews::TextPlace last = m_Places->AtCell(line, stored, right);
    textviews::ByteSpan seen{static_cast<size_t>(first.byte), static_cast<size_t>(last.byte) + 1};
    textviews::ByteSpan current;
    if (line == m_MarkedLine)
    {
        current = HitBytes(true);
    }
    const auto* const pieces = m_Shown->PiecesOf(line, stored);
    std::string       shown;
    if (pieces)
    {
        std::tie(seen.begin, seen.end) = textviews::TextIn(*pieces, {left, right});
        shown = textviews::ShownText(stored, *pieces);
    }
    std::vector<textviews::ByteSpan> hits = m_Hits->In(line, pieces ? shown : stored, seen);
    hits.erase(std::remove(hits.begin(), hits.end(), current), hits.end());
    if (!pieces)
    {
        return BoxesOf(geometry, line, hits);
    }
    std::vector<wxRect> boxes;
    for (const textviews::ByteSpan& hit : hits)
    {
        for (const textviews::ShownCells& cells :
             textviews::CellsOfText(stored, *pieces, hit.begin, hit.end))
        {
            textviews::AddMarkBox(geometry, line, cells.first, cells.end, boxes);
        }
    }
    return boxes;
}

// In what is seen of the line; parts of the stored one.
std::vector<wxRect> wxTextLineCtrl::BoxesOf(const textviews::TextGeometry& geometry, int line,
                                            const std::vector<textviews::ByteSpan>& parts) const
{
    const std::string_view text = m_Lines->Line(line);
    const auto* const      pieces = m_Shown->PiecesOf(line, text);
    if (!pieces)
    {
        return textviews::MarkBoxes(geometry, line, text,
                                    m_Places->AtCell(line, text, geometry.FirstDrawnCell()), parts);
    }
    std::vector<wxRect> boxes;
    for (const textviews::ByteSpan& part : parts)
    {
        for (const textviews::ShownCells& cells :
             textviews::CellsOf(text, *pieces, part.begin, part.end))
        {
            textviews::AddMarkBox(geometry, line, cells.first, cells.end, boxes);
        }
    }
    return boxes;
}

void wxTextLineCtrl::DrawMarks(const textviews::TextGeometry& geometry,
                               const textviews::LineLook& look, textviews::LinePainter& painter,
                               int line) const
{
    const std::vector<wxRect> boxes =
        m_Hits->IsOn() ? MarksOf(geometry, line) : std::vector<wxRect>();
    if (boxes.empty())
    {
        return;
    }
    const textviews::HitMark mark =
        textviews::MarkOn(look.band, look.ink, wxtGetColor(color_TextIndigo));
    for (const wxRect& box : boxes)
    {
        painter.Fill(box, mark.ground);
    }
    painter.ClipTo(boxes);
    DrawText(geometry, {*m_Colours, mark.ink, mark.ground, false, true}, painter, line);
    painter.Unclip();
}
