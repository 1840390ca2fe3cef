#pragma once

#include "listviews/refresh/RefreshWork.h"
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
class RefreshRest : public wxEvtHandler, public RefreshWork
{
public:
    explicit RefreshRest(wxDBListCtrl& list); ///< Which owns it.
    ~RefreshRest() override;

    void     Restore(const RowMarks& marks) override;
    RowMarks Take() override;
    bool     IsBusy() const override { return m_Work != nullptr; }
    bool     Finish() override;
    void     Drop() override;
    void     RowsChanged() override;

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
