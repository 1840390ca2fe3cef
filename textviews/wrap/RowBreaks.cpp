#include "textviews/wrap/RowBreaks.h"

#include "textviews/lines/TextCells.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr int64_t kLastPart = 4; // of the row, where a blank ends it
} // namespace

RowWidths RowWidths::For(int64_t cells)
{
    const int64_t first = std::max<int64_t>(cells, k_Least);
    return {first, first - k_Indent};
}

std::vector<int64_t> BreakRows(std::string_view text, const RowWidths& widths)
{
    std::vector<int64_t> starts;
    int64_t              row = 0; // the cell where it begins
    int64_t              room = widths.first;
    int64_t              cell = 0;
    int64_t              afterBlank = 0;
    for (size_t byte = 0; byte < text.size();)
    {
        const TextCell next = CellAt(text, byte);
        const bool     isBlank = next.code == ' ';
        const bool     hangs = isBlank && cell - row == room;
        if (next.cells > 0 && cell + next.cells - row > room && !hangs)
        {
            row = afterBlank > row + room - room / kLastPart ? afterBlank : cell;
            room = widths.rest;
            starts.push_back(row);
        }
        byte += static_cast<size_t>(next.bytes);
        cell += next.cells;
        afterBlank = isBlank ? cell : afterBlank;
    }
    return starts;
}

int64_t EvenRows::CountFor(int64_t cells) const
{
    return cells <= widths.first ? 1 : RowOf(cells - 1) + 1;
}

int64_t EvenRows::StartOf(int64_t row) const
{
    return row <= 0 ? 0 : widths.first - 1 + (row - 1) * (widths.rest - 1);
}

int64_t EvenRows::RowOf(int64_t cell) const
{
    const int64_t first = widths.first - 1;
    return cell < first ? 0 : 1 + (cell - first) / (widths.rest - 1);
}
} // namespace textviews
