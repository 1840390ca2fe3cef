#pragma once

#include "monitor/FarmFeed.h"

#include "shell/wxTolvanFrame.h"

#include <memory>

class wxStaticText;
class wxTextLineCtrl;

/// The monitor's main window: the state of the connection and the farm's log, live.
class MonitorFrame : public wxTolvanFrame
{
public:
    explicit MonitorFrame(std::shared_ptr<FarmFeed> feed);

    /// Shows the lines that wait in the feed.
    void TakeLines();
    /// The connection to the master has come or gone; what is known already changes nothing.
    void OnConnection(bool connected);
    /// Writes a line of the monitor's own into the farm's log.
    void ShowNotice(const String& text);

private:
    void BuildMenus();
    void BuildViews();
    void ShowSummary();
    void SetFollowing(bool follow);

    void OnFollow(wxCommandEvent& event);
    void OnFullScreen(wxCommandEvent& event);
    void OnAbout(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);

    std::shared_ptr<FarmFeed> m_Feed;
    wxtPanel*                 m_Header = nullptr;
    wxStaticText*             m_Connection = nullptr;
    wxStaticText*             m_Summary = nullptr;
    wxTextLineCtrl*           m_Log = nullptr;
    bool                      m_Connected = false;
    bool                      m_OutputSeen = false; ///< A job's output has been shown.
};
