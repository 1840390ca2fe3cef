#include "listviews/columns/ColumnHomes.h"

#include "listviews/wxDBListColumn.h"

#include <algorithm>

namespace listviews
{
// A column that comes in the middle belongs behind its neighbour on the left.
void ColumnHomes::Insert(int index, const wxDBListColumn& column)
{
    const int count = static_cast<int>(m_Homes.size());
    const int place = index == count ? count : index == 0 ? 0 : Of(index - 1).place + 1;
    for (Home& home : m_Homes)
    {
        home.place += home.place >= place ? 1 : 0;
    }
    m_Homes.insert(m_Homes.begin() + index, Home{place, column.width, column.visible});
}

void ColumnHomes::Remove(int index)
{
    const int place = Of(index).place;
    m_Homes.erase(m_Homes.begin() + index);
    for (Home& home : m_Homes)
    {
        home.place -= home.place > place ? 1 : 0;
    }
}

void ColumnHomes::Move(int from, int to)
{
    const auto home = m_Homes.begin() + from;
    if (to > from)
    {
        std::rotate(home, home + 1, m_Homes.begin() + to + 1);
    }
    else
    {
        std::rotate(m_Homes.begin() + to, home, home + 1);
    }
}

std::vector<int> ColumnHomes::Order() const
{
    std::vector<int> order(m_Homes.size());
    for (size_t index = 0; index < m_Homes.size(); ++index)
    {
        order[static_cast<size_t>(m_Homes[index].place)] = static_cast<int>(index);
    }
    return order;
}
} // namespace listviews
