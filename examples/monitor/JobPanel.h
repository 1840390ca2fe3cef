#pragma once

#include "monitor/FarmJob.h"

#include "appearance/wxExpandablePanel.h"

#include <functional>

class FarmJobs;
class JobDetails;
class wxtButton;

/// One job in the main window: a caption that says how it stands and, when it is open, its details.
/// They are made when it is first opened: most panels stay closed.
class JobPanel : public wxExpandablePanel
{
public:
    using OpenJob = std::function<void(const String& id)>;

    /// `jobs` must outlive the panel. `open` opens the job's own window.
    JobPanel(wxWindow* parent, const FarmJobs& jobs, const FarmJob& job, OpenJob open);

    /// Brings it up to date. Whether it may need another height now.
    bool ShowJob(const FarmJob& job);

private:
    void ShowCaption(const FarmJob& job);
    bool ShowDetails(const FarmJob& job);
    void BuildContent();
    void OnToggle(wxCommandEvent& event);
    void OnOpen(wxCommandEvent& event);
    void OnKill(wxCommandEvent& event);

    const FarmJobs& m_Jobs;
    String          m_Id;
    OpenJob         m_Open;
    String          m_ShownCaption;
    JobDetails*     m_Details = nullptr; ///< Null until the panel is first opened.
    wxtButton*      m_Kill = nullptr;
};
