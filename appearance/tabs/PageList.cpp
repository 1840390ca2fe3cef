#include "appearance/tabs/PageList.h"

#include "appearance/ColorScheme.h"
#include "appearance/inputs/ItemDrawing.h"
#include "appearance/tabs/TabLook.h"
#include "internal/text/OneLine.h"
#include "internal/windows/Geometry.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>
#include <wx/display.h>

#include <algorithm>

namespace appearance
{
namespace
{
// Pixels at scale 1.
constexpr int kFrame = 1;
constexpr int kIcon = 16;
constexpr int kMark = 10;
constexpr int kGap = 6;
constexpr int kOverText = 6; // of a row's height
constexpr int kWidest = 420;
constexpr int kNarrowest = 160;
constexpr int kThumb = 4; // width of what shows how far it is scrolled

constexpr double kDisplayShare = 0.7; // of the display's height
} // namespace

PageList::PageList(wxWindow* parent, std::vector<Row> rows)
    : wxPopupWindow(parent, wxBORDER_NONE), m_Rows(std::move(rows))
{
    SetFont(parent->GetFont());
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    for (Row& row : m_Rows)
    {
        row.text = internal::OneLine(row.text);
    }
    Bind(wxEVT_PAINT, &PageList::OnPaint, this);
    Bind(wxEVT_MOTION, &PageList::OnMotion, this);
    Bind(wxEVT_LEFT_UP, &PageList::OnRelease, this);
    Bind(wxEVT_MOUSEWHEEL, &PageList::OnWheel, this);
}

int PageList::RowHeight() const
{
    return std::max(GetCharHeight(), FromDIP(kIcon)) + FromDIP(kOverText);
}

wxSize PageList::BestSize(const wxRect& display) const
{
    const int widest = FromDIP(kWidest);
    int       width = FromDIP(kNarrowest);
    for (const Row& row : m_Rows)
    {
        const int text = width < widest ? ItemTextWidth(*this, row.text) : 0;
        width = std::max(width, text + FromDIP(kIcon + kMark + 4 * kGap) + 2 * kFrame);
    }
    const int most = static_cast<int>(display.height * kDisplayShare) / RowHeight();
    return wxSize(std::min(width, widest),
                  std::max(1, std::min(most, Count())) * RowHeight() + 2 * kFrame);
}

void PageList::Open(const wxPoint& screen, bool centred)
{
    const int    index = wxDisplay::GetFromPoint(screen);
    const wxRect display =
        wxDisplay(index == wxNOT_FOUND ? 0U : static_cast<unsigned>(index)).GetClientArea();
    wxRect place(screen, BestSize(display));
    place.Offset(centred ? -place.width / 2 : 1 - place.width, centred ? -place.height / 2 : 0);
    place = internal::MovedInto(display, place);
    m_Seen = (place.height - 2 * kFrame) / RowHeight();
    SetSize(place);
    Mark(m_Marked);
    Show();
}

void PageList::ScrollTo(int first)
{
    m_First = std::max(0, std::min(first, Count() - m_Seen));
    Refresh();
}

void PageList::Mark(int row)
{
    m_Marked = std::max(0, std::min(row, Count() - 1));
    ScrollTo(std::max(std::min(m_First, m_Marked), m_Marked - m_Seen + 1));
}

void PageList::MarkByTyping(const wxString& typed)
{
    const int start = m_Marked + (typed.length() == 1 ? 1 : 0);
    const int found = FindByTyping(
        typed, start, Count(), [this](int row) { return m_Rows[static_cast<size_t>(row)].text; });
    if (found >= 0)
    {
        Mark(found);
    }
}

int PageList::RowAt(const wxPoint& point) const
{
    const int row = m_First + (point.y - kFrame) / RowHeight();
    return GetClientRect().Contains(point) && row < std::min(Count(), m_First + m_Seen) ? row : -1;
}

void PageList::OnPaint(wxPaintEvent&)
{
    CALL_ENTRY("PageList::OnPaint");
    wxPaintDC      dc(this);
    const wxRect   all = GetClientRect();
    const wxColour ground = wxtGetColor(color_WindowBGLighter);
    FillGround(dc, all, ground);
    dc.SetFont(GetFont());
    const int height = RowHeight();
    for (int i = m_First; i < std::min(Count(), m_First + m_Seen); ++i)
    {
        const Row&     row = m_Rows[static_cast<size_t>(i)];
        const ItemLook look = ItemLook::Of(ground, wxtGetColor(color_Text), i == m_Marked);
        const wxRect place(kFrame, kFrame + (i - m_First) * height, all.width - 2 * kFrame, height);
        const int    icon = FromDIP(kIcon);
        const int    mark = FromDIP(kMark);
        const int    gap = FromDIP(kGap);
        FillGround(dc, place, look.ground);
        if (row.icon.IsOk())
        {
            DrawTabIcon(dc, *this, row.icon,
                        wxRect(place.x + gap, place.y + (height - icon) / 2, icon, icon));
        }
        const int left = place.x + icon + 2 * gap;
        const int right = place.x + place.width - mark - 2 * gap;
        DrawItemText(dc, wxRect(left, place.y, right - left, height), row.text, look.ink);
        if (row.isModified)
        {
            TabLook dot;
            dot.ink = look.ink;
            DrawTabSlot(dc, wxRect(right + gap, place.y + (height - mark) / 2, mark, mark),
                        TabSlot::mark, dot);
        }
    }
    if (m_Seen < Count())
    {
        const int  thumb = FromDIP(kThumb);
        const auto at = [this, &all](int row) { return all.height * row / Count(); };
        FillGround(dc,
                   wxRect(all.width - kFrame - thumb, at(m_First), thumb,
                          std::max(thumb, at(m_First + m_Seen) - at(m_First))),
                   wxtGetColor(color_Selected));
    }
    DrawFrame(dc, all, wxtGetColor(color_3DDark));
}

void PageList::OnMotion(wxMouseEvent& event)
{
    const int row = RowAt(event.GetPosition());
    if (row >= 0 && row != m_Marked)
    {
        m_Marked = row;
        Refresh();
    }
}

void PageList::OnRelease(wxMouseEvent& event)
{
    CALL_ENTRY("PageList::OnRelease");
    const int row = RowAt(event.GetPosition());
    if (row >= 0 && m_OnPicked)
    {
        m_Marked = row;
        m_OnPicked();
    }
}

void PageList::OnWheel(wxMouseEvent& event)
{
    constexpr int kRowsPerNotch = 3;
    m_WheelTurn += event.GetWheelRotation();
    const int notch = std::max(1, event.GetWheelDelta());
    const int notches = m_WheelTurn / notch;
    m_WheelTurn -= notches * notch;
    ScrollTo(m_First - notches * kRowsPerNotch);
}
} // namespace appearance
