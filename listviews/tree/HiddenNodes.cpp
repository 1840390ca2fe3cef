#include "listviews/tree/HiddenNodes.h"

#include "listviews/tree/TreeCarry.h"

#include <algorithm>
#include <iterator>

namespace listviews
{
namespace
{
// A node that is not open in the tree shows nothing that was hidden.
OpenNode* OpenAlready(const TreePlace& place)
{
    OpenNode* const node = place.Opened();
    return node && node->isOpen ? node : nullptr;
}
} // namespace

// Of two nodes that had one place at different times, the later one stands at the next free one.
void HiddenNodes::Add(const TreePlace& place, uint64_t identity)
{
    OpenNode& parent = CopyOf(*place.parent);
    int       at = place.Index();
    for (auto taken = parent.selected.find(at);
         taken != parent.selected.end() && taken->second != identity;
         taken = parent.selected.find(at))
    {
        ++at;
    }
    m_Nodes->Select({&parent, at}, identity);
}

OpenNode& HiddenNodes::CopyOf(const OpenNode& node)
{
    if (!node.parent)
    {
        return m_Nodes->Root();
    }
    OpenNode& parent = CopyOf(*node.parent);
    int       at = node.parent->IndexAt(node.place);
    OpenNode* copy = parent.OpenedAt(at);
    while (copy && copy->identity != node.identity)
    {
        copy = parent.OpenedAt(++at);
    }
    return copy ? *copy : m_Nodes->Add({&parent, at}, node.node, node.identity);
}

void HiddenNodes::Clear()
{
    m_Nodes = std::make_unique<OpenTree>();
}

std::vector<int64_t> HiddenNodes::FindIn(OpenTree& tree, wxDBTreeModel& model) const
{
    const std::vector<int64_t> before = tree.SelectedRows();
    std::vector<TreeMark>      marks;
    CarrySelection(*m_Nodes, tree, model, OpenAlready, marks);
    const std::vector<int64_t> after = tree.SelectedRows();
    std::vector<int64_t>       found;
    std::set_difference(after.begin(), after.end(), before.begin(), before.end(),
                        std::back_inserter(found));
    for (const int64_t row : found)
    {
        tree.Deselect(tree.At(row));
    }
    return found;
}
} // namespace listviews
