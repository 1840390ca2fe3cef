#pragma once

#include "monitor/FarmJobs.h"

#include "jobwidgets/JobCommandMenu.h"

class wxWindow;

/// What the user can do with one of the farm's jobs: open its window, and the commands of its type.
/// It follows the job's state, but never changes while it is open: whatever is chosen then that the
/// job no longer takes is refused with a reason. Its events are for the window to pass on to
/// `TryCommand`.
class JobMenu : public JobCommandMenu, private HasSlots
{
public:
    /// `jobs` must outlive the menu. `window` is where questions and reasons are shown.
    JobMenu(FarmJobs& jobs, wxWindow& window);
    ~JobMenu() override;

    /// Shows the job with that identifier; one that is empty or unknown shows none.
    void          ShowJob(const String& id);
    const String& JobId() const { return m_Id; }

    void DoProcessCommand(const String& name, const String& item) override;
    void PostProcessCommand(const String& name, const String& item) override;

private:
    void OnOpen(bool isOpen);
    void Refresh();

    FarmJobs& m_Jobs;
    wxWindow& m_Window;
    String    m_Id;
    String    m_Shown; ///< The job's identifier, state and name as the menu shows them.
    bool      m_IsOpen = false;
};
