#pragma once

#include "monitor/FarmJobs.h"

#include "jobwidgets/JobCommandMenu.h"

#include <functional>
#include <vector>

class wxWindow;
struct JobOffer;

/// What the user can do with some of the farm's jobs: what the program offers, and the commands of
/// their types, each on all of the jobs that can take it; where there are several it says on how
/// many. It follows the jobs' states, but never changes while it is open: whatever is chosen then
/// that no job takes any longer is refused with a reason. Its events are for the window to pass on
/// to `Run`.
class JobMenu : public JobCommandMenu, private HasSlots
{
public:
    /// What the program does; what is empty is not offered.
    struct Own
    {
        std::function<void(const std::vector<String>& ids)> open; ///< Shows their windows.
        std::function<void()>                               copy; ///< The rows of the list.
        std::function<void(const String& id)>               resubmit;
        bool removesFinished = false; ///< All of the farm.
    };

    /// `jobs` must outlive the menu. `window` is where questions and reasons are shown.
    JobMenu(FarmJobs& jobs, wxWindow& window, Own own);
    ~JobMenu() override;

    /// Is about the jobs with those identifiers; unknown ones are left out.
    void ShowJobs(const std::vector<String>& ids);
    /// Does what the id stands for; false if that is nothing of this menu's.
    bool Run(int id);

    void DoProcessCommand(const String& name, const String& item) override;
    void PostProcessCommand(const String& name, const String& item) override;

private:
    int  AddOwn(const wxString& label);
    void OnOpen(bool isOpen);
    int  FinishedCount() const;
    void RefreshOwn(const std::vector<const FarmJob*>& jobs);
    void OpenJobs();
    void ViewWhole(const std::vector<const FarmJob*>& jobs);
    void RemoveFinished();
    void Refresh();
    void AddOffer(const JobOffer& offer, const std::vector<const FarmJob*>& jobs);

    std::vector<const FarmJob*> KnownJobs() const;

    FarmJobs&           m_Jobs;
    wxWindow&           m_Window;
    Own                 m_Own;
    int                 m_OpenId = wxID_NONE;
    int                 m_CopyId = wxID_NONE;
    int                 m_ResubmitId = wxID_NONE;
    int                 m_ViewId;
    int                 m_RemoveId = wxID_NONE;
    std::vector<String> m_Ids;
    String              m_Shown; ///< What the menu shows depends on this.
    bool                m_IsOpen = false;
};
