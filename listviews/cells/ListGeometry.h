#pragma once

#include <wx/gdicmn.h>

#include <vector>

namespace listviews
{
/// Where the rows and columns of a list are. Pixels of the body's client area; painting and hit
/// tests ask the same, so that a click cannot disagree with a pixel. Distances are made in 64 bits
/// and kept within what a rectangle can hold.
struct ListGeometry
{
    static constexpr int k_EdgeReach = 3;       ///< Pixels on either side of a column's edge.
    static constexpr int k_LeastWidth = 20;     ///< Pixels of a column that is resized.
    static constexpr int k_MostWidth = 1 << 24; ///< Pixels; sums of them stay countable.
    static constexpr int k_DefaultWidth = 100;  ///< Pixels of a column without a width.

    int               rowHeight = 1; ///< Pixels, at least 1.
    wxPoint           scroll;        ///< Pixels scrolled off the top left.
    wxSize            client;        ///< Pixels.
    std::vector<int>  widths;        ///< Of the columns, in the order shown; 0 for hidden ones.
    std::vector<bool> hidden;        ///< Of the columns; empty: none is.

    int    RowAt(int y) const;    ///< Also rows that the list does not have.
    int    ColumnAt(int x) const; ///< The column under `x`, or -1.
    int    EdgeAt(int x) const;   ///< The column whose right edge is within reach, or -1.
    int    GapAt(int x) const;    ///< The column before which one that is dropped there comes.
    bool   IsHidden(int column) const;
    wxRect RowRect(int row) const;
    wxRect ColumnRect(int column) const; ///< Over the full height.
    wxRect CellRect(int row, int column) const;
    /// The columns of which something is seen, as the first one and the one behind the last.
    std::pair<int, int> VisibleColumns() const;
};

/// The most rows of that height that a list can scroll through.
int MostRows(int rowHeight);
/// The widths' sum, at most what a scrollbar can hold.
int ContentWidth(const std::vector<int>& widths);
} // namespace listviews
