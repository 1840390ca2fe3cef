#include "textviews/follow/FollowButton.h"
#include "textviews/gutter/Gutter.h"
#include "textviews/lines/LineStore.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/overview/OverviewStrip.h"
#include "textviews/rules/Ruling.h"
#include "textviews/wrap/Wrapping.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/intl.h>
#include <wx/numformatter.h>

#include <algorithm>

namespace
{
constexpr auto kShowEvery = std::chrono::milliseconds(100); // while it is being worked out
constexpr int  kNearRows = 2; // of a mark that a press is meant for, pixels
constexpr textviews::LineMarks k_AllMarks = 0xff;

textviews::OverviewStrip* StripOf(const textviews::Ruling& ruling)
{
    return static_cast<textviews::OverviewStrip*>(ruling.strip.get());
}
// Scrolling leaves them as they are.
const std::vector<uint8_t>& RowsOf(textviews::Ruling& ruling, int height, int total)
{
    const textviews::LineBands&  rules = ruling.index.RuleBands();
    const textviews::LineBands&  hits = ruling.index.HitBands();
    const std::array<int64_t, 4> now{rules.Version(), hits.Version(), height, total};
    if (now != ruling.rowsAre)
    {
        ruling.rowsAre = now;
        ruling.rows = rules.Rows(height, total);
        const std::vector<uint8_t> more = hits.Rows(height, total);
        std::transform(ruling.rows.begin(), ruling.rows.end(), more.begin(), ruling.rows.begin(),
                       [](auto one, auto other) { return static_cast<uint8_t>(one | other); });
    }
    return ruling.rows;
}
} // namespace

void wxTextLineCtrl::ShowOverview(bool show)
{
    CALL_ENTRY("wxTextLineCtrl::ShowOverview");
    if (show == HasOverview())
    {
        return;
    }
    if (show)
    {
        textviews::OverviewStrip::Acts acts;
        acts.goTo = [this](int row, bool isPress) { GoToRow(row, isPress); };
        acts.tip = [this](int row) { return TipOfRow(row); };
        acts.onWheel = [this](wxMouseEvent& event) { OnWheel(event); };
        acts.onPlaced = [this] { FitOverview(); };
        m_Ruling->strip = new textviews::OverviewStrip(this, acts);
    }
    else
    {
        m_Ruling->strip->Destroy();
        m_Ruling->strip = nullptr;
    }
    m_Ruling->index.KeepBands(show);
    Watch(m_Ruling->index, m_Ruling->index.IsActive());
    FitOverview();
}

bool wxTextLineCtrl::HasOverview() const
{
    return StripOf(*m_Ruling) != nullptr;
}

bool wxTextLineCtrl::IsOverviewUnderWay() const
{
    return HasOverview() && m_Ruling->index.HasWork();
}

int wxTextLineCtrl::OverviewWidth() const
{
    return HasOverview() ? m_Ruling->strip->GetSize().x : 0;
}

// It lies over the text: the end of the longest line can be scrolled to the left of it.
void wxTextLineCtrl::FitOverview()
{
    if (auto* const button = static_cast<textviews::CornerFollowButton*>(FollowButton()))
    {
        button->KeepClearOf(OverviewWidth());
    }
    FitContentWidth();
    AdjustScrollbarsLater();
    Redraw();
}

void wxTextLineCtrl::ShowHitsInOverview(std::shared_ptr<textviews::HitFinder> finder, bool asShown)
{
    CALL_ENTRY("wxTextLineCtrl::ShowHitsInOverview");
    m_Ruling->index.SetFinder(std::move(finder), asShown);
}

textviews::StripScale wxTextLineCtrl::OverviewScale() const
{
    textviews::StripScale scale;
    scale.height = HasOverview() ? StripOf(*m_Ruling)->Rows() : 0;
    scale.lines = m_Lines->Count();
    scale.lineHeight = m_LineHeight;
    return scale;
}

void wxTextLineCtrl::UpdateOverview()
{
    textviews::OverviewStrip* const strip = StripOf(*m_Ruling);
    if (!strip)
    {
        return;
    }
    const textviews::StripScale scale = OverviewScale();
    textviews::StripPicture     picture;
    picture.rows = RowsOf(*m_Ruling, scale.height, scale.Total());
    for (const int line : m_Gutter->bookmarks.All())
    {
        picture.rows[static_cast<size_t>(scale.RowOf(line))] |= textviews::k_BookmarkMark;
    }
    const int top = GetScrollPos(wxVERTICAL);
    int64_t   bottom = static_cast<int64_t>(top) + GetClientSize().y;
    if (IsWrapped() && scale.lines > 0)
    {
        const textviews::TextRow last = Geometry().rows.back();
        bottom = Wrap().PixelsBelow({last.line, last.row});
    }
    picture.frame = scale.FrameOf(top, bottom);
    strip->ShowPicture(std::move(picture));
    m_Ruling->shown = std::chrono::steady_clock::now();
}

void wxTextLineCtrl::ShowOverviewSoon()
{
    if (!m_Ruling->index.HasWork() ||
        std::chrono::steady_clock::now() - m_Ruling->shown >= kShowEvery)
    {
        UpdateOverview();
    }
}

// A row stands for many lines: a press at a mark goes to what is marked.
void wxTextLineCtrl::GoToRow(int row, bool isPress)
{
    const textviews::StripScale scale = OverviewScale();
    if (isPress && scale.lines > 0)
    {
        const int from = scale.LineAt(std::max(row - kNearRows, 0));
        const int end = scale.LineAt(row + 1);
        for (const textviews::LineBands* const bands :
             {&m_Ruling->index.RuleBands(), &m_Ruling->index.HitBands()})
        {
            const int line = bands->IsComplete() ? bands->NextMarked(from, true, k_AllMarks) : -1;
            if (line >= from && line < end)
            {
                ShowInMiddle(line);
                return;
            }
        }
    }
    if (IsWrapped())
    {
        AdjustScrollbars();
        GoToTop(Wrap().Around(Wrap().PlaceAt(scale.TopFor(row, 0)), 1));
        return;
    }
    ScrollTo(wxVERTICAL, scale.TopFor(row, GetClientSize().y));
}

wxString wxTextLineCtrl::TipOfRow(int row) const
{
    const int line = OverviewScale().LineAt(row);
    if (line < 0)
    {
        return {};
    }
    const wxString number =
        wxNumberFormatter::ToString(static_cast<wxLongLong_t>(m_Gutter->NumberOf(line)),
                                    wxNumberFormatter::Style_WithThousandsSep);
    return wxString::Format(wxGetTranslation("Line %s"), number);
}
