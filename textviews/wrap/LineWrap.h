#pragma once

#include "textviews/escapes/LineFolder.h"
#include "textviews/wrap/RowBreaks.h"
#include "textviews/wrap/RowWalk.h"

namespace textviews
{
class LineStore;
class ShownLines;

/// The rows of the lines that a view shows, found when somebody asks. Lines of 16 KiB and more are
/// broken evenly: the beginning of a row in the middle of a gigabyte costs no more than one near
/// its start. How many cells such a line has is found once, as `TextPlaces` remembers it.
class LineWrap final : public RowCounts
{
public:
    /// A line whose rows are known.
    struct Broken
    {
        int                  line = 0;
        int64_t              count = 1; ///< Of rows.
        std::vector<int64_t> starts;    ///< Of those after the first.
        bool                 isEven = false;
    };

    LineWrap(const LineStore& lines, ShownLines& shown) : m_Lines(lines), m_Shown(shown) {}

    void             SetWidths(const RowWidths& widths) { m_Widths = widths; }
    const RowWidths& Widths() const { return m_Widths; }

    Broken  Break(int line) const;
    int64_t StartOf(const Broken& line, int64_t row) const;
    /// Of the last row as far as there is room.
    ShownCells CellsOf(const Broken& line, int64_t row) const;
    int64_t    RowOf(const Broken& line, int64_t cell) const;

    int     Lines() const override;
    int64_t RowsOf(int line) const override { return Break(line).count; }

private:
    const LineStore& m_Lines;
    ShownLines&      m_Shown;
    RowWidths        m_Widths;
};
} // namespace textviews
