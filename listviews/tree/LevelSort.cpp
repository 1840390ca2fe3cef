#include "listviews/tree/LevelSort.h"

#include "listviews/arranging/NaturalKey.h"
#include "vesta/Log.h"

#include <algorithm>

namespace listviews
{
namespace
{
constexpr int  kFew = 512;    // children that are sorted at once
constexpr int  kFewAsked = 4; // for their keys: their texts may be long
constexpr char kFirst = 1;
constexpr char kOther = 2;
} // namespace

LevelSort::LevelSort(wxDBTreeModel& model, const TreeSort& by, OpenNode& node)
    : m_Model(model), m_By(by), m_Node(node)
{
    if (node.count > k_MostChildren)
    {
        LogWarning(SFormat("A node's %d children are too many to be sorted", node.count));
    }
    if (by.empty() || node.count < 2 || node.count > k_MostChildren)
    {
        m_Next = -1;
    }
    else if (node.count > kFew)
    {
        m_Many = std::make_unique<KeySort>(static_cast<size_t>(node.count));
    }
}

bool LevelSort::Step()
{
    if (m_Next < 0)
    {
        return false;
    }
    if (m_Next == m_Node.count)
    {
        return m_Many && m_Many->Step();
    }
    for (const int end = std::min(m_Node.count - m_Next, kFewAsked) + m_Next; m_Next < end;
         ++m_Next)
    {
        AddKey(m_Next);
    }
    return true;
}

void LevelSort::AddKey(int place)
{
    const int          index = m_Node.IndexAt(place);
    const wxDBTreeNode child = m_Model._Child(m_Node.node, index);
    m_Key = m_Model._IsFirst(child) ? kFirst : kOther;
    for (const wxDBTreeSort& by : m_By)
    {
        if (const auto number = m_Model._SortNumber(child, by.column))
        {
            AppendCellKey(m_Key, *number, !by.descending);
        }
        else
        {
            AppendCellKey(m_Key, m_Model._Text(child, by.column), !by.descending);
        }
    }
    if (m_Many)
    {
        m_Many->Add(index, m_Key);
    }
    else
    {
        m_Few.emplace_back(m_Key, index);
    }
}

void LevelSort::Apply()
{
    if (m_Next < 0)
    {
        return;
    }
    std::vector<uint32_t> order;
    if (m_Many)
    {
        const std::vector<int> sorted = m_Many->Items();
        order.assign(sorted.begin(), sorted.end());
    }
    std::stable_sort(m_Few.begin(), m_Few.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    for (const auto& [key, index] : m_Few)
    {
        order.push_back(static_cast<uint32_t>(index));
    }
    OpenTree::Reorder(m_Node, std::move(order));
}
} // namespace listviews
