#include "jobwidgets/ClosedGroups.h"

#include "listviews/wxDBTreeListCtrl.h"
#include "vesta/CallEntry.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace jobwidgets
{
namespace
{
constexpr size_t  kMostKey = 80; // bytes
const char* const kSeparator = ",";

// In one line and of no great length, whatever the group is called.
String ShortKey(const String& key)
{
    String text = key.substr(0, kMostKey);
    std::replace_if(
        text.begin(), text.end(),
        [](char byte)
        {
            const auto value = static_cast<unsigned char>(byte);
            return value < ' ' || value == 0x7F || byte == ',' || byte == '"' || byte == '\\';
        },
        '_');
    return text;
}
} // namespace

void ClosedGroups::Read(const String& text)
{
    CALL_ENTRY("ClosedGroups::Read");
    StringTokenizer keys(text, kSeparator);
    while (keys.HasMore())
    {
        Put(keys.Next(), true);
    }
}

String ClosedGroups::ToText() const
{
    CALL_ENTRY("ClosedGroups::ToText");
    std::vector<std::pair<uint64_t, String>> keys;
    for (const auto& [key, closed] : m_Closed)
    {
        keys.emplace_back(closed, key);
    }
    std::sort(keys.begin(), keys.end());
    String text;
    for (const auto& [closed, key] : keys)
    {
        text += (text.empty() ? "" : kSeparator) + key;
    }
    return text;
}

bool ClosedGroups::Has(const String& key) const
{
    return m_Closed.count(ShortKey(key)) > 0;
}

void ClosedGroups::Put(const String& key, bool isClosed)
{
    CALL_ENTRY("ClosedGroups::Put");
    if (!isClosed)
    {
        m_Closed.erase(ShortKey(key));
        return;
    }
    m_Closed[ShortKey(key)] = ++m_Last;
    if (m_Closed.size() > k_Most)
    {
        m_Closed.erase(std::min_element(m_Closed.begin(), m_Closed.end(),
                                        [](const auto& left, const auto& right)
                                        { return left.second < right.second; }));
    }
}

// Only what is other than it was: of more groups than can be kept the tree knows by itself.
void ClosedGroups::Note(const wxDBTreeListCtrl& tree)
{
    CALL_ENTRY("ClosedGroups::Note");
    if (m_Known.empty())
    {
        return;
    }
    const std::vector<wxDBTreeNode> nodes = tree.GetOpenInRoot();
    const Nodes                     open(nodes.begin(), nodes.end());
    for (auto& [node, known] : m_Known)
    {
        const bool isOpen = open.count(node) > 0;
        if (std::exchange(known.isOpen, isOpen) != isOpen)
        {
            Put(known.key, !isOpen);
        }
    }
}

ClosedGroups::Groups ClosedGroups::GroupsOf(const wxDBTreeListCtrl& tree)
{
    Groups               groups;
    wxDBTreeModel* const model = tree.GetModel();
    const long long      count = model ? model->_ChildCount(wxDBTreeModel::k_Root) : 0;
    for (long long i = 0; i < count; ++i)
    {
        const wxDBTreeNode node = model->_Child(wxDBTreeModel::k_Root, i);
        if (!model->_IsHeading(node))
        {
            break;
        }
        groups[node].key = model->_Key(node);
    }
    return groups;
}

// Those that come while something is filtered are opened when all is shown again.
void ClosedGroups::OpenNew(wxDBTreeListCtrl& tree)
{
    CALL_ENTRY("ClosedGroups::OpenNew");
    const Groups before = std::exchange(m_Known, {});
    Nodes        due;
    for (const auto& group : GroupsOf(tree))
    {
        const auto known = before.find(group.first);
        if (known != before.end())
        {
            m_Known.insert(*known);
        }
        else if (!tree.IsFiltered())
        {
            m_Known.insert(group);
            if (!Has(group.second.key))
            {
                due.insert(group.first);
            }
        }
    }
    if (!due.empty())
    {
        Open(tree, due);
    }
}

// Row by row: to look for each of many groups would take its time.
void ClosedGroups::Open(wxDBTreeListCtrl& tree, Nodes due)
{
    for (int row = 0; row < tree.GetItemCount() && !due.empty(); ++row)
    {
        const auto wanted = tree.GetLevel(row) == 0 ? due.find(tree.NodeAt(row)) : due.end();
        if (wanted != due.end())
        {
            const int count = tree.GetItemCount();
            m_Known[*wanted].isOpen = tree.Open(row);
            due.erase(wanted);
            row += std::max(0, tree.GetItemCount() - count);
        }
    }
    for (const wxDBTreeNode missing : due)
    {
        m_Known.erase(missing); // it is opened when it is there
    }
}
} // namespace jobwidgets
