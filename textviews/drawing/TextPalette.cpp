#include "textviews/drawing/TextPalette.h"

#include "appearance/wxTolvanColors.h"

namespace textviews
{
namespace
{
constexpr int kHoverLift = 10; // per channel

size_t Index(const LineState& state)
{
    return (state.selected ? 4u : 0u) + (state.marked ? 2u : 0u) + (state.hover ? 1u : 0u);
}

wxColour Lifted(const wxColour& colour)
{
    return OffsetColor(colour, kHoverLift, kHoverLift, kHoverLift);
}
} // namespace

TextPalette::TextPalette(const wxColour& background, const wxColour& selection,
                         const wxColour& mark)
{
    for (const bool selected : {false, true})
    {
        const wxColour& plain = selected ? selection : background;
        for (const bool marked : {false, true})
        {
            const wxColour base = marked ? MixedColour(plain, mark) : plain;
            m_Bands[Index({selected, false, marked})] = base;
            m_Bands[Index({selected, true, marked})] = Lifted(base);
        }
    }
}

const wxColour& TextPalette::Band(const LineState& state) const
{
    return m_Bands[Index(state)];
}

wxColour MixedColour(const wxColour& most, const wxColour& some)
{
    if (!most.IsOk() || !some.IsOk())
    {
        return most;
    }
    const auto mix = [](int a, int b) { return static_cast<unsigned char>((3 * a + b) / 4); };
    return wxColour(mix(most.Red(), some.Red()), mix(most.Green(), some.Green()),
                    mix(most.Blue(), some.Blue()));
}

wxColour InvertedColour(const wxColour& colour)
{
    if (!colour.IsOk())
    {
        return colour;
    }
    const auto invert = [](int channel) { return static_cast<unsigned char>(255 - channel); };
    return wxColour(invert(colour.Red()), invert(colour.Green()), invert(colour.Blue()));
}
} // namespace textviews
