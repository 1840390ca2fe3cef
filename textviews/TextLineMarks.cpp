#include "appearance/wxTolvanColors.h"
#include "textviews/drawing/HitMarks.h"
#include "textviews/drawing/LinePainter.h"
#include "textviews/drawing/TextPalette.h"
#include "textviews/lines/LineStore.h"
#include "textviews/search/VisibleHits.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>

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
void wxTextLineCtrl::DrawMarks(const textviews::TextGeometry& geometry,
                               const textviews::TextPalette&  palette,
                               textviews::LinePainter& painter, int line) const
{
    if (!m_Hits->IsOn())
    {
        return;
    }
    const std::string_view     text = m_Lines->Line(line);
    const textviews::TextPlace first = m_Places->AtCell(line, text, geometry.FirstDrawnCell());
    const textviews::TextPlace last = m_Places->AtCell(line, text, geometry.EndOfDrawnCells());
    std::vector<textviews::ByteSpan> hits = m_Hits->In(
        line, text, {static_cast<size_t>(first.byte), static_cast<size_t>(last.byte) + 1});
    if (line == m_MarkedLine)
    {
        const auto isCurrent = [this](const textviews::ByteSpan& hit)
        { return hit.begin == m_MatchBegin && hit.end == m_MatchEnd; };
        hits.erase(std::remove_if(hits.begin(), hits.end(), isCurrent), hits.end());
    }
    const std::vector<wxRect> boxes = textviews::MarkBoxes(geometry, line, text, first, hits);
    if (boxes.empty())
    {
        return;
    }
    const textviews::LineState state = StateOf(line);
    const textviews::HitMark   mark = textviews::MarkOn(palette.Band(state), InkOf(state, palette),
                                                        wxtGetColor(color_TextIndigo));
    for (const wxRect& box : boxes)
    {
        painter.Fill(box, mark.ground);
    }
    painter.SetColour(mark.ink);
    painter.DrawLineWithin(boxes, line, text,
                           {geometry.FirstDrawnCell(), geometry.EndOfDrawnCells()});
}
