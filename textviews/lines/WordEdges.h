#pragma once

#include "textviews/lines/TextCells.h"

#include <glib.h>

namespace textviews
{
/// Whether the character is part of a word: letters with their marks, digits and the underscore. A
/// byte that is no valid text is none.
inline bool IsWordCode(uint32_t code)
{
    if (code < 0x80)
    {
        return g_ascii_isalnum(static_cast<char>(code)) || code == '_';
    }
    const bool isInvalid = code >= kInvalidByteBase && code <= kInvalidByteBase + 0xFF;
    return !isInvalid && (g_unichar_isalnum(code) || g_unichar_ismark(code));
}
} // namespace textviews
