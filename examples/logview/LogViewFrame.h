#pragma once

#include "shell/wxEndLater.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/Path.h"

#include <wx/timer.h>

class LogPage;
class wxtNotebook;
class wxtStaticText;

/// The viewer's window: a page a file, which may be dragged into a window of its own.
class LogViewFrame : public wxTolvanFrame
{
public:
    LogViewFrame();

    void OpenFiles(const std::vector<Path>& files); ///< The last one is shown.
    /// Puts the pages where they were when the viewer was closed with them.
    void RestoreLayout();

private:
    void     BuildMenus();
    void     BuildPages();
    void     BuildStatusLine(wxtPanel* parent);
    void     ShowStatus();
    LogPage* CurrentPage() const;

    void OnOpen(wxCommandEvent& event);
    void OnFollow(wxCommandEvent& event);
    void OnFullScreen(wxCommandEvent& event);
    void OnPreferences(wxCommandEvent& event);
    void OnAbout(wxCommandEvent& event);
    void OnTextCommand(wxCommandEvent& event);
    void OnClose(wxCloseEvent& event);

    wxtNotebook*   m_Pages = nullptr;
    wxtStaticText* m_Status = nullptr;
    wxTimer        m_StatusTimer;
    wxEndLater     m_End{*this};
};
