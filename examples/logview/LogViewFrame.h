#pragma once

#include "logview/OpenedFiles.h"
#include "shell/wxEndLater.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/Path.h"

#include <wx/timer.h>

#include <vector>

class EndRequest;
class LogPage;
class wxtNotebook;
class wxtStaticText;

/// The viewer's window: a page a file, which may be dragged into a window of its own.
class LogViewFrame : public wxTolvanFrame
{
public:
    /// `end` must outlive it.
    explicit LogViewFrame(const EndRequest& end);

    /// A page each, and for a folder one for each log file in it; the last one is shown. A file
    /// that has a page already gets no second one.
    void OpenFiles(const std::vector<Path>& names);
    /// One page for all of them, in the order of their time stamps; for one alone as it is.
    void MergeFiles(const std::vector<Path>& names);
    /// What was open when the viewer was closed, unless the user does not want that.
    void ReopenFiles();
    /// Puts the pages where they were when the viewer was closed with them. What was asked for by
    /// name stays in front.
    void RestoreLayout();

private:
    void     BuildMenus();
    void     BuildPages();
    void     BuildStatusLine(wxtPanel* parent);
    void     ShowStatus();
    LogPage* CurrentPage() const;
    LogPage* PageInUse() const;
    void     FocusText();

    wxTopLevelWindow* WindowInUse();

    std::vector<LogPage*> AllPages() const;
    void                  NamePages();

    void     OpenPage(const OpenedFile& file, bool select);
    void     OpenPage(const OpenedFile& file, bool select, size_t place);
    LogPage* PageOf(const Path& file) const;
    void     ShowTitle();
    void     FillRecent();
    void     OnRecent(wxCommandEvent& event);
    void     KeepFiles() const;
    void     OnOpen(wxCommandEvent& event);
    void     OnOpenFolder(wxCommandEvent& event);
    void     OnMerge(wxCommandEvent& event);
    void     OnClosePage(wxCommandEvent& event);
    void     NoteClosed(const wxWindow* page);
    void     OnReopenPage(wxCommandEvent& event);
    void     OnFollow(wxCommandEvent& event);
    void     OnFullScreen(wxCommandEvent& event);
    void     OnPreferences(wxCommandEvent& event);
    void     OnAbout(wxCommandEvent& event);
    void     OnTextCommand(wxCommandEvent& event);
    void     OnKey(wxKeyEvent& event);
    void     OnClose(wxCloseEvent& event);

    const EndRequest& m_EndRequest;
    wxtNotebook*      m_Pages = nullptr;
    wxtStaticText*    m_Status = nullptr;
    wxMenu*           m_RecentMenu = nullptr;
    bool              m_IsReopened = false;
    RecentFiles       m_Recent;
    wxTimer           m_StatusTimer;
    wxEndLater        m_End{*this};

    struct ClosedPage
    {
        OpenedFile file;
        size_t     place; ///< Among the notebook's pages.
    };
    std::vector<ClosedPage> m_Closed; ///< The latest last.
};
