#include "appearance/wxTolvanString.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextCells.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/search/FinderChoice.h"
#include "textviews/search/LineSearch.h"
#include "textviews/search/RegexMatcher.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

namespace
{
constexpr size_t kStep = 1024 * 1024; // bytes
constexpr size_t kLongestPart = 1000; // bytes
} // namespace

void wxTextLineCtrl::MakeSearchPanel()
{
    m_SearchPanel = new wxTextLineSearchPanel(this, GetParent());
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
    const String part = GetSelectedPart();
    if (!part.empty() && part.size() <= kLongestPart)
    {
        panel.SetText(
            wxtToWx(panel.GetExpression() ? textviews::RegexMatcher::Quoted(part) : part));
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
    textviews::SearchPlace start = SearchStart(forward);
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
    ShowHit(search.Match());
    return true;
}

textviews::SearchPlace wxTextLineCtrl::SearchStart(bool forward) const
{
    if (m_MarkedLine == -1)
    {
        return VisibleStart(forward);
    }
    return {m_MarkedLine, forward ? m_MatchEnd : m_MatchBegin};
}

textviews::SearchPlace wxTextLineCtrl::VisibleStart(bool forward) const
{
    const textviews::TextGeometry geometry = Geometry();
    if (forward)
    {
        return {geometry.scroll.y / m_LineHeight, 0};
    }
    const int last = geometry.LineAt(geometry.client.y - 1);
    return {last == -1 ? m_Lines->Count() - 1 : last, textviews::SearchPlace::k_End};
}

textviews::SearchPlace wxTextLineCtrl::ShownHit() const
{
    return {m_MarkedLine, m_MatchBegin};
}

void wxTextLineCtrl::ShowHit(const textviews::LineMatch& match)
{
    m_MarkedLine = match.line;
    m_MatchColumn = match.column;
    m_MatchLength = match.length;
    m_MatchBegin = match.bytes.begin;
    m_MatchEnd = match.bytes.end;
    ScrollIntoView(match);
    m_FollowEnd = false; // the next line could push it out of sight
    TellFollowing();
    Redraw();
}

void wxTextLineCtrl::ScrollIntoView(const textviews::LineMatch& match)
{
    AdjustScrollbars(); // they may take part of the view away
    const std::string_view text = m_Lines->LineNow(match.line);
    const int64_t          first = m_Places->AtColumn(match.line, text, match.column).cell;
    const int64_t end = m_Places->AtColumn(match.line, text, match.column + match.length).cell;
    // Half a cell of margin on either side, as the text itself has.
    const textviews::Stretch across{first * m_ColumnWidth, (end + 1) * m_ColumnWidth};
    const textviews::Stretch down{static_cast<int64_t>(match.line) * m_LineHeight,
                                  (static_cast<int64_t>(match.line) + 1) * m_LineHeight};
    ScrollTo(wxVERTICAL,
             textviews::PositionShowing(down, GetScrollPos(wxVERTICAL), GetClientSize().y));
    const int room = GetClientSize().x - Geometry().textLeft;
    ScrollTo(wxHORIZONTAL, textviews::PositionShowing(across, GetScrollPos(wxHORIZONTAL), room));
}
