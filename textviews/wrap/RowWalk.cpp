#include "textviews/wrap/RowWalk.h"

#include <algorithm>

namespace textviews
{
namespace
{
RowPlace RowsDown(const RowCounts& counts, RowPlace place, int64_t rows)
{
    for (;;)
    {
        const int64_t left = counts.RowsOf(place.line) - 1 - place.row;
        if (rows <= left || place.line + 1 >= counts.Lines())
        {
            place.row += std::min(rows, left);
            return place;
        }
        rows -= left + 1;
        place = {place.line + 1, 0};
    }
}

RowPlace RowsUp(const RowCounts& counts, RowPlace place, int64_t rows)
{
    for (;;)
    {
        if (rows <= place.row || place.line == 0)
        {
            place.row -= std::min(rows, place.row);
            return place;
        }
        rows -= place.row + 1;
        place.line -= 1;
        place.row = counts.RowsOf(place.line) - 1;
    }
}
} // namespace

RowPlace RowsOn(const RowCounts& counts, RowPlace from, int64_t rows)
{
    return rows < 0 ? RowsUp(counts, from, -rows) : RowsDown(counts, from, rows);
}

RowsEnd EndOfRows(const RowCounts& counts, int height, int rowHeight)
{
    if (counts.Lines() == 0)
    {
        return {};
    }
    const int      whole = std::max(height / rowHeight, 1);
    const RowPlace last{counts.Lines() - 1, counts.RowsOf(counts.Lines() - 1) - 1};
    RowsEnd        end{RowsUp(counts, last, whole - 1), 0};
    const int      rest = height - whole * rowHeight;
    if (rest > 0 && !(end.top == RowPlace()))
    {
        end = {RowsUp(counts, end.top, 1), rowHeight - rest};
    }
    return end;
}

int PixelsOfRow(int64_t row, int64_t rows, int lineHeight)
{
    return static_cast<int>(row * lineHeight / std::max<int64_t>(rows, 1));
}

// Exactly the row that has this pixel, if one has.
int64_t RowOfPixel(int pixel, int64_t rows, int lineHeight)
{
    return std::min((pixel * rows + lineHeight - 1) / lineHeight, rows - 1);
}
} // namespace textviews
