#include "listviews/cells/ListGeometry.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <numeric>

namespace listviews
{
namespace
{
// Far enough away to be out of sight, and near enough for rectangles to be joined.
int Within(long long pixels)
{
    constexpr long long kFar = 1 << 29;
    return static_cast<int>(std::clamp(pixels, -kFar, kFar));
}

// Of the columns before that one.
long long LeftOf(const std::vector<int>& widths, int column)
{
    const auto end = widths.begin() + std::clamp(column, 0, static_cast<int>(widths.size()));
    return std::accumulate(widths.begin(), end, 0LL);
}
} // namespace

int ListGeometry::RowAt(int y) const
{
    const long long distance = static_cast<long long>(y) + scroll.y;
    return distance < 0 ? -1 : static_cast<int>(distance / std::max(rowHeight, 1));
}

int ListGeometry::ColumnAt(int x) const
{
    long long left = -static_cast<long long>(scroll.x);
    for (size_t i = 0; i < widths.size() && x >= left; ++i)
    {
        left += widths[i];
        if (x < left)
        {
            return static_cast<int>(i);
        }
    }
    return -1;
}

// Of edges that lie within reach of one another the last: a column without width can be drawn open
// again.
int ListGeometry::EdgeAt(int x) const
{
    int       found = -1;
    long long edge = -static_cast<long long>(scroll.x);
    for (size_t i = 0; i < widths.size() && edge <= static_cast<long long>(x) + k_EdgeReach; ++i)
    {
        edge += widths[i];
        if (!IsHidden(static_cast<int>(i)) && std::llabs(edge - x) <= k_EdgeReach)
        {
            found = static_cast<int>(i);
        }
    }
    return found;
}

bool ListGeometry::IsHidden(int column) const
{
    return static_cast<size_t>(column) < hidden.size() && hidden[static_cast<size_t>(column)];
}

int ListGeometry::GapAt(int x) const
{
    const int count = static_cast<int>(widths.size());
    long long left = -static_cast<long long>(scroll.x);
    for (int column = 0; column < count; ++column)
    {
        const int width = widths[static_cast<size_t>(column)];
        if (!IsHidden(column) && x < left + width / 2)
        {
            return column;
        }
        left += width;
    }
    return count;
}

wxRect ListGeometry::RowRect(int row) const
{
    const long long top = static_cast<long long>(row) * rowHeight - scroll.y;
    return wxRect(0, Within(top), client.x, rowHeight);
}

wxRect ListGeometry::ColumnRect(int column) const
{
    const bool exists = column >= 0 && column < static_cast<int>(widths.size());
    return wxRect(Within(LeftOf(widths, column) - scroll.x), 0,
                  exists ? widths[static_cast<size_t>(column)] : 0, client.y);
}

wxRect ListGeometry::CellRect(int row, int column) const
{
    const wxRect rows = RowRect(row);
    const wxRect columns = ColumnRect(column);
    return wxRect(columns.x, rows.y, columns.width, rows.height);
}

std::pair<int, int> ListGeometry::VisibleColumns() const
{
    const int count = static_cast<int>(widths.size());
    long long left = -static_cast<long long>(scroll.x);
    int       first = 0;
    while (first < count && left + widths[static_cast<size_t>(first)] <= 0)
    {
        left += widths[static_cast<size_t>(first++)];
    }
    int end = first;
    while (end < count && left < client.x)
    {
        left += widths[static_cast<size_t>(end++)];
    }
    return {first, end};
}

int MostRows(int rowHeight)
{
    return INT_MAX / std::max(rowHeight, 1);
}

int ContentWidth(const std::vector<int>& widths)
{
    return static_cast<int>(
        std::min<long long>(LeftOf(widths, static_cast<int>(widths.size())), INT_MAX));
}
} // namespace listviews
