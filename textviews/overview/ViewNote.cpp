#include "textviews/overview/ViewNote.h"

#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>

#include <algorithm>

namespace textviews
{
namespace
{
constexpr int kShownMs = 4000;
// Pixels.
constexpr int kMargin = 6; // to the view's edges
constexpr int kInset = 5;  // around the text
} // namespace

ViewNote::ViewNote(wxWindow* view)
{
    Hide(); // before it is made: it is not to flash
    Create(view, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    Manage(this);
    SetFont(view->GetParent()->GetFont());
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetCursor(*wxSTANDARD_CURSOR);
    Bind(wxEVT_PAINT, &ViewNote::OnPaint, this);
    Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent&) { ShowText({}); });
    m_Timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ShowText({}); });
    view->Bind(wxEVT_SIZE, &ViewNote::OnViewSize, this);
}

ViewNote::~ViewNote()
{
    GetParent()->Unbind(wxEVT_SIZE, &ViewNote::OnViewSize, this);
}

void ViewNote::OnViewSize(wxSizeEvent& event)
{
    event.Skip();
    Place();
}

void ViewNote::ShowText(const wxString& text, bool stays)
{
    m_Timer.Stop();
    if (!text.empty() && !stays)
    {
        m_Timer.StartOnce(kShownMs);
    }
    if (text != m_Text)
    {
        m_Text = text;
        Place();
        Refresh();
    }
}

void ViewNote::Place()
{
    const wxSize text = m_Text.empty() ? wxSize() : GetTextExtent(m_Text);
    const wxSize room = GetParent()->GetClientSize();
    const int    width = std::min(text.x + 2 * kInset, room.x - 2 * kMargin);
    const int    height = text.y + 2 * kInset;
    Show(!m_Text.empty() && width > 2 * kInset && height < room.y - kMargin);
    SetSize(kMargin, room.y - kMargin - height, std::max(width, 1), std::max(height, 1));
}

void ViewNote::OnPaint(wxPaintEvent&)
{
    CALL_ENTRY("ViewNote::OnPaint");
    wxPaintDC      dc(this);
    const wxColour ground = wxtGetColor(color_WindowBGDarker);
    const wxColour ink = wxtReadableColor(wxtGetColor(color_Text), ground);
    const wxColour edge = wxtGetColor(color_3DDark);
    if (!ground.IsOk() || !ink.IsOk() || !edge.IsOk())
    {
        return;
    }
    dc.SetPen(wxPen(edge));
    dc.SetBrush(wxBrush(ground));
    dc.DrawRectangle(GetClientRect());
    dc.SetFont(GetFont());
    dc.SetTextForeground(ink);
    dc.DrawText(m_Text, kInset, kInset);
}
} // namespace textviews
