#include "textviews/drawing/LinePainter.h"
#include "textviews/drawing/PieceDrawing.h"
#include "textviews/drawing/StyleColours.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/rules/RuledPieces.h"
#include "textviews/rules/Ruling.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>
#include <limits>

namespace
{
constexpr size_t kNoLimit = std::numeric_limits<size_t>::max();

textviews::TextColour InkFor(const wxTextRule& rule)
{
    const wxColour colour = rule.WantedColour();
    return !colour.IsOk() ? textviews::TextColour()
                          : textviews::TextColour{textviews::TextColour::Kind::Direct, colour.Red(),
                                                  colour.Green(), colour.Blue()};
}

// Of the rules for matches, in those bytes.
void AddSpans(const textviews::RuleSet& rules, const textviews::RuleWork& work,
              const textviews::ByteSpan& seen, std::vector<textviews::ColouredSpan>& spans)
{
    const auto first = std::partition_point(work.hits.begin(), work.hits.end(),
                                            [&seen](const textviews::RuleHit& hit)
                                            { return hit.bytes.end <= seen.begin; });
    for (auto hit = first; hit != work.hits.end() && hit->bytes.begin < seen.end; ++hit)
    {
        const wxTextRule&           rule = rules.Rules()[static_cast<size_t>(hit->rule)];
        const textviews::TextColour ink = InkFor(rule);
        const bool isOverlapping = !spans.empty() && hit->bytes.begin < spans.back().bytes.end;
        if (rule.part == wxTextRule::Part::Match && ink.kind != textviews::TextColour::Kind::Own &&
            !isOverlapping)
        {
            spans.push_back({hit->bytes, ink});
        }
    }
}
} // namespace

void wxTextLineCtrl::SetRules(const std::vector<wxTextRule>& rules)
{
    CALL_ENTRY("wxTextLineCtrl::SetRules");
    if (rules == m_Ruling->rules)
    {
        return;
    }
    m_Ruling->rules = rules;
    auto ready = std::make_shared<const textviews::RuleSet>(rules);
    m_Ruling->visible.SetRules(ready->IsEmpty() ? nullptr : std::move(ready));
    ReadRulesAnew();
    TellLook();
}

// Or what they are looked for in is another text now.
void wxTextLineCtrl::ReadRulesAnew()
{
    StopFindingError();
    m_Ruling->visible.Forget();
    m_Ruling->index.SetRules(m_Ruling->visible.Rules(), m_Escapes != Escapes::Raw);
    Redraw();
}

const std::vector<wxTextRule>& wxTextLineCtrl::GetRules() const
{
    return m_Ruling->rules;
}

// False: no rule is found in what is seen of the line, nor one that colours all of it.
bool wxTextLineCtrl::DrawRuled(const textviews::TextGeometry& geometry,
                               const textviews::LineLook& look, textviews::LinePainter& painter,
                               int line) const
{
    textviews::VisibleRules& visible = m_Ruling->visible;
    const std::string_view   text = m_Lines->Line(line);
    if (const textviews::ShownPieces* const pieces = m_Shown->PiecesOf(line, text))
    {
        const auto                       shown = textviews::RuledText(text, *pieces);
        const textviews::RuleWork* const work = shown ? &visible.In(line, *shown, 0) : nullptr;
        if (!work || work->hits.empty())
        {
            return false;
        }
        DrawRuledPieces(geometry, LookOfRules(look, visible.Rules()->LineRuleOf(*work)), painter,
                        line, *pieces, *work);
        return true;
    }
    const textviews::RuleWork& work = visible.In(line, text, 0);
    if (work.hits.empty() && text.size() <= textviews::kPieceBytes)
    {
        return false;
    }
    DrawRuledText(geometry, LookOfRules(look, visible.Rules()->LineRuleOf(work)), painter, line,
                  text);
    return true;
}

// What programs have coloured keeps their colour.
textviews::LineLook wxTextLineCtrl::LookOfRules(const textviews::LineLook& look, int rule) const
{
    textviews::LineLook ruled = look;
    if (rule >= 0)
    {
        textviews::TextStyle style;
        style.ink = InkFor(m_Ruling->visible.Rules()->Rules()[static_cast<size_t>(rule)]);
        ruled.ink = m_Colours->Of(style, look.ink, look.band).ink;
    }
    return ruled;
}

void wxTextLineCtrl::DrawRuledText(const textviews::TextGeometry& geometry,
                                   const textviews::LineLook& look, textviews::LinePainter& painter,
                                   int line, std::string_view text) const
{
    const textviews::LinePainter::Cells seen{geometry.FirstDrawnCell(), geometry.EndOfDrawnCells()};
    const textviews::TextPlace          first = m_Places->AtCell(line, text, seen.first);
    const textviews::TextPlace          last = m_Places->AtCell(line, text, seen.end);
    const textviews::ByteSpan           bytes{static_cast<size_t>(first.byte),
                                    static_cast<size_t>(last.byte) + 1};
    std::vector<textviews::ColouredSpan> spans;
    // A hit may begin in the piece before.
    const size_t from = bytes.begin - std::min(bytes.begin, textviews::kPieceBytes);
    for (size_t at = from / textviews::kPieceBytes * textviews::kPieceBytes;
         at < std::min(bytes.end, text.size()); at += textviews::kPieceBytes)
    {
        AddSpans(*m_Ruling->visible.Rules(), m_Ruling->visible.In(line, text, at), bytes, spans);
    }
    if (spans.empty())
    {
        painter.SetInks(look.InksOf({}));
        painter.DrawLine(line, text, seen);
        return;
    }
    const textviews::ShownPieces pieces = textviews::PiecesOfText(text, first, seen.end, spans);
    textviews::DrawPieces(painter, geometry, look, line, text, pieces, seen);
}

void wxTextLineCtrl::DrawRuledPieces(const textviews::TextGeometry& geometry,
                                     const textviews::LineLook&     look,
                                     textviews::LinePainter& painter, int line,
                                     const textviews::ShownPieces& pieces,
                                     const textviews::RuleWork&    work) const
{
    const std::string_view              text = m_Lines->Line(line);
    const textviews::LinePainter::Cells seen{geometry.FirstDrawnCell(), geometry.EndOfDrawnCells()};
    std::vector<textviews::ColouredSpan> spans;
    AddSpans(*m_Ruling->visible.Rules(), work, {0, kNoLimit}, spans);
    const textviews::ShownPieces coloured =
        spans.empty() ? pieces
                      : textviews::RecolouredPieces(text, pieces, {seen.first, seen.end}, spans);
    textviews::DrawPieces(painter, geometry, look, line, text, coloured, seen);
}
