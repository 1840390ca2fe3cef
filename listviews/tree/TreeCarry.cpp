#include "listviews/tree/TreeCarry.h"

#include "listviews/tree/ChildrenOf.h"

#include <algorithm>
#include <unordered_set>

namespace listviews
{
namespace
{
// Finds where the children of a node are shown.
class _Places
{
public:
    _Places(const OpenNode& node, size_t questions) : m_Node(node)
    {
        if (node.order.empty() || questions < 4)
        {
            return; // the order is looked through as often
        }
        m_ByIndex.assign(static_cast<size_t>(node.modelCount), -1);
        for (size_t place = 0; place < node.order.size(); ++place)
        {
            m_ByIndex[node.order[place]] = static_cast<int>(place);
        }
    }
    int Of(int index) const
    {
        if (index < 0 || index >= m_Node.modelCount)
        {
            return -1;
        }
        if (m_Node.order.empty())
        {
            return index < m_Node.count ? index : -1;
        }
        if (!m_ByIndex.empty())
        {
            return m_ByIndex[static_cast<size_t>(index)];
        }
        const auto found =
            std::find(m_Node.order.begin(), m_Node.order.end(), static_cast<uint32_t>(index));
        return found == m_Node.order.end() ? -1 : static_cast<int>(found - m_Node.order.begin());
    }

private:
    const OpenNode&  m_Node;
    std::vector<int> m_ByIndex;
};

class _Carrier
{
public:
    _Carrier(const OpenTree& from, OpenTree& to, wxDBTreeModel& model,
             const std::function<OpenNode*(const TreePlace&)>& open, std::vector<TreeMark>& marks)
        : m_From(from), m_To(to), m_Model(model), m_Open(open), m_Marks(marks)
    {
        for (const TreeMark& mark : marks)
        {
            m_Old.push_back(mark.place);
            Need(mark.place.parent);
        }
        ForOpened(from.Root(),
                  [this](const OpenNode& node)
                  {
                      if (!node.selected.empty())
                      {
                          Need(&node);
                      }
                  });
    }

    std::vector<int64_t> Carry()
    {
        for (TreeMark& mark : m_Marks)
        {
            mark.place = {};
            mark.isSame = false;
        }
        if (m_Needed.count(&m_From.Root()) > 0)
        {
            Bring(m_From.Root(), &m_To.Root(), {});
        }
        std::sort(m_Lost.begin(), m_Lost.end());
        return std::move(m_Lost);
    }

private:
    // With all that it lies in.
    void Need(const OpenNode* node)
    {
        while (node && m_Needed.insert(node).second)
        {
            node = node->parent;
        }
    }

    std::vector<size_t> MarksIn(const OpenNode& node) const
    {
        std::vector<size_t> marks;
        for (size_t i = 0; i < m_Old.size(); ++i)
        {
            if (m_Old[i].parent == &node)
            {
                marks.push_back(i);
            }
        }
        return marks;
    }

    // `now`: what the node has become; null when it has gone. `nearest`: the row to go to then.
    void Bring(const OpenNode& was, OpenNode* now, const TreePlace& nearest)
    {
        const std::vector<size_t>    marks = MarksIn(was);
        std::vector<const OpenNode*> nodes;
        for (const auto& child : was.opened)
        {
            if (m_Needed.count(child.get()) > 0)
            {
                nodes.push_back(child.get());
            }
        }
        std::vector<WantedChild> wanted;
        for (const auto& [place, identity] : was.selected)
        {
            wanted.push_back({identity, was.IndexAt(place)});
        }
        for (const size_t mark : marks)
        {
            const std::optional<uint64_t>& identity = m_Marks[mark].identity;
            wanted.push_back(
                {identity.value_or(0), was.IndexAt(m_Old[mark].place), identity.has_value()});
        }
        for (const OpenNode* const child : nodes)
        {
            wanted.push_back({child->identity, was.IndexAt(child->place)});
        }
        if (now)
        {
            FindChildren(m_Model, now->node, now->modelCount, wanted);
        }
        BringAll(was, now, nearest, marks, nodes, wanted);
    }

    void BringAll(const OpenNode& was, OpenNode* now, const TreePlace& nearest,
                  const std::vector<size_t>& marks, const std::vector<const OpenNode*>& nodes,
                  const std::vector<WantedChild>& wanted)
    {
        std::vector<TreePlace> found(wanted.size());
        if (now)
        {
            const _Places places(*now, wanted.size());
            for (size_t i = 0; i < wanted.size(); ++i)
            {
                const int place = places.Of(wanted[i].found);
                found[i] = place < 0 ? TreePlace() : TreePlace{now, place};
            }
        }
        auto next = found.begin();
        for (const auto& [place, identity] : was.selected)
        {
            if (*next)
            {
                m_To.Select(*next, identity);
            }
            else
            {
                m_Lost.push_back(m_From.RowOf({const_cast<OpenNode*>(&was), place}));
            }
            ++next;
        }
        for (const size_t mark : marks)
        {
            m_Marks[mark].isSame = static_cast<bool>(*next);
            m_Marks[mark].place = *next ? *next : Neighbour(now, m_Old[mark].place, nearest);
            ++next;
        }
        for (const OpenNode* const child : nodes)
        {
            OpenNode* node = *next ? next->Opened() : nullptr;
            if (*next && !(node && node->isOpen))
            {
                node = m_Open(*next);
            }
            Bring(*child, node, *next ? *next : Neighbour(now, child->place, nearest));
            ++next;
        }
    }

    static TreePlace Neighbour(OpenNode* now, int place, const TreePlace& nearest)
    {
        return now && now->count > 0 ? TreePlace{now, std::min(place, now->count - 1)} : nearest;
    }

    const OpenTree&                                   m_From;
    OpenTree&                                         m_To;
    wxDBTreeModel&                                    m_Model;
    const std::function<OpenNode*(const TreePlace&)>& m_Open;
    std::vector<TreeMark>&                            m_Marks;
    std::vector<TreePlace>                            m_Old; ///< Of the marks.
    std::unordered_set<const OpenNode*>               m_Needed;
    std::vector<int64_t>                              m_Lost;
};
} // namespace

std::vector<int64_t> CarrySelection(const OpenTree& from, OpenTree& to, wxDBTreeModel& model,
                                    const std::function<OpenNode*(const TreePlace&)>& open,
                                    std::vector<TreeMark>&                            marks)
{
    return _Carrier(from, to, model, open, marks).Carry();
}
} // namespace listviews
