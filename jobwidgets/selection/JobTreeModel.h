#pragma once

#include "jobwidgets/selection/JobGroups.h"
#include "listviews/wxDBTreeModel.h"

#include <map>

namespace jobwidgets
{
enum JobTreeColumn
{
    column_Name,
    column_State,
    column_Progress,
    column_Product,
    column_User
};

/// Jobs in their groups, with those that were picked lately before them. A job of these has two
/// nodes, there and in its group. Without a window.
class JobTreeModel : public wxDBTreeModel
{
public:
    /// Takes the jobs as they are. What it says of them goes on with them; which ones there are,
    /// and in which group, only with the next call.
    void Show(const JobSet& jobs, JobGrouping grouping, const std::vector<UID>& recent);

    const JobFacts* JobOf(wxDBTreeNode node) const; ///< Null for a group, and for none.
    /// The same, to be kept; until the next `Show`.
    const JobSet::Facts* FactsOf(wxDBTreeNode node) const;
    /// The groups in which these jobs are: their numbers, in ascending order.
    std::vector<wxDBTreeNode> GroupsWith(const std::vector<int64_t>& jobs) const;
    /// The number of a job; of a group, and of one of those picked lately, 0.
    static int64_t NumberOf(wxDBTreeNode node);
    static bool    IsRecent(wxDBTreeNode node); ///< A job as one of those picked lately.

    long long             _ChildCount(wxDBTreeNode node) override;
    wxDBTreeNode          _Child(wxDBTreeNode node, long long index) override;
    bool                  _MayHaveChildren(wxDBTreeNode node) override;
    String                _Text(wxDBTreeNode node, int column) override;
    String                _Key(wxDBTreeNode node) override;
    std::optional<double> _SortNumber(wxDBTreeNode node, int column) override;
    bool                  _IsHeading(wxDBTreeNode node) override;
    bool                  _IsCounted(wxDBTreeNode node) override;
    bool                  _IsFirst(wxDBTreeNode node) override;

private:
    struct Group
    {
        wxDBTreeNode node = k_Root;
        String       key;
        JobGroup     content;
    };

    using Nodes = std::map<String, wxDBTreeNode>;

    bool         IsRecentGroup(wxDBTreeNode node) const;
    size_t       PlaceOf(wxDBTreeNode node) const;
    void         Add(const String& key, JobGroup content, const Nodes& before);
    const Group* GroupOf(wxDBTreeNode node) const;

    std::vector<JobSet::Facts> m_Jobs; ///< In the order of their numbers.
    std::vector<int64_t>       m_Numbers;
    std::vector<Group>         m_Groups;
    JobGroup                   m_Ungrouped; ///< Those that are in no group.
    Nodes                      m_Nodes;     ///< Of the groups, by their keys.
    int64_t                    m_LastGroup = 0;
};
} // namespace jobwidgets
