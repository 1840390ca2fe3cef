#pragma once

#include "monitor/EndNotices.h"
#include "monitor/FarmFeed.h"
#include "monitor/FarmJobs.h"
#include "monitor/JobMenu.h"
#include "monitor/JobWindows.h"

#include "shell/wxEndLater.h"
#include "shell/wxTolvanFrame.h"

#include <functional>
#include <memory>

class FarmHeader;
class JobsPane;
class FollowingText;
class wxtSplitterWindow;

/// The monitor's main window: how the farm stands, its jobs and its log, live.
class MonitorFrame : public wxTolvanFrame
{
public:
    /// What the window needs of the program.
    struct Program
    {
        std::shared_ptr<FarmFeed> feed;
        FarmJobs&                 jobs; ///< Outlives the window and those of single jobs.
        Job::Sender               send; ///< To the master.
        /// The farm or the system wants the program to end: nobody is to be asked.
        std::function<bool()> isToldToEnd;
    };

    explicit MonitorFrame(const Program& program);

    /// Shows what waits in the feed.
    void TakeNews();
    /// The connection to the master has come or gone; what is known already changes nothing.
    void OnConnection(bool connected);
    /// Writes a line of the monitor's own into the farm's log.
    void ShowNotice(const String& text);

private:
    void      BindCommands();
    void      BindListCommands();
    void      BuildViews();
    wxWindow* BuildLog(wxWindow* parent);
    bool      MayQuit();

    JobMenu::Own OwnCommands(bool isPopUp);

    void ShareHeights();
    void ShowJobMenu(const std::vector<String>& ids, const wxPoint& where);
    void OnTextCommand(wxCommandEvent& event);
    void OnReadingKey(wxKeyEvent& event);
    void OnJobCommand(wxCommandEvent& event);
    void OnSubmit();
    void Resubmit(const String& id, wxWindow* parent);
    void OnPreferences();
    void OnAbout();
    void OnClose(wxCloseEvent& event);

    Program                  m_Program;
    JobWindows               m_Windows;
    EndNotices               m_Notices;
    JobMenu*                 m_JobMenu; ///< Of the menu bar; for the selected jobs.
    std::unique_ptr<JobMenu> m_PopUp;   ///< For the jobs that were clicked.
    FarmHeader*              m_Header = nullptr;
    wxtSplitterWindow*       m_Splitter = nullptr;
    JobsPane*                m_Jobs = nullptr;
    FollowingText*           m_Log = nullptr;
    bool                     m_Connected = false;
    bool                     m_SharesHeights = true; ///< Until there are jobs to share them by.
    bool                     m_OutputSeen = false;   ///< A job's output has been shown.
    wxEndLater               m_End{*this};
    bool                     m_Asking = false; ///< The user is being asked whether to quit.
};
