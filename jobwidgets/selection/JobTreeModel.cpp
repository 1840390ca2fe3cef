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
    m_Groups.clear();
    m_Ungrouped = {};
    const Nodes before = std::exchange(m_Nodes, {});
    JobGroup    picked;
    for (const UID& id : recent)
    {
        if (const JobSet::Facts job = jobs.Find(id))
        {
            picked.jobs.push_back(job.get());
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

const JobFacts* JobTreeModel::JobOf(wxDBTreeNode node) const
{
    if (node == k_Root || KindOf(node) == kGroup)
    {
        return nullptr;
    }
    const int64_t number = node >> kKindBits;
    const auto    found = std::lower_bound(m_Jobs.begin(), m_Jobs.end(), number,
                                           [](const JobSet::Facts& job, int64_t wanted)
                                           { return job->number < wanted; });
    return found != m_Jobs.end() && (*found)->number == number ? found->get() : nullptr;
}

size_t JobTreeModel::CountIn(wxDBTreeNode node) const
{
    const Group* const group = GroupOf(node);
    return group ? group->content.jobs.size() : 0;
}

bool JobTreeModel::IsRecentGroup(wxDBTreeNode node) const
{
    return !m_Groups.empty() && node == m_Groups.front().node && m_Groups.front().key == kRecentKey;
}

std::vector<wxDBTreeNode> JobTreeModel::GroupsWith(const std::vector<UID>& jobs) const
{
    std::vector<wxDBTreeNode> nodes;
    for (const Group& group : m_Groups)
    {
        const auto& content = group.content.jobs;
        if (group.key != kRecentKey &&
            std::any_of(content.begin(), content.end(),
                        [&jobs](const JobFacts* job)
                        { return std::binary_search(jobs.begin(), jobs.end(), job->id); }))
        {
            nodes.push_back(group.node);
        }
    }
    return nodes;
}

bool JobTreeModel::IsRecent(wxDBTreeNode node)
{
    return KindOf(node) == kRecentJob;
}

long long JobTreeModel::_ChildCount(wxDBTreeNode node)
{
    return static_cast<long long>(node == k_Root ? m_Groups.size() + m_Ungrouped.jobs.size()
                                                 : CountIn(node));
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
    if ((node != k_Root && !group) || at >= content->jobs.size())
    {
        return k_Root; // it has gone
    }
    const Kind kind = group && group->key == kRecentKey ? kRecentJob : kJob;
    return NodeOf(content->jobs[at]->number, kind);
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

String JobTreeModel::_Key(wxDBTreeNode node)
{
    if (const JobFacts* const job = JobOf(node))
    {
        return job->id.ToString();
    }
    const Group* const group = GroupOf(node);
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

bool JobTreeModel::_IsFirst(wxDBTreeNode node)
{
    return IsRecentGroup(node);
}
} // namespace jobwidgets
