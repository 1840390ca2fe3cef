#pragma once

#include "vesta/Export.h"

#include <wx/weakref.h>

#include <memory>

namespace listviews
{
struct RowMarks;
class RefreshWork;
} // namespace listviews
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
/// shown. Rows that are about where they were are found at once. For others all rows may have to be
/// asked: what takes longer than a moment goes on beside the window's life, unless the selection is
/// changed meanwhile, and `wxDBListCtrl::IsSelecting` says so. The list may be destroyed meanwhile.
/// Main thread.
class TOLVAN_API wxListRefresh
{
public:
    explicit wxListRefresh(wxDBListCtrl& list);
    ~wxListRefresh(); ///< What a handler throws is logged.
    wxListRefresh(const wxListRefresh&) = delete;
    wxListRefresh& operator=(const wxListRefresh&) = delete;

private:
    static listviews::RefreshWork& WorkOf(wxDBListCtrl& list);

    wxWeakRef<wxDBListCtrl>              m_List;
    std::unique_ptr<listviews::RowMarks> m_Marks;
};
