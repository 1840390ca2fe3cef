#pragma once

#include "listviews/arranging/FilterQuery.h"
#include "listviews/arranging/SortRules.h"

#include <optional>
#include <vector>

namespace listviews
{
/// Which of a host's items a list shows, in which order, and why.
struct ListOrder
{
    FilterQuery      query;
    SortRules        rules;
    std::vector<int> items;            ///< By row; empty where rows are items.
    bool             isCurrent = true; ///< The host's items have not changed since.

    bool IsPlain() const { return query.IsEmpty() && rules.empty(); } ///< Rows are items.
    int  ItemAt(int row, int count) const; ///< -1: none, or none any more of `count` items.
    int  RowOf(int item, int count) const; ///< -1: it is not shown.
    int  RowCount(int count) const;
    /// The items that are shown, by item.
    std::vector<bool> Shown(int count) const;
};

/// The only items that a new order has to look at, once another one is known; none: all.
std::optional<std::vector<int>> AmongThose(const ListOrder& known, const ListOrder& wanted,
                                           int count);
/// The item of that row, or the next one, below it or else above it, that is among the shown ones;
/// -1 when none is.
int NearestShown(const ListOrder& order, int row, const std::vector<bool>& shown);
} // namespace listviews
