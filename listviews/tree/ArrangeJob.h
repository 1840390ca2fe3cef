#pragma once

#include "listviews/tree/LevelSort.h"
#include "listviews/tree/TreeGrowth.h"

#include <memory>

namespace listviews
{
/// What the user wants to see of a tree, and in which order.
struct TreeWish
{
    TreeFilter filter; ///< Empty: everything.
    TreeSort   by;     ///< Empty: as in the model.
};

/// Makes the tree that is wished for, in steps of a millisecond or so. What the model throws ends
/// it.
class ArrangeJob
{
public:
    /// `from` says which nodes are open where nothing is filtered; it has to stay as it is then.
    ArrangeJob(wxDBTreeModel& model, TreeWish wish, const OpenTree& from);

    bool                      Step(); ///< False when it is done.
    bool                      IsDone() const { return m_Tree && m_Unsorted.empty() && !m_Sort; }
    std::unique_ptr<OpenTree> Take(); ///< What there is of it, if it is not done.
    OpenTree&                 Made() { return *m_Tree; } ///< Once it is done.
    bool                      IsFiltered() const { return m_Filtered != nullptr; }
    int64_t                   Matches() const { return m_Filtered ? m_Filtered->Matches() : 0; }
    int64_t                   Total() const { return m_Filtered ? m_Filtered->Total() : 0; }

private:
    void TakeGrown();
    bool SortNext();

    wxDBTreeModel&              m_Model;
    TreeWish                    m_Wish;
    std::unique_ptr<TreeGrowth> m_Growth;
    FilteredGrowth*             m_Filtered = nullptr; ///< The growth, if it is one.
    std::unique_ptr<OpenTree>   m_Tree;               ///< Once it has grown.
    std::vector<OpenNode*>      m_Unsorted;
    std::unique_ptr<LevelSort>  m_Sort; ///< Of the last of them.
};

/// Opens a child in a tree, with its children in that order if they are few: `isUnsorted` becomes
/// true when they are too many, or their texts take too long. Null when there is nothing to open.
/// The model may throw; the tree is as it was then.
OpenNode* OpenChild(OpenTree& tree, const TreePlace& place, wxDBTreeModel& model,
                    const TreeSort& by, bool& isUnsorted);
} // namespace listviews
