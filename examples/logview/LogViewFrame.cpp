#include "logview/LogViewFrame.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtNotebook.h"
#include "appearance/wxtStockControls.h"
#include "common/AboutInfo.h"
#include "common/FollowingText.h"
#include "common/LogLookChoice.h"
#include "common/PreferencesDlg.h"
#include "dialogs/wxtAboutDlg.h"
#include "logview/LogPage.h"
#include "shell/wxColorMenu.h"

#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include <filesystem>

namespace
{
constexpr int kStatusMs = 250;   // between two looks at the current page's state
constexpr int kStatusBorder = 4; // pixels

enum
{
    id_Follow = 22000,
    id_FullScreen
};

const wxSize kFirstSize(900, 600);    // pixels, before the user has chosen
const wxSize kSmallestSize(320, 200); // pixels

// The name of the kept layout.
const char* const kLayout = "LogView";
} // namespace

LogViewFrame::LogViewFrame()
    : wxTolvanFrame(wxGetTranslation("Tolvan Log Viewer"), wxDefaultPosition, kFirstSize)
{
    SetMinSize(kSmallestSize);
    BuildMenus();
    BuildPages();
    Bind(wxEVT_CLOSE_WINDOW, &LogViewFrame::OnClose, this);
    m_StatusTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ShowStatus(); });
    m_StatusTimer.Start(kStatusMs);
    LoadWindowPosition();
    m_Built = true;
}

void LogViewFrame::BuildMenus()
{
    auto* const file = new wxMenu;
    file->Append(wxID_OPEN, wxGetTranslation("&Open...\tCtrl+O"));
    AppendSave(*file, wxGetTranslation("Save &As..."));
    file->AppendSeparator();
    file->Append(wxID_EXIT, wxGetTranslation("&Quit\tCtrl+Q"));

    auto* const edit = new wxMenu;
    AppendTextCommands(*edit);
    edit->AppendSeparator();
    edit->Append(wxID_PREFERENCES, wxGetTranslation("&Preferences...\tCtrl+,"));

    auto* const view = new wxMenu;
    view->AppendCheckItem(id_Follow, wxGetTranslation("&Follow the End\tF5"))->Check();
    view->AppendSubMenu(new wxColorMenu, wxGetTranslation("&Colours"));
    view->AppendCheckItem(id_FullScreen, wxGetTranslation("F&ull Screen\tF11"));

    auto* const help = new wxMenu;
    help->Append(wxID_ABOUT, wxGetTranslation("&About"));

    auto* const bar = new wxMenuBar;
    bar->Append(file, wxGetTranslation("&File"));
    bar->Append(edit, wxGetTranslation("&Edit"));
    bar->Append(view, wxGetTranslation("&View"));
    bar->Append(help, wxGetTranslation("&Help"));
    SetMenuBar(bar);

    Bind(wxEVT_MENU, &LogViewFrame::OnOpen, this, wxID_OPEN);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
    Bind(wxEVT_MENU, &LogViewFrame::OnFollow, this, id_Follow);
    Bind(
        wxEVT_UPDATE_UI,
        [this](wxUpdateUIEvent& event)
        { event.Check(CurrentPage() && CurrentPage()->IsFollowing()); },
        id_Follow);
    Bind(wxEVT_MENU, &LogViewFrame::OnFullScreen, this, id_FullScreen);
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(IsFullScreen()); },
        id_FullScreen);
    Bind(wxEVT_MENU, &LogViewFrame::OnPreferences, this, wxID_PREFERENCES);
    Bind(wxEVT_MENU, &LogViewFrame::OnAbout, this, wxID_ABOUT);
    Bind(wxEVT_MENU, &LogViewFrame::OnTextCommand, this, wxTextLineCtrl::id_SelectAll,
         wxTextLineCtrl::id_Search);
}

