#pragma once

#include "listviews/refresh/RowMarks.h"

#include <wx/event.h>

#include <memory>

class wxDBListCtrl;

namespace listviews
{
class RefreshEvent;
/// A list is going to be filled anew: whoever has marks that are still to be found again gives them
/// back, and they go on waiting.
wxDECLARE_EVENT(EVT_REFRESH_BEGINS, RefreshEvent);
/// It is filled. Whoever is about to show its rows in another order takes the marks, and has them
/// found again then.
wxDECLARE_EVENT(EVT_REFRESH_ENDS, RefreshEvent);

/// What `wxListRefresh` tells the arranger of its list; no other window hears of it.
class RefreshEvent : public wxEvent
{
public:
    RefreshEvent(wxEventType type, std::unique_ptr<RowMarks>& marks)
        : wxEvent(0, type), m_Marks(marks)
    {
    }
    std::unique_ptr<RowMarks>& Marks() const { return m_Marks; }
    wxEvent*                   Clone() const override { return new RefreshEvent(*this); }

private:
    std::unique_ptr<RowMarks>& m_Marks;
};

RowMarks MarksOf(wxDBListCtrl& list);
/// Has the list be as it was marked, as far as the rows are there and found before `isOver` says
/// yes. What was found; the list may be gone.
RowMarks RestoreMarks(wxDBListCtrl& list, const RowMarks& marks,
                      const std::function<bool()>& isOver);

/// @name Parts of that
/// `found`: the marks as they are now.
/// @{
void RestoreKeys(wxDBListCtrl& list, const RowMarks& before, const RowMarks& found);
void RestoreScroll(wxDBListCtrl& list, const RowMarks& before, const RowMarks& found);
void RestoreSelection(wxDBListCtrl& list, const RowMarks& found); ///< The list may be gone then.
/// @}
} // namespace listviews
