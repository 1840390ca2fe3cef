#include "internal/drawing/ColorMix.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace internal
{
namespace
{
// Of one channel of a colour of a screen (sRGB), 0 to 1.
double LightOf(unsigned char channel)
{
    static const std::array<double, 256> s_Light = []
    {
        std::array<double, 256> light;
        for (size_t i = 0; i < light.size(); ++i)
        {
            const double value = static_cast<double>(i) / 255;
            light[i] = value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        }
        return light;
    }();
    return s_Light[channel];
}

double LightOf(const wxColour& colour)
{
    return 0.2126 * LightOf(colour.Red()) + 0.7152 * LightOf(colour.Green()) +
           0.0722 * LightOf(colour.Blue());
}

wxColour Moved(const wxColour& colour, int by)
{
    const auto move = [by](int channel)
    { return static_cast<unsigned char>(std::clamp(channel + by, 0, 255)); };
    return wxColour(move(colour.Red()), move(colour.Green()), move(colour.Blue()));
}
} // namespace

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

double ContrastOf(const wxColour& a, const wxColour& b)
{
    constexpr double kGlare = 0.05; // of the screen itself
    const auto [darker, lighter] = std::minmax({LightOf(a), LightOf(b)});
    return (lighter + kGlare) / (darker + kGlare);
}

wxColour ReadableOn(const wxColour& ground, std::initializer_list<wxColour> wanted)
{
    for (const wxColour& colour : wanted)
    {
        if (colour.IsOk() && ContrastOf(colour, ground) >= k_TextContrast)
        {
            return colour;
        }
    }
    const wxColour black(0, 0, 0);
    const wxColour white(255, 255, 255);
    return ContrastOf(black, ground) > ContrastOf(white, ground) ? black : white;
}

wxColour MadeReadable(const wxColour& colour, const wxColour& other)
{
    constexpr int kFarthest = 255; // black, or white: one of them can be read on any other
    for (int by = 0; colour.IsOk() && other.IsOk() && by <= kFarthest; ++by)
    {
        for (const wxColour& moved : {Moved(colour, -by), Moved(colour, by)})
        {
            if (ContrastOf(moved, other) >= k_TextContrast)
            {
                return moved;
            }
        }
    }
    return colour;
}
} // namespace internal
