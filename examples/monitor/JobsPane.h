#pragma once

#include "monitor/FarmJobs.h"

#include "appearance/wxTolvanColors.h"

#include <functional>

class FrameList;
class JobList;
class JobsView;
class PaneSplitter;

/// The upper part of the main window: the list of jobs, and below it the frames and the details of
/// those that are selected.
class JobsPane : public wxtPanel
{
public:
    /// `jobs` must outlive the pane. `open` opens a job's own window.
    JobsPane(wxWindow* parent, FarmJobs& jobs, std::function<void(const String& id)> open);

    /// Remembers the widths of the columns and the place of the sash.
    void SaveLayout();
    void SetFocus() override; ///< Gives it to the list of jobs.

private:
    void BuildLower(PaneSplitter& splitter, FarmJobs& jobs,
                    std::function<void(const String& id)> open);
    void ShowSelected();

    PaneSplitter* m_Splitter;
    JobList*      m_List;
    wxtPanel*     m_Lower = nullptr;
    FrameList*    m_Frames = nullptr;
    JobsView*     m_Details = nullptr;
    bool          m_IsDue = false; ///< The selection has changed and is still to be shown.
};
