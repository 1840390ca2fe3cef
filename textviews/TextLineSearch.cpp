#include "appearance/wxTolvanString.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextCells.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/search/FinderChoice.h"
#include "textviews/search/LineSearch.h"
#include "textviews/search/MarkedHit.h"
#include "textviews/search/RegexMatcher.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

#include <algorithm>

namespace
{
constexpr size_t kStep = 1024 * 1024; // bytes
constexpr size_t kLongestPart = 1000; // bytes
} // namespace

void wxTextLineCtrl::MakeSearchPanel()
{
    m_SearchPanel = new wxTextLineSearchPanel(this, GetParent());
    m_OwnsSearchPanel = true;
}

wxTextLineSearchPanel* wxTextLineCtrl::GetSearchPanel() const
{
    return static_cast<wxTextLineSearchPanel*>(m_SearchPanel.get());
}

// A part of a line that is selected is what the user wants to look for.
void wxTextLineCtrl::ToggleSearch()
{
    CALL_ENTRY("wxTextLineCtrl::ToggleSearch");
    if (wxTextLineSearchPanel* const panel = GetSearchPanel())
    {
        if (!panel->IsShown())
        {
            LookForPart(*panel);
        }
        panel->Expand();
    }
}

// No text of a bar's length is longer; in an expression it stands for itself.
void wxTextLineCtrl::LookForPart(wxTextLineSearchPanel& panel) const
{
    const String selected = GetSelectedPart();
    const String part =
        m_Escapes == Escapes::Raw ? selected : String(m_Shown->PlainTextOf(selected));
    if (!part.empty() && part.size() <= kLongestPart)
    {
        panel.SetText(
            wxtToWx(panel.GetExpression() ? textviews::RegexMatcher::Quoted(part) : part));
    }
}

void wxTextLineCtrl::ToggleOnlyMatching()
{
    wxTextLineSearchPanel* const panel = GetSearchPanel();
    if (panel)
    {
        panel->ToggleOnlyMatching();
    }
}

// By a key.
void wxTextLineCtrl::StopSearch()
{
    if (wxTextLineSearchPanel* const panel = GetSearchPanel())
    {
        panel->StopSearch();
    }
}

// What the bar has looked for last, whether it is open or not; without a text the user is asked.
void wxTextLineCtrl::FindAgain(bool forward)
{
    wxTextLineSearchPanel* const panel = GetSearchPanel();
    if (!panel)
    {
        return;
    }
    if (panel->GetText().empty())
    {
        LookForPart(*panel);
    }
    if (!panel->GetText().empty())
    {
        panel->Find(forward);
    }
    else if (!panel->IsShown())
    {
        panel->Expand();
    }
}

bool wxTextLineCtrl::Search(const String& text, bool forward, bool caseSensitive)
{
    CALL_ENTRY("wxTextLineCtrl::Search");
    // From line to line, whatever else is in the last hit's.
    textviews::SearchPlace start = SearchStart(forward, false);
    if (m_MarkedLine != -1)
    {
        start = forward ? textviews::SearchPlace{m_MarkedLine + 1, 0}
                        : textviews::SearchPlace{m_MarkedLine - 1, textviews::SearchPlace::k_End};
    }
    textviews::QueryProblem none;
    textviews::LineSearch   search;
    search.Begin(textviews::MakeFinder({text, caseSensitive, false, false}, none), forward, start,
                 textviews::LineSearch::Unit::Line);
    while (search.Step(*m_Lines, kStep) == textviews::LineSearch::State::Running)
    {
    }
    if (search.GetState() != textviews::LineSearch::State::Found)
    {
        return false;
    }
    ShowHit(search.Match(), false);
    return true;
}

textviews::SearchPlace wxTextLineCtrl::SearchStart(bool forward, bool asShown) const
{
    if (m_MarkedLine == -1)
    {
        return VisibleStart(forward);
    }
    const textviews::ByteSpan hit = HitBytes(asShown);
    return {m_MarkedLine, forward ? hit.end : hit.begin};
}

textviews::SearchPlace wxTextLineCtrl::VisibleStart(bool forward) const
{
    if (forward)
    {
        return {TopAnchor().line, 0};
    }
    const textviews::TextGeometry geometry = Geometry();
    const int                     last = geometry.LineAt(geometry.client.y - 1);
    return {last == -1 ? m_Lines->Count() - 1 : last, textviews::SearchPlace::k_End};
}

int wxTextLineCtrl::GetMatchColumn() const
{
    return m_Hit->column;
}

