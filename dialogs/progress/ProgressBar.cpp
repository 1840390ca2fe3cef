#include "dialogs/progress/ProgressBar.h"

#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"

#include <wx/dcbuffer.h>

#include <algorithm>

namespace dialogs
{
namespace
{
constexpr int kRoom = 4;   // pixels above and below the text
constexpr int kSteps = 40; // of a moving piece, there and back
constexpr int kPiece = 5;  // its share of the bar

wxRect FilledPart(const wxRect& area, double share, int step)
{
    if (share >= 0)
    {
        return wxRect(area.x, area.y, static_cast<int>(area.width * share), area.height);
    }
    const int width = area.width / kPiece;
    const int there = std::min(step % kSteps, kSteps - step % kSteps);
    return wxRect(area.x + (area.width - width) * there * 2 / kSteps, area.y, width, area.height);
}
} // namespace

ProgressBar::ProgressBar(wxWindow* parent) : wxtPanel(parent)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetMinSize(wxSize(-1, GetCharHeight() + 2 * kRoom));
    Bind(wxEVT_PAINT, &ProgressBar::Paint, this);
}

void ProgressBar::Set(int done, int total)
{
    m_Share = total > 0 ? std::clamp(double(done) / total, 0.0, 1.0) : -1;
    ++m_Step;
    Refresh(false);
}

// The text is drawn in two colours, each where it is on its ground.
void ProgressBar::Paint(wxPaintEvent&)
{
    wxAutoBufferedPaintDC dc(this);
    const wxColour        ground = wxtGetColor(color_WindowBGDarker);
    const wxColour        filled = wxtGetColor(color_Selected);
    dc.SetPen(wxPen(internal::MixColours(wxtGetColor(color_Text), ground, 0.35)));
    dc.SetBrush(wxBrush(ground));
    dc.DrawRectangle(GetClientSize());
    const wxRect area = wxRect(GetClientSize()).Deflate(1);
    const wxRect part = FilledPart(area, m_Share, m_Step);
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(filled));
    dc.DrawRectangle(part);
    if (m_Share < 0)
    {
        return;
    }
    dc.SetFont(GetFont());
    const wxString text = wxString::Format("%d %%", static_cast<int>(m_Share * 100));
    const wxRect   rest(part.GetRight() + 1, area.y, area.width - part.width, area.height);
    for (const auto& [clip, under] : {std::pair(part, filled), std::pair(rest, ground)})
    {
        if (!clip.IsEmpty())
        {
            const wxDCClipper clipped(dc, clip);
            dc.SetTextForeground(internal::ReadableOn(
                under, {wxtGetColor(color_Text), wxtGetColor(color_ButtonText)}));
            dc.DrawLabel(text, area, wxALIGN_CENTRE);
        }
    }
}
} // namespace dialogs
