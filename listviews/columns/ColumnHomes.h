#pragma once

#include <vector>

struct wxDBListColumn;

namespace listviews
{
/// How the columns of a list were when they were added: where each of them stood, how wide it was
/// and whether it was shown. Indexes count in the order shown now.
class ColumnHomes
{
public:
    struct Home
    {
        int  place; ///< Among all columns, from 0.
        int  width; ///< Pixels.
        bool visible;
    };

    void Insert(int index, const wxDBListColumn& column);
    void Remove(int index);
    void Move(int from, int to);

    const Home& Of(int index) const { return m_Homes[static_cast<size_t>(index)]; }
    /// The indexes, in the order in which the columns were added.
    std::vector<int> Order() const;

private:
    std::vector<Home> m_Homes;
};
} // namespace listviews
