#include "monitor/JobList.h"

#include "listviews/wxDBListBody.h"

#include <wx/listbase.h>

#include <algorithm>
#include <set>
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
    std::vector<String> ids;
    std::set<String>    known;
    const auto          add = [&](const FarmJob* job)
    {
        if (job && known.insert(job->id).second)
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
    if (!m_Kept.empty() || IsArranging())
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

void JobList::BringBack()
{
    for (const Kept& kept : std::exchange(m_Kept, {}))
    {
        const std::vector<wxDBTreeNode> path = m_Model.rows.PathTo(kept.path.back());
        const int row = path.empty() || path == kept.path || IsArranging() ? -1 : RowOf(path);
        if (row < 0)
        {
            continue; // it is where it was, or out of sight
        }
        if (kept.isSelected && !IsRowSelected(row))
        {
            GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
        }
        if (kept.isOpen)
        {
            Open(row);
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
