#include "textviews/matching/MatchesView.h"

#include "textviews/escapes/ShownLines.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/lines/TextSelection.h"
#include "textviews/rules/Ruling.h"
#include "textviews/search/VisibleHits.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>
#include <wx/menu.h>

#include <algorithm>

namespace textviews
{
namespace
{
constexpr int kArounds[] = {0, 1, 2, 3, 5, 10, 20};
constexpr int kCount = static_cast<int>(std::size(kArounds));

enum
{
    id_Before = 7361, ///< The first of them.
    id_After = id_Before + kCount,
    id_LastAfter = id_After + kCount - 1
};

wxMenu* AroundMenu(int firstId, int chosen)
{
    auto* const menu = new wxMenu;
    for (int i = 0; i < kCount; ++i)
    {
        menu->AppendRadioItem(firstId + i, wxString::Format("%d", kArounds[i]))
            ->Check(kArounds[i] == chosen);
    }
    return menu;
}
} // namespace

MatchesView::MatchesView(wxWindow* parent, wxTextLineCtrl& whole)
    : wxTextLineCtrl(parent, std::make_unique<PickedLines>(whole.Lines())), m_Whole(&whole)
{
    CALL_ENTRY("MatchesView::MatchesView");
    SetName("matches");
    m_SearchPanel = whole.GetSearchPanel();
    ShowLineNumbers(true);
    LookChanged();
    SetFollowEnd(whole.IsFollowing());
    Bind(wxEVT_LEFT_UP, &MatchesView::OnRowClick, this);
    Bind(wxEVT_KEY_DOWN, &MatchesView::OnRowKey, this);
    Bind(wxEVT_RIGHT_DOWN, &MatchesView::OnRowMenu, this);
    Bind(wxEVT_MENU, &MatchesView::OnAround, this, id_Before, id_LastAfter);
    Bind(wxEVT_IDLE,
         [this](wxIdleEvent& event)
         {
             event.Skip();
             ShowRows();
         });
    Bind(wxtEVT_TEXT_SIZE,
         [this](wxCommandEvent& event)
         {
             if (m_Whole)
             {
                 m_Whole->ChangeTextSize(event.GetInt());
             }
         });
    m_Whole->Watch(*this, true);
    if (wxTextLineSearchPanel* const panel = GetSearchPanel())
    {
        panel->Accompany(this);
    }
}

MatchesView::~MatchesView()
{
    CALL_ENTRY("MatchesView::~MatchesView");
    Leave();
}

void MatchesView::Leave()
{
    CALL_ENTRY("MatchesView::Leave");
    if (!m_Whole)
    {
        return;
    }
    EndRun(m_Saving);
    EndRun(m_Copying);
    m_Whole->Watch(*this, false);
    m_Whole = nullptr;
    Picked().Search().SetFinder(nullptr);
    Picked().Search().LinesCleared();
    m_HasKept = false;
    MarkHits(nullptr);
    if (wxTextLineSearchPanel* const panel = GetSearchPanel())
    {
        panel->Accompany(nullptr);
    }
    m_SearchPanel = nullptr;
}

void MatchesView::SetAround(const LinesAround& around)
{
    StopSaving();
    StopCopying();
    Keep();
    Picked().Search().SetAround(around);
    wxWakeUpIdle();
}

int64_t MatchesView::NumberOf(int row) const
{
    return m_Whole ? m_Whole->NumberOf(WholeLine(row)) : 0;
}

bool MatchesView::IsMarked(int row) const
{
    return m_Whole && m_Whole->IsMarked(WholeLine(row));
}

int MatchesView::OriginOf(int row) const
{
    return m_Whole ? m_Whole->OriginOf(WholeLine(row)) : -1;
}

bool MatchesView::IsQuiet(int row) const
{
    return !Picked().Search().Found().IsMatch(row);
}

const wxTextLineCtrl& MatchesView::Whole() const
{
    return m_Whole ? *m_Whole : static_cast<const wxTextLineCtrl&>(*this);
}

// By the view's lines, before their rows become others.
void MatchesView::Keep()
{
    if (m_HasKept || !m_Whole)
    {
        return;
    }
    m_HasKept = true;
    const int  rows = GetLineCount();
    const auto lineOf = [&](int row) { return row < 0 || row >= rows ? -1 : WholeLine(row); };
    const int  position = GetScrollPos(wxVERTICAL);
    if (!m_Kept.isSelectionAway || !m_Selection->IsEmpty() || m_Selection->Span().Line() >= 0)
    {
        m_Kept.anchor = lineOf(GetSelectionAnchor());
        m_Kept.end = lineOf(GetSelectionEnd());
        m_Kept.part = m_Selection->Span();
        m_Kept.partLine = lineOf(m_Kept.part.Line());
    }
    if (!m_Kept.isTopAway || position != m_Kept.position)
    {
        const TextAnchor top = TopAnchor();
        m_Kept.top = lineOf(top.line);
        m_Kept.cell = top.cell;
        m_Kept.below = position % m_LineHeight;
    }
    m_Kept.follows = rows == 0 ? m_Whole->IsFollowing() : IsFollowing();
    wxWakeUpIdle();
}

// -1 when the line is not shown.
int MatchesView::RowOf(int line) const
{
    const int row = line < 0 ? -1 : Picked().Search().Found().RowOf(line);
    return row >= 0 && row < GetLineCount() && WholeLine(row) == line ? row : -1;
}

// Those that there are now, with the same lines seen and selected.
void MatchesView::ShowRows()
{
    if (!m_HasKept)
    {
        return;
    }
    m_HasKept = false;
    const int  rows = GetLineCount();
    const bool mayCome = HasWork();
    const int  selected = std::max(m_Kept.anchor, m_Kept.partLine);
    m_Kept.isSelectionAway = mayCome && selected >= 0 && RowOf(selected) < 0;
    m_Selection->Clear();
    if (RowOf(m_Kept.anchor) >= 0)
    {
        m_Selection->Click(RowOf(m_Kept.anchor), rows);
        m_Selection->Drag(std::max(RowOf(m_Kept.end), 0), rows);
    }
    else if (RowOf(m_Kept.partLine) >= 0)
    {
        m_Kept.part.MoveTo(RowOf(m_Kept.partLine));
        m_Selection->PutSpan(m_Kept.part);
    }
    m_HoverLine = -1;
    m_MenuLine = -1;
    m_Places->Forget();
    m_Hits->Forget();
    m_Ruling->visible.Forget();
    m_Wrap->Switch(IsWrapped()); // it stands nowhere
    m_LineCount = rows;
    m_Gutter->dropped = rows > 0 ? NumberOf(rows - 1) - rows : 0;
    m_TextWidth = m_Whole->m_TextWidth;
    m_FollowEnd = false;
    FitGutter();
    FitContentWidth();
    AdjustScrollbars();
    const int top = m_Kept.top < 0 ? 0 : Picked().Search().Found().RowOf(m_Kept.top);
    m_Kept.isTopAway = mayCome && m_Kept.top >= 0 && top >= rows;
    if (IsWrapped())
    {
        GoToAnchor({top, RowOf(m_Kept.top) == top ? m_Kept.cell : 0});
    }
    else
    {
        ScrollTo(wxVERTICAL, static_cast<long long>(top) * m_LineHeight + m_Kept.below);
    }
    m_Kept.position = GetScrollPos(wxVERTICAL);
    if (m_Kept.follows)
    {
        ScrollToBottom();
    }
    m_FollowEnd = m_Kept.follows;
    Redraw();
}

void MatchesView::LineInserted(int line)
{
    Keep();
    for (int* const kept : {&m_Kept.anchor, &m_Kept.end, &m_Kept.partLine, &m_Kept.top})
    {
        *kept = IndexAfterInsert(*kept, line);
    }
    Picked().Search().LineInserted(line);
}

void MatchesView::LineErased(int line)
{
    Keep();
    m_Kept.anchor = IndexAfterErase(m_Kept.anchor, line);
    m_Kept.end = IndexAfterErase(m_Kept.end, line);
    m_Kept.partLine = IndexAfterErase(m_Kept.partLine, line);
    m_Kept.top -= line < m_Kept.top ? 1 : 0;
    Picked().Search().LineErased(line);
}

void MatchesView::LinesCleared()
{
    Keep();
    const bool follows = m_Kept.follows;
    m_Kept = {};
    m_Kept.follows = follows;
    Picked().Search().LinesCleared();
}

void MatchesView::LookChanged()
{
    SetEscapes(m_Whole->GetEscapes());
    SetTextSize(m_Whole->GetTextSize());
    SetReadableSelection(m_Whole->HasReadableSelection());
    SelectWithinLines(m_Whole->SelectsWithinLines());
    SetRules(m_Whole->GetRules());
    SetWrap(m_Whole->IsWrapped());
    if (GetOrigins() != m_Whole->GetOrigins())
    {
        ShowOrigins(m_Whole->GetOrigins(), nullptr);
    }
    Redraw();
}

void MatchesView::LookFor(const std::shared_ptr<HitFinder>& finder, bool shown)
{
    MatchSearch& search = Picked().Search();
    if (finder != search.Finder())
    {
        StopSaving(); // half of the file would be of other lines
        StopCopying();
        Keep();
        search.SetFinder(finder);
        MarkHits(finder);
    }
    Keep();
    search.LookAtShown(shown);
    wxWakeUpIdle();
}

bool MatchesView::HasWork() const
{
    return Picked().Search().HasWork();
}

void MatchesView::Work()
{
    Keep();
    Picked().Search().Work();
}

void MatchesView::DrawBitmap()
{
    ShowRows();
    wxTextLineCtrl::DrawBitmap();
    DrawGaps();
}

void MatchesView::DrawGaps()
{
    const TextGeometry geometry = Geometry();
    const wxColour     colour = wxtGetColor(color_TextGrey);
    const int          end = EndOfDrawnLines(geometry);
    if (!colour.IsOk())
    {
        return;
    }
    const std::unique_ptr<wxDC> dc = m_Buffer.NewDC();
    dc->SetPen(*wxTRANSPARENT_PEN);
    dc->SetBrush(wxBrush(colour));
    for (int row = geometry.FirstDrawnLine(); row < end; ++row)
    {
        if (HasGapBefore(row))
        {
            dc->DrawRectangle(0, geometry.TopOf(row), geometry.client.x, 1);
        }
    }
}

// The search goes on from there. Whoever hears that the view there is scrolled may destroy this
// one.
void MatchesView::GoToRow(int row)
{
    ShowRows();
    if (!m_Whole || row < 0 || row >= GetLineCount())
    {
        return;
    }
    const int                 line = WholeLine(row);
    const bool                isMatch = !IsQuiet(row);
    const wxWeakRef<wxWindow> self(this);
    m_Whole->GoToLine(line);
    if (self && isMatch && GetSearchPanel())
    {
        GetSearchPanel()->FindFrom(line);
    }
}

void MatchesView::OnRowClick(wxMouseEvent& event)
{
    CALL_ENTRY("MatchesView::OnRowClick");
    const bool                isClick = m_Selecting;
    const wxWeakRef<wxWindow> self(this);
    OnLeftUp(event);
    if (self && isClick && m_Selection->Span().IsEmpty() &&
        GetSelectionAnchor() == GetSelectionEnd())
    {
        GoToRow(GetSelectionEnd());
    }
}

// They are about the lines that these were picked from. Whoever hears of what comes of it may
// destroy this.
bool MatchesView::RunReadingCommand(int id)
{
    if (!m_Whole)
    {
        return false;
    }
    ShowRows();
    if (id == id_ToggleBookmark)
    {
        if (GetLineCount() > 0)
        {
            const int line = WholeLine(CurrentLine());
            m_Whole->SetBookmark(line, !m_Whole->HasBookmark(line));
        }
        return true;
    }
    return m_Whole->RunReadingCommand(id);
}

void MatchesView::MoveBy(int rows)
{
    ShowRows();
    const int count = GetLineCount();
    if (count == 0)
    {
        return;
    }
    const int from = m_Selection->Place();
    const int row = from < 0 ? Geometry().WholeLine(true) : LineAfter(from, rows, count);
    m_Selection->Click(row, count);
    ShowLine(row);
    GatherLater();
}

void MatchesView::OnRowKey(wxKeyEvent& event)
{
    CALL_ENTRY("MatchesView::OnRowKey");
    if (event.HasAnyModifiers() || event.ShiftDown())
    {
        event.Skip();
        return;
    }
    switch (event.GetKeyCode())
    {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        GoToRow(m_Selection->Place());
        break;
    case WXK_UP:
    case WXK_NUMPAD_UP:
        MoveBy(-1);
        break;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN:
        MoveBy(1);
        break;
    case WXK_ESCAPE:
        if (m_Whole)
        {
            m_Whole->StopFindingError();
        }
        event.Skip();
        break;
    default:
        event.Skip();
        break;
    }
}

void MatchesView::OnRowMenu(wxMouseEvent& event)
{
    CALL_ENTRY("MatchesView::OnRowMenu");
    if (TakeFocus())
    {
        m_MenuLine = Geometry().LineAt(event.GetY());
        wxMenu menu;
        menu.AppendSubMenu(AroundMenu(id_Before, Around().before), _("Lines Before"));
        menu.AppendSubMenu(AroundMenu(id_After, Around().after), _("Lines After"));
        menu.AppendSeparator();
        HandleContextMenu(menu, true);
    }
}

void MatchesView::OnAround(wxCommandEvent& event)
{
    CALL_ENTRY("MatchesView::OnAround");
    LinesAround around = Around();
    const bool  isAfter = event.GetId() >= id_After;
    (isAfter ? around.after : around.before) =
        kArounds[event.GetId() - (isAfter ? id_After : id_Before)];
    SetAround(around);
    if (onAround)
    {
        onAround(around);
    }
}
} // namespace textviews
