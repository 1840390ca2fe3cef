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
constexpr int64_t kBehind = INT64_MAX / 2; // any line's end

int Saturated(int64_t pixels)
{
    return static_cast<int>(std::clamp(pixels, -kFarAway, kFarAway));
}
} // namespace

int TextGeometry::FirstDrawnLine() const
{
    if (wraps)
    {
        return rows.empty() ? 0 : rows.front().line;
    }
    return std::max(scroll.y / lineHeight - 1, 0);
}

int TextGeometry::EndOfDrawnLines(int visibleLines) const
{
    if (wraps)
    {
        return rows.empty() ? 0 : rows.back().line + 1;
    }
    return std::min(scroll.y / lineHeight + visibleLines, lineCount);
}

// Of a line that begins above the view, where it would begin.
int TextGeometry::TopOf(int line) const
{
    if (row)
    {
        return row->top;
    }
    if (wraps)
    {
        const TextRow* const seen = RowOf(line, true);
        return seen ? Saturated(seen->top - seen->row * lineHeight)
                    : (line < FirstDrawnLine() ? -lineHeight : client.y);
    }
    return Saturated(static_cast<int64_t>(line) * lineHeight - scroll.y);
}

int TextGeometry::LineAt(int y) const
{
    if (wraps)
    {
        return WrappedLineAt(y);
    }
    const int64_t line = std::max<int64_t>((static_cast<int64_t>(scroll.y) + y) / lineHeight, 0);
    return line < lineCount ? static_cast<int>(line) : -1;
}

int TextGeometry::WholeLine(bool first) const
{
    if (wraps)
    {
        return WholeWrappedLine(first);
    }
    const int64_t end = static_cast<int64_t>(scroll.y) + client.y;
    const int64_t line = first ? (static_cast<int64_t>(scroll.y) + lineHeight - 1) / lineHeight
                               : end / lineHeight - 1;
    return static_cast<int>(std::clamp<int64_t>(line, 0, std::max(lineCount - 1, 0)));
}

wxRect TextGeometry::BandOf(int line) const
{
    const TextRow* const last = wraps && !row ? RowOf(line, false) : nullptr;
    if (last)
    {
        const int top = std::max(TopOf(line), 0);
        return {0, top, client.x, last->top + lineHeight - top};
    }
    return {0, TopOf(line), client.x, lineHeight};
}

wxRect TextGeometry::BelowLines() const
{
    const int end = !wraps ? TopOf(lineCount) : rows.empty() ? 0 : rows.back().top + lineHeight;
    const int top = std::clamp(end, 0, client.y);
    return {0, top, client.x, client.y - top};
}

bool TextGeometry::GoesOn(int line) const
{
    const TextRow* const last = RowOf(line, false);
    return last ? !last->isLast || last->top + lineHeight > client.y
                : !rows.empty() && line > rows.back().line;
}

wxPoint TextGeometry::Place() const
{
    return rows.empty() ? scroll : wxPoint(Saturated(rows.front().row), rows.front().top);
}

int64_t TextGeometry::FirstDrawnCell() const
{
    if (row)
    {
        return row->first;
    }
    return std::max(scroll.x / columnWidth - 1, 0);
}

int64_t TextGeometry::EndOfDrawnCells() const
{
    if (row)
    {
        return row->end;
    }
    return scroll.x / columnWidth + (client.x - textLeft) / columnWidth + 2;
}

int TextGeometry::XOf(int64_t cell) const
{
    const int64_t from = row ? row->indent - row->first : 0;
    return Saturated(textLeft + (from + cell) * columnWidth + columnWidth / 2 - scroll.x);
}

int64_t TextGeometry::Within(int64_t cell) const
{
    return row ? std::clamp(cell, row->first, row->end) : cell;
}

int64_t TextGeometry::CellAt(const wxPoint& place, int line, bool nearest) const
{
    TextGeometry asked = *this;
    if (wraps && !RowOf(line, true))
    {
        return line < FirstDrawnLine() ? kBehind : 0;
    }
    asked.row = wraps ? &RowAt(line, place.y) : nullptr;
    const int64_t first = asked.row ? asked.row->first : 0;
    const int     x = place.x - asked.XOf(first) + (nearest ? columnWidth / 2 : 0);
    const int64_t cell = asked.Within(first + std::max(x, 0) / columnWidth);
    // What is behind a row's last character is at it, and not at the next row's first one.
    const bool isBehind = asked.row && !asked.row->isLast && cell >= asked.row->end;
    return isBehind && !nearest ? cell - 1 : cell;
}

const TextRow* TextGeometry::RowOf(int line, bool first) const
{
    const auto begin = std::partition_point(
        rows.begin(), rows.end(), [line](const TextRow& each) { return each.line < line; });
    const auto end = std::partition_point(
        begin, rows.end(), [line](const TextRow& each) { return each.line == line; });
    return begin == end ? nullptr : first ? &*begin : &*(end - 1);
}

const TextRow& TextGeometry::RowAt(int line, int y) const
{
    const TextRow*       seen = RowOf(line, true);
    const TextRow* const last = RowOf(line, false);
    while (seen != last && y >= seen->top + lineHeight)
    {
        ++seen;
    }
    return *seen;
}

// Above the view it is the line of the row that comes next there, whose place is not known.
int TextGeometry::WrappedLineAt(int y) const
{
    if (rows.empty())
    {
        return -1;
    }
    const TextRow& first = rows.front();
    if (y < first.top)
    {
        return first.row > 0 ? first.line : std::max(first.line - 1, 0);
    }
    const auto index = static_cast<size_t>((y - first.top) / lineHeight);
    if (index < rows.size())
    {
        return rows[index].line;
    }
    const int next = rows.back().line + (rows.back().isLast ? 1 : 0);
    return next < lineCount ? next : -1;
}

// Of lines none of which is, the first.
int TextGeometry::WholeWrappedLine(bool first) const
{
    int whole = -1;
    for (const TextRow& each : rows)
    {
        const TextRow& begin = *RowOf(each.line, true);
        const bool     isWhole =
            begin.row == 0 && begin.top >= 0 && each.isLast && each.top + lineHeight <= client.y;
        whole = isWhole && (whole == -1 || !first) ? each.line : whole;
    }
    return whole != -1 || rows.empty() ? std::max(whole, 0) : rows.front().line;
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
