#include "monitor/JobList.h"

#include "listviews/wxDBListBody.h"

#include <wx/listbase.h>

#include <algorithm>
#include <functional>
#include <set>
#include <unordered_set>
#include <utility>

// The nodes of the rows below the group's.
std::vector<wxDBTreeNode> JobList::ShownIn(int groupRow)
{
    std::vector<wxDBTreeNode> nodes;
    const int                 level = GetLevel(groupRow);
    for (int row = groupRow + 1; row < GetItemCount() && GetLevel(row) > level; ++row)
    {
        nodes.push_back(NodeAt(row));
    }
    return nodes;
}

std::vector<String> JobList::SelectedJobs()
{
    std::vector<String>                ids;
    std::unordered_set<const FarmJob*> known;
    const auto                         add = [&](const FarmJob* job)
    {
        if (job && known.insert(job).second)
        {
            ids.push_back(job->id);
        }
    };
    for (const int row : GetSelection())
    {
        const JobRows::Group* const group = m_Model.rows.FindGroup(NodeAt(row));
        if (group && IsFiltered())
        {
            // Nothing must happen to what is not shown.
            for (const wxDBTreeNode node : ShownIn(row))
            {
                add(m_Model.rows.FrameAt(node).job);
            }
        }
        else if (group)
        {
            std::for_each(group->jobs.begin(), group->jobs.end(), add);
        }
        else
        {
            add(m_Model.rows.FrameAt(NodeAt(row)).job);
        }
    }
    return ids;
}

std::vector<FrameId> JobList::SelectedFrames()
{
    std::vector<FrameId> frames;
    for (const wxDBTreeNode node : GetSelectedNodes())
    {
        const JobRows::Frame frame = m_Model.rows.FrameAt(node);
        if (frame.job && frame.number > 0)
        {
            frames.push_back({frame.job->id, frame.number});
        }
    }
    return frames;
}

// Notes what the user has made of the rows, before jobs come to stand elsewhere.
void JobList::Keep()
{
    if (!m_Kept.empty() || m_IsOutdated)
    {
        return; // the rows that are shown are older than the model already
    }
    std::vector<int> rows = GetSelection();
    for (const int row : {GetLastSelect(), GetFocusRow()})
    {
        if (row >= 0 && row < GetItemCount())
        {
            rows.push_back(row);
        }
    }
    for (const int row : rows)
    {
        Kept kept{m_Model.rows.PathTo(NodeAt(row))};
        if (!kept.path.empty())
        {
            kept.isSelected = IsRowSelected(row);
            kept.isOpen = IsOpen(row);
            kept.isAnchor = row == GetLastSelect();
            kept.isFocus = row == GetFocusRow();
            m_Kept.push_back(std::move(kept));
        }
    }
}

// The row of each node that is shown.
std::unordered_map<wxDBTreeNode, int> JobList::RowsByNode()
{
    std::unordered_map<wxDBTreeNode, int> rows;
    for (int row = 0; row < GetItemCount(); ++row)
    {
        rows.emplace(NodeAt(row), row);
    }
    return rows;
}

void JobList::NoteClosed()
{
    if (!m_IsOutdated)
    {
        m_Closed.Note(*this);
    }
}

// The rows that have been made stand for what the model has, unless they were made before it got
// that: others follow them then.
void JobList::OnArranged()
{
    const bool isOld = std::exchange(m_IsOldDue, false) && IsArranging();
    m_IsOutdated = m_IsOutdated && isOld;
    if (!m_IsOutdated)
    {
        m_Closed.OpenNew(*this);
        BringBack();
    }
}

void JobList::BringBack()
{
    std::vector<Kept> moved = std::exchange(m_Kept, {});
    const auto        isInPlace = [this](const Kept& kept)
    {
        const std::vector<wxDBTreeNode> path = m_Model.rows.PathTo(kept.path.back());
        return path.empty() || path == kept.path;
    };
    moved.erase(std::remove_if(moved.begin(), moved.end(), isInPlace), moved.end());
    if (moved.empty())
    {
        return;
    }
    OpenAgain(moved);
    const std::unordered_map<wxDBTreeNode, int> rows = RowsByNode();
    for (const Kept& kept : moved)
    {
        const auto found = rows.find(kept.path.back());
        if (found == rows.end())
        {
            continue; // out of sight
        }
        const int row = found->second;
        if (kept.isSelected && !IsRowSelected(row))
        {
            GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
        }
        if (kept.isAnchor)
        {
            SetLastSelect(row);
        }
        if (kept.isFocus)
        {
            SetFocusRow(row);
        }
    }
}

// From below: the rows above stay where they are.
void JobList::OpenAgain(const std::vector<Kept>& moved)
{
    const std::unordered_map<wxDBTreeNode, int> rows = RowsByNode();
    std::set<int, std::greater<>>               due;
    for (const Kept& kept : moved)
    {
        const auto found = kept.isOpen ? rows.find(kept.path.back()) : rows.end();
        if (found != rows.end())
        {
            due.insert(found->second);
        }
    }
    for (const int row : due)
    {
        Open(row);
    }
}
