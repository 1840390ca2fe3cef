#include "jobwidgets/selection/JobTreeModel.h"

#include "appearance/wxTolvanString.h"

#include <wx/intl.h>

#include <algorithm>
#include <utility>

namespace jobwidgets
{
namespace
{
// The last bits of a node say what it is; before them stands a number.
enum Kind
{
    kGroup = 1,
    kJob = 2,
    kRecentJob = 3
};
constexpr int kKindBits = 2;
constexpr int kKindMask = 3;
const String  kRecentKey = "recent";

wxDBTreeNode NodeOf(int64_t number, Kind kind)
{
    return number << kKindBits | kind;
}

Kind KindOf(wxDBTreeNode node)
{
    return static_cast<Kind>(node & kKindMask);
}
} // namespace

void JobTreeModel::Show(const JobSet& jobs, JobGrouping grouping, const std::vector<UID>& recent)
{
    m_Jobs = jobs.InOrder();
    m_Numbers.clear();
    m_Numbers.reserve(m_Jobs.size());
    for (const JobSet::Facts& job : m_Jobs)
    {
        m_Numbers.push_back(job->number);
    }
    m_Groups.clear();
    m_Ungrouped = {};
    const Nodes before = std::exchange(m_Nodes, {});
    JobGroup    picked;
    for (const UID& id : recent)
    {
        if (const JobSet::Facts job = jobs.Find(id))
        {
            picked.Add(*job);
        }
    }
    if (!picked.jobs.empty())
    {
        picked.title = wxtFromWx(wxGetTranslation("Recently Picked"));
        Add(kRecentKey, std::move(picked), before);
    }
    for (JobGroup& group : GroupJobs(m_Jobs, grouping))
    {
        if (grouping == JobGrouping::kNone)
        {
            m_Ungrouped = std::move(group);
            continue;
        }
        const String key = GroupKey(grouping, group.title);
        if (group.title.empty())
        {
            group.title = wxtFromWx(wxGetTranslation("Unknown"));
        }
        Add(key, std::move(group), before);
    }
}

// A group keeps its node as long as it is there.
void JobTreeModel::Add(const String& key, JobGroup content, const Nodes& before)
{
    const auto         known = before.find(key);
    const wxDBTreeNode node = known == before.end() ? NodeOf(++m_LastGroup, kGroup) : known->second;
    m_Nodes.emplace(key, node);
    m_Groups.push_back({node, key, std::move(content)});
}

const JobTreeModel::Group* JobTreeModel::GroupOf(wxDBTreeNode node) const
{
    const auto found = std::find_if(m_Groups.begin(), m_Groups.end(),
                                    [node](const Group& group) { return group.node == node; });
    return found == m_Groups.end() ? nullptr : &*found;
}

// Of a job; behind the last one for a group, and for a job that has gone.
size_t JobTreeModel::PlaceOf(wxDBTreeNode node) const
{
    const int64_t number = node >> kKindBits;
    if (node == k_Root || KindOf(node) == kGroup || m_Numbers.empty() || number < m_Numbers.front())
    {
        return m_Jobs.size();
    }
    // Numbers are missing where jobs have gone: it can't be farther than that.
    const auto   count = static_cast<int64_t>(m_Numbers.size());
    const auto   last = m_Numbers.begin() + std::min(number - m_Numbers.front(), count - 1);
    const auto   found = *last == number ? last : std::lower_bound(m_Numbers.begin(), last, number);
    const size_t place = static_cast<size_t>(found - m_Numbers.begin());
    return *found == number ? place : m_Jobs.size();
}

const JobFacts* JobTreeModel::JobOf(wxDBTreeNode node) const
{
    const size_t place = PlaceOf(node);
    return place < m_Jobs.size() ? m_Jobs[place].get() : nullptr;
}

const JobSet::Facts* JobTreeModel::FactsOf(wxDBTreeNode node) const
{
    const size_t place = PlaceOf(node);
    return place < m_Jobs.size() ? &m_Jobs[place] : nullptr;
}

bool JobTreeModel::IsRecentGroup(wxDBTreeNode node) const
{
    return !m_Groups.empty() && node == m_Groups.front().node && m_Groups.front().key == kRecentKey;
}

std::vector<wxDBTreeNode> JobTreeModel::GroupsWith(const std::vector<int64_t>& jobs) const
{
    std::vector<wxDBTreeNode> nodes;
    for (const Group& group : m_Groups)
    {
        const auto& content = group.content.numbers;
        if (group.key != kRecentKey &&
            std::any_of(content.begin(), content.end(),
                        [&jobs](int64_t number)
                        { return std::binary_search(jobs.begin(), jobs.end(), number); }))
        {
            nodes.push_back(group.node);
        }
    }
    return nodes;
}

int64_t JobTreeModel::NumberOf(wxDBTreeNode node)
{
    return KindOf(node) == kJob ? node >> kKindBits : 0;
}

bool JobTreeModel::IsRecent(wxDBTreeNode node)
{
    return KindOf(node) == kRecentJob;
}

long long JobTreeModel::_ChildCount(wxDBTreeNode node)
{
    if (node == k_Root)
    {
        return static_cast<long long>(m_Groups.size() + m_Ungrouped.jobs.size());
    }
    const Group* const group = GroupOf(node);
    return group ? static_cast<long long>(group->content.jobs.size()) : 0;
}

wxDBTreeNode JobTreeModel::_Child(wxDBTreeNode node, long long index)
{
    auto at = static_cast<size_t>(index);
    if (node == k_Root && at < m_Groups.size())
    {
        return m_Groups[at].node;
    }
    const Group* const    group = node == k_Root ? nullptr : GroupOf(node);
    const JobGroup* const content = group ? &group->content : &m_Ungrouped;
    at -= node == k_Root ? m_Groups.size() : 0;
    if ((node != k_Root && !group) || at >= content->numbers.size())
    {
        return k_Root; // it has gone
    }
    const Kind kind = group && group->key == kRecentKey ? kRecentJob : kJob;
    return NodeOf(content->numbers[at], kind);
}

bool JobTreeModel::_MayHaveChildren(wxDBTreeNode node)
{
    return KindOf(node) == kGroup;
}

String JobTreeModel::_Text(wxDBTreeNode node, int column)
{
    const JobFacts* const job = JobOf(node);
    if (!job)
    {
        const Group* const group = GroupOf(node);
        return group && column == column_Name ? group->content.title : String();
    }
    switch (column)
    {
    case column_State:
        return job->state;
    case column_Progress:
        return SFormat("%d %%", job->progress);
    case column_Product:
        return job->product;
    case column_User:
        return job->user;
    default:
        return job->name;
    }
}

// Jobs are known by their numbers: a hundred thousand texts would take their time.
String JobTreeModel::_Key(wxDBTreeNode node)
{
    const Group* const group = KindOf(node) == kGroup ? GroupOf(node) : nullptr;
    return group ? group->key : String();
}

std::optional<double> JobTreeModel::_SortNumber(wxDBTreeNode node, int column)
{
    const JobFacts* const job = JobOf(node);
    return job && column == column_Progress ? std::optional<double>(job->progress)
           : job && column == column_State  ? std::optional<double>(RankOf(job->state))
                                            : std::nullopt;
}

bool JobTreeModel::_IsHeading(wxDBTreeNode node)
{
    return KindOf(node) == kGroup;
}

// Those that were picked last stand in their groups, too.
bool JobTreeModel::_IsCounted(wxDBTreeNode node)
{
    return KindOf(node) != kRecentJob;
}

bool JobTreeModel::_IsFirst(wxDBTreeNode node)
{
    return IsRecentGroup(node);
}
} // namespace jobwidgets
