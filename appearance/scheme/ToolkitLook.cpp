#include "appearance/scheme/ToolkitLook.h"

#include "appearance/ColorScheme.h"
#include "appearance/inputs/ItemDrawing.h"
#include "internal/drawing/ColorMix.h"

#include <wx/settings.h>

namespace
{
wxColour Named(const String& name, const wxColour& otherwise)
{
    const wxColour colour = wxtGetColor(name);
    return colour.IsOk() ? colour : otherwise;
}

wxColour Ink(const wxColour& wanted, const wxColour& ground)
{
    return wanted.IsOk() ? wanted : internal::ReadableOn(ground, {});
}
} // namespace

internal::ToolkitColours appearance::ToolkitLook()
{
    internal::ToolkitColours look;
    look.ground = wxtGetColor(color_WindowBG);
    if (!look.ground.IsOk())
    {
        look.ground = wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE); // what windows have then
    }
    look.raised = Named(color_WindowBGLighter, look.ground);
    look.sunk = Named(color_WindowBGDarker, look.ground);
    look.button = Named(color_ButtonFace, look.ground);
    look.ink = Ink(wxtGetColor(color_Text), look.ground);
    look.greyInk = Ink(wxtGetColor(color_TextGrey), look.ground);
    look.buttonInk = internal::ReadableOn(look.button, {wxtGetColor(color_ButtonText), look.ink});
    const ItemLook item = ItemLook::Of(look.raised, look.ink, true);
    look.selected = item.ground.IsOk() ? item.ground : look.ink;
    look.selectedInk = internal::ReadableOn(look.selected, {item.ink, look.sunk, look.ink});
    return look;
}

void appearance::FollowScheme(wxWindow& window)
{
    static internal::ToolkitColours s_Shown;
    const internal::ToolkitColours  look = ToolkitLook();
    if (look != s_Shown)
    {
        s_Shown = look;
        internal::StyleToolkit(look);
    }
    internal::FollowStyle(window);
}
