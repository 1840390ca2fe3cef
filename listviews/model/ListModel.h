#pragma once

#include "listviews/cells/ListGeometry.h"
#include "listviews/columns/ColumnHomes.h"
#include "listviews/wxDBListColumn.h"

#include <wx/bmpbndl.h>

#include <vector>

namespace listviews
{
/// What the titles and the rows of a list show, without a window and without a row's data. The list
/// owns it and changes it; its views draw from it, and note in it what the pointer does to them.
/// Indexes count from 0 in the order shown; -1 is none. Those that are passed have to exist.
struct ListModel
{
    std::vector<wxDBListColumn> columns; ///< In the order shown.
    std::vector<wxBitmapBundle> titleImages;
    int                         highlightColumn = -1;

    int rowHeight = 1; ///< Pixels, at least 1.
    int rowCount = 0;
    int anchor = -1;   ///< The row that a range is selected from.
    int caret = -1;    ///< The row that the keys are on, when it is another than the anchor.
    int hoverRow = -1; ///< The one that was drawn so.

    int hoverColumn = -1;   ///< The one whose edge or title the pointer is on.
    int pressedColumn = -1; ///< The one whose title is held down.
    int resizeStart = -1;   ///< Where the drag of the hovered edge began, pixels.
    int pressX = 0;         ///< Where the pressed title is held, pixels.
    int dragX = 0;          ///< Where the pointer has taken it to, pixels.
    int dropGap = -1;       ///< The column before which it would come; -1: it is not moved.
    int titleCursor = -1;   ///< The one that the keys of the titles are on.

    bool canMoveTitles = true; ///< By hands and keys.

    int  ColumnCount() const { return static_cast<int>(columns.size()); }
    bool HasColumn(int index) const { return index >= 0 && index < ColumnCount(); }
    bool HasRow(int row) const { return row >= 0 && row < rowCount; }
    int  FindType(int type) const; ///< The first column of that type.
    int  ShownCount() const;
    /// The next one that is shown, from there on in that direction (1 or -1), or -1.
    int NextShown(int index, int step) const;
    /// The one that the list is about, or the first one that is shown; or -1.
    int  MainColumn() const;
    int  FocusRow() const { return caret >= 0 ? caret : anchor; } ///< The one that the keys are on.
    void SetAnchor(int row) { anchor = row, caret = -1; }         ///< The keys are there, too.

    const wxDBListColumn& Column(int index) const { return columns[static_cast<size_t>(index)]; }
    wxDBListColumn&       Column(int index) { return columns[static_cast<size_t>(index)]; }

    /// Before that column; their number: at the end. A negative width becomes the default one.
    void InsertColumn(int index, const wxDBListColumn& column);
    void RemoveColumn(int index);
    /// As far as there are columns; highlight and cursor go with their columns. The new index.
    int                MoveColumn(int index, int delta);
    void               SetWidth(int index, int width);
    void               Show(int index, bool show); ///< The last one that is shown stays.
    const ColumnHomes& Homes() const { return homes; }
    int                ContentWidth() const; ///< Pixels, at most what a scrollbar can hold.

    /// The drag of a column's edge, which begins at `x` and has come to there.
    /// @{
    void BeginResize(int index, int x);
    int  ResizedWidth(int x) const;
    bool IsResizing() const { return resizeStart >= 0; }
    /// @}
    void LetTitlesGo(); ///< Nothing is pressed, dragged or hovered any more.

    /// An anchor at or below the rows that come moves down with them, as the caret does. False when
    /// they have made the list longer than can be scrolled, which it was not before: it has as many
    /// as can be.
    bool InsertRows(int row, int count);
    /// An anchor among the rows that go moves above them; one that lies below stays where it is: on
    /// the same place of the list, which the user looks at, and not on the same row. A caret goes
    /// with its row.
    void RemoveRows(int first, int last);

    ListGeometry Geometry(const wxPoint& scroll, const wxSize& client) const;

private:
    ColumnHomes homes;
};

/// The widths as the options file has them, "120, 80, 200", and back: as far as there are both
/// columns and numbers, at least `ListGeometry::k_LeastWidth` each.
/// @{
String WidthsText(const ListModel& model);
void   TakeWidths(ListModel& model, const String& text);
/// @}
} // namespace listviews
