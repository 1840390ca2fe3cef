#include "textviews/gutter/GutterLayout.h"

#include <algorithm>
#include <cstdlib>

namespace textviews
{
namespace
{
constexpr int kLeastDigits = 3;  // a log that begins would soon move sideways
constexpr int kLeastText = 12;   // cells of text that a gutter leaves
constexpr int kRibbonMargin = 2; // pixels above and below
constexpr int kLeastBar = 3;     // pixels
} // namespace

GutterLayout GutterLayout::Of(const GutterColumns& columns, int cellWidth)
{
    GutterLayout layout;
    if (columns == GutterColumns())
    {
        return layout;
    }
    const int margin = std::max(cellWidth / 2, 2);
    int       x = margin;
    layout.markLeft = x;
    x += columns.marks ? cellWidth + margin : 0;
    x += columns.timeCells * cellWidth;
    layout.timeEnd = x;
    x += columns.timeCells > 0 && columns.digits > 0 ? cellWidth : 0;
    x += columns.digits * cellWidth;
    layout.numberEnd = x;
    const bool hasText = columns.timeCells > 0 || columns.digits > 0;
    x += hasText && columns.originCells > 0 ? cellWidth : 0;
    layout.originLeft = x;
    x += columns.originCells * cellWidth;
    x += hasText || columns.originCells > 0 ? margin : 0;
    layout.barLeft = x;
    layout.barWidth = columns.hasOrigins ? std::max(cellWidth / 3, kLeastBar) : 0;
    layout.width = x + layout.barWidth;
    return layout;
}

int DigitsFor(int64_t lastNumber)
{
    int digits = 1;
    for (int64_t rest = lastNumber; rest >= 10; rest /= 10)
    {
        ++digits;
    }
    return std::max(digits, kLeastDigits);
}

GutterColumns FittingColumns(const GutterColumns& wanted, int cellWidth, int viewWidth)
{
    const int     room = viewWidth - kLeastText * cellWidth;
    GutterColumns columns = wanted;
    const auto    fits = [&] { return GutterLayout::Of(columns, cellWidth).width <= room; };
    if (!fits())
    {
        columns.timeCells = 0;
    }
    if (!fits())
    {
        columns.digits = 0;
    }
    if (!fits())
    {
        columns.originCells = 0;
    }
    if (!fits())
    {
        columns.marks = false;
    }
    if (!fits())
    {
        columns.hasOrigins = false;
    }
    return columns;
}

// A band that is cut in at its lower end.
std::vector<wxRect> RibbonRows(int left, int top, int cellWidth, int lineHeight)
{
    std::vector<wxRect> rows;
    const int           height = lineHeight - 2 * kRibbonMargin;
    const int           half = cellWidth / 2;
    for (int row = 0; row < height; ++row)
    {
        const int y = top + kRibbonMargin + row;
        const int cut = half - (height - row); // of the notch, to either side of the middle
        if (cut < 0)
        {
            rows.emplace_back(left, y, cellWidth, 1);
            continue;
        }
        const int leg = std::max(half - 1 - cut, 1);
        rows.emplace_back(left, y, leg, 1);
        rows.emplace_back(left + cellWidth - leg, y, leg, 1);
    }
    return rows;
}
} // namespace textviews
