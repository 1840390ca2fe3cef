#pragma once

#include "listviews/tree/OpenTree.h"
#include "listviews/wxDBTreeModel.h"

#include <functional>
#include <optional>
#include <vector>

namespace listviews
{
/// A row that is not to be lost from sight when its tree is replaced.
struct TreeMark
{
    TreePlace               place;
    std::optional<uint64_t> identity;       ///< Where it is known.
    bool                    isSame = false; ///< Afterwards: the row itself and not its neighbour.
};

/// Brings what is selected, and the marks, from a tree to the one that takes its place. A mark
/// whose row has gone comes to a neighbour or to the node that the row was in; to none in an empty
/// tree. `open` opens a child of the new tree that something has to be brought to (or answers
/// null). Returns the old rows that were selected and have no place in the new tree, in ascending
/// order.
std::vector<int64_t> CarrySelection(const OpenTree& from, OpenTree& to, wxDBTreeModel& model,
                                    const std::function<OpenNode*(const TreePlace&)>& open,
                                    std::vector<TreeMark>&                            marks);
} // namespace listviews
