#pragma once

#include "listviews/refresh/RowMarks.h"
#include "listviews/slices/Slices.h"

#include <wx/event.h>

#include <memory>

class wxDBListCtrl;
class wxListEvent;

namespace listviews
{
/// Brings back what a refresh keeps: at once what is found in a moment, and the rest, for which all
/// rows may have to be asked, beside the window's life. What the user selects, moves to or scrolls
/// to meanwhile stays as it is.
class RefreshRest : public wxEvtHandler
{
public:
    explicit RefreshRest(wxDBListCtrl& list); ///< Which owns it.
    ~RefreshRest() override;

    void     Restore(const RowMarks& marks); ///< The list may be gone then.
    RowMarks Take(); ///< The marks of the list as it is, and those that are not found yet.
    bool     IsBusy() const { return m_Work != nullptr; }
    bool     Finish(); ///< Looks for the rest at once. False when a handler has destroyed the list.
    void     Drop();
    void     RowsChanged(); ///< There are others: what was found may stand elsewhere.

private:
    struct Work;

    bool Search(Work& work, bool toTheEnd);
    void GoOn(bool toTheEnd);
    void Begin(std::shared_ptr<Work> work);
    void End();
    void OnSelection(wxListEvent& event);

    wxDBListCtrl&         m_List;
    std::shared_ptr<Work> m_Work;        ///< Null: everything is found.
    unsigned              m_Changes = 0; ///< Of the rows, and of what is looked for.
    Slices                m_Slices;
};
} // namespace listviews
