#include "appearance/inputs/InputColors.h"

#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "appearance/inputs/ItemDrawing.h"
#include "appearance/wxtColorManaged.h"
#include "internal/port/Enabling.h"
#include "internal/port/FieldStyle.h"

#include <wx/window.h>

namespace appearance
{
void UseInputColors(wxtColorManaged& control)
{
    control.m_ForegroundName = color_Text;
    control.m_BackgroundName = color_WindowBGLighter;
    control.m_DisabledForegroundName = color_TextGrey;
    control.m_DisabledBackgroundName = color_WindowBGDarker;
    control.m_ForegroundOffset = 0;
    control.m_BackgroundOffset = 0;
    control.m_DisabledForegroundOffset = 0;
    control.m_DisabledBackgroundOffset = 0;
    control.RefreshColors();
}

void ColourField(wxWindow& field, bool framed)
{
    const wxColour ink = wxtGetColor(color_Text);
    const wxColour ground = wxtGetColor(color_WindowBGLighter);
    const wxColour focus = framed ? wxtFocusColor({ground}) : wxColour();
    const wxColour grey = wxtGetColor(color_TextGrey);
    // A disabled field has its text in grey, which a hint must not outshine.
    const wxColour hint = field.IsEnabled() ? wxtReadableColor(grey, ground) : grey;
    const ItemLook selected = ItemLook::Of(ground, ink, true);
    internal::StyleField(field, {ink, ground, hint, selected.ink, selected.ground, focus});
}

void KeepFieldColoured(wxWindow& field, bool framed)
{
    const auto colour = [&field, framed](wxEvent& event)
    {
        event.Skip();
        ColourField(field, framed);
    };
    field.Bind(wxEVT_SYS_COLOUR_CHANGED, colour);
    field.Bind(internal::EVT_ENABLED, colour);
    ColourField(field, framed);
}
} // namespace appearance
