#include "appearance/_InputColors.h"

#include "appearance/_ItemDrawing.h"
#include "appearance/_PortStyle.h"
#include "appearance/wxTolvanColors.h"

#include <wx/window.h>

void _UseInputColors(wxtColorManaged& control)
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

long _FlatStyle(long style)
{
    return style & wxBORDER_MASK ? style : style | wxBORDER_NONE;
}

void _ColourField(wxWindow& field)
{
    const wxColour  ink = wxtGetColor(color_Text);
    const wxColour  ground = wxtGetColor(color_WindowBGLighter);
    const wxColour  focus = wxtGetColor(color_Selected);
    const wxColour  hint = wxtGetColor(color_TextGrey);
    const _ItemLook selected = _ItemLook::Of(ground, ink, true);
    _StyleField(field, {hint, selected.ink, selected.ground, focus});
    _StyleCompletions(ink, ground, selected.ink, selected.ground);
}
