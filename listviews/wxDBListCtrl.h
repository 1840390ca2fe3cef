#pragma once

#include "appearance/wxtColorManaged.h"
#include "listviews/wxDBListColumn.h"
#include "listviews/wxDBListSource.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/bmpbndl.h>
#include <wx/cursor.h>
#include <wx/listbase.h>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace listviews
{
struct ColumnActions;
struct ColumnPlan;
class Copier;
class ListKeys;
struct ListModel;
class RefreshWork;
} // namespace listviews
class wxDBListBody;
class wxDBListHeader;

/// The user has changed order, widths or visibility of a list's columns by other means than the
/// drag of an edge. The event's column is the one that it was about, or -1 for all.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxtEVT_LIST_COLUMNS, wxListEvent);

/// A list of rows in columns that holds no row: a derived class is asked for the text, the colours
/// and the drawing of the cells that are seen, when they are drawn. It owns the columns, the number
/// of rows, and the two views, titles and rows, that stand one above the other.
///
/// The events are those of a report-mode list (`wxListEvent`): `wxEVT_LIST_ITEM_SELECTED`,
/// `wxEVT_LIST_ITEM_DESELECTED`, `wxEVT_LIST_ITEM_RIGHT_CLICK`, `wxEVT_LIST_ITEM_ACTIVATED`,
/// `wxEVT_LIST_COL_BEGIN_DRAG`, `wxEVT_LIST_COL_END_DRAG`, `wxEVT_LIST_COL_CLICK` and
/// `wxEVT_LIST_COL_RIGHT_CLICK`, and `wxtEVT_LIST_COLUMNS`. A derived class keeps the selection by
/// handling the first two.
///
/// Each row that the user selects or deselects is told by an event of its own, in the order that
/// the user's hand or key stands for. Of more than 100,000 rows at a time (all rows of a large
/// list) they are told beside the window's life, some at a time, in the same order: a host that
/// needs the whole selection looks at it once `IsSelecting` is false, which it is after the last
/// event, or asks for the rest (`FinishSelecting`). So are selected rows that a refresh of a large
/// list has to look for everywhere (`wxListRefresh`). The list does so before the next click or key
/// that depends on it, before it tells of an activation or a right click, and before a refresh or a
/// copy. When the list is cleared, or a handler throws, nothing more is told.
///
/// Users hide, show, fit and move columns, in a menu of the titles, by hand and by keys: Ctrl+Left
/// and Ctrl+Right go from title to title, with Shift they take the column along; Ctrl+Enter clicks
/// the title, also with Shift, Ctrl+Shift+F10 opens the menu, and Ctrl with the plus of the numeric
/// pad fits all. A derived class that answers for a cell goes by its column's `type` or `key`, not
/// by its index, or says that the columns stay (`AllowColumnMoves`).
///
/// Indexes of rows and columns count from 0 in the order shown. An operation on a row or a column
/// that the list does not have does nothing; asked for one, it answers with an empty one. Main
/// thread.
class TOLVAN_API wxDBListCtrl : public wxtPanel, public wxDBListSource
{
public:
    using ColumnHeader = wxDBListColumn;

    /// Images of titles that are there without `SetHeaderImages`.
    enum
    {
        image_None = ColumnHeader::image_None,
        image_Ascending = ColumnHeader::image_Ascending,
        image_Descending = ColumnHeader::image_Descending
    };

    /// `singleSelection`: a click always ends the selection of all other rows.
    wxDBListCtrl(wxWindow* parent, int id, bool singleSelection);
    ~wxDBListCtrl() override;

