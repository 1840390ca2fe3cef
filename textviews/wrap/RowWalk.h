#pragma once

#include <cstdint>

namespace textviews
{
/// A row of a line.
struct RowPlace
{
    int     line = 0;
    int64_t row = 0;

    bool operator==(const RowPlace& other) const { return line == other.line && row == other.row; }
    bool operator<(const RowPlace& other) const
    {
        return line < other.line || (line == other.line && row < other.row);
    }
};

/// How many rows lines have. Nobody asks for those of all lines.
class RowCounts
{
public:
    virtual int     Lines() const = 0;
    virtual int64_t RowsOf(int line) const = 0; ///< At least 1.

protected:
    ~RowCounts() = default;
};

/// So many rows below that one, which exists, or with a negative number above it; no further than
/// the first and the last row of all.
RowPlace RowsOn(const RowCounts& counts, RowPlace from, int64_t rows);

/// The row at the top of a view of `height` pixels that shows the last row at its bottom, and the
/// pixels of it that are out of sight. With lines that leave room in the view: the first row.
struct RowsEnd
{
    RowPlace top;
    int      below = 0;
};
RowsEnd EndOfRows(const RowCounts& counts, int height, int rowHeight);

/// @name Rows as pixels of a scrollbar
/// It has the height of one row for each line, which the line's rows share.
/// @{
int     PixelsOfRow(int64_t row, int64_t rows, int lineHeight);
int64_t RowOfPixel(int pixel, int64_t rows, int lineHeight);
/// @}
} // namespace textviews
