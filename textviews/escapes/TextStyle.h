#pragma once

#include <cstdint>

namespace textviews
{
/// A colour as a program's output asks for it.
struct TextColour
{
    enum class Kind : uint8_t
    {
        Own,    ///< The view's.
        Table,  ///< Of the table of 256; its index stands in `red`.
        Direct, ///< The three channels.
    };

    Kind    kind = Kind::Own;
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;

    bool operator==(const TextColour& other) const
    {
        return kind == other.kind && red == other.red && green == other.green && blue == other.blue;
    }
};

/// How a program's output wants to look.
struct TextStyle
{
    TextColour ink;
    TextColour ground;
    bool       bold = false;
    bool       underlined = false;
    bool       inverse = false; ///< Ink and ground change places.

    bool operator==(const TextStyle& other) const
    {
        return ink == other.ink && ground == other.ground && bold == other.bold &&
               underlined == other.underlined && inverse == other.inverse;
    }
};
} // namespace textviews
