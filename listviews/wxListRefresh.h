#pragma once

#include "vesta/Export.h"

#include <wx/weakref.h>

#include <memory>

namespace listviews
{
struct RowMarks;
}
class wxDBListCtrl;

/// Stands around the refilling of a list, and has everything come back that the user has made of
/// it: what is selected, where ranges are selected from, the row that the keys are on, and the
/// place that the view is scrolled to.
///
///     {
///         const wxListRefresh keep(list);
///         list.Clear();
///         list.Insert(0, count, true);
///     }
///
/// Rows are found again by `wxDBListCtrl::GetRowKey`, or by their index if they have no key. Rows
/// that are to be selected or deselected are told by the list's events, those that are already are
/// not. Where a `wxListArranger` sorts or filters the new rows first, that waits until they are
/// shown, and rows that have moved far are selected again beside the window's life. The list may be
/// destroyed meanwhile. Takes time for each row once at most, and little when the rows are about
/// where they were. Main thread.
class TOLVAN_API wxListRefresh
{
public:
    explicit wxListRefresh(wxDBListCtrl& list);
    ~wxListRefresh(); ///< What a handler throws is logged.
    wxListRefresh(const wxListRefresh&) = delete;
    wxListRefresh& operator=(const wxListRefresh&) = delete;

private:
    wxWeakRef<wxDBListCtrl>              m_List;
    std::unique_ptr<listviews::RowMarks> m_Marks;
};
