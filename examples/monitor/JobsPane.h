#pragma once

#include "monitor/FarmJobs.h"

#include "appearance/wxTolvanColors.h"

#include <functional>

class FrameList;
class JobList;
class JobsView;
class wxtSplitterWindow;

/// The upper part of the main window: the list of jobs, and below it the frames and the details of
/// those that are selected.
class JobsPane : public wxtPanel
{
public:
    /// What the window does with jobs.
    struct Actions
    {
        std::function<void(const String& id)> open; ///< Opens the job's own window.
        /// Other jobs are selected.
        std::function<void(const std::vector<String>& ids)> selected;
        /// The user wants the menu of those jobs; the place is in screen coordinates.
        std::function<void(const std::vector<String>& ids, const wxPoint& where)> showMenu;
    };

    /// `jobs` must outlive the pane.
    JobsPane(wxWindow* parent, FarmJobs& jobs, Actions actions);

    /// Remembers the widths of the columns and the place of the sash.
    void SaveLayout();
    void SetFocus() override; ///< Gives it to the list of jobs.
    void CopyRows();          ///< The selected ones of that list.

private:
    void BuildLower(wxtSplitterWindow& splitter, FarmJobs& jobs);
    void ShowSelected();

    Actions            m_Actions;
    wxtSplitterWindow* m_Splitter;
    JobList*           m_List;
    wxtPanel*          m_Lower = nullptr;
    FrameList*         m_Frames = nullptr;
    JobsView*          m_Details = nullptr;
    bool               m_IsDue = false; ///< The selection has changed and is still to be shown.
};
