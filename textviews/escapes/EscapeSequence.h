#pragma once

#include <cstddef>
#include <string_view>

namespace textviews
{
constexpr char k_Escape = '\x1b';

/// One sequence of bytes by which a program directs a terminal, beginning with an escape character.
struct EscapeSequence
{
    enum class Kind
    {
        None,    ///< There is none: it is wrong, is cut by the line's end, or does not end.
        Style,   ///< Sets colours and the like.
        Erase,   ///< Erases in the line.
        ToStart, ///< Goes to the start of the line.
        Other,   ///< What shows nothing in a log: titles, links, the cursor's look.
    };

    Kind             kind = Kind::None;
    size_t           bytes = 0;  ///< With the escape character; 0: none.
    std::string_view parameters; ///< What stands between the introducer and the last byte.
};

/// The sequence that begins with the escape character at that byte of the line.
EscapeSequence ReadEscapeSequence(std::string_view line, size_t at);
} // namespace textviews
