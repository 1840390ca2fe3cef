#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace textviews
{
/// The lines of a view by their numbers, as a user counts them.
struct NumberedLines
{
    int64_t first = 1;
    int64_t last = 0;    ///< Below `first`: there are none.
    int64_t current = 1; ///< Where the user is.
};

/// The number of the line that a text asks for: "120" that line, "+100" and "-5" that many further
/// down or up, as far as there are lines, and "50%" the line at that part of the way from the first
/// to the last one. None for a line that is not there, and for any other text.
std::optional<int64_t> LineAskedFor(std::string_view text, const NumberedLines& lines);
} // namespace textviews
