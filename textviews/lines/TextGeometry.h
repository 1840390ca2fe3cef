#pragma once

#include <wx/gdicmn.h>

#include <cstdint>
#include <vector>

namespace textviews
{
/// A row of a line, in a view that wraps.
struct TextRow
{
    int     line = 0;
    int64_t row = 0;   ///< Of the line.
    int64_t first = 0; ///< Cells of the line, [first, end).
    int64_t end = 0;
    int     indent = 0;    ///< Cells.
    bool    isLast = true; ///< Of the line.
    int     top = 0;       ///< Client pixels.
};

/// Where lines and cells are, in client pixels. Painting and the mouse ask the same object.
struct TextGeometry
{
    int     lineHeight = 10;  ///< Pixels, above 0.
    int     columnWidth = 10; ///< Pixels of a cell, above 0.
    wxPoint scroll;           ///< Pixels scrolled off the top left.
    wxSize  client;
    int     lineCount = 0;
    int     textLeft = 0; ///< Where text starts; what is left of it does not scroll sideways.

    bool                 wraps = false;
    std::vector<TextRow> rows; ///< Of a view that wraps: those that are seen at least in part.
    /// One of those: then everything is asked about its part of its line.
    const TextRow* row = nullptr;

    /// The first line that is drawn: one above the visible ones, whose glyphs may hang over.
    int FirstDrawnLine() const;
    int EndOfDrawnLines(int visibleLines) const; ///< One past the last.
    int TopOf(int line) const;
    int LineAt(int y) const; ///< -1 below the last line; above the first one, that one if any.
    int
    WholeLine(bool first) const; ///< The first or last that is seen as a whole; of one, at least.
    /// In a view that wraps, as far as rows of the line are seen.
    wxRect BandOf(int line) const;
    wxRect BelowLines() const;     ///< Empty when lines fill the view.
    bool   GoesOn(int line) const; ///< In a view that wraps: below what is seen.
    /// Where the first drawn line is in the picture.
    wxPoint Place() const;

    int64_t FirstDrawnCell() const; ///< One to the left of the visible ones.
    int64_t EndOfDrawnCells() const;
    /// Left edge of a cell. Text starts half a cell from `textLeft`.
    int XOf(int64_t cell) const;
    /// The cell of that line that is there, or before or behind the line; `nearest`: the one that
    /// begins nearest to there.
    int64_t CellAt(const wxPoint& place, int line, bool nearest) const;
    /// The cell, or the nearest end of the row that everything is asked about.
    int64_t Within(int64_t cell) const;

private:
    const TextRow* RowOf(int line, bool first) const; ///< Null when none is seen.
    const TextRow& RowAt(int line, int y) const;      ///< The nearest that is seen of the line.
    int            WrappedLineAt(int y) const;
    int            WholeWrappedLine(bool first) const;
};

/// The rows of pixels that a rectangle with rounded corners covers, top to bottom: exactly the same
/// on every port, which antialiased curves are not.
std::vector<wxRect> RoundedRows(const wxRect& rect, int radius);

/// A stretch of the content along one axis, pixels from its start.
struct Stretch
{
    int64_t start = 0;
    int64_t end = 0;
};

/// The scroll position that shows the stretch: the same when it is visible already,
/// else the start of the content if it shows there, else with the stretch in the middle (its start
/// at the edge when it does not fit).
int64_t PositionShowing(const Stretch& stretch, int64_t position, int clientSize);
} // namespace textviews
