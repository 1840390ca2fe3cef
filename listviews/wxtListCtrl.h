#pragma once

#include "listviews/wxDBListCtrl.h"
#include "vesta/Export.h"

#include <wx/font.h>
#include <wx/validate.h>

#include <memory>

namespace listviews
{
class ListSelection;
}
class wxListEvent;

/// A list that keeps its rows as texts, and what of them is selected. Its operations have the names
/// of a stock report-mode list's. Operations on rows or columns that it does not have do nothing.
/// Rows stay in the order in which they were put: a list that sorts or filters derives from
/// `wxDBListCtrl` and has a `wxListArranger`. A row holds up to 4 GiB of text; an operation that
/// would make it longer throws `std::length_error` and changes nothing. Main thread.
class TOLVAN_API wxtListCtrl : public wxDBListCtrl
{
public:
    /// The arguments of a stock list; all but parent and id are accepted and ignored.
    wxtListCtrl(wxWindow* parent, int id, const wxPoint& position = wxDefaultPosition,
                const wxSize& size = wxDefaultSize, long style = 0,
                const wxValidator& validator = wxDefaultValidator,
                const wxString&    name = wxEmptyString);
    ~wxtListCtrl() override;

    /// Inserts a row with that text in its first cell. Its index; a row beyond the end is the last,
    /// a negative one the first. `image`: see `SetImages`; -1: none.
    int  InsertItem(int row, const String& text, int image = -1);
    void SetItem(int row, int column, const String& text);
    void SetItemTextColour(int row, const wxColour& colour); ///< Invalid: the scheme's.
    void SetItemFont(int row, const wxFont& font);           ///< Invalid: the list's.
    void DeleteItem(int row);
    /// The images that rows show in front of their first cell.
    void SetImages(const std::vector<wxBitmapBundle>& images);

    /// The first selected row, in the order of selection, that is greater than `item`; -1 when
    /// there is none. For -1 the first selected row.
    int GetNextItem(int item, int geometry = 0, int state = 0) const;

    bool             IsRowSelected(int row) override;
    std::vector<int> GetSelection() override; ///< In the order of selection.
    String           GetDisplayText(int row, int column) override;
    wxColour         GetRowColor(int row) override;
    void             DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;
    int              GetCellWidth(wxDC& dc, int row, int column) override;
    void             DoClear() override;

    void OnItemSelect(wxListEvent& event);
    void OnItemDeselect(wxListEvent& event);

private:
    struct Row;

    Row* FindRow(int row);
    void MoveCells(int from, int to);
    bool IsFirstShown(int column) const; ///< Its cells have the rows' images.
    int  ImageWidth(const Row& row) const;
    int  DrawImage(wxDC& dc, const Row& row, const wxRect& rect);

    std::vector<Row>                          m_Rows;
    std::vector<wxBitmapBundle>               m_Images;
    std::unique_ptr<listviews::ListSelection> m_Selection;

    wxDECLARE_EVENT_TABLE();
};
