#include "logview/LogViewFrame.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtMenuKey.h"
#include "appearance/wxtNotebook.h"
#include "appearance/wxtStockControls.h"
#include "common/AboutInfo.h"
#include "common/EndRequest.h"
#include "common/EscapesMenu.h"
#include "common/FollowingText.h"
#include "common/LogLookChoice.h"
#include "common/PreferencesDlg.h"
#include "common/ReadingAids.h"
#include "common/SavingQuestion.h"
#include "dialogs/wxQuestion.h"
#include "dialogs/wxtAboutDlg.h"
#include "logview/ChosenFiles.h"
#include "logview/LogFiles.h"
#include "logview/LogPage.h"
#include "shell/wxColorMenu.h"
#include "vesta/Application.h"
#include "vesta/File.h"
#include "vesta/Log.h"

#include <wx/dnd.h>
#include <wx/menu.h>
#include <wx/sizer.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace
{
constexpr int kStatusMs = 250;   // between two looks at the current page's state
constexpr int kStatusBorder = 4; // pixels

enum
{
    id_Follow = 22000,
    id_FullScreen,
    id_OpenFolder,
    id_Merge,
    id_Reopen,
    id_ReopenAtStart,
    id_ClearRecent,
    id_Recent, ///< The first of them.
    id_LastRecent = id_Recent + RecentFiles::k_Most - 1
};

const char* const kSection = "LogView";
const char* const kReopenAtStart = "ReopenAtStart";

OptionsFile& Options()
{
    return Application::the_Application->Options();
}

bool IsReopeningWanted()
{
    return Options().GetBool(kSection, kReopenAtStart, true);
}

const wxSize kFirstSize(900, 600);    // pixels, before the user has chosen
const wxSize kSmallestSize(400, 340); // pixels: some lines beside the whole search bar

// The name of the kept layout.
const char* const kLayout = "LogView";

/// Files and folders that are dropped.
class _FileDrop : public wxFileDropTarget
{
public:
    explicit _FileDrop(std::function<void(const std::vector<Path>&)> open) : m_Open(std::move(open))
    {
    }
    bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& names) override
    {
        m_Open(PathsOf(names));
        return true;
    }

private:
    std::function<void(const std::vector<Path>&)> m_Open;
};
} // namespace

LogViewFrame::LogViewFrame(const EndRequest& end)
    : wxTolvanFrame(wxGetTranslation("Tolvan Log Viewer"), wxDefaultPosition, kFirstSize),
      m_EndRequest(end),
      m_Recent(Options())
{
    SetMinSize(kSmallestSize);
    BuildMenus();
    BuildPages();
    Bind(wxEVT_CLOSE_WINDOW, &LogViewFrame::OnClose, this);
    Bind(wxEVT_CHAR_HOOK, &LogViewFrame::OnKey, this);
    m_StatusTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { ShowStatus(); });
    m_StatusTimer.Start(kStatusMs);
    LoadWindowPosition();
    m_Built = true;
}

