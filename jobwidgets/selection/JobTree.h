#pragma once

#include "listviews/wxDBTreeListCtrl.h"

namespace jobwidgets
{
class JobTreeModel;

/// The tree of jobs: columns, sorting by a click on a title, and what cells look like.
class JobTree : public wxDBTreeListCtrl
{
public:
    /// The model has to live as long as the tree.
    JobTree(wxWindow* parent, JobTreeModel& model, bool singleSelection);

    /// Keeps columns and order in that section of the options file; the constructor of the selector
    /// takes them from there.
    /// @{
    void SaveLayout(const String& section);
    void RestoreLayout(const String& section);
    /// @}
    /// Progress goes on all the time, and so does the order by it.
    bool IsSortedBy(int type) const { return m_SortedBy == type; }

    String GetDisplayText(int row, int column) override;
    void   DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;
    int    GetCellWidth(wxDC& dc, int row, int column) override;

private:
    void OnTitle(wxListEvent& event);
    void SortBy(int type, bool descending);

    JobTreeModel& m_Jobs;
    int           m_SortedBy = -1; ///< Type of the column; -1: as the jobs came, the latest first.
    bool          m_Descending = false;
};
} // namespace jobwidgets
