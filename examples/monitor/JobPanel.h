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

    const String& GetJob() const { return m_Id; } ///< Its identifier.
    /// Whether it may show another job in place of its own, which costs far less than another
    /// panel: nothing of it was ever opened, and nobody is about to do something to it.
    bool IsSpare() const;
    /// Shows that one from now on. False, and nothing is done, when the user has left that job's
    /// panel open; only of a spare one.
    bool Become(const FarmJob& job);

private:
    void ShowCaption(const FarmJob& job);
    void FitCaption();
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
