#include "appearance/wxtRenderer.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/controls/ControlLook.h"
#include "internal/drawing/ColorMix.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/dcgraph.h>
#include <wx/graphics.h>

#include <memory>

namespace
{
constexpr int kSashWidth = 5; // pixels

// Pixels: the margins of the drop arrow in its rectangle, and half its width.
constexpr int kArrowMarginX = 1;
constexpr int kArrowMarginY = 5;
constexpr int kArrowHalf = 4;

// Degrees, anticlockwise from three o'clock: the lit side of a ring, and the ends of it.
constexpr double kLitFrom = 35;
constexpr double kLitTo = 215;
constexpr double kLitEnd = 10;

void Fill(wxDC& dc, const wxRect& rect, const wxColour& colour)
{
    if (colour.IsOk() && !rect.IsEmpty())
    {
        dc.SetBrush(wxBrush(colour));
        dc.DrawRectangle(rect);
    }
}

void FillArc(wxDC& dc, const wxRect& rect, const wxColour& colour, double from, double to)
{
    if (colour.IsOk() && !rect.IsEmpty())
    {
        dc.SetBrush(wxBrush(colour));
        DrawCircle(dc, rect, from, to);
    }
}

// One step of the bevel: a square, lit from the top left.
void FillBevel(wxDC& dc, const wxRect& rect, const wxColour& dark, const wxColour& light)
{
    Fill(dc, rect, dark);
    if (!rect.IsEmpty())
    {
        Fill(dc, wxRect(rect.x, rect.y, 1, rect.height), light);
        Fill(dc, wxRect(rect.x, rect.y, rect.width, 1), light);
    }
}

// One ring of a radio button, lit the same way, and mixed with `share` of the face.
void FillRing(wxDC& dc, const wxRect& rect, const appearance::ControlLook& look, double share)
{
    const auto shade = [&](const wxColour& c) { return internal::MixColours(look.face, c, share); };
    const wxColour mid = shade(internal::MixColours(look.light, look.dark, 0.5));
    FillArc(dc, rect, shade(look.dark), 0, 360);
    FillArc(dc, rect, shade(look.light), kLitFrom, kLitTo);
    FillArc(dc, rect, mid, kLitFrom - kLitEnd, kLitFrom + kLitEnd);
    FillArc(dc, rect, mid, kLitTo - kLitEnd, kLitTo + kLitEnd);
}

// Draws arcs with smooth edges; null where the port does so by itself.
std::unique_ptr<wxGCDC> Smooth(wxDC& dc)
{
    auto* const context =
        dc.GetGraphicsContext() ? nullptr : wxGraphicsContext::CreateFromUnknownDC(dc);
    return context ? std::make_unique<wxGCDC>(context) : nullptr;
}
} // namespace

wxtRenderer::wxtRenderer(wxRendererNative& wrapped) : wxDelegateRendererNative(wrapped)
{
}

// The sash alone parts the panes.
void wxtRenderer::DrawSplitterBorder(wxWindow*, wxDC&, const wxRect&, int)
{
}

void wxtRenderer::DrawSplitterSash(wxWindow*, wxDC& dc, const wxSize& size, wxCoord, wxOrientation,
                                   int)
{
    CALL_ENTRY("wxtRenderer::DrawSplitterSash");
    const wxDCBrushChanger brush(dc, wxBrush(wxtGetColor(color_ButtonFace)));
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    dc.DrawRectangle(wxPoint(0, 0), size);
}

void wxtRenderer::DrawComboBoxDropButton(wxWindow* window, wxDC& dc, const wxRect& rect, int flags)
{
    CALL_ENTRY("wxtRenderer::DrawComboBoxDropButton");
    {
        const wxDCBrushChanger brush(dc, dc.GetBrush());
        const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
        Fill(dc, rect, wxtGetColor(color_ButtonFace));
    }
    DrawDropArrow(window, dc, rect, flags);
}

void wxtRenderer::DrawDropArrow(wxWindow*, wxDC& dc, const wxRect& rect, int)
{
    CALL_ENTRY("wxtRenderer::DrawDropArrow");
    const wxColour colour = wxtGetColor(color_ButtonText);
    if (!colour.IsOk() || rect.IsEmpty())
    {
        return;
    }
    const wxDCClipper clip(dc, rect); // the arrow is of one size, however small its place
    wxPen             outline(colour, 1, wxPENSTYLE_SOLID);
    outline.SetJoin(wxJOIN_MITER);
    outline.SetCap(wxCAP_BUTT);
    const wxDCBrushChanger brush(dc, wxBrush(colour));
    const wxDCPenChanger   pen(dc, outline);
    const wxRect           area = wxRect(rect).Deflate(kArrowMarginX, kArrowMarginY);
    const int              right = area.x + area.width;
    const wxPoint          corners[] = {{right - 2 * kArrowHalf - 1, area.y},
                                        {right - 1, area.y},
                                        {right - kArrowHalf - 1, area.y + area.height - 1}};
    dc.DrawPolygon(WXSIZEOF(corners), corners);
}

// Everything flat but the box itself, which tells by its fill whether it is checked: there is no
// tick.
void wxtRenderer::DrawCheckBox(wxWindow*, wxDC& dc, const wxRect& rect, int flags)
{
    CALL_ENTRY("wxtRenderer::DrawCheckBox");
    const wxDCBrushChanger        brush(dc, dc.GetBrush());
    const wxDCPenChanger          pen(dc, *wxTRANSPARENT_PEN);
    const appearance::ControlLook look = appearance::ControlLook::OfCheckBox(flags);
    wxRect                        area = rect;
    Fill(dc, area, look.frame);
    FillBevel(dc, area.Deflate(1), look.dark, look.light);
    FillBevel(dc, area.Deflate(1), internal::MixColours(look.dark, look.face, 0.5),
              internal::MixColours(look.light, look.face, 0.5));
    Fill(dc, area.Deflate(1), look.face);
}

void wxtRenderer::DrawChoice(wxWindow* window, wxDC& dc, const wxRect& rect, int flags)
{
    wxDelegateRendererNative::DrawChoice(window, dc, rect, flags);
}

void wxtRenderer::DrawRadioBitmap(wxWindow*, wxDC& dc, const wxRect& rect, int flags)
{
    CALL_ENTRY("wxtRenderer::DrawRadioBitmap");
    const std::unique_ptr<wxGCDC> smooth = Smooth(dc);
    wxDC&                         rings = smooth ? *smooth : dc;
    const wxDCBrushChanger        brush(rings, rings.GetBrush());
    const wxDCPenChanger          pen(rings, *wxTRANSPARENT_PEN);
    const appearance::ControlLook look = appearance::ControlLook::OfRadioButton(flags);
    wxRect                        area = rect;
    FillArc(rings, area, look.frame, 0, 360);
    for (const double faceShare : {0.0, 0.33, 0.67})
    {
        FillRing(rings, area.Deflate(1), look, faceShare);
    }
    FillArc(rings, area.Deflate(1), look.face, 0, 360);
}

wxSplitterRenderParams wxtRenderer::GetSplitterParams(const wxWindow*)
{
    constexpr int  kNoBorder = 0;
    constexpr bool kHotSensitive = true;
    return wxSplitterRenderParams(kSashWidth, kNoBorder, kHotSensitive);
}

wxRendererVersion wxtRenderer::GetVersion() const
{
    return wxRendererVersion(wxRendererVersion::Current_Version, wxRendererVersion::Current_Age);
}
