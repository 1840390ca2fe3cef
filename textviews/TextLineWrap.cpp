#include "internal/scrolling/ScrollModel.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/follow/OwnMove.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>

// A view that wraps stands at a row of a line; everything else is as in one that does not.

wxDEFINE_EVENT(wxtEVT_TEXT_WRAP, wxCommandEvent);

namespace
{
constexpr size_t kManyRows = 1024; // bytes from which a folded line is worth remembering
} // namespace

// Half a cell is left on either side of the text.
textviews::Wrapping& wxTextLineCtrl::Wrap() const
{
    const wxSize client = GetClientSize();
    const int    room = client.x - m_Gutter->layout.width - OverviewWidth() - m_ColumnWidth;
    m_Wrap->Fit(
        {textviews::RowWidths::For(room / m_ColumnWidth), client.y, std::max(m_LineHeight, 1)});
    return *m_Wrap;
}

bool wxTextLineCtrl::IsWrapped() const
{
    return m_Wrap->IsOn();
}

void wxTextLineCtrl::SetWrap(bool on)
{
    CALL_ENTRY("wxTextLineCtrl::SetWrap");
    if (on == IsWrapped())
    {
        return;
    }
    const bool follows = IsFollowing();
    const int  line = TopAnchor().line;
    m_Wrap->Switch(on);
    m_Shown->RememberFrom(on ? kManyRows : textviews::ShownLines::k_LongLine);
    m_EndThumb = nullptr;
    m_ScrollRows = nullptr;
    if (on)
    {
        m_EndThumb = [this]
        {
            const textviews::Wrapping& wrap = Wrap();
            return internal::ScrollRange(m_LineCount, m_LineHeight) - wrap.PixelsOf(wrap.End());
        };
        m_ScrollRows = [this](wxEventType type, int position)
        { return Wrap().MoveBy(type, TopNow(), position); };
    }
    FitContentWidth();
    AdjustScrollbars();
    GoToAnchor({line, 0});
    if (follows)
    {
        ScrollToBottom();
    }
    TellLook();
    Redraw();
}

// By the user.
void wxTextLineCtrl::ChangeWrap()
{
    SetWrap(!IsWrapped());
    wxCommandEvent event(wxtEVT_TEXT_WRAP, GetId());
    event.SetEventObject(this);
    event.SetInt(IsWrapped() ? 1 : 0);
    QueueEvent(event.Clone());
}

textviews::ViewTop wxTextLineCtrl::TopNow() const
{
    return Wrap().Top(GetScrollPos(wxVERTICAL), m_FollowEnd);
}

textviews::TextAnchor wxTextLineCtrl::TopAnchor() const
{
    return IsWrapped() ? Wrap().AnchorOf(TopNow())
                       : textviews::TextAnchor{GetScrollPos(wxVERTICAL) / m_LineHeight, 0};
}

void wxTextLineCtrl::GoToAnchor(const textviews::TextAnchor& anchor)
{
    const textviews::OwnMove move(m_MayFollow);
    if (IsWrapped())
    {
        GoToTop(Wrap().TopOf(anchor));
        return;
    }
    ScrollTo(wxVERTICAL, static_cast<long long>(anchor.line) * m_LineHeight);
}

void wxTextLineCtrl::GoToTop(const textviews::ViewTop& top)
{
    ScrollTo(wxVERTICAL, Wrap().MoveTo(top));
}

bool wxTextLineCtrl::ScrollLines(int lines)
{
    CALL_ENTRY("wxTextLineCtrl::ScrollLines");
    if (!IsWrapped())
    {
        return wxDoubleBufferedWindow::ScrollLines(lines);
    }
    AdjustScrollbars();
    GoToTop(Wrap().Moved(TopNow(), lines));
    return true;
}

bool wxTextLineCtrl::ScrollPages(int pages)
{
    CALL_ENTRY("wxTextLineCtrl::ScrollPages");
    return IsWrapped() ? ScrollLines(pages * Wrap().PageRows())
                       : wxDoubleBufferedWindow::ScrollPages(pages);
}

// Lines that came or went above, or rows that are as wide as the view is now, have moved what
// stands at the top: the scrollbar follows.
void wxTextLineCtrl::SettleTop()
{
    if (IsWrapped())
    {
        const textviews::OwnMove move(m_MayFollow);
        const textviews::ViewTop top = TopNow();
        AdjustScrollbars();
        GoToTop(top);
        TellFollowing();
    }
}

// Where they are seen already, the view stays; else the first of those cells is in its middle.
void wxTextLineCtrl::ShowWrappedCells(int line, int64_t first, int64_t end)
{
    const textviews::Wrapping&        wrap = Wrap();
    const textviews::LineWrap::Broken rows = wrap.Rows().Break(line);
    const textviews::RowPlace         place{line, wrap.Rows().RowOf(rows, first)};
    const textviews::RowPlace         last{line, wrap.Rows().RowOf(rows, std::max(first, end - 1))};
    if (!wrap.Shows(TopNow(), place, last))
    {
        GoToTop(wrap.Around(place, last.row - place.row + 1));
    }
}