void LogViewFrame::BuildMenus()
{
    auto* const file = new wxMenu;
    file->Append(wxID_OPEN, wxGetTranslation("&Open...\tCtrl+O"));
    file->Append(id_OpenFolder, wxGetTranslation("Open &Folder...\tCtrl+Shift+O"));
    file->Append(id_Merge, wxGetTranslation("&Merge Files by Time...\tCtrl+M"));
    m_RecentMenu = new wxMenu;
    FillRecent();
    file->AppendSubMenu(m_RecentMenu, wxGetTranslation("Open Recen&t"));
    file->Append(wxID_CLOSE, wxGetTranslation("&Close Page\tCtrl+W"));
    file->Append(id_Reopen, wxGetTranslation("&Reopen Closed Page\tCtrl+Shift+T"));
    file->AppendSeparator();
    AppendSave(*file, wxGetTranslation("Save &As..."));
    file->AppendSeparator();
    file->AppendCheckItem(id_ReopenAtStart, wxGetTranslation("Reopen Files at &Start"));
    file->AppendSeparator();
    file->Append(wxID_EXIT, wxGetTranslation("&Quit\tCtrl+Q"));

    auto* const edit = new wxMenu;
    AppendTextCommands(*edit);
    AppendReadingCommands(*edit);
    wxtShowMenuKey(*edit->Append(wxTextLineCtrl::id_ScrollToTop, wxGetTranslation("F&irst Line")),
                   "Ctrl+Home");
    wxtShowMenuKey(*edit->Append(wxTextLineCtrl::id_ScrollToBottom, wxGetTranslation("&Last Line")),
                   "Ctrl+End");
    AppendErrorCommands(*edit);
    edit->AppendSeparator();
    edit->Append(wxID_PREFERENCES, wxGetTranslation("&Preferences...\tCtrl+,"));

    auto* const view = new wxMenu;
    view->AppendCheckItem(id_Follow, wxGetTranslation("&Follow the End\tF5"))->Check();
    AppendEscapes(*view);
    AppendGutterChoices(*view, *this);
    AppendRuleChoices(*view, *this);
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
    Bind(wxEVT_MENU, &LogViewFrame::OnOpenFolder, this, id_OpenFolder);
    Bind(wxEVT_MENU, &LogViewFrame::OnMerge, this, id_Merge);
    Bind(wxEVT_MENU, &LogViewFrame::OnClosePage, this, wxID_CLOSE);
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(PageInUse() != nullptr); },
        wxID_CLOSE);
    Bind(wxEVT_MENU, &LogViewFrame::OnRecent, this, id_Recent, id_LastRecent);
    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent&)
        {
            m_Recent.Clear();
            FillRecent();
        },
        id_ClearRecent);
    file->Check(id_ReopenAtStart, IsReopeningWanted());
    Bind(
        wxEVT_MENU,
        [](wxCommandEvent& event)
        { Options().SetValue(kSection, kReopenAtStart, event.IsChecked() ? "1" : "0"); },
        id_ReopenAtStart);
    Bind(wxEVT_MENU, &LogViewFrame::OnReopenPage, this, id_Reopen);
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Enable(!m_Closed.empty()); },
        id_Reopen);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
    Bind(wxEVT_MENU, &LogViewFrame::OnFollow, this, id_Follow);
    Bind(
        wxEVT_UPDATE_UI,
        [this](wxUpdateUIEvent& event) { event.Check(PageInUse() && PageInUse()->IsFollowing()); },
        id_Follow);
    Bind(wxEVT_MENU, &LogViewFrame::OnFullScreen, this, id_FullScreen);
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(IsFullScreen()); },
        id_FullScreen);
    Bind(wxEVT_MENU, &LogViewFrame::OnPreferences, this, wxID_PREFERENCES);
    Bind(wxEVT_MENU, &LogViewFrame::OnAbout, this, wxID_ABOUT);
    Bind(wxEVT_MENU, &LogViewFrame::OnTextCommand, this, wxTextLineCtrl::id_SelectAll,
         wxTextLineCtrl::id_CopyPlain);
    Bind(wxEVT_MENU, &LogViewFrame::OnTextCommand, this, wxTextLineCtrl::id_OnlyMatching);
    Bind(wxEVT_MENU, &LogViewFrame::OnTextCommand, this, wxTextLineCtrl::id_GoToLine,
         wxTextLineCtrl::id_RemoveBookmarks);
    Bind(wxEVT_MENU, &LogViewFrame::OnTextCommand, this, wxTextLineCtrl::id_NextError,
         wxTextLineCtrl::id_PreviousError);
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
    m_Pages->Bind(wxEVT_AUINOTEBOOK_PAGE_CLOSE,
                  [this](wxAuiNotebookEvent& event)
                  {
                      const wxWeakRef<wxWindow> page = m_Pages->ClosingPage();
                      if (!MayEndSaving(page ? wxGetTopLevelParent(page) : nullptr, page))
                      {
                          event.Veto();
                          return;
                      }
                      event.Skip();
                      NoteClosed(page);
                  });
    m_Pages->Bind(wxEVT_AUINOTEBOOK_PAGE_CLOSED,
                  [this](wxAuiNotebookEvent& event)
                  {
                      event.Skip();
                      NamePages();
                  });
    panel->SetDropTarget(
        new _FileDrop([this](const std::vector<Path>& files) { OpenFiles(files); }));
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

void LogViewFrame::ReopenFiles()
{
    if (!IsReopeningWanted())
    {
        return;
    }
    m_IsReopened = true;
    const std::vector<OpenedFile> files = KeptOpenedFiles(Options());
    for (const OpenedFile& file : files)
    {
        OpenPage(file, &file == &files.back());
    }
    NamePages();
}

// In the notebook first, then in windows of their own.
std::vector<LogPage*> LogViewFrame::AllPages() const
{
    std::vector<LogPage*> pages;
    const auto            add = [&pages](wxWindow* window)
    {
        if (auto* const page = dynamic_cast<LogPage*>(window))
        {
            pages.push_back(page);
        }
    };
    for (size_t i = 0; i < m_Pages->GetPageCount(); ++i)
    {
        add(m_Pages->GetPage(i));
    }
    for (wxWindow* const page : m_Pages->PagesInWindows())
    {
        add(page);
    }
    return pages;
}

// Files of the same name are told apart by their folders, as long as both are open.
void LogViewFrame::NamePages()
{
    std::vector<LogPage*> pages = AllPages();
    std::vector<Path>     files;
    pages.erase(std::remove_if(pages.begin(), pages.end(),
                               [](const LogPage* page) { return page->IsMerged(); }),
                pages.end());
    files.reserve(pages.size());
    for (const LogPage* const page : pages)
    {
        files.push_back(AbsoluteName(page->File()));
    }
    const std::vector<String> names = NamesApart(files);
    for (size_t i = 0; i < pages.size(); ++i)
    {
        const wxString before = pages[i]->Title();
        pages[i]->CallIt(names[i]);
        if (pages[i]->Title() != before)
        {
            m_Pages->SetCaption(pages[i], pages[i]->Title());
        }
    }
    ShowTitle();
}

