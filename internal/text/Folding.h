#pragma once

#include <string>
#include <string_view>

namespace internal
{
inline bool IsAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

/// Not by the run-time's functions: those know ASCII only where the locale is "C".
inline char LowerAscii(char c)
{
    return static_cast<char>(c + (c >= 'A' && c <= 'Z') * ('a' - 'A'));
}

/// Appends the text in lower case, for comparing without regard to case in every language. Bytes
/// that are no valid text stay as they are. Any thread.
void AppendFolded(std::string& folded, std::string_view text);
} // namespace internal
