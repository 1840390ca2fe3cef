#pragma once

#include <cstddef>
#include <cstdint>

namespace internal
{
/// One character of a byte string: UTF-8 where it is valid, else the single byte as the character
/// of that number. Every byte string is text that way; in a Latin-1 locale even the right one.
struct Utf8Char
{
    uint32_t code;   ///< Unicode code point.
    int      length; ///< Bytes, 1 to 4.
    bool     valid;  ///< False for a byte that is no UTF-8.
};

/// The character that starts at `at`; `at` must lie before `end`.
inline Utf8Char DecodeUtf8(const char* at, const char* end)
{
    const auto*     bytes = reinterpret_cast<const unsigned char*>(at);
    const uint32_t  first = bytes[0];
    const ptrdiff_t left = end - at;
    if (first < 0x80)
    {
        return {first, 1, true};
    }
    const auto follows = [&](int index) { return index < left && (bytes[index] & 0xC0) == 0x80; };
    const auto bits = [&](int index) { return static_cast<uint32_t>(bytes[index] & 0x3F); };
    if (first >= 0xC2 && first < 0xE0 && follows(1))
    {
        return {(first & 0x1F) << 6 | bits(1), 2, true};
    }
    if ((first & 0xF0) == 0xE0 && follows(1) && follows(2))
    {
        const uint32_t code = (first & 0x0F) << 12 | bits(1) << 6 | bits(2);
        if (code >= 0x800 && (code < 0xD800 || code > 0xDFFF)) // no overlong forms, no surrogates
        {
            return {code, 3, true};
        }
    }
    if ((first & 0xF8) == 0xF0 && follows(1) && follows(2) && follows(3))
    {
        const uint32_t code = (first & 0x07) << 18 | bits(1) << 12 | bits(2) << 6 | bits(3);
        if (code >= 0x10000 && code <= 0x10FFFF)
        {
            return {code, 4, true};
        }
    }
    return {first, 1, false};
}

inline bool IsValidUtf8(const char* at, const char* end)
{
    while (at < end)
    {
        const Utf8Char character = DecodeUtf8(at, end);
        if (!character.valid)
        {
            return false;
        }
        at += character.length;
    }
    return true;
}
} // namespace internal
