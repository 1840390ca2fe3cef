#pragma once

#include "monitor/FarmJobs.h"
#include "monitor/JobPanel.h"

#include "appearance/wxTolvanColors.h"
#include "shell/wxTimed.h"

#include <wx/timer.h>

#include <chrono>
#include <map>
#include <set>

class wxtScrolledPane;
class wxtStaticText;

/// Jobs in detail, one expandable panel each, the latest first: those that are chosen, or all of
/// the farm when none is. Of very many only some are shown, and it says so. However fast the news
/// come, it shows them four times a second.
class JobsView : public wxtPanel, private wxTimed, private HasSlots
{
public:
    static constexpr size_t k_MostPanels = 50;

    /// `jobs` must outlive the view. `open` opens a job's own window.
    JobsView(wxWindow* parent, FarmJobs& jobs, JobPanel::OpenJob open);
    ~JobsView() override;

    /// Shows these jobs only; all when there are none.
    void ShowOnly(std::vector<String> ids);

    void SetFocus() override;

private:
    void                   OnTick() override;
    void                   BringUpToDate();
    void                   OnNews(const FarmJobs::News& news);
    void                   RefreshList();
    std::vector<JobPanel*> TakeLeaving(const std::vector<const FarmJob*>& shown);
    bool      AddMissing(const std::vector<const FarmJob*>& shown, std::vector<JobPanel*>& leaving);
    JobPanel* TakeSpare(const FarmJob& job, std::vector<JobPanel*>& leaving);
    void      DropPanels(const std::vector<JobPanel*>& leaving);
    void      ArrangePanels();
    void      KeepSpare(std::vector<JobPanel*>& leaving);
    void      ShowNote(size_t shown, size_t all);

    const std::vector<const FarmJob*>& Candidates();

    FarmJobs&                             m_Jobs;
    JobPanel::OpenJob                     m_Open;
    wxtStaticText*                        m_Note = nullptr;
    wxtScrolledPane*                      m_Pane = nullptr;
    std::map<String, JobPanel*>           m_Panels;             ///< By the job's identifier.
    std::vector<String>                   m_Only;               ///< Identifiers; empty: all jobs.
    std::vector<const FarmJob*>           m_OnlyJobs;           ///< Those of them that are there.
    bool                                  m_IsOnlyKnown = true; ///< They are up to date.
    bool                                  m_IsListStale = true;
    std::set<String>                      m_Stale; ///< Identifiers of jobs that have changed.
    wxTimer                               m_More;  ///< Until panels show what they do not show yet.
    std::chrono::steady_clock::time_point m_End;   ///< Of the slice that they are made in.
};
