#include "textviews/gutter/OriginColours.h"

#include "appearance/Contrast.h"
#include "appearance/wxTolvanColors.h"

#include <array>

namespace textviews
{
namespace
{
// Those that come first differ most.
const std::array<const String*, k_OriginColours> kColours = {
    &color_TextBlue,      &color_TextOrange,   &color_TextGreen,      &color_TextViolet,
    &color_TextCyan,      &color_TextRed,      &color_TextYellow,     &color_TextIndigo,
    &color_TextDarkGreen, &color_TextDarkBlue, &color_TextDarkOrange, &color_TextDarkViolet};
} // namespace

wxColour OriginColour(int place, const wxColour& ground)
{
    const auto number = static_cast<size_t>(place) % kColours.size();
    return wxtReadableColor(wxtGetColor(*kColours[number]), ground);
}
} // namespace textviews
