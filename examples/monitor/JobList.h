#pragma once

#include "monitor/FarmJobs.h"
#include "monitor/FrameMenu.h"
#include "monitor/JobOrder.h"
#include "monitor/JobTreeModel.h"

#include "jobwidgets/ClosedGroups.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "shell/wxTimed.h"

#include <functional>
#include <optional>
#include <unordered_map>

class wxListEvent;

/// The farm's jobs as a list, live: order, selection, anchor and scroll position stay with the jobs
/// however fast the news come, also when a job moves to another group. A click on a title sorts,
/// with Shift by one more column. It remembers how its columns are arranged, what it is sorted and
/// grouped by, and which groups are closed.
class JobList : public wxDBTreeListCtrl, private wxTimed, private HasSlots
{
public:
    /// What the user does with jobs.
    struct Actions
    {
        std::function<void(const String& id)> open;
        std::function<void()>                 selectionChanged;
        /// Shows the menu of those jobs; the place is in screen coordinates.
        std::function<void(const std::vector<String>& ids, const wxPoint& where)> showMenu;
    };

    /// `jobs` must outlive the list.
    JobList(wxWindow* parent, FarmJobs& jobs, Actions actions);
    ~JobList() override;

    /// Not to be relied on while the rows are being arranged (`IsArranging`); `selectionChanged`
    /// comes afterwards in any case.
    /// @{
    /// Identifiers of the selected jobs, as the list shows them; a group stands for those that it
    /// shows, a frame for its job.
    std::vector<String>  SelectedJobs();
    std::vector<FrameId> SelectedFrames();
    /// @}
    void SaveLayout();
    void LoadAnew(); ///< Everything is asked for and drawn anew.

    JobGrouping GetGrouping() const { return m_Grouping; }
    void        SetGrouping(JobGrouping grouping);
    bool        ShowsFrames() const { return m_ShowsFrames; }
    void        ShowFrames(bool show);

    String GetDisplayText(int row, int column) override;
    void   DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;
    int    GetCellWidth(wxDC& dc, int row, int column) override;

private:
    /// What has to come back when the rows are arranged in another way.
    struct Kept
    {
        std::vector<wxDBTreeNode> path;
        bool                      isSelected = false;
        bool                      isOpen = false;
        bool                      isAnchor = false;
        bool                      isFocus = false;
    };

    void RestoreLayout();
    void OnTick() override;
    void Arrange();
    void ArrangeAs(JobGrouping grouping, bool showsFrames);
    void ArrangeRows();
    void DrawProgress(wxDC& dc, wxDBTreeNode node, const wxRect& rect);

    /// @name Groups and what moves between them
    /// @{
    void                                  Keep();
    void                                  NoteClosed();
    void                                  OnArranged();
    void                                  BringBack();
    void                                  OpenAgain(const std::vector<Kept>& moved);
    std::unordered_map<wxDBTreeNode, int> RowsByNode();
    std::vector<wxDBTreeNode>             ShownIn(int groupRow);
    /// @}

    void SortBy(JobOrder order);
    void OnActivate(wxListEvent& event);
    void OnTitle(wxListEvent& event);
    void ShowMenu(const wxPoint& where);

    FarmJobs&                m_Jobs;
    Actions                  m_Actions;
    JobTreeModel             m_Model;
    JobOrder                 m_Order;
    JobGrouping              m_Grouping = JobGrouping::kNone;
    std::vector<Kept>        m_Kept;
    jobwidgets::ClosedGroups m_Closed;
    bool                     m_ShowsFrames = false;
    bool m_IsOutdated = false; ///< The rows that are shown are older than the model.
    bool m_IsOldDue = false;   ///< So are those that are shown next.
    bool m_IsStale = true;
    bool m_IsListStale = true;
    std::optional<wxPoint> m_MenuDue; ///< Where the menu is to be shown once rows are arranged.
};
