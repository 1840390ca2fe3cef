#include "textviews/follow/FollowButton.h"

#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"
#include "internal/input/ForeignPress.h"
#include "internal/port/ToolTips.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>
#include <wx/intl.h>

#include <algorithm>
#include <utility>

namespace textviews
{
namespace
{
// Pixels.
constexpr int kOverText = 6; // of its height
constexpr int kMargin = 6;   // to the view's edges
constexpr int kHoverLift = 20;

// Down to a line, row by row: the edges of a polygon would be smoothed on one port and not on the
// other.
void DrawArrow(wxDC& dc, const wxSize& size, const wxColour& colour)
{
    const int half = std::max(size.y / 4, 2);
    const int middle = size.x / 2;
    int       y = (size.y - half) / 2 - 2;
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(wxBrush(colour));
    for (int row = half; row >= 0; --row, ++y)
    {
        dc.DrawRectangle(middle - row, y, 2 * row + 1, 1);
    }
    dc.DrawRectangle(middle - half, y + 1, 2 * half + 1, 2);
}
} // namespace

FollowButton::FollowButton(wxWindow* parent, std::function<void()> onClick)
    : wxWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE, "follow"),
      m_OnClick(std::move(onClick))
{
    Manage(this);
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetCursor(*wxSTANDARD_CURSOR);
    const auto onFocus = [this](wxFocusEvent& event)
    {
        event.Skip();
        m_IsKeyDown = false;
        Refresh();
    };
    Bind(wxEVT_PAINT, &FollowButton::OnPaint, this);
    const auto onPress = [this](wxMouseEvent&) { OnPress(); };
    Bind(wxEVT_LEFT_DOWN, onPress);
    Bind(wxEVT_LEFT_DCLICK, onPress);
    Bind(wxEVT_LEFT_UP, &FollowButton::OnRelease, this);
    Bind(wxEVT_ENTER_WINDOW, [this](wxMouseEvent&) { SetHover(true); });
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { SetHover(false); });
    Bind(wxEVT_KEY_DOWN, &FollowButton::OnKey, this);
    Bind(wxEVT_KEY_UP, [this](wxKeyEvent&) { m_IsKeyDown = false; });
    Bind(wxEVT_SET_FOCUS, onFocus);
    Bind(wxEVT_KILL_FOCUS, onFocus);
    internal::RefuseForeignRelease(*this);
    ShowState(true);
}

void FollowButton::ShowState(bool following)
{
    const wxString tip = following ? _("Stay here when lines come") : _("Follow the end");
    internal::SetToolTipHere(*this, tip);
    if (following != m_Following)
    {
        m_Following = following;
        Refresh();
    }
}

int FollowButton::Side() const
{
    return GetParent()->GetCharHeight() + kOverText;
}

wxSize FollowButton::DoGetBestSize() const
{
    return {Side(), Side()};
}

void FollowButton::SetHover(bool hover)
{
    if (hover != m_Hover)
    {
        m_Hover = hover;
        Refresh();
    }
}

void FollowButton::OnPaint(wxPaintEvent&)
{
    CALL_ENTRY("FollowButton::OnPaint");
    wxPaintDC dc(this);
    wxColour  ground = wxtGetColor(m_Following ? color_Selected : color_WindowBG);
    if (m_Hover && IsEnabled())
    {
        ground = OffsetColor(ground, kHoverLift, kHoverLift, kHoverLift);
    }
    const wxColour ink =
        wxtReadableColor(wxtGetColor(IsEnabled() ? color_Text : color_TextGrey), ground);
    if (ground.IsOk())
    {
        dc.SetBackground(wxBrush(ground));
        dc.Clear();
    }
    const wxColour edge = wxtGetColor(color_3DDark);
    if (edge.IsOk())
    {
        dc.SetPen(wxPen(edge));
        dc.SetBrush(*wxTRANSPARENT_BRUSH);
        dc.DrawRectangle(GetClientRect());
    }
    if (ink.IsOk())
    {
        DrawArrow(dc, GetClientSize(), ink);
    }
    if (HasFocus())
    {
        wxtDrawFocus(dc, GetClientRect(), {ground});
    }
}

// A press that is let go elsewhere has been thought better of.
void FollowButton::OnRelease(wxMouseEvent& event)
{
    if (IsShown() && GetClientRect().Contains(event.GetPosition()))
    {
        Click();
    }
}

void FollowButton::Click()
{
    CALL_ENTRY("FollowButton::Click");
    const std::function<void()> onClick = m_OnClick; // it may go with the view
    if (IsEnabled())
    {
        onClick();
    }
}

void FollowButton::OnKey(wxKeyEvent& event)
{
    const int  key = event.GetKeyCode();
    const bool clicks = key == WXK_SPACE || key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    if (!clicks || event.HasAnyModifiers())
    {
        event.Skip();
    }
    else if (!std::exchange(m_IsKeyDown, true)) // it repeats itself
    {
        Click();
    }
}

CornerFollowButton::CornerFollowButton(wxWindow* view, std::function<void()> onClick)
    : FollowButton(view, std::move(onClick))
{
    SetName("corner");
    view->Bind(wxEVT_SIZE, &CornerFollowButton::OnViewSize, this);
    Bind(wxEVT_LEFT_UP,
         [this](wxMouseEvent& event)
         {
             event.Skip();
             m_IsHeld = false;
             CallAfter(&CornerFollowButton::Place); // the release is looked at where it stood
         });
    Place();
}

CornerFollowButton::~CornerFollowButton()
{
    GetParent()->Unbind(wxEVT_SIZE, &CornerFollowButton::OnViewSize, this);
}

void CornerFollowButton::OnPress()
{
    m_IsHeld = true;
    GetParent()->SetFocus();
}

void CornerFollowButton::OnViewSize(wxSizeEvent& event)
{
    event.Skip();
    Place();
}

void CornerFollowButton::KeepClearOf(int pixels)
{
    m_Right = pixels;
    Place();
}

// What is pressed stays under the pointer: scrollbars go and come with the scheme, say.
void CornerFollowButton::Place()
{
    m_IsHeld = m_IsHeld && wxGetMouseState().LeftIsDown();
    if (m_IsHeld)
    {
        return;
    }
    const int    side = Side();
    const wxSize room = GetParent()->GetClientSize() - wxSize(kMargin + m_Right, kMargin);
    const wxRect place(room.x - side, room.y - side, side, side);
    Show(place.x >= kMargin && place.y >= kMargin);
    if (place != GetRect())
    {
        SetSize(place);
    }
}
} // namespace textviews