void LogViewFrame::BuildPages()
{
    auto* const panel = new wxtPanel(this);
    m_Pages = new wxtNotebook(panel);
    BuildStatusLine(panel);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(panel, 1, wxEXPAND);
    SetSizer(whole);
    m_Pages->Bind(wxEVT_AUINOTEBOOK_PAGE_CHANGED,
                  [this](wxAuiNotebookEvent& event)
                  {
                      event.Skip();
                      ShowStatus();
                  });
}

void LogViewFrame::BuildStatusLine(wxtPanel* parent)
{
    m_Status = new wxtStaticText(parent, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                                 wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_MIDDLE);
    auto* const views = new wxBoxSizer(wxVERTICAL);
    views->Add(m_Pages, 1, wxEXPAND);
    views->Add(m_Status, 0, wxEXPAND | wxALL, kStatusBorder);
    parent->SetSizer(views);
}

void LogViewFrame::OpenFiles(const std::vector<Path>& files)
{
    for (const Path& file : files)
    {
        auto* const page = new LogPage(m_Pages, file);
        m_Pages->AddPage(page, page->Title(), &file == &files.back());
        m_Pages->SetPageToolTip(m_Pages->GetPageCount() - 1, page->FullName());
        m_Pages->SetPageKey(page, std::filesystem::absolute(file.Text().c_str()).string());
    }
    if (LogPage* const page = CurrentPage())
    {
        page->Text().SetFocus();
    }
    ShowStatus();
}

void LogViewFrame::RestoreLayout()
{
    m_Pages->LoadLayout(kLayout);
}

LogPage* LogViewFrame::CurrentPage() const
{
    return dynamic_cast<LogPage*>(m_Pages->GetCurrentPage());
}

void LogViewFrame::ShowStatus()
{
    const LogPage* const page = CurrentPage();
    const wxString       text =
        page ? page->StatusText() : wxString(wxGetTranslation("Open a file with Ctrl+O"));
    // Setting a text repaints the line, changed or not.
    if (text != m_Status->GetLabel())
    {
        m_Status->SetLabel(text);
    }
}

void LogViewFrame::OnOpen(wxCommandEvent&)
{
    wxFileDialog dialog(this, wxGetTranslation("Open"), wxString(), wxString(),
                        wxFileSelectorDefaultWildcardStr,
                        wxFD_OPEN | wxFD_MULTIPLE | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() != wxID_OK)
    {
        return;
    }
    wxArrayString files;
    dialog.GetPaths(files);
    std::vector<Path> opened;
    for (const wxString& file : files)
    {
        opened.emplace_back(String(file.fn_str())); // its bytes, which need not be a text
    }
    OpenFiles(opened);
}

// By what the view does, not by the tick: the user may have scrolled away from the end.
void LogViewFrame::OnFollow(wxCommandEvent&)
{
    if (LogPage* const page = CurrentPage())
    {
        page->SetFollowing(!page->IsFollowing());
    }
}

void LogViewFrame::OnFullScreen(wxCommandEvent&)
{
    ShowFullScreen(!IsFullScreen(), wxFULLSCREEN_NOBORDER | wxFULLSCREEN_NOCAPTION);
}

void LogViewFrame::OnPreferences(wxCommandEvent&)
{
    const auto     makeLook = [](wxWindow* parent) { return new LogLookChoice(parent); };
    PreferencesDlg dialog(this, {{wxGetTranslation("Logs"), makeLook, false}});
    dialog.ShowModal();
}

void LogViewFrame::OnAbout(wxCommandEvent&)
{
    wxtAboutBox(AboutInfo(wxGetTranslation("Tolvan Log Viewer"),
                          wxGetTranslation("Shows log files and follows them as they grow.")),
                this);
}

void LogViewFrame::OnTextCommand(wxCommandEvent& event)
{
    if (LogPage* const page = CurrentPage())
    {
        page->Text().OnMenu(event);
    }
}

void LogViewFrame::OnClose(wxCloseEvent& event)
{
    if (m_End.Begin())
    {
        return;
    }
    SaveWindowPosition();
    m_Pages->SaveLayout(kLayout);
    event.Skip();
}
