#pragma once

#include <cstdint>
#include <vector>

namespace textviews
{
/// Pixels [first, end).
struct StripSpan
{
    int first = 0;
    int end = 0;

    bool operator==(const StripSpan& other) const
    {
        return first == other.first && end == other.end;
    }
};

/// Where lines are in a strip beside a log: all of them, from its top to its bottom. The lines of a
/// log that fits into the view are beside themselves.
struct StripScale
{
    int height = 0; ///< Rows of pixels.
    int lines = 0;
    int lineHeight = 1; ///< Of the text, pixels.

    /// Lines that the strip has room for in its whole height.
    int Total() const;
    int RowOf(int line) const;
    /// The line that the row shows first, of those that there are; -1 without lines.
    int LineAt(int row) const;
    /// The rows of the part that is seen, given in pixels of the text; never too few to be seen.
    StripSpan FrameOf(int64_t top, int64_t bottom) const;
    /// Where the text's top is when that row is the middle of what is seen, of `seen` pixels.
    int64_t TopFor(int row, int seen) const;
};

/// Which columns of a strip show what, from left to right.
struct StripLanes
{
    StripSpan rules;
    StripSpan hits;
    StripSpan bookmarks;
};
StripLanes LanesOf(int width);
/// As wide as it is beside text with lines of that height in the window's own font, pixels.
int StripWidth(int charHeight);

/// The stretches of rows that have the bit, each as high as it takes to be seen; those that touch
/// are one.
std::vector<StripSpan> MarkedRows(const std::vector<uint8_t>& rows, uint8_t bit);
} // namespace textviews
