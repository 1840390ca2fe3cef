#pragma once

#include "listviews/slices/Slices.h"

#include <wx/gdicmn.h>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class wxDBListBase;
class wxDBListSource;

namespace listviews
{
struct ListModel;

/// Rows that a list's handlers are told of, in this order.
struct RowsToTell
{
    std::vector<int> off;                 ///< Are deselected: with the point (0, 0).
    int              first = 0;           ///< Those from here
    int              last = -1;           ///< to there are selected, as far as there are rows:
    wxPoint          point{};             ///< with this one.
    bool             onlyChanges = false; ///< Rows that are so already are left out.
};

/// Tells of rows that a user selects and deselects, row after row: of many at once, of very many in
/// slices beside the window's life. One wish at a time. A handler may do anything: an answer of
/// false says that the list is gone, and with it this object. What a handler throws ends the work.
class SelectionWork
{
public:
    /// More rows are not told of at once.
    static constexpr size_t k_MostAtOnce = 100000;

    SelectionWork(wxDBListBase& view, wxDBListSource& source, const ListModel& model);
    ~SelectionWork();

    /// In place of what has not been told yet. `then` follows the last row.
    bool Begin(RowsToTell rows, std::function<void()> then = {});
    bool Finish(); ///< Tells the rest at once; not within one of the handlers.
    void Drop();   ///< Forgets the rest; not within one of the handlers.
    bool IsBusy() const;

    /// The rest stays with its rows. What handlers insert or remove changes nothing.
    /// @{
    void RowsInserted(int row, int count);
    void RowsRemoved(int first, int last);
    /// Rows have come and gone in other ways: those that are yet to be selected stand there now.
    void RowsMoved(int first, int last);
    /// @}
    /// The rows that are yet to be selected, the first one behind the last one when there are none;
    /// nothing when nothing waits.
    std::optional<std::pair<int, int>> Waiting() const;

private:
    struct Job;

    bool IsWaiting() const;
    bool Skip(Job& job) const;
    bool TellNext(Job& job);
    bool Run(bool toTheEnd);

    wxDBListBase&        m_View;
    wxDBListSource&      m_Source;
    const ListModel&     m_Model;
    std::shared_ptr<Job> m_Job; ///< Null when everything is told.
    Slices               m_Slices;
};
} // namespace listviews
