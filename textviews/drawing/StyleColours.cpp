#include "textviews/drawing/StyleColours.h"

#include "appearance/ColorScheme.h"
#include "appearance/Contrast.h"
#include "internal/drawing/ColorMix.h"

#include <iterator>
#include <utility>

namespace textviews
{
namespace
{
constexpr size_t kMostKept = 4096;

/// The first sixteen of the table: the scheme's, or where it has none black and white.
struct NamedColour
{
    const String* name; ///< Null: the grey.
    unsigned char grey;
};
const NamedColour kNamed[] = {
    {nullptr, 0},
    {&color_TextDarkRed, 0},
    {&color_TextDarkGreen, 0},
    {&color_TextDarkYellow, 0},
    {&color_TextDarkBlue, 0},
    {&color_TextDarkViolet, 0},
    {&color_TextDarkCyan, 0},
    {nullptr, 200},
    {&color_TextGrey, 0},
    {&color_TextRed, 0},
    {&color_TextGreen, 0},
    {&color_TextYellow, 0},
    {&color_TextBlue, 0},
    {&color_TextViolet, 0},
    {&color_TextCyan, 0},
    {nullptr, 255},
};
constexpr int kCubeStart = static_cast<int>(std::size(kNamed));
constexpr int kCubeSide = 6;
constexpr int kGreyStart = kCubeStart + kCubeSide * kCubeSide * kCubeSide;

wxColour Grey(int level)
{
    const auto channel = static_cast<unsigned char>(level);
    return wxColour(channel, channel, channel);
}

// The table that terminals have in common: behind the named ones a cube of colours, and greys.
wxColour FromTable(int index)
{
    if (index < kCubeStart)
    {
        const NamedColour& named = kNamed[index];
        return named.name ? wxtGetColor(*named.name) : Grey(named.grey);
    }
    if (index >= kGreyStart)
    {
        return Grey(8 + 10 * (index - kGreyStart));
    }
    const auto channel = [](int step)
    { return static_cast<unsigned char>(step == 0 ? 0 : 55 + 40 * step); };
    const int place = index - kCubeStart;
    return wxColour(channel(place / (kCubeSide * kCubeSide)),
                    channel(place / kCubeSide % kCubeSide), channel(place % kCubeSide));
}

// `own` where none is asked for, or the scheme has none.
wxColour ColourOf(const TextColour& colour, const wxColour& own)
{
    if (colour.kind == TextColour::Kind::Own)
    {
        return own;
    }
    const wxColour found = colour.kind == TextColour::Kind::Table
                               ? FromTable(colour.red)
                               : wxColour(colour.red, colour.green, colour.blue);
    return found.IsOk() ? found : own;
}

uint64_t KeyOf(const wxColour& ink, const wxColour& ground)
{
    return static_cast<uint64_t>(ink.GetRGB()) << 32 | ground.GetRGB();
}

// What `find` gives for the two, which is kept.
template <class Find>
wxColour Remembered(std::unordered_map<uint64_t, wxColour>& kept, const wxColour& ink,
                    const wxColour& ground, Find find)
{
    if (!ink.IsOk() || !ground.IsOk())
    {
        return ink;
    }
    const uint64_t key = KeyOf(ink, ground);
    const auto     known = kept.find(key);
    if (known != kept.end())
    {
        return known->second;
    }
    if (kept.size() >= kMostKept)
    {
        kept.clear();
    }
    return kept.emplace(key, find(ink, ground)).first->second;
}

// As far from the ink as a mark can be that is still seen.
wxColour QuietInk(const wxColour& ink, const wxColour& ground)
{
    constexpr double kStep = 0.05;
    for (double share = 0.5; share < 1; share += kStep)
    {
        const wxColour mixed = internal::MixColours(ink, ground, share);
        if (internal::ContrastOf(mixed, ground) >= internal::k_MarkContrast)
        {
            return mixed;
        }
    }
    return ink;
}
} // namespace

TextInks Inverted(const TextInks& inks)
{
    return {internal::InvertedColour(inks.ink), internal::InvertedColour(inks.quiet),
            internal::InvertedColour(inks.ground)};
}

wxColour StyleColours::Readable(const wxColour& ink, const wxColour& ground)
{
    return Remembered(m_Readable, ink, ground, wxtReadableColor);
}

wxColour StyleColours::Quiet(const wxColour& ink, const wxColour& ground)
{
    return Remembered(m_Quiet, ink, ground, QuietInk);
}

TextInks StyleColours::Own(const wxColour& ink, const wxColour& band)
{
    return {ink, Quiet(ink, band), wxColour()};
}

TextInks StyleColours::Of(const TextStyle& style, const wxColour& own, const wxColour& band)
{
    const bool hasGround = style.inverse || style.ground.kind != TextColour::Kind::Own;
    if (!hasGround && style.ink.kind == TextColour::Kind::Own)
    {
        return Own(own, band);
    }
    wxColour ink = ColourOf(style.ink, own);
    wxColour ground = ColourOf(style.ground, band);
    if (style.inverse)
    {
        std::swap(ink, ground);
    }
    ink = Readable(ink, ground);
    return {ink, Quiet(ink, ground), hasGround ? ground : wxColour()};
}

TextInks LineLook::InksOf(const TextStyle& style) const
{
    const TextInks inks = colours.Of(isUncoloured ? TextStyle() : style, ink, band);
    return isInverted ? Inverted(inks) : inks;
}
} // namespace textviews
