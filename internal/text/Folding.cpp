#include "internal/text/Folding.h"

#include "internal/text/Utf8.h"

#include <glib.h>

#include <algorithm>

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

void AppendFolded(std::string& folded, std::string_view text)
{
    const char*       at = text.data();
    const char* const end = at + text.size();
    while (at < end)
    {
        const char* const plainEnd = std::find_if_not(at, end, IsAscii);
        const size_t      begin = folded.size();
        folded.resize(begin + static_cast<size_t>(plainEnd - at));
        std::transform(at, plainEnd, folded.data() + begin, LowerAscii);
        at = plainEnd;
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
