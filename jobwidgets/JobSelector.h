#pragma once

#include "appearance/wxtColorManaged.h"
#include "jobwidgets/JobGrouping.h"
#include "jobwidgets/JobSet.h"
#include "vesta/Export.h"
#include "vesta/UID.h"

#include <wx/event.h>
#include <wx/timer.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace jobwidgets
{
class ClosedGroups;
class JobTree;
class JobTreeModel;
class RecentJobs;
} // namespace jobwidgets
class wxListEvent;
class wxtChoice;
class wxtSearchField;
class wxtStaticText;

/// Other jobs are selected than before (`wxCommandEvent`): by the user, by `SetSelection`, or
/// because one has gone. It comes a moment later, once for all that has changed until then.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxtEVT_JOB_SELECTION, wxCommandEvent);
/// The user has picked what is selected, by Enter or a double click (`wxCommandEvent`).
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxtEVT_JOBS_PICKED, wxCommandEvent);

/// A control to select jobs in: a tree of all jobs of a set, by user, product or state or in no
/// groups, as the user likes, with those that were picked last before them, and a field for words
/// that filters them (see `wxListArranger`). It follows the set as it changes; a job stays selected
/// wherever it goes in the tree.
///
/// Enter and a double click on a job pick all that is selected; on a group they open or close it.
/// In the field Esc clears it, Down and Enter lead to the first job, and Enter picks if there is
/// something selected. Grouping, open groups, columns, order and the jobs that were picked last are
/// kept in the options file. Main thread.
class TOLVAN_API JobSelector : public wxtPanel, public HasSlots
{
public:
    using Grouping = jobwidgets::JobGrouping;

    /// Section of the options file with what is remembered.
    static const String k_Section;

    /// The set has to live as long as the control. `singleSelection`: one job at most is selected.
    JobSelector(wxWindow* parent, int id, JobSet& jobs, bool singleSelection);
    ~JobSelector() override;

    /// The selected jobs that are in the set, in the order of the rows, each once.
    std::vector<UID> GetSelection() const;
    /// Selects these and no others, shows them, and sends `wxtEVT_JOB_SELECTION`. Those that are
    /// not in the set are left out; a filter that hides one is cleared. Of several for a control
    /// with a single selection, the first one counts.
    void SetSelection(const std::vector<UID>& jobs);

    Grouping GetGrouping() const { return m_Grouping; }
    void     SetGrouping(Grouping grouping); ///< What is selected stays selected.
    /// Puts what is selected on top of the jobs that were picked last, as Enter does: for a host
    /// with a button.
    void RememberPicked();

    void SetFocus() override; ///< Gives it to the field.

    wxtSearchField* GetField() const { return m_Field; }

private:
    void BuildControls(bool singleSelection);
    void BindControls();

    /// @name Jobs
    /// @{
    void OnJobs(JobSet::Change change);
    void OnTimer(wxTimerEvent& event);
    void TakeJobs();
    void ShowGrouping();
    void KeepClosedGroups();
    void OnArranged(wxCommandEvent& event);
    /// @}

    /// @name Selection
    /// @{
    using Jobs = std::vector<JobSet::Facts>;

    void VisitSelected(const std::function<void(const JobSet::Facts&)>& visit) const;
    void VisitInTree(const std::function<void(const JobSet::Facts&)>& visit) const;
    Jobs SelectedJobs() const;
    void GoOnSelecting();
    void SelectWanted();
    int  SelectRowsOf(const std::vector<int64_t>& jobs);
    void OnSelect(wxListEvent& event);
    void SelectionChanged();
    void TellSelection();
    void Tell(wxEventType type);
    void ShowNote(size_t selected);
    /// @}

    /// @name Input
    /// @{
    void SelectRow(int row);
    void Activate(int row);
    void OnKey(wxKeyEvent& event);
    void EnterTree();
    void Pick();
    /// @}

    JobSet&                                   m_Jobs;
    const bool                                m_IsSingle;
    std::unique_ptr<jobwidgets::JobTreeModel> m_Model;
    std::unique_ptr<jobwidgets::RecentJobs>   m_Recent;
    std::unique_ptr<jobwidgets::ClosedGroups> m_Closed;
    Grouping                                  m_Grouping = Grouping::kUser;
    wxtSearchField*                           m_Field = nullptr;
    wxtChoice*                                m_Choice = nullptr;
    jobwidgets::JobTree*                      m_Tree = nullptr;
    wxtStaticText*                            m_Note = nullptr;
    int     m_Gather;              ///< Milliseconds in which changes are gathered.
    wxTimer m_Timer;               ///< Until changes are shown.
    bool    m_IsOld = false;       ///< Jobs have come, gone or moved.
    bool    m_IsFresh = false;     ///< Another grouping, whose groups are to be opened.
    bool    m_IsToBeShown = false; ///< What is wanted, even where a filter hides it.
    bool    m_IsToBeTold = false;  ///< That another selection is there.
    std::vector<std::pair<int64_t, UID>> m_Told;   ///< Selected when it was told last; sorted.
    std::optional<Jobs>                  m_Wanted; ///< To be selected when the tree is made.
};
