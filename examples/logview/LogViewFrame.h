#pragma once

#include "shell/wxEndLater.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/Path.h"

#include <wx/timer.h>

class LogPage;
class wxAuiNotebook;
class wxStaticText;

/// The viewer's window: a page a file.
class LogViewFrame : public wxTolvanFrame
{
public:
    LogViewFrame();

    void OpenFile(const Path& file);

private:
    void     BuildMenus();
    void     BuildPages();
    void     BuildStatusLine(wxtPanel* parent);
    void     Colour();
    void     ShowStatus();
    LogPage* CurrentPage() const;

    void OnOpen(wxCommandEvent& event);
    void OnFollow(wxCommandEvent& event);
    void OnFullScreen(wxCommandEvent& event);
    void OnPreferences(wxCommandEvent& event);
    void OnAbout(wxCommandEvent& event);
    void OnTextCommand(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);

    wxAuiNotebook* m_Pages = nullptr;
    wxStaticText*  m_Status = nullptr;
    wxTimer        m_StatusTimer;
    wxEndLater     m_End{*this};
};
