#include "appearance/controls/ControlLook.h"

#include "appearance/ColorDrawing.h"
#include "appearance/ColorScheme.h"

#include <wx/renderer.h>

namespace appearance
{
namespace
{
ControlLook PlainLook(int flags)
{
    const wxColour light = wxtGetColor(color_3DLight);
    const wxColour dark = wxtGetColor(color_3DDark);
    const wxColour frame = wxtGetColor(color_WindowBGDarker);
    if (flags & wxCONTROL_CHECKED)
    {
        return {frame, dark, light, wxtGetColor(color_Selected)};
    }
    return {frame, light, dark, wxtGetColor(color_ButtonFace)};
}

void ChangeAll(ControlLook& look, wxColour (*change)(const wxColour&))
{
    for (wxColour* const colour : {&look.frame, &look.light, &look.dark, &look.face})
    {
        *colour = change(*colour);
    }
}
} // namespace

ControlLook ControlLook::OfCheckBox(int flags)
{
    ControlLook look = PlainLook(flags);
    if (flags & wxCONTROL_DISABLED)
    {
        ChangeAll(look, Disabled);
    }
    else if (flags & (wxCONTROL_FOCUSED | wxCONTROL_CURRENT))
    {
        ChangeAll(look, Hilight);
    }
    return look;
}

// Unlike a check box's, the three states add up: a focused one under the mouse shows both.
ControlLook ControlLook::OfRadioButton(int flags)
{
    ControlLook look = PlainLook(flags);
    if (flags & wxCONTROL_DISABLED)
    {
        ChangeAll(look, Disabled);
    }
    if (flags & wxCONTROL_FOCUSED)
    {
        look.dark = Hilight(look.dark);
        look.light = Hilight(look.light);
        look.frame = wxtGetColor(color_WindowBG);
    }
    if (flags & wxCONTROL_CURRENT)
    {
        look.face = Hilight(look.face);
        look.frame = Hilight(look.frame);
    }
    return look;
}
} // namespace appearance