    /// @name What a derived class supplies
    /// What a derived class supplies. `row` is a row that the list has.
    /// @{
    bool             IsRowSelected(int row) override = 0;
    std::vector<int> GetSelection() override = 0;
    void             PrepareToDraw(int row) override; ///< Before the row is asked for.
    String           GetDisplayText(int row, int column) override = 0;
    wxColour         GetRowColor(int row) override;   ///< Of its text.
    wxColour         GetRowBGColor(int row) override; ///< Darker in odd rows.
    void             CleanupAfterDraw(int row) override;
    /// Draws a cell in the context's font and text colour; by default its text, shortened in the
    /// middle. `rect`: pixels of the body.
    void DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;
    /// The mouse cursor over the body; row and column are -1 where there is none.
    wxCursor     CustomizeCursor(int row, int column, int x, int y) override;
    virtual void DoClear(); ///< Drops the rows' data.
    /// What a row is known by when the list is filled anew (`wxListRefresh`), whatever its place;
    /// empty: nothing, it is known by its index.
    virtual String GetRowKey(int row);
    /// Pixels that the cell takes when nothing of it is cut off, margins included; by default its
    /// text in the context's font.
    int GetCellWidth(wxDC& dc, int row, int column) override;
    /// @}

    /// @name Columns
    /// Columns. A width is in pixels, at most 16,777,216.
    /// @{
    void AddColumn(const ColumnHeader& column);
    void AddColumn(int type, const String& label, int width);
    /// Before that column; the number of columns: at the end.
    void   InsertColumn(int index, int type, const String& label, const String& key, int width);
    void   RemoveColumn(int index);
    void   RemoveAllColumns();
    void   MoveColumn(int index, int delta); ///< As far as there are columns.
    void   SetColumnLabel(int index, const String& label);
    void   SetColumnImage(int index, int image);
    void   SetColumnRank(int index, int rank);   ///< Beside the image; 0: none.
    void   SetColumnWidth(int index, int width); ///< At least 0.
    void   SetHighlightColumn(int index);        ///< -1: none.
    int    GetHighlightColumn() const;
    int    FindColumnByType(int type) const; ///< The first one, or -1.
    String GetColumnName(int index) const;
    int    GetColumnCount() const;
    const ColumnHeader& GetColumn(int index) const;
    void ShowColumn(int index, bool show); ///< It keeps its width. The last one stays shown.
    bool IsColumnShown(int index) const;
    /// Makes it as wide as its title and its widest text among those seen and a sample of the
    /// others, at most as wide as the view, or as the screen before the list is seen. A shown
    /// column only; takes 20 ms at most.
    void FitColumn(int index);
    void FitAllColumns(); ///< Those that are shown; takes 100 ms at most.
    void ResetColumns();  ///< Order, widths and visibility are as when they were added.
    void AllowColumnMoves(bool allow); ///< By hands and keys; so it is at first.
    /// Whether a pressed title was let go on the titles: what a handler of `wxEVT_LIST_COL_CLICK`
    /// asks before it sorts, since the event comes wherever the mouse is let go. True of keys.
    bool IsOnTitles(const wxListEvent& event) const;
    /// Replaces the images of the titles, the sort arrows too.
    void SetHeaderImages(const std::vector<wxBitmapBundle>& images);
    /// Keeps the widths in the options file, as "120, 80, 200".
    void SaveColumnSizes(const String& section, const String& key);
    /// Takes them from there, as far as there are both columns and numbers; at least 20 pixels
    /// each.
    void RestoreColumnSizes(const String& section, const String& key);
    /// Keeps widths, order and visibility, each column by its key, or its type if it has none; the
    /// widths also as `SaveColumnSizes` does.
    void SaveColumnLayout(const String& section, const String& key);
    /// Takes them from there, or else what `SaveColumnSizes` has left. Columns that have come since
    /// stay beside their neighbours.
    void RestoreColumnLayout(const String& section, const String& key);
    /// @}

    /// @name Rows
    /// Rows; the derived class has inserted or removed its data before. A list that has grown
    /// beyond what a scrollbar can hold (2,147,483,647 pixels) logs an error and shows no more
    /// rows.
    /// @{
    void Insert(int row, bool redraw);
    void Insert(int row, unsigned long count, bool redraw);
    void Remove(int row);
    void Remove(int row, unsigned long count);
    void Clear();
    /// Has that many rows, which are others than before: nothing is told of those that have gone.
    void SetItemCount(int count);
    int  GetItemCount() const;
    int  GetRowHeight() const;
    /// @}

