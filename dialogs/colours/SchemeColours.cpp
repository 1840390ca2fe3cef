#include "dialogs/colours/SchemeColours.h"

#include <wx/intl.h>

#include <algorithm>

namespace dialogs
{
const std::array<ColourName, k_ColourCount> k_ColourNames = {{
    {&color_WindowBG, wxTRANSLATE("Windows")},
    {&color_WindowBGLighter, wxTRANSLATE("Fields, text views")},
    {&color_WindowBGDarker, wxTRANSLATE("Lists, messages")},
    {&color_Text, wxTRANSLATE("Text")},
    {&color_TextRed, wxTRANSLATE("Red text")},
    {&color_TextOrange, wxTRANSLATE("Orange text")},
    {&color_TextYellow, wxTRANSLATE("Yellow text")},
    {&color_TextGreen, wxTRANSLATE("Green text")},
    {&color_TextCyan, wxTRANSLATE("Cyan text")},
    {&color_TextBlue, wxTRANSLATE("Blue text")},
    {&color_TextIndigo, wxTRANSLATE("Indigo text")},
    {&color_TextViolet, wxTRANSLATE("Violet text")},
    {&color_TextDarkRed, wxTRANSLATE("Deep red")},
    {&color_TextDarkOrange, wxTRANSLATE("Deep orange")},
    {&color_TextDarkYellow, wxTRANSLATE("Deep yellow")},
    {&color_TextDarkGreen, wxTRANSLATE("Deep green")},
    {&color_TextDarkCyan, wxTRANSLATE("Deep cyan")},
    {&color_TextDarkBlue, wxTRANSLATE("Deep blue")},
    {&color_TextDarkIndigo, wxTRANSLATE("Deep indigo")},
    {&color_TextDarkViolet, wxTRANSLATE("Deep violet")},
    {&color_TextGrey, wxTRANSLATE("Grey text: notes, hints")},
    {&color_3DLight, wxTRANSLATE("Light edges")},
    {&color_3DDark, wxTRANSLATE("Dark edges, text on selection")},
    {&color_ButtonFace, wxTRANSLATE("Buttons")},
    {&color_ButtonText, wxTRANSLATE("Text of buttons")},
    {&color_Selected, wxTRANSLATE("Selection, focus")},
    {&color_Header, wxTRANSLATE("Headers")},
}};

size_t IndexOf(const String& key)
{
    const auto found = std::find_if(k_ColourNames.begin(), k_ColourNames.end(),
                                    [&](const ColourName& name) { return *name.key == key; });
    return static_cast<size_t>(found - k_ColourNames.begin());
}

SchemeColours ColoursOf(int scheme)
{
    const std::map<String, wxColour> table = g_Colors;
    SetColors(scheme);
    SchemeColours colours;
    std::transform(k_ColourNames.begin(), k_ColourNames.end(), colours.begin(),
                   [](const ColourName& name) { return wxtGetColor(*name.key); });
    g_Colors = table;
    return colours;
}
} // namespace dialogs
