#include "listviews/tree/TreeRemains.h"

#include <algorithm>
#include <iterator>

namespace listviews
{
namespace
{
constexpr int kFew = 256; // between two looks at the clock
} // namespace

void TreeRemains::Add(std::unique_ptr<OpenTree> tree)
{
    if (tree)
    {
        m_Nodes.push_back(tree->TakeRoot());
    }
}

// From the last one on: a node's place is taken by what was opened in it.
bool TreeRemains::Step()
{
    for (int left = kFew; left > 0 && !m_Nodes.empty(); --left)
    {
        OpenNode& node = *m_Nodes.back();
        if (!node.opened.empty())
        {
            std::unique_ptr<OpenNode> child = std::move(node.opened.back());
            node.opened.pop_back();
            m_Nodes.push_back(std::move(child));
        }
        else if (!node.selected.empty())
        {
            node.selected.erase(std::prev(node.selected.end()));
        }
        else
        {
            m_Nodes.pop_back();
        }
    }
    return !m_Nodes.empty();
}
} // namespace listviews
