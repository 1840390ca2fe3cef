#include "monitor/JobTable.h"

#include <algorithm>

void JobTable::SortBy(int column)
{
    SortBy(column, column == m_Column && !m_Descending);
}

void JobTable::SortBy(int column, bool descending)
{
    m_Column = column >= 0 && column < k_JobColumns ? column : -1;
    m_Descending = m_Column >= 0 && descending;
}

bool JobTable::IsSortedByWhatChanges() const
{
    return m_Column == column_Elapsed;
}

void JobTable::SetJobs(const std::vector<const FarmJob*>& jobs, Time now)
{
    m_Rows = jobs;
    Sort(now);
    m_RowOf.clear();
    m_Ids.clear();
    for (size_t row = 0; row < m_Rows.size(); ++row)
    {
        m_Ids.push_back(m_Rows[row]->id);
        m_RowOf.emplace(m_Rows[row]->id, static_cast<int>(row));
    }
}

void JobTable::Sort(Time now)
{
    std::sort(m_Rows.begin(), m_Rows.end(),
              [this, now](const FarmJob* a, const FarmJob* b)
              {
                  const int order = m_Column < 0 ? 0 : InfoOf(m_Column).compare(*a, *b, now);
                  // A job's number never changes: equal ones stay where they are.
                  return order == 0 ? a->number > b->number
                                    : (m_Descending ? order > 0 : order < 0);
              });
}

int JobTable::RowOf(const String& id) const
{
    const auto found = m_RowOf.find(id);
    return found == m_RowOf.end() ? -1 : found->second;
}
