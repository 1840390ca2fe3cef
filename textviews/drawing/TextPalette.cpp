#include "textviews/drawing/TextPalette.h"

#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"

namespace textviews
{
namespace
{
constexpr int    kHoverLift = 10;     // per channel
constexpr double kGroundShare = 0.75; // of a marked line's colour; the rest is the mark's

size_t Index(const LineState& state)
{
    return (state.selected ? 4u : 0u) + (state.marked ? 2u : 0u) + (state.hover ? 1u : 0u);
}

wxColour Lifted(const wxColour& colour)
{
    return OffsetColor(colour, kHoverLift, kHoverLift, kHoverLift);
}
} // namespace

wxColour ReadableInk(const wxColour& colour, const wxColour& ground)
{
    if (!colour.IsOk() || !ground.IsOk())
    {
        return colour;
    }
    const wxColour other = internal::MadeReadable(internal::InvertedColour(colour), ground);
    return internal::ContrastOf(other, ground) > internal::ContrastOf(colour, ground) ? other
                                                                                      : colour;
}

TextPalette::TextPalette(const wxColour& background, const wxColour& selection,
                         const wxColour& mark)
{
    for (const bool selected : {false, true})
    {
        const wxColour& plain = selected ? selection : background;
        for (const bool marked : {false, true})
        {
            const wxColour base =
                marked && mark.IsOk() ? internal::MixColours(plain, mark, kGroundShare) : plain;
            m_Bands[Index({selected, false, marked})] = base;
            m_Bands[Index({selected, true, marked})] = Lifted(base);
        }
    }
}

const wxColour& TextPalette::Band(const LineState& state) const
{
    return m_Bands[Index(state)];
}
} // namespace textviews