int wxTextLineCtrl::GetMatchLength() const
{
    return m_Hit->length;
}

textviews::SearchPlace wxTextLineCtrl::ShownHit(bool asShown) const
{
    return {m_MarkedLine, m_MarkedLine == -1 ? 0 : HitBytes(asShown).begin};
}

// In what is shown of the line, or in the stored one, whichever it was found in.
textviews::ByteSpan wxTextLineCtrl::HitBytes(bool asShown) const
{
    const textviews::ByteSpan hit = m_Hit->bytes;
    if (asShown == m_Hit->isShown)
    {
        return hit;
    }
    const auto* const pieces = m_Shown->PiecesOf(m_MarkedLine, m_Lines->LineNow(m_MarkedLine));
    if (!pieces || hit.begin >= hit.end)
    {
        return hit;
    }
    const size_t begin = asShown ? textviews::TextByteOf(*pieces, hit.begin)
                                 : textviews::StoredByteOf(*pieces, hit.begin);
    const size_t last = asShown ? textviews::TextByteOf(*pieces, hit.end - 1)
                                : textviews::StoredByteOf(*pieces, hit.end - 1);
    return {begin, std::max(begin, last) + 1};
}

// Before lines are shown another way, in which it has other places.
void wxTextLineCtrl::TakeHitAsStored()
{
    if (m_MarkedLine == -1 || !m_Hit->isShown)
    {
        return;
    }
    constexpr int64_t         kFar = INT64_MAX;
    const std::string_view    line = m_Lines->LineNow(m_MarkedLine);
    const textviews::ByteSpan hit = HitBytes(false);
    textviews::TextPlace      place;
    const auto                columnOf = [&](size_t byte)
    {
        textviews::AdvancePlace(line, place, {static_cast<int64_t>(byte), kFar, kFar});
        return static_cast<int>(place.column);
    };
    m_Hit->column = columnOf(hit.begin);
    m_Hit->length = columnOf(hit.end) - m_Hit->column;
    m_Hit->bytes = hit;
    m_Hit->isShown = false;
}

void wxTextLineCtrl::ShowHit(const textviews::LineMatch& match, bool asShown)
{
    m_MarkedLine = match.line;
    *m_Hit = {match.column, match.length, match.bytes, asShown};
    ScrollToHit();
    m_FollowEnd = false; // the next line could push it out of sight
    TellFollowing();
    Redraw();
}

std::vector<textviews::ShownCells> wxTextLineCtrl::CellsOfHit() const
{
    const std::string_view text = m_Lines->Line(m_MarkedLine);
    const auto* const pieces = m_Hit->isShown ? m_Shown->PiecesOf(m_MarkedLine, text) : nullptr;
    return pieces ? textviews::CellsOfText(text, *pieces, m_Hit->bytes.begin, m_Hit->bytes.end)
                  : m_Shown->CellsOfHit(m_MarkedLine, text, m_Hit->column, m_Hit->length);
}

void wxTextLineCtrl::ScrollToHit()
{
    AdjustScrollbars(); // they may take part of the view away
    m_Lines->LineNow(m_MarkedLine);
    const std::vector<textviews::ShownCells> cells = CellsOfHit();
    int64_t                                  first = 0;
    int64_t                                  end = 0;
    if (!cells.empty())
    {
        first = cells.front().first;
        end = cells.back().end;
    }
    else if (!m_Hit->isShown) // in a sequence: what is shown next
    {
        const std::string_view text = m_Lines->LineNow(m_MarkedLine);
        first = end = m_Places->AtColumn(m_MarkedLine, text, m_Hit->column).cell;
    }
    if (IsWrapped())
    {
        ShowWrappedCells(m_MarkedLine, first, end);
        return;
    }
    // Half a cell of margin on either side, as the text itself has.
    const textviews::Stretch across{first * m_ColumnWidth, (end + 1) * m_ColumnWidth};
    const textviews::Stretch down{static_cast<int64_t>(m_MarkedLine) * m_LineHeight,
                                  (static_cast<int64_t>(m_MarkedLine) + 1) * m_LineHeight};
    ScrollTo(wxVERTICAL,
             textviews::PositionShowing(down, GetScrollPos(wxVERTICAL), GetClientSize().y));
    const int room = GetClientSize().x - Geometry().textLeft - OverviewWidth();
    ScrollTo(wxHORIZONTAL, textviews::PositionShowing(across, GetScrollPos(wxHORIZONTAL), room));
}