// In the order in which they came: where they are now is the layout's.
void LogViewFrame::KeepFiles() const
{
    std::vector<OpenedFile> files;
    for (const LogPage* const page : AllPages())
    {
        if (!page->IsInput())
        {
            files.push_back(page->Place());
            files.back().name = AbsoluteName(page->File());
        }
    }
    KeepOpenedFiles(Options(), files);
}

void LogViewFrame::FillRecent()
{
    while (m_RecentMenu->GetMenuItemCount() > 0)
    {
        m_RecentMenu->Destroy(m_RecentMenu->FindItemByPosition(0));
    }
    int number = 0;
    for (const Path& name : m_Recent.Names())
    {
        wxString shown = wxControl::EscapeMnemonics(wxtToWx(name.Text()));
        std::replace_if(
            shown.begin(), shown.end(), [](const wxUniChar& c) { return c < 0x20; }, L' ');
        m_RecentMenu->Append(id_Recent + number,
                             wxString::Format("&%d  %s", (number + 1) % 10, shown));
        ++number;
    }
    if (number > 0)
    {
        m_RecentMenu->AppendSeparator();
    }
    m_RecentMenu->Append(id_ClearRecent, wxGetTranslation("&Clear"))->Enable(number > 0);
}

void LogViewFrame::OnRecent(wxCommandEvent& event)
{
    const auto number = static_cast<size_t>(event.GetId() - id_Recent);
    if (number >= m_Recent.Names().size())
    {
        return;
    }
    const Path name = m_Recent.Names()[number];
    if (File::Exists(name))
    {
        OpenFiles({name});
        return;
    }
    m_Recent.Remove(name);
    FillRecent();
    wxTellProblem(
        wxString::Format(wxGetTranslation("%s is no longer there."), wxtToWx(name.Text())), this);
}

void LogViewFrame::RestoreLayout()
{
    wxWindow* const named = m_IsReopened ? nullptr : CurrentPage();
    m_Pages->LoadLayout(kLayout);
    const int index = named ? m_Pages->GetPageIndex(named) : wxNOT_FOUND;
    if (index != wxNOT_FOUND)
    {
        m_Pages->SetSelection(static_cast<size_t>(index));
    }
    FocusText();
}

void LogViewFrame::FocusText()
{
    if (LogPage* const page = CurrentPage())
    {
        page->Text().SetFocus();
    }
}

LogPage* LogViewFrame::CurrentPage() const
{
    return dynamic_cast<LogPage*>(m_Pages->GetCurrentPage());
}

// Commands are about it: their keys work in the windows of pages, too.
LogPage* LogViewFrame::PageInUse() const
{
    return dynamic_cast<LogPage*>(m_Pages->PageInUse());
}

// The user goes on there when a dialog of a command is closed.
wxTopLevelWindow* LogViewFrame::WindowInUse()
{
    LogPage* const page = PageInUse();
    return page ? dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(page)) : this;
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
    ShowTitle();
}

void LogViewFrame::ShowTitle()
{
    const LogPage* const page = CurrentPage();
    const wxString       program = wxGetTranslation("Tolvan Log Viewer");
    const wxString       title = page ? page->Title() + " - " + program : program;
    if (title != GetTitle())
    {
        SetTitle(title);
    }
}

void LogViewFrame::OnClosePage(wxCommandEvent&)
{
    m_Pages->ClosePage(m_Pages->PageInUse());
}

// By what the view does, not by the tick: the user may have scrolled away from the end.
void LogViewFrame::OnFollow(wxCommandEvent&)
{
    if (LogPage* const page = PageInUse())
    {
        page->SetFollowing(!page->IsFollowing());
    }
}

void LogViewFrame::OnFullScreen(wxCommandEvent&)
{
    wxTopLevelWindow* const window = WindowInUse();
    window->ShowFullScreen(!window->IsFullScreen(), wxFULLSCREEN_NOBORDER | wxFULLSCREEN_NOCAPTION);
}

void LogViewFrame::OnPreferences(wxCommandEvent&)
{
    const auto     makeLook = [](wxWindow* parent) { return new LogLookChoice(parent); };
    PreferencesDlg dialog(WindowInUse(), {{wxGetTranslation("Logs"), makeLook, false}});
    dialog.ShowModal();
}

void LogViewFrame::OnAbout(wxCommandEvent&)
{
    wxtAboutBox(AboutInfo(wxGetTranslation("Tolvan Log Viewer"),
                          wxGetTranslation("Shows log files and follows them as they grow.")),
                WindowInUse());
}

void LogViewFrame::OnTextCommand(wxCommandEvent& event)
{
    if (LogPage* const page = PageInUse())
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
    if (event.CanVeto() && !m_EndRequest.IsMade() && !MayEndSaving(this, nullptr))
    {
        event.Veto();
        return;
    }
    SaveWindowPosition();
    m_Pages->SaveLayout(kLayout);
    KeepFiles();
    event.Skip();
}
