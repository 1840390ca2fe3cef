#include "appearance/tabs/TabLook.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/inputs/ItemDrawing.h"

#include <wx/bmpbndl.h>
#include <wx/dc.h>
#include <wx/window.h>

#include <algorithm>

namespace appearance
{
namespace
{
constexpr float kExponent = 1.5f; // bends the grades of the ground
constexpr int   kAccent = 3;      // pixels
constexpr int   kEdge = 1;        // pixels between two tabs
constexpr int   kCross = 4;       // the cross's and the mark's share of the slot is 1 - 2 / kCross
constexpr int   kPen = 2;         // pixels
constexpr int   kTextHeight = 18; // pixels of a line of text, up to which sizes stay
} // namespace

int WithFont(const wxWindow& window, int size)
{
    return std::max(window.FromDIP(size), size * window.GetCharHeight() / kTextHeight);
}

TabLook TabLook::Of(const TabState& state)
{
    TabLook look;
    look.inner = wxtGetColor(state.active ? color_WindowBGLighter : color_WindowBG);
    look.outer = wxtGetColor(state.active ? color_WindowBG : color_WindowBGDarker);
    look.ink = state.disabled ? wxtReadableColor(wxtGetColor(color_TextGrey), look.inner)
                              : wxtGetColor(color_Text);
    if (state.active)
    {
        const bool isLively = state.current && !state.disabled;
        look.accent = wxtGetColor(isLively ? color_Selected : color_TextGrey);
    }
    else if (state.hovered && !state.disabled)
    {
        look.inner = wxtGetColor(color_WindowBGLighter);
    }
    return look;
}

void DrawTabGround(wxDC& dc, const wxRect& rect, const TabLook& look, bool atBottom)
{
    DrawGradedRectangle(dc, rect, look.inner, look.outer, kExponent, true, true);
    wxRect bar(rect.x, rect.y, rect.width, kAccent);
    bar.y += atBottom ? rect.height - kAccent : 0;
    FillGround(dc, bar, look.accent);
    FillGround(dc, wxRect(rect.x + rect.width - kEdge, rect.y, kEdge, rect.height),
               wxtGetColor(color_WindowBGDarker));
}

void DrawTabSlot(wxDC& dc, const wxRect& rect, TabSlot slot, const TabLook& look)
{
    const int    inset = rect.width / kCross;
    const wxRect shape = wxRect(rect).Deflate(inset, inset);
    if (!look.ink.IsOk() || shape.IsEmpty())
    {
        return;
    }
    wxColour ink = look.ink;
    if (slot == TabSlot::mark)
    {
        const wxDCBrushChanger brush(dc, wxBrush(ink));
        const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
        dc.DrawEllipse(shape);
        return;
    }
    if (slot != TabSlot::close)
    {
        const bool isPressed = slot == TabSlot::pressedClose;
        FillGround(dc, rect, wxtGetColor(isPressed ? color_Selected : color_ButtonFace));
        ink = wxtGetColor(isPressed ? color_3DDark : color_ButtonText);
    }
    if (ink.IsOk())
    {
        const wxDCPenChanger pen(dc, wxPen(ink, kPen));
        dc.DrawLine(shape.GetLeft(), shape.GetTop(), shape.GetRight() + 1, shape.GetBottom() + 1);
        dc.DrawLine(shape.GetRight() + 1, shape.GetTop(), shape.GetLeft(), shape.GetBottom() + 1);
    }
}

void DrawTabIcon(wxDC& dc, const wxWindow& window, const wxBitmapBundle& icon, const wxRect& rect,
                 bool greyed)
{
    wxBitmap bitmap = icon.GetBitmap(window.ToPhys(rect.GetSize()));
    if (bitmap.IsOk())
    {
        bitmap = greyed ? bitmap.ConvertToDisabled() : bitmap;
        bitmap.SetScaleFactor(window.GetContentScaleFactor());
        dc.DrawBitmap(bitmap, rect.GetPosition(), true);
    }
}

void DrawTabArrow(wxDC& dc, const wxRect& rect, int direction, const wxColour& colour)
{
    if (!colour.IsOk())
    {
        return;
    }
    const wxPoint          middle(rect.x + rect.width / 2, rect.y + rect.height / 2);
    const int              half = std::max(2, std::min(rect.width, rect.height) / kCross);
    const int              tip = direction == wxLEFT ? -half : half;
    const wxDCBrushChanger brush(dc, wxBrush(colour));
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    wxPoint                points[] = {{-tip / 2, -half}, {-tip / 2, half}, {tip - tip / 2, 0}};
    for (wxPoint& point : points)
    {
        if (direction == wxBOTTOM)
        {
            std::swap(point.x, point.y);
        }
        point += middle;
    }
    dc.DrawPolygon(3, points);
}
} // namespace appearance
