#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace textviews
{
/// How many cells of a line its rows have room for, in a view that wraps.
struct RowWidths
{
    static constexpr int k_Indent = 2; ///< Cells by which rows after the first begin further in.
    static constexpr int k_Least = 8;

    int64_t first = k_Least;
    int64_t rest = k_Least - k_Indent; ///< Of each row after the first.

    /// In a view with room for so many cells; never too few to be read.
    static RowWidths For(int64_t cells);

    bool operator==(const RowWidths& other) const
    {
        return first == other.first && rest == other.rest;
    }
};

/// The cells at which the rows of a text begin, after the first one. A row is as full as can be,
/// but ends after a blank where there is one in its last quarter: words stay whole, and a path or a
/// number that is longer leaves no large hole. No character is cut, nor parted from its marks. A
/// blank for which there is just no room does not begin a row: it hangs over its end.
std::vector<int64_t> BreakRows(std::string_view text, const RowWidths& widths);

/// Rows that are as long as can be whatever stands there, so that where one begins is arithmetic.
/// Of the two cells of a wide character the second one may be named: a row then begins with the
/// first one. For that, one cell of the room is left to it.
struct EvenRows
{
    RowWidths widths;

    int64_t CountFor(int64_t cells) const; ///< Of a text of so many; at least 1.
    int64_t StartOf(int64_t row) const;
    int64_t RowOf(int64_t cell) const;
};
} // namespace textviews
