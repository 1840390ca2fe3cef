#include "textviews/lines/TextGeometry.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace textviews
{
namespace
{
// Beyond any window, and far enough from the end of int for sums.
constexpr int64_t kFarAway = INT_MAX / 4;

int Saturated(int64_t pixels)
{
    return static_cast<int>(std::clamp(pixels, -kFarAway, kFarAway));
}
} // namespace

int TextGeometry::FirstDrawnLine() const
{
    return std::max(scroll.y / lineHeight - 1, 0);
}

int TextGeometry::EndOfDrawnLines(int visibleLines) const
{
    return std::min(scroll.y / lineHeight + visibleLines, lineCount);
}

int TextGeometry::TopOf(int line) const
{
    return Saturated(static_cast<int64_t>(line) * lineHeight - scroll.y);
}

int TextGeometry::LineAt(int y) const
{
    const int64_t line = std::max<int64_t>((static_cast<int64_t>(scroll.y) + y) / lineHeight, 0);
    return line < lineCount ? static_cast<int>(line) : -1;
}

int TextGeometry::WholeLine(bool first) const
{
    const int64_t end = static_cast<int64_t>(scroll.y) + client.y;
    const int64_t line = first ? (static_cast<int64_t>(scroll.y) + lineHeight - 1) / lineHeight
                               : end / lineHeight - 1;
    return static_cast<int>(std::clamp<int64_t>(line, 0, std::max(lineCount - 1, 0)));
}

wxRect TextGeometry::BandOf(int line) const
{
    return {0, TopOf(line), client.x, lineHeight};
}

wxRect TextGeometry::BelowLines() const
{
    const int top = std::clamp(TopOf(lineCount), 0, client.y);
    return {0, top, client.x, client.y - top};
}

int64_t TextGeometry::FirstDrawnCell() const
{
    return std::max(scroll.x / columnWidth - 1, 0);
}

int64_t TextGeometry::EndOfDrawnCells() const
{
    return scroll.x / columnWidth + (client.x - textLeft) / columnWidth + 2;
}

int TextGeometry::XOf(int64_t cell) const
{
    return Saturated(textLeft + cell * columnWidth + columnWidth / 2 - scroll.x);
}

std::vector<wxRect> RoundedRows(const wxRect& rect, int radius)
{
    std::vector<wxRect> rows;
    const int           corner = std::min({radius, rect.width / 2, rect.height / 2});
    for (int row = 0; row < rect.height; ++row)
    {
        const int    fromEdge = std::min(row, rect.height - 1 - row);
        const double up = std::max(0.0, corner - fromEdge - 0.5);
        const int    inset =
            corner - static_cast<int>(std::lround(std::sqrt(corner * corner - up * up)));
        rows.emplace_back(rect.x + inset, rect.y + row, rect.width - 2 * inset, 1);
    }
    return rows;
}

int64_t PositionShowing(const Stretch& stretch, int64_t position, int clientSize)
{
    if (stretch.start >= position && stretch.end <= position + clientSize)
    {
        return position;
    }
    if (stretch.end <= clientSize)
    {
        return 0;
    }
    const int64_t room = clientSize - (stretch.end - stretch.start);
    return room < 0 ? stretch.start : stretch.start - room / 2;
}
} // namespace textviews
