#pragma once

#include "monitor/JobColumns.h"

#include <unordered_map>
#include <vector>

/// The jobs as the list shows them: in the order of a column, the latest first among equals.
/// Without a window.
class JobTable
{
public:
    /// Sorts by that column; once more by the same one turns the order round.
    void SortBy(int column);
    void SortBy(int column, bool descending);
    int  SortColumn() const { return m_Column; } ///< -1: as the jobs came, the latest first.
    bool IsDescending() const { return m_Descending; }

    /// Takes the farm's jobs, in any order, and sorts them as they are at that time. They must stay
    /// until the next call.
    void SetJobs(const std::vector<const FarmJob*>& jobs, Time now);
    /// Whether the order of the jobs changes by itself as they go on.
    bool IsSortedByWhatChanges() const;

    int            RowCount() const { return static_cast<int>(m_Rows.size()); }
    const FarmJob& JobAt(int row) const { return *m_Rows[static_cast<size_t>(row)]; }
    const String&  IdAt(int row) const { return m_Ids[static_cast<size_t>(row)]; }
    bool           HasRow(int row) const { return row >= 0 && row < RowCount(); }
    int            RowOf(const String& id) const; ///< -1 when it is not among them.

private:
    void Sort(Time now);

    std::vector<const FarmJob*> m_Rows;
    std::vector<String>         m_Ids; ///< Of the rows, also when a job has gone.
    std::unordered_map<String, int, std::hash<std::string>> m_RowOf;
    int                                                     m_Column = -1;
    bool                                                    m_Descending = false;
};
