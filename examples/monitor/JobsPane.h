#pragma once

#include "monitor/FarmJobs.h"
#include "monitor/JobRows.h"

#include "appearance/wxTolvanColors.h"

#include <functional>

class FilterBar;
class FrameList;
class FrameThumbnail;
class JobList;
class JobsView;
class wxDBListCtrl;
class wxtSplitterWindow;

/// The upper part of the main window: the list of jobs, and below it the frames of the one that is
/// selected, a picture, and the details of all that are.
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

    /// Remembers how columns, sash and grouping stand.
    void SaveLayout();
    void SetFocus() override; ///< Gives it to the list of jobs.
    void LoadAnew();          ///< Everything is asked for and drawn anew.

    JobGrouping GetGrouping() const;
    void        SetGrouping(JobGrouping grouping);
    bool        ShowsFramesInTree() const;
    void        ShowFramesInTree(bool show);

    /// @name What a menu does with the list that has the focus, or the jobs
    /// @{
    bool HasListFocus() const;
    void CopyRows();
    void SelectAllRows();
    void OpenFilter();
    /// @}

    /// Pixels in which the list would show all that is in it, and that many jobs.
    int  ListHeight(int jobs) const;
    bool IsSashRemembered() const;
    void SetListHeight(int height);

private:
    struct Filtered
    {
        wxWindow*     whole = nullptr; ///< With the bar above the list.
        wxDBListCtrl* list = nullptr;
        FilterBar*    bar = nullptr;
    };

    const Filtered* FindFocused() const;
    void            BuildList(FarmJobs& jobs);
    void            BuildLower(FarmJobs& jobs);
    void            SelectionChanged();
    void            ShowSelected();
    void            ShowPicture();

    Actions             m_Actions;
    wxtSplitterWindow*  m_Splitter;
    JobList*            m_List = nullptr;
    wxtPanel*           m_Lower = nullptr;
    FrameList*          m_Frames = nullptr;
    FrameThumbnail*     m_Picture = nullptr;
    JobsView*           m_Details = nullptr;
    Filtered            m_JobsPart;
    Filtered            m_FramesPart;
    std::vector<String> m_Selected;      ///< As told last.
    bool                m_IsDue = false; ///< The selection has changed and is still to be shown.
};
