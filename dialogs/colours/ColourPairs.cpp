#include "dialogs/colours/ColourPairs.h"

#include "appearance/ColorDrawing.h"
#include "internal/drawing/ColorMix.h"
#include "internal/drawing/Emphasis.h"

#include <wx/intl.h>

#include <algorithm>

namespace dialogs
{
namespace
{
wxColour Lifted(const wxColour& colour, int by)
{
    return OffsetColor(colour, by, by, by);
}
} // namespace

wxColour ColourPair::InkOf(const SchemeColours& colours) const
{
    const wxColour& plain = colours[IndexOf(*ink)];
    return kind == kDefault ? Lifted(plain, internal::k_DefaultInkLift) : plain;
}

wxColour ColourPair::GroundOf(const SchemeColours& colours) const
{
    const wxColour& plain = colours[IndexOf(*ground)];
    switch (kind)
    {
    case kSelectedRow:
        return internal::MixColours(plain, colours[IndexOf(color_Selected)],
                                    internal::k_SelectedRowShare);
    case kDefault:
        return Lifted(plain, internal::k_DefaultGroundLift);
    default:
        return plain;
    }
}

double ColourPair::ContrastIn(const SchemeColours& colours) const
{
    const wxColour text = InkOf(colours);
    const wxColour under = GroundOf(colours);
    return text.IsOk() && under.IsOk() ? internal::ContrastOf(text, under) : 0;
}

const std::vector<ColourPair>& ColourPairs()
{
    constexpr auto                       kPlain = ColourPair::kPlain;
    constexpr auto                       kRow = ColourPair::kSelectedRow;
    static const std::vector<ColourPair> s_Pairs = {
        {&color_Text, &color_WindowBG, kPlain, wxTRANSLATE("Windows, dialogs, tabs")},
        {&color_Text, &color_WindowBGLighter, kPlain, wxTRANSLATE("Fields, text views")},
        {&color_Text, &color_WindowBGDarker, kPlain, wxTRANSLATE("Lists, messages")},
        {&color_Text, &color_WindowBGDarker, kRow, wxTRANSLATE("Selected rows of lists")},
        {&color_Text, &color_Selected, kPlain, wxTRANSLATE("Selected lines, not made readable")},
        {&color_3DDark, &color_Selected, ColourPair::kDefault,
         wxTRANSLATE("Default button, selected items")},
        {&color_ButtonText, &color_ButtonFace, kPlain, wxTRANSLATE("Buttons, titles of lists")},
        {&color_TextGrey, &color_WindowBG, kPlain, wxTRANSLATE("Captions of dialogs")},
        {&color_TextGrey, &color_WindowBGDarker, kPlain, wxTRANSLATE("What is disabled")},
        {&color_TextOrange, &color_WindowBG, kPlain, wxTRANSLATE("Box under the pointer")},
    };
    return s_Pairs;
}

size_t CountOfPoor(const SchemeColours& colours)
{
    const auto& pairs = ColourPairs();
    return static_cast<size_t>(std::count_if(
        pairs.begin(), pairs.end(),
        [&](const ColourPair& pair) { return pair.ContrastIn(colours) < k_LeastContrast; }));
}
} // namespace dialogs
