#include "appearance/Contrast.h"

#include "appearance/ColorScheme.h"
#include "appearance/inputs/ItemDrawing.h"
#include "internal/drawing/ColorMix.h"
#include "vesta/CallEntry.h"

#include <wx/dc.h>

#include <algorithm>
#include <array>

namespace
{
// Pixels.
constexpr int kThick = 2;
constexpr int kView = 40; // a side from which on the frame is thick

using Grounds = std::initializer_list<wxColour>;

// Of grounds without a colour nothing is known.
double LeastContrast(const wxColour& colour, Grounds grounds)
{
    double least = 21;
    for (const wxColour& ground : grounds)
    {
        least = ground.IsOk() ? std::min(least, internal::ContrastOf(colour, ground)) : least;
    }
    return least;
}

const String* FindName(Grounds grounds)
{
    static const std::array<const String*, 5> s_Names = {
        &color_Selected, &color_Text, &color_ButtonText, &color_3DDark, &color_3DLight};
    for (const String* const name : s_Names)
    {
        const wxColour colour = wxtGetColor(*name);
        if (colour.IsOk() && LeastContrast(colour, grounds) >= internal::k_MarkContrast)
        {
            return name;
        }
    }
    return nullptr;
}
} // namespace

wxColour wxtReadableColor(const wxColour& colour, const wxColour& ground)
{
    return internal::MadeReadable(colour, ground);
}

wxColour wxtFocusColor(Grounds grounds)
{
    if (const String* const name = FindName(grounds))
    {
        return wxtGetColor(*name);
    }
    return LeastContrast(*wxBLACK, grounds) > LeastContrast(*wxWHITE, grounds) ? *wxBLACK
                                                                               : *wxWHITE;
}

const String& wxtFocusColorName(const wxColour& ground)
{
    const String* const name = FindName({ground});
    return name ? *name : color_Text;
}

std::vector<wxRect> wxtFocusShape(const wxRect& rect)
{
    const int side = std::min(rect.width, rect.height);
    const int thick = side >= kView ? kThick : 1;
    if (side <= 2 * thick)
    {
        return {};
    }
    const int inner = rect.height - 2 * thick;
    return {wxRect(rect.x, rect.y, rect.width, thick),
            wxRect(rect.x, rect.GetBottom() + 1 - thick, rect.width, thick),
            wxRect(rect.x, rect.y + thick, thick, inner),
            wxRect(rect.GetRight() + 1 - thick, rect.y + thick, thick, inner)};
}

void wxtDrawFocus(wxDC& dc, const wxRect& rect, Grounds grounds)
{
    CALL_ENTRY("wxtDrawFocus");
    const wxColour colour = wxtFocusColor(grounds);
    for (const wxRect& part : wxtFocusShape(rect))
    {
        appearance::FillGround(dc, part, colour);
    }
}