    /// @name Selecting
    /// @{
    bool IsSelecting() const; ///< There are rows to be told of that the user has (de)selected.
    bool FinishSelecting();   ///< Tells of them now. False when a handler has destroyed the list.
    void SelectAllRows();     ///< As Ctrl+A does; nothing in a list for one row.
    /// @}

    const wxCursor& GetCurrentCursor() const;
    int             GetLastSelect() const;  ///< The row that a range is selected from, or -1.
    void            SetLastSelect(int row); ///< The keys are there, too.
    /// The row that the keys are on, or -1. It has a frame while the list has the focus.
    int  GetFocusRow() const;
    void SetFocusRow(int row); ///< Selects nothing; -1: where the range is selected from.
    void ReportScrollbars();   ///< Logs every change of the scrollbars from now on.

    /// Copies the selected rows to the clipboard, as they are shown, with the titles: as text with
    /// tabs, and as a table in HTML. Nothing when none is selected, or when another part of the
    /// program has the clipboard open. Of very many rows some are read later, beside the window's
    /// life or when somebody asks for them: each as it is then. Those that are removed meanwhile
    /// are left out; before the list is cleared or shows others in their places the rest is read at
    /// once.
    void CopySelection();
    bool IsCopying() const; ///< There are rows to be read.

    /// @name Redrawing
    /// Repaints soon; changes that are close to one another are painted at once.
    /// @{
    void Redraw();
    /// The rows seen whose selection, or the frame of the keys, is drawn otherwise than it is now.
    /// Cheap enough for each of very many rows; what is selected is asked when the redraw delay is
    /// over.
    void RedrawSelection();
    void RedrawItem(int row);
    void RedrawItems(int a, int b);
    void RedrawColumn(int column);
    void RedrawColumns(int a, int b);
    void RedrawCell(int row, int column);
    void RedrawCells(int row1, int row2, int column1, int column2);
    /// @}

    /// The text as it fits `width` pixels in the context's font: whole, or with an ellipsis in
    /// place of as few characters of its middle as will do. `width` becomes the width of the
    /// result.
    static wxString FormatDisplayString(const String& text, int& width, wxDC& dc);

    void SetFocus() override; ///< Gives it to the rows.
    void SetScrollPos(int orientation, int position, bool refresh = true) override;
    int  GetScrollPos(int orientation) const override;
    int  GetScrollRange(int orientation) const override;
    int  GetScrollThumb(int orientation) const override;
    /// Scrolls by the least that shows the whole row.
    void EnsureVisible(int row);

    wxDBListHeader* GetHeader() const { return m_Header; }
    wxDBListBody*   GetBody() const { return m_Body; }

protected:
    /// For a derived class that is about to have other rows in the places of those that it has.
    void FinishCopying();
    /// For one whose rows are going to be others: the rest of those that the user has selected
    /// is none any more.
    void DropSelecting();

    /// Called when a column has come (`from` -1), gone (`to` -1) or moved: for a derived class that
    /// keeps its cells in the order shown.
    std::function<void(int from, int to)> m_OnColumnMoved;

private:
    void PutColumn(int index, const ColumnHeader& column);
    void TellColumnMoved(int from, int to);
    void TellRowsChanged();
    void ColumnsChanged(); ///< There are others: what is held down in the titles is let go.
    void WidthsChanged();  ///< The content is as wide as the columns; everything is redrawn.
    int  WidestFit() const;
    void FitWithin(int index, std::chrono::steady_clock::duration time);
    void Arrange(const listviews::ColumnPlan& plan);
    void ShowColumnMenu(const wxPoint& where);
    void TellColumns(int column); ///< The list may be gone afterwards.
    std::unique_ptr<listviews::ColumnActions> MakeActions();

    std::unique_ptr<listviews::ListModel>     m_Model;
    std::unique_ptr<listviews::ColumnActions> m_Actions;
    wxDBListHeader*                           m_Header = nullptr;
    wxDBListBody*                             m_Body = nullptr;
    std::unique_ptr<listviews::ListKeys>      m_Keys;
    std::unique_ptr<listviews::Copier>        m_Copier;
    std::unique_ptr<listviews::RefreshWork>   m_Refresh; ///< Null before the first refresh.

    friend class wxListRefresh;
};
