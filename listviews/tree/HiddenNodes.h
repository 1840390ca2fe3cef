#pragma once

#include "listviews/tree/OpenTree.h"
#include "listviews/wxDBTreeModel.h"

#include <memory>
#include <vector>

namespace listviews
{
/// Nodes that were selected when a filter hid them, to be selected again when they are shown again.
/// They are known by their identities and those of what they are in.
class HiddenNodes
{
public:
    void Add(const TreePlace& place, uint64_t identity); ///< A child in any tree of the model.
    void Clear();
    bool IsEmpty() const { return m_Nodes->SelectedCount() == 0; }
    /// The rows of the tree that show one of them and are not selected, in ascending order. The
    /// model may throw.
    std::vector<int64_t> FindIn(OpenTree& tree, wxDBTreeModel& model) const;

private:
    OpenNode& CopyOf(const OpenNode& node);

    /// They and what they are in: nothing of it is counted, and a place is only where to look
    /// first.
    std::unique_ptr<OpenTree> m_Nodes = std::make_unique<OpenTree>();
};
} // namespace listviews
