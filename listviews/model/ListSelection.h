#pragma once

#include <vector>

namespace listviews
{
/// Which rows are selected, in the order in which they were. Asking for a row, adding and removing
/// one take the same time however many are selected.
class ListSelection
{
public:
    bool Has(int row) const;
    bool Add(int row);    ///< False when it is selected already.
    bool Remove(int row); ///< False when it is not selected.
    void Clear();

    bool             IsEmpty() const { return m_Count == 0; }
    std::vector<int> Rows() const; ///< In order of selection.
    /// The first one, in order of selection, that is greater than `row`; -1 when there is none.
    int NextAfter(int row) const;

    void RowInserted(int row); ///< Those from there on are one further down now.
    void RowErased(int row);   ///< That one is selected no more, those below are one further up.

private:
    static constexpr int k_None = -1;

    void Renumber();
    void PlaceAll();

    std::vector<int> m_Order;  ///< Rows; `k_None` where one has been removed.
    std::vector<int> m_Places; ///< By row: its place in `m_Order`, or `k_None`.
    size_t           m_Count = 0;
};
} // namespace listviews
