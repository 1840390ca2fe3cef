#include "appearance/ColorDrawing.h"
#include "internal/drawing/ColorMix.h"
#include "internal/windows/UpperFloors.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>
#include <wx/dcclient.h>
#include <wx/toplevel.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace
{
constexpr int    kHilightOffset = 25;     // per channel
constexpr double kDisabledOwnShare = 0.7; // the rest is the stock light grey

unsigned char Channel(int value)
{
    return static_cast<unsigned char>(std::clamp(value, 0, 255));
}

// Kept in the range of a channel's changes first: any offset may come from outside.
unsigned char Offset(unsigned char channel, int offset)
{
    return Channel(channel + std::clamp(offset, -255, 255));
}

// The outer colour's share: from 1 at the first step down to (1/steps)^exponent at the last. Single
// precision is enough for 256 shades. What is no number counts as 0.
float OuterShare(int step, int steps, float exponent)
{
    const float way = static_cast<float>(std::abs(step - steps)) / static_cast<float>(steps);
    return std::fmin(std::fmax(std::pow(way, exponent), 0.0f), 1.0f);
}

// The port adds and takes away whole turns one by one. An angle of a few turns stays, because 0 to
// 360 is a whole circle.
double FewTurns(double degrees)
{
    constexpr double kTurn = 360;
    return std::abs(degrees) > 2 * kTurn ? std::fmod(degrees, kTurn) : degrees;
}
} // namespace

wxColour OffsetColor(const wxColour& colour, int red, int green, int blue)
{
    if (!colour.IsOk())
    {
        return colour;
    }
    return wxColour(Offset(colour.Red(), red), Offset(colour.Green(), green),
                    Offset(colour.Blue(), blue));
}

wxColour Disabled(const wxColour& colour)
{
    return internal::MixColours(colour, *wxLIGHT_GREY, kDisabledOwnShare);
}

wxColour Hilight(const wxColour& colour)
{
    return OffsetColor(colour, kHilightOffset, kHilightOffset, kHilightOffset);
}

void DrawGradedRectangle(wxDC& dc, const wxRect& rect, const wxColour& inner, const wxColour& outer,
                         float exponent, bool shrinkBottom, bool shrinkTop)
{
    CALL_ENTRY("DrawGradedRectangle");
    if (rect.IsEmpty() || !inner.IsOk() || !outer.IsOk())
    {
        return;
    }
    const wxDCBrushChanger brush(dc, dc.GetBrush());
    const wxDCPenChanger   pen(dc, *wxTRANSPARENT_PEN);
    const bool             graded = shrinkBottom || shrinkTop;
    const int              steps = graded ? rect.height / 2 : 1;
    wxRect                 area = rect;
    for (int i = 0; i < steps; ++i)
    {
        const float share = graded ? OuterShare(i, steps, exponent) : 0;
        dc.SetBrush(wxBrush(internal::MixColours(outer, inner, share)));
        dc.DrawRectangle(area);
        if (shrinkTop)
        {
            ++area.y;
            --area.height;
        }
        if (shrinkBottom)
        {
            --area.height;
        }
    }
}

void DrawCircle(wxDC& dc, const wxRect& rect, double startAngle, double endAngle)
{
    CALL_ENTRY("DrawCircle");
    if (!rect.IsEmpty() && std::isfinite(startAngle) && std::isfinite(endAngle))
    {
        dc.DrawEllipticArc(rect.GetPosition(), rect.GetSize(), FewTurns(startAngle),
                           FewTurns(endAngle));
    }
}

bool ParentIsActive(wxWindow* window)
{
    CALL_ENTRY("ParentIsActive");
    while (window && !window->IsTopLevel())
    {
        window = window->GetParent();
    }
    auto* const top = dynamic_cast<wxTopLevelWindow*>(window);
    if (top && !top->IsActive())
    {
        return false;
    }
    return !internal::g_UpperFloors.isMenuOpen();
}
