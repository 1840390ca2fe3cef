#pragma once

#include "monitor/FarmJobs.h"
#include "monitor/JobTable.h"

#include "listviews/wxDBListCtrl.h"
#include "shell/wxTimed.h"

#include <functional>
#include <set>

class wxListEvent;

/// The farm's jobs as a list, live: order, selection, anchor and scroll position stay with the jobs
/// however fast the news come. A click on a title sorts. It remembers how its columns are
/// arranged and what it is sorted by.
class JobList : public wxDBListCtrl, private wxTimed, private HasSlots
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

    /// Identifiers of the selected jobs, as the list shows them.
    std::vector<String> SelectedJobs() const;
    void                SaveLayout();

    bool             IsRowSelected(int row) override;
    std::vector<int> GetSelection() override;
    String           GetDisplayText(int row, int column) override;
    void             DrawCell(wxDC& dc, int row, int column, wxRect rect, bool selected) override;

private:
    void AddColumns();
    void OnTick() override;
    void Refill();
    void ShowSort();
    void DrawProgress(wxDC& dc, const FarmJob& job, const wxRect& rect);

    void OnSelect(wxListEvent& event, bool selected);
    void OnActivate(wxListEvent& event);
    void OnTitleRelease(wxMouseEvent& event);
    void OnTitle(wxListEvent& event);

    FarmJobs&        m_Jobs;
    Actions          m_Actions;
    JobTable         m_Table;
    std::set<String> m_Selected;                  ///< Identifiers.
    Time             m_Now;                       ///< At the last refill or painting.
    bool             m_IsReleasedOutside = false; ///< A title, with the mouse.
    bool             m_IsStale = true;
    bool             m_IsListStale = true;
};
