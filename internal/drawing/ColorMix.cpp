#include "internal/drawing/ColorMix.h"

#include <algorithm>

namespace internal
{
wxColour MixColours(const wxColour& a, const wxColour& b, double share)
{
    if (!a.IsOk() || !b.IsOk())
    {
        return wxColour();
    }
    const auto mix = [share](int first, int second)
    {
        const int mixed = static_cast<int>(first * share + second * (1 - share));
        return static_cast<unsigned char>(std::clamp(mixed, 0, 255));
    };
    return wxColour(mix(a.Red(), b.Red()), mix(a.Green(), b.Green()), mix(a.Blue(), b.Blue()));
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
} // namespace internal
