#include "internal/text/Folding.h"

#include "internal/text/Utf8.h"

#include <glib.h>

namespace internal
{
namespace
{
constexpr int kMostBytes = 6; // of one character, as the conversion has it

void AppendLower(std::string& folded, uint32_t character)
{
    char      bytes[kMostBytes];
    const int count = g_unichar_to_utf8(g_unichar_tolower(character), bytes);
    folded.append(bytes, static_cast<size_t>(count));
}
} // namespace

// Most texts are ASCII to their end.
void AppendFolded(std::string& folded, std::string_view text)
{
    const char*       at = text.data();
    const char* const end = at + text.size();
    while (at < end)
    {
        const size_t begin = folded.size();
        folded.resize(begin + static_cast<size_t>(end - at));
        char* to = folded.data() + begin;
        for (; at < end && IsAscii(*at); ++at)
        {
            *to++ = LowerAscii(*at);
        }
        folded.resize(static_cast<size_t>(to - folded.data()));
        while (at < end && !IsAscii(*at))
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
