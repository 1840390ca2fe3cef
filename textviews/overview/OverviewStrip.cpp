#include "textviews/overview/OverviewStrip.h"

#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"
#include "internal/port/Enabling.h"
#include "internal/port/ToolTips.h"
#include "textviews/rules/LineJudge.h"
#include "vesta/CallEntry.h"

#include <wx/dcbuffer.h>
#include <wx/weakref.h>

#include <utility>

namespace textviews
{
namespace
{
constexpr double kFrameShare = 0.75; // of the strip's ground; the rest is text's colour

// One that is seen there, as near to the scheme's as can be: an error is still told from a warning.
wxColour MarkColour(const String& name, const wxColour& ground)
{
    constexpr double kStep = 0.05;
    const wxColour   colour = wxtGetColor(name);
    if (!colour.IsOk() || !ground.IsOk())
    {
        return colour;
    }
    const bool isDark =
        internal::ContrastOf(*wxWHITE, ground) > internal::ContrastOf(*wxBLACK, ground);
    for (double share = 1; share > 0; share -= kStep)
    {
        const wxColour mixed = internal::MixColours(colour, isDark ? *wxWHITE : *wxBLACK, share);
        if (internal::ContrastOf(mixed, ground) >= internal::k_MarkContrast)
        {
            return mixed;
        }
    }
    return isDark ? *wxWHITE : *wxBLACK;
}

void Fill(wxDC& dc, const wxRect& rect, const wxColour& colour)
{
    if (colour.IsOk())
    {
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(colour));
        dc.DrawRectangle(rect);
    }
}
} // namespace

OverviewStrip::OverviewStrip(wxWindow* view, Acts acts)
    : wxWindow(view, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE, "overview"),
      m_Acts(std::move(acts))
{
    Manage(this);
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetCursor(*wxSTANDARD_CURSOR);
    Bind(wxEVT_PAINT, &OverviewStrip::OnPaint, this);
    Bind(wxEVT_LEFT_DOWN, &OverviewStrip::OnPress, this);
    Bind(wxEVT_LEFT_DCLICK, &OverviewStrip::OnPress, this);
    Bind(wxEVT_MOTION, &OverviewStrip::OnMotion, this);
    Bind(wxEVT_LEFT_UP, &OverviewStrip::OnRelease, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &OverviewStrip::OnCaptureLoss, this);
    Bind(internal::EVT_ENABLED, &OverviewStrip::OnEnabled, this);
    Bind(wxEVT_MOUSEWHEEL, [this](wxMouseEvent& event) { m_Acts.onWheel(event); });
    view->Bind(wxEVT_SIZE, &OverviewStrip::OnViewSize, this);
    Place();
}

OverviewStrip::~OverviewStrip()
{
    GetParent()->Unbind(wxEVT_SIZE, &OverviewStrip::OnViewSize, this);
    if (HasCapture())
    {
        ReleaseMouse();
    }
}

void OverviewStrip::OnViewSize(wxSizeEvent& event)
{
    event.Skip();
    Place();
}

void OverviewStrip::Place()
{
    const int    width = StripWidth(GetParent()->GetParent()->GetCharHeight());
    const wxSize room = GetParent()->GetClientSize();
    const wxRect place(room.x - width, 0, width, room.y);
    if (place.width > 0 && place.height > 0 && place != GetRect())
    {
        SetSize(place);
        m_Acts.onPlaced();
    }
}

void OverviewStrip::ShowPicture(StripPicture picture)
{
    if (!(picture == m_Picture))
    {
        m_Picture = std::move(picture);
        Refresh();
    }
}

void OverviewStrip::DrawMarks(wxDC& dc, const StripSpan& lane, uint8_t bit, const wxColour& colour,
                              bool inFrame) const
{
    const StripSpan& frame = m_Picture.frame;
    for (const StripSpan& rows : MarkedRows(m_Picture.rows, bit))
    {
        if (inFrame && (rows.end <= frame.first || rows.first >= frame.end))
        {
            continue;
        }
        Fill(dc, wxRect(lane.first, rows.first, lane.end - lane.first, rows.end - rows.first),
             colour);
    }
}

// What is worse is drawn over what is not so bad.
void OverviewStrip::OnPaint(wxPaintEvent&)
{
    CALL_ENTRY("OverviewStrip::OnPaint");
    wxAutoBufferedPaintDC dc(this);
    const wxSize          size = GetClientSize();
    const wxColour        ground = wxtGetColor(color_WindowBG);
    const wxColour frame = internal::MixColours(ground, wxtGetColor(color_Text), kFrameShare);
    Fill(dc, wxRect(size), ground);
    Fill(dc, wxRect(0, m_Picture.frame.first, size.x, m_Picture.frame.end - m_Picture.frame.first),
         frame);
    Fill(dc, wxRect(0, 0, 1, size.y), wxtGetColor(color_3DDark));
    const StripLanes lanes = LanesOf(size.x);
    const auto       draw = [&](const StripSpan& lane, uint8_t bit, const String& name)
    {
        // Outside of the frame, and in it.
        dc.SetClippingRegion(wxRect(size));
        DrawMarks(dc, lane, bit, MarkColour(name, ground), false);
        dc.DestroyClippingRegion();
        if (m_Picture.frame.end > m_Picture.frame.first)
        {
            dc.SetClippingRegion(0, m_Picture.frame.first, size.x,
                                 m_Picture.frame.end - m_Picture.frame.first);
            DrawMarks(dc, lane, bit, MarkColour(name, frame), true);
            dc.DestroyClippingRegion();
        }
    };
    draw(lanes.rules, k_WarningMark, color_TextOrange);
    draw(lanes.rules, k_ErrorMark, color_TextRed);
    draw(lanes.hits, k_HitMark, color_TextIndigo);
    draw(lanes.bookmarks, k_BookmarkMark, color_TextBlue);
}

// What comes of it may destroy the view.
void OverviewStrip::OnPress(wxMouseEvent& event)
{
    CALL_ENTRY("OverviewStrip::OnPress");
    const wxWeakRef<wxWindow> self(this);
    const int                 row = event.GetY();
    GetParent()->SetFocus();
    if (!self || !IsEnabled())
    {
        return;
    }
    if (!HasCapture())
    {
        CaptureMouse();
    }
    m_Dragging = true;
    internal::UnsetToolTipHere(*this);
    m_Acts.goTo(row, true);
}

void OverviewStrip::OnMotion(wxMouseEvent& event)
{
    CALL_ENTRY("OverviewStrip::OnMotion");
    if (!m_Dragging)
    {
        internal::SetToolTipHere(*this, m_Acts.tip(event.GetY()));
    }
    else if (event.LeftIsDown())
    {
        m_Acts.goTo(event.GetY(), false);
    }
    else
    {
        OnRelease(event); // it came where nobody told
    }
}

void OverviewStrip::OnRelease(wxMouseEvent&)
{
    CALL_ENTRY("OverviewStrip::OnRelease");
    EndDrag();
}

void OverviewStrip::OnEnabled(internal::EnabledEvent& event)
{
    event.Skip();
    EndDrag();
}

void OverviewStrip::EndDrag()
{
    m_Dragging = false;
    if (HasCapture())
    {
        ReleaseMouse();
    }
}

void OverviewStrip::OnCaptureLoss(wxMouseCaptureLostEvent&)
{
    m_Dragging = false;
}
} // namespace textviews
