#include "listviews/tree/ChildrenOf.h"

#include <algorithm>
#include <climits>
#include <functional>
#include <unordered_map>

namespace listviews
{
namespace
{
constexpr int kFarthest = 100000;      // children on either side that are asked for their keys
constexpr int kNear = 100;             // places to either side that one is looked for at first
constexpr int kMostTries = 8;          // of that
constexpr int kMostLookedAt = 1000000; // children

class _Search
{
public:
    _Search(wxDBTreeModel& model, wxDBTreeNode parent, int count)
        : m_Model(model), m_Parent(parent), m_Count(count)
    {
    }

    void Want(WantedChild& child) { m_Wanted.emplace(child.identity, &child); }
    bool IsOver() const { return m_Wanted.empty(); }
    void LookAt(int index)
    {
        if (index < 0 || index >= m_Count)
        {
            return;
        }
        const auto range =
            m_Wanted.equal_range(IdentityOf(m_Model, m_Model._Child(m_Parent, index)));
        std::for_each(range.first, range.second,
                      [index](const auto& wanted) { wanted.second->found = index; });
        m_Wanted.erase(range.first, range.second);
    }

private:
    wxDBTreeModel&                                  m_Model;
    wxDBTreeNode                                    m_Parent;
    int                                             m_Count;
    std::unordered_multimap<uint64_t, WantedChild*> m_Wanted;
};
// A child that has come or gone moves all those behind it by one place: where one is found, the
// next is not far.
class _Neighbours
{
public:
    _Neighbours(wxDBTreeModel& model, wxDBTreeNode parent, int count)
        : m_Model(model), m_Parent(parent), m_Count(count)
    {
    }

    bool Find(WantedChild& child)
    {
        for (const int shift : {m_Shift, m_Shift + 1, m_Shift - 1})
        {
            if (Is(child, shift))
            {
                return true;
            }
        }
        bool isFound = false;
        if (m_Tries > 0)
        {
            --m_Tries;
            for (int step = 2; step <= kNear && !isFound; ++step)
            {
                isFound = Is(child, m_Shift + step) || Is(child, m_Shift - step);
            }
        }
        return isFound;
    }

private:
    bool Is(WantedChild& child, int shift)
    {
        const long long index = static_cast<long long>(child.index) + shift;
        if (index < 0 || index >= m_Count ||
            IdentityOf(m_Model, m_Model._Child(m_Parent, index)) != child.identity)
        {
            return false;
        }
        child.found = static_cast<int>(index);
        m_Shift = shift;
        return true;
    }

    wxDBTreeModel& m_Model;
    wxDBTreeNode   m_Parent;
    int            m_Count;
    int            m_Shift = 0; ///< Of the one that was found last.
    int            m_Tries = kMostTries;
};
} // namespace

int ChildCount(wxDBTreeModel& model, wxDBTreeNode node)
{
    return static_cast<int>(std::clamp<long long>(model._ChildCount(node), 0, INT_MAX));
}

wxDBTreeNode ChildAt(wxDBTreeModel& model, const TreePlace& place)
{
    return model._Child(place.parent->node, place.Index());
}

uint64_t IdentityOf(wxDBTreeModel& model, wxDBTreeNode node)
{
    const String key = model._Key(node);
    return key.empty() ? static_cast<uint64_t>(node) : std::hash<std::string>()(key);
}

bool MayOpen(wxDBTreeModel& model, wxDBTreeNode node, int level)
{
    return node != wxDBTreeModel::k_Root && level + 1 < OpenTree::k_MostLevels &&
           model._MayHaveChildren(node);
}

TreePlace PlaceOf(wxDBTreeModel& model, OpenNode& parent, wxDBTreeNode child)
{
    const auto opened = std::find_if(parent.opened.begin(), parent.opened.end(),
                                     [child](const auto& node) { return node->node == child; });
    if (opened != parent.opened.end())
    {
        return {&parent, (*opened)->place};
    }
    for (int place = 0; place < std::min(parent.count, kMostLookedAt); ++place)
    {
        if (ChildAt(model, {&parent, place}) == child)
        {
            return {&parent, place};
        }
    }
    return {};
}

void FindChildren(wxDBTreeModel& model, wxDBTreeNode parent, int count,
                  std::vector<WantedChild>& wanted)
{
    _Search          search(model, parent, count);
    _Neighbours      neighbours(model, parent, count);
    std::vector<int> missing;
    for (WantedChild& child : wanted)
    {
        if (!child.known)
        {
            child.found = child.index < count ? child.index : -1;
        }
        else if (!neighbours.Find(child))
        {
            search.Want(child);
            missing.push_back(child.index);
        }
    }
    if (missing.empty())
    {
        return;
    }
    const int center = std::min(missing[missing.size() / 2], count);
    for (int step = 0; step <= kFarthest && !search.IsOver(); ++step)
    {
        search.LookAt(center + step);
        search.LookAt(center - 1 - step);
        if (center + step >= count && center - 1 - step < 0)
        {
            break;
        }
    }
}
} // namespace listviews
