#pragma once

#include "monitor/FarmJobs.h"

#include "shell/wxTimed.h"
#include "shell/wxTolvanFrame.h"

#include <functional>

class JobDetails;
class JobMenu;
class FollowingText;
class wxtSplitterWindow;
class wxtScrolledPane;
class wxtButton;

/// A job in a window of its own: its details and parameters above, its output below, its commands
/// in a menu. It stays when the job has gone, for what it shows.
class JobWindow : public wxTolvanFrame, private wxTimed, private HasSlots
{
public:
    /// Asks for another job like that one, in a dialog over the window.
    using Resubmit = std::function<void(const String& id, wxWindow* parent)>;

    /// `jobs` must outlive the window.
    JobWindow(FarmJobs& jobs, const FarmJob& job, const Resubmit& resubmit);
    ~JobWindow() override;

private:
    void BuildMenus(const Resubmit& resubmit);
    void BuildViews();
    void BuildDetails(wxtScrolledPane& pane);
    void BuildOutput(wxtPanel& pane);
    void ShowDetails(const FarmJob& job);
    void ShowOutput(const FarmJob& job);
    void ShowGone();

    void OnTick() override;
    void OnNews(const FarmJobs::News& news);
    void OnKill();
    void OnCommand(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);

    FarmJobs&                            m_Jobs;
    String                               m_Id;
    boost::shared_ptr<const JobTypeInfo> m_Type; ///< Null when it is not known.
    long long          m_Shown = 0; ///< Number of the first line of output that is not shown yet.
    bool               m_IsGone = false;
    wxtSplitterWindow* m_Splitter = nullptr;
    wxtScrolledPane*   m_DetailsPane = nullptr;
    JobDetails*        m_Details = nullptr;
    JobDetails*        m_Parameters = nullptr;
    wxtButton*         m_Kill = nullptr;
    JobMenu*           m_Menu = nullptr; ///< Of the menu bar.
    FollowingText*     m_Output = nullptr;
};
