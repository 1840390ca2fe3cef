#include "textviews/wrap/LineWrap.h"

#include "textviews/escapes/ShownLines.h"
#include "textviews/lines/LineStore.h"

#include <algorithm>
#include <limits>

namespace textviews
{
namespace
{
constexpr int64_t kFar = std::numeric_limits<int64_t>::max();
constexpr size_t  kEvenBytes = 16 * 1024; // as long as lines are whose places are remembered

// Where the character begins that is shown there.
int64_t StartOfCell(std::string_view text, const ShownPieces& pieces, int64_t cell)
{
    const auto piece =
        std::partition_point(pieces.begin(), pieces.end(),
                             [cell](const ShownPiece& each) { return each.End() <= cell; });
    if (piece == pieces.end() || piece->cell >= cell)
    {
        return cell;
    }
    TextPlace place;
    AdvancePlace(piece->In(text), place, {kFar, kFar, cell - piece->cell});
    return piece->cell + place.cell;
}
} // namespace

int LineWrap::Lines() const
{
    return m_Lines.Count();
}

LineWrap::Broken LineWrap::Break(int line) const
{
    Broken                 broken;
    const std::string_view text = m_Lines.Line(line);
    broken.line = line;
    if (m_Shown.MostCellsOf(text) <= m_Widths.first)
    {
        return broken;
    }
    const ShownPieces* const pieces = m_Shown.PiecesOf(line, text);
    if (text.size() >= kEvenBytes)
    {
        const int64_t cells = pieces ? EndOf(*pieces) : m_Shown.AtCell(line, text, kFar).cell;
        broken.count = EvenRows{m_Widths}.CountFor(cells);
        broken.isEven = true;
        return broken;
    }
    broken.starts =
        pieces ? BreakRows(ShownText(text, *pieces), m_Widths) : BreakRows(text, m_Widths);
    broken.count = static_cast<int64_t>(broken.starts.size()) + 1;
    return broken;
}

int64_t LineWrap::StartOf(const Broken& line, int64_t row) const
{
    if (row <= 0)
    {
        return 0;
    }
    if (!line.isEven)
    {
        return line.starts[static_cast<size_t>(row - 1)];
    }
    const int64_t            cell = EvenRows{m_Widths}.StartOf(row);
    const std::string_view   text = m_Lines.Line(line.line);
    const ShownPieces* const pieces = m_Shown.PiecesOf(line.line, text);
    return pieces ? StartOfCell(text, *pieces, cell) : m_Shown.AtCell(line.line, text, cell).cell;
}

ShownCells LineWrap::CellsOf(const Broken& line, int64_t row) const
{
    const int64_t first = StartOf(line, row);
    const int64_t room = row == 0 ? m_Widths.first : m_Widths.rest;
    return {first, row + 1 < line.count ? StartOf(line, row + 1) : first + room + 1};
}

int64_t LineWrap::RowOf(const Broken& line, int64_t cell) const
{
    if (!line.isEven)
    {
        const auto beyond = std::upper_bound(line.starts.begin(), line.starts.end(), cell);
        return beyond - line.starts.begin();
    }
    const int64_t row = std::min(EvenRows{m_Widths}.RowOf(cell), line.count - 1);
    return row + 1 < line.count && StartOf(line, row + 1) <= cell ? row + 1 : row;
}
} // namespace textviews
