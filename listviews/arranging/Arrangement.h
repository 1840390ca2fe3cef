#pragma once

#include "listviews/arranging/ArrangedItems.h"
#include "listviews/arranging/FilterQuery.h"
#include "listviews/arranging/KeySort.h"
#include "listviews/arranging/SortRules.h"

#include <optional>
#include <vector>

namespace listviews
{
/// Finds which items are shown and in which order: those that match the query, sorted by the rules.
/// Found in steps that are over in less than a millisecond, as far as it is up to this. What the
/// host throws leaves a step. Main thread.
class Arrangement
{
public:
    /// `among`: the only items that can match, in the order that they have without rules; none:
    /// all.
    Arrangement(ArrangedItems& items, FilterQuery query, SortRules rules,
                std::optional<std::vector<int>> among);

    bool             Step(); ///< False when it is done.
    std::vector<int> Rows(); ///< Once, when it is done: the items in the order of the rows.

private:
    String TextOf(int item, int type);
    void   AddKey(int item);

    ArrangedItems&                  m_Items;
    FilterQuery                     m_Query;
    SortRules                       m_Rules;
    std::optional<std::vector<int>> m_Among;
    size_t                          m_Next = 0;
    size_t                          m_End;
    bool                            m_IsLong = false; ///< A text of this step.
    std::vector<int>                m_Matching;       ///< Without rules.
    std::string                     m_Key;            ///< Of an item.
    KeySort                         m_Sort;
};
} // namespace listviews
