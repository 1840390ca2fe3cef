#pragma once

#include "shell/wxTolvanFrame.h"
#include "vesta/Path.h"

#include <wx/timer.h>

class LogPage;
class wxAuiNotebook;

/// The viewer's window: a page a file.
class LogViewFrame : public wxTolvanFrame
{
public:
    LogViewFrame();

    void OpenFile(const Path& file);

private:
    void     BuildMenus();
    void     BuildPages();
    void     ColourTabs();
    void     ShowStatus();
    LogPage* CurrentPage() const;

    void OnOpen(wxCommandEvent& event);
    void OnFollow(wxCommandEvent& event);
    void OnFullScreen(wxCommandEvent& event);
    void OnTextCommand(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);

    wxAuiNotebook* m_Pages = nullptr;
    wxTimer        m_StatusTimer;
};
