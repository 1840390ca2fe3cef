#pragma once

#include "monitor/FarmJobs.h"

#include "jobwidgets/JobCommandMenu.h"

#include <vector>

class wxWindow;
struct JobOffer;

/// What the user can do with some of the farm's jobs: open their windows, and the commands of their
/// types, each on all of the jobs that can take it; where there are several it says on how many. It
/// follows the jobs' states, but never changes while it is open: whatever is chosen then that no
/// job takes any longer is refused with a reason. Its events are for the window to pass on to
/// `TryCommand`.
class JobMenu : public JobCommandMenu, private HasSlots
{
public:
    /// `jobs` must outlive the menu. `window` is where questions and reasons are shown.
    JobMenu(FarmJobs& jobs, wxWindow& window);
    ~JobMenu() override;

    /// Is about the jobs with those identifiers; unknown ones are left out.
    void ShowJobs(const std::vector<String>& ids);
    /// Those whose windows are to be opened; not more than is sensible.
    std::vector<String> JobsToOpen() const;

    void DoProcessCommand(const String& name, const String& item) override;
    void PostProcessCommand(const String& name, const String& item) override;

private:
    void OnOpen(bool isOpen);
    void Refresh();
    void AddOffer(const JobOffer& offer, const std::vector<const FarmJob*>& jobs);

    std::vector<const FarmJob*> KnownJobs() const;

    FarmJobs&           m_Jobs;
    wxWindow&           m_Window;
    std::vector<String> m_Ids;
    String              m_Shown; ///< What the menu shows depends on this.
    bool                m_IsOpen = false;
};
