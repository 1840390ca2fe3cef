#include "listviews/model/ListSelection.h"

#include <algorithm>

namespace listviews
{
bool ListSelection::Has(int row) const
{
    const auto index = static_cast<size_t>(row);
    return row >= 0 && index < m_Places.size() && m_Places[index] != k_None;
}

bool ListSelection::Add(int row)
{
    if (row < 0 || Has(row))
    {
        return false;
    }
    const auto index = static_cast<size_t>(row);
    if (index >= m_Places.size())
    {
        m_Places.resize(std::max(index + 1, m_Places.size() + m_Places.size() / 2), k_None);
    }
    m_Places[index] = static_cast<int>(m_Order.size());
    m_Order.push_back(row);
    ++m_Count;
    return true;
}

bool ListSelection::Remove(int row)
{
    if (!Has(row))
    {
        return false;
    }
    int& place = m_Places[static_cast<size_t>(row)];
    m_Order[static_cast<size_t>(place)] = k_None;
    place = k_None;
    --m_Count;
    // The holes are closed now and then, so that removing all costs no more than each of them.
    if (m_Count == 0)
    {
        m_Order.clear();
    }
    else if (m_Order.size() > 2 * m_Count + 16)
    {
        Renumber();
    }
    return true;
}

void ListSelection::Clear()
{
    m_Order.clear();
    m_Places.clear();
    m_Count = 0;
}

std::vector<int> ListSelection::Rows() const
{
    std::vector<int> rows;
    rows.reserve(m_Count);
    std::copy_if(m_Order.begin(), m_Order.end(), std::back_inserter(rows),
                 [](int row) { return row != k_None; });
    return rows;
}

int ListSelection::NextAfter(int row) const
{
    const auto found = std::find_if(m_Order.begin(), m_Order.end(),
                                    [row](int other) { return other != k_None && other > row; });
    return found == m_Order.end() ? -1 : *found;
}

void ListSelection::Renumber()
{
    m_Order.erase(std::remove(m_Order.begin(), m_Order.end(), k_None), m_Order.end());
    PlaceAll();
}

void ListSelection::PlaceAll()
{
    std::fill(m_Places.begin(), m_Places.end(), k_None);
    for (size_t place = 0; place < m_Order.size(); ++place)
    {
        const auto row = static_cast<size_t>(m_Order[place]);
        if (m_Order[place] == k_None)
        {
            continue;
        }
        if (row >= m_Places.size())
        {
            m_Places.resize(row + 1, k_None);
        }
        m_Places[row] = static_cast<int>(place);
    }
}

void ListSelection::RowInserted(int row)
{
    // Most rows come at the end, or while nothing is selected.
    if (IsEmpty() || static_cast<size_t>(row) >= m_Places.size())
    {
        return;
    }
    m_Places.insert(m_Places.begin() + row, k_None);
    for (int& other : m_Order)
    {
        other += other >= row ? 1 : 0;
    }
}

void ListSelection::RowErased(int row)
{
    if (static_cast<size_t>(row) >= m_Places.size())
    {
        return;
    }
    Remove(row);
    m_Places.erase(m_Places.begin() + row);
    for (int& other : m_Order)
    {
        other -= other > row ? 1 : 0;
    }
}
} // namespace listviews
