#include "internal/text/Folding.h"

#include "internal/text/Utf8.h"

#include <glib.h>

#include <algorithm>

namespace internal
{
namespace
{
constexpr int kMostBytes = 6; // of one character, as the conversion has it

bool IsAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

char LowerAscii(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

// Not by the run-time's functions: those know ASCII only where the locale is "C".
void AppendLower(std::string& folded, uint32_t character)
{
    char      bytes[kMostBytes];
    const int count = g_unichar_to_utf8(g_unichar_tolower(character), bytes);
    folded.append(bytes, static_cast<size_t>(count));
}
} // namespace

void AppendFolded(std::string& folded, std::string_view text)
{
    const char*       at = text.data();
    const char* const end = at + text.size();
    while (at < end)
    {
        const char* const plainEnd = std::find_if_not(at, end, IsAscii);
        const size_t      begin = folded.size();
        folded.append(at, plainEnd);
        std::transform(folded.begin() + static_cast<std::ptrdiff_t>(begin), folded.end(),
                       folded.begin() + static_cast<std::ptrdiff_t>(begin), LowerAscii);
        for (at = plainEnd; at < end && !IsAscii(*at);)
        {
            const Utf8Char character = DecodeUtf8(at, end);
            if (character.valid)
            {
                AppendLower(folded, character.code);
            }
            else
            {
                folded.append(at, at + character.length);
            }
            at += character.length;
        }
    }
}
} // namespace internal
