#pragma once

#include <wx/gdicmn.h>

#include <cstdint>
#include <vector>

namespace textviews
{
/// What a gutter shows of each line, from left to right.
struct GutterColumns
{
    bool marks = false;
    int  timeCells = 0;      ///< Characters; 0: no times.
    int  digits = 0;         ///< 0: no numbers.
    int  originCells = 0;    ///< Of the names of places that lines come from; 0: no names.
    bool hasOrigins = false; ///< A bar tells of the place, with a name or without.

    bool operator==(const GutterColumns& other) const
    {
        return marks == other.marks && timeCells == other.timeCells && digits == other.digits &&
               originCells == other.originCells && hasOrigins == other.hasOrigins;
    }
};

/// Where the columns of a gutter are, in pixels from the view's left edge. Times and numbers are
/// right aligned.
struct GutterLayout
{
    int width = 0; ///< Of all of it; 0: there is none.
    int markLeft = 0;
    int timeEnd = 0;
    int numberEnd = 0;
    int originLeft = 0;
    int barLeft = 0;
    int barWidth = 0; ///< 0: there is none.

    /// Columns of a font with cells of that width.
    static GutterLayout Of(const GutterColumns& columns, int cellWidth);
};

/// How many digits the numbers of lines take as far as that one.
int DigitsFor(int64_t lastNumber);

/// What of the columns leaves room for text in a view that is `viewWidth` pixels wide: the times go
/// first, then the numbers, the names of places, the marks and the bars.
GutterColumns FittingColumns(const GutterColumns& wanted, int cellWidth, int viewWidth);

/// The rows of pixels of a bookmark's ribbon in a row of the gutter that begins at `top`.
std::vector<wxRect> RibbonRows(int left, int top, int cellWidth, int lineHeight);
} // namespace textviews
