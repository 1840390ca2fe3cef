#pragma once

#include "listviews/tree/OpenTree.h"
#include "listviews/wxDBTreeModel.h"

#include <vector>

namespace listviews
{
/// What a tree asks its model, within what it can hold. The model may throw.

int          ChildCount(wxDBTreeModel& model, wxDBTreeNode node);
wxDBTreeNode ChildAt(wxDBTreeModel&   model,
                     const TreePlace& place); ///< The root where there is none.
uint64_t     IdentityOf(wxDBTreeModel& model, wxDBTreeNode node);
bool         MayOpen(wxDBTreeModel& model, wxDBTreeNode node, int level); ///< Has that level.
/// Where the child is shown, among the first million; none when it is not.
TreePlace PlaceOf(wxDBTreeModel& model, OpenNode& parent, wxDBTreeNode child);

/// A child that is looked for.
struct WantedChild
{
    uint64_t identity = 0;
    int      index = 0;    ///< That it had.
    bool     known = true; ///< Else its identity is not, and it is the one that has its index.
    int      found = -1;   ///< The index that it has now.
};

/// Finds children by their identities: each at its place first, then around there, as far as can be
/// looked without anybody noticing.
void FindChildren(wxDBTreeModel& model, wxDBTreeNode parent, int count,
                  std::vector<WantedChild>& wanted);
} // namespace listviews
