#include "monitor/MonitorFrame.h"

#include "monitor/ChartStrip.h"
#include "monitor/FarmHeader.h"
#include "monitor/HeightShare.h"
#include "monitor/HideProducts.h"
#include "monitor/JobCommands.h"
#include "monitor/JobsPane.h"
#include "monitor/MonitorMenus.h"
#include "monitor/SubmitDlg.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtSplitterWindow.h"
#include "common/AboutInfo.h"
#include "common/FollowingText.h"
#include "common/LogLookChoice.h"
#include "common/PreferencesDlg.h"
#include "common/SavingQuestion.h"
#include "dialogs/wxQuestion.h"
#include "dialogs/wxtAboutDlg.h"
#include "shell/wxTolvanApp.h"
#include "tolvan/JobFactory.h"
#include "vesta/Log.h"
#include "vesta/UID.h"

#include <wx/display.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/textentry.h>

#include <algorithm>

namespace
{
constexpr size_t  kLinesAtOnce = 20000; // between two looks at the user's events
constexpr int     kBorder = 8;          // pixels
constexpr int     kJobsHeight = 400;    // pixels, before the user has chosen
constexpr int     kSashStep = 40;       // pixels
const char* const kViewName = "MainView";
const char* const kQuitQuestion = "QuitWhileJobsRun";

constexpr int kLeastList = 120;   // pixels
constexpr int kLowerHeight = 220; // pixels: frames, picture and details
constexpr int kLeastLog = 140;    // pixels
constexpr int kGoodLog = 240;     // pixels

const wxSize kFirstSize(1100, 800);   // pixels, before the user has chosen
const wxSize kSmallestSize(640, 480); // pixels: a few rows of each view
const wxSize kSmallestChars(64, 28);  // the same, in characters

// In fonts of any size, as far as the screen has room.
wxSize SmallestSize(const wxWindow& window)
{
    wxSize size = kSmallestChars;
    size.Scale(window.GetCharWidth(), window.GetCharHeight());
    size.IncTo(kSmallestSize);
    size.DecTo(wxDisplay(&window).GetClientArea().GetSize());
    return size;
}

// The user looks at one of the program's windows.
bool IsAnyActive()
{
    return std::any_of(wxTopLevelWindows.begin(), wxTopLevelWindows.end(),
                       [](wxWindow* window)
                       {
                           auto* const top = dynamic_cast<wxTopLevelWindow*>(window);
                           return top && top->IsActive();
                       });
}
} // namespace

MonitorFrame::MonitorFrame(const Program& program)
    : wxTolvanFrame(wxGetTranslation("Tolvan Monitor"), wxDefaultPosition, kFirstSize),
      m_Program(program),
      m_Windows(program.jobs, [this](const String& id, wxWindow* parent) { Resubmit(id, parent); }),
      m_Notices(program.jobs, [] { return IsAnyActive(); }),
      m_JobMenu(new JobMenu(program.jobs, *this, OwnCommands(false))),
      m_PopUp(std::make_unique<JobMenu>(program.jobs, *this, OwnCommands(true)))
{
    SetMinSize(SmallestSize(*this));
    BuildMonitorMenus(*this, m_JobMenu);
    BuildViews();
    BindCommands();
    Bind(wxTOLVAN_CONNECT_EVENT, [this](wxCommandEvent&) { OnConnection(true); });
    Bind(wxTOLVAN_DISCONNECT_EVENT, [this](wxCommandEvent&) { OnConnection(false); });
    Bind(wxEVT_CLOSE_WINDOW, &MonitorFrame::OnClose, this);
    LoadWindowPosition();
    m_Built = true;
}

void MonitorFrame::BindCommands()
{
    const auto on = [this](int id, const std::function<void(wxCommandEvent&)>& act)
    { Bind(wxEVT_MENU, act, id); };
    on(id_Submit, [this](wxCommandEvent&) { OnSubmit(); });
    on(wxID_EXIT, [this](wxCommandEvent&) { Close(); });
    on(id_Refresh, [this](wxCommandEvent&) { m_Jobs->LoadAnew(); });
    on(wxID_PREFERENCES, [this](wxCommandEvent&) { OnPreferences(); });
    // By what the view does, not by the tick: the user may have scrolled away from the end.
    on(id_Follow, [this](wxCommandEvent&) { m_Log->SetFollowing(!m_Log->IsFollowing()); });
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(m_Log->IsFollowing()); },
        id_Follow);
    on(id_SwitchPane, [this](wxCommandEvent&) { m_Splitter->SwitchPane(); });
    on(id_MoreJobs, [this](wxCommandEvent&) { m_Splitter->MoveSash(kSashStep); });
    on(id_MoreLog, [this](wxCommandEvent&) { m_Splitter->MoveSash(-kSashStep); });
    on(id_FullScreen, [this](wxCommandEvent&)
       { ShowFullScreen(!IsFullScreen(), wxFULLSCREEN_NOBORDER | wxFULLSCREEN_NOCAPTION); });
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(IsFullScreen()); },
        id_FullScreen);
    on(wxID_ABOUT, [this](wxCommandEvent&) { OnAbout(); });
    BindListCommands();
    Bind(wxEVT_MENU, &MonitorFrame::OnTextCommand, this, wxTextLineCtrl::id_SelectAll,
         wxTextLineCtrl::id_CopyPlain);
    Bind(wxEVT_MENU, &MonitorFrame::OnTextCommand, this, wxTextLineCtrl::id_OnlyMatching);
    Bind(wxEVT_MENU, &MonitorFrame::OnTextCommand, this, wxTextLineCtrl::id_GoToLine,
         wxTextLineCtrl::id_RemoveBookmarks);
    Bind(wxEVT_MENU, &MonitorFrame::OnTextCommand, this, wxTextLineCtrl::id_NextError,
         wxTextLineCtrl::id_PreviousError);
    Bind(wxEVT_CHAR_HOOK, &MonitorFrame::OnReadingKey, this);
    // Bound last, it is asked first: nobody else knows the ids of those menus.
    Bind(wxEVT_MENU, &MonitorFrame::OnJobCommand, this);
}

void MonitorFrame::BindListCommands()
{
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_Jobs->OpenFilter(); }, id_FilterJobs);
    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent& event)
        { m_Jobs->SetGrouping(static_cast<JobGrouping>(event.GetId() - id_GroupFirst)); },
        id_GroupFirst, id_GroupLast);
    Bind(
        wxEVT_UPDATE_UI,
        [this](wxUpdateUIEvent& event)
        { event.Check(static_cast<int>(m_Jobs->GetGrouping()) == event.GetId() - id_GroupFirst); },
        id_GroupFirst, id_GroupLast);
    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent&) { m_Jobs->ShowFramesInTree(!m_Jobs->ShowsFramesInTree()); },
        id_FramesInTree);
    Bind(
        wxEVT_UPDATE_UI,
        [this](wxUpdateUIEvent& event) { event.Check(m_Jobs->ShowsFramesInTree()); },
        id_FramesInTree);
}

// What the menus of the window offer beside the jobs' commands.
JobMenu::Own MonitorFrame::OwnCommands(bool isPopUp)
{
    JobMenu::Own own;
    own.open = [this](const std::vector<String>& ids)
    {
        for (const String& id : ids)
        {
            m_Windows.Open(id);
        }
    };
    if (isPopUp)
    {
        own.copy = [this] { m_Jobs->CopyRows(); };
    }
    own.resubmit = [this](const String& id) { Resubmit(id, this); };
    own.removesFinished = true;
    return own;
}

void MonitorFrame::BuildViews()
{
    auto* const panel = new wxtPanel(this);
    m_Header = new FarmHeader(panel);
    m_Splitter = new wxtSplitterWindow(panel, kViewName);
    m_Jobs = new JobsPane(m_Splitter, m_Program.jobs,
                          {[this](const String& id) { m_Windows.Open(id); },
                           [this](const std::vector<String>& ids) { m_JobMenu->ShowJobs(ids); },
                           [this](const std::vector<String>& ids, const wxPoint& where)
                           { ShowJobMenu(ids, where); }});
    m_Splitter->Split(m_Jobs, BuildLog(m_Splitter), kJobsHeight);
    auto* const views = new wxBoxSizer(wxVERTICAL);
    views->Add(m_Header, 0, wxEXPAND);
    views->Add(new ChartStrip(panel, m_Program.jobs), 0, wxEXPAND | wxLEFT, kBorder);
    views->Add(m_Splitter, 1, wxEXPAND);
    panel->SetSizer(views);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(panel, 1, wxEXPAND);
    SetSizer(whole);
    m_Log->SetFocus();
}

wxWindow* MonitorFrame::BuildLog(wxWindow* parent)
{
    auto* const panel = new wxtPanel(parent);
    m_Log = new FollowingText(panel);
    m_Log->SetLineLimit(k_MostLiveLines);
    m_Log->KeepArrivalTimes();
    return panel;
}

void MonitorFrame::ShowNotice(const String& text)
{
    m_Log->Add(Time::CurrentTime().FormatClock() + "  " + text);
}

void MonitorFrame::TakeNews()
{
    const FarmFeed::Batch batch = m_Program.feed->Take(kLinesAtOnce);
    m_Program.jobs.Apply(batch.changes);
    for (const TimedLine& line : batch.lines)
    {
        m_Log->Append(line.text, line.came);
    }
    m_Header->ShowSummary(m_Program.jobs.Summarize());
    if (m_SharesHeights && m_Program.jobs.Summarize().jobs > 0)
    {
        m_SharesHeights = false;
        CallAfter(&MonitorFrame::ShareHeights);
    }
    if (!m_OutputSeen && m_Program.jobs.Summarize().outputLines > 0)
    {
        m_OutputSeen = true;
        LogInfo("The first output of a job is shown");
    }
    if (batch.more)
    {
        CallAfter(&MonitorFrame::TakeNews);
    }
}

// By what is in the lists, until the user has chosen.
void MonitorFrame::ShareHeights()
{
    if (m_Splitter->IsRemembered() || m_Jobs->IsSashRemembered())
    {
        return;
    }
    const int              sash = m_Splitter->GetSashSize();
    const int              total = m_Splitter->GetClientSize().y - 2 * sash;
    const std::vector<int> heights =
        ShareHeight(total, {{m_Jobs->ListHeight(m_Program.jobs.Summarize().jobs), kLeastList},
                            {kLowerHeight, kLowerHeight},
                            {kGoodLog, kLeastLog}});
    m_Splitter->SetSashPosition(heights[0] + sash + heights[1]);
    m_Jobs->SetListHeight(heights[0]);
}

void MonitorFrame::OnConnection(bool connected)
{
    if (connected != m_Connected)
    {
        m_Connected = connected;
        m_Header->ShowConnection(connected);
        m_Program.feed->OnConnection(connected);
    }
}

void MonitorFrame::ShowJobMenu(const std::vector<String>& ids, const wxPoint& where)
{
    m_PopUp->ShowJobs(ids);
    PopupMenu(m_PopUp.get(), ScreenToClient(where));
}

// They are about the view that has the focus.
void MonitorFrame::OnTextCommand(wxCommandEvent& event)
{
    if (!m_Jobs->HasListFocus())
    {
        m_Log->OnMenu(event);
    }
    else if (event.GetId() == wxTextLineCtrl::id_Copy ||
             event.GetId() == wxTextLineCtrl::id_CopyPlain)
    {
        m_Jobs->CopyRows();
    }
    else if (event.GetId() == wxTextLineCtrl::id_SelectAll)
    {
        m_Jobs->SelectAllRows();
    }
    else if (event.GetId() == wxTextLineCtrl::id_Search)
    {
        m_Jobs->OpenFilter();
    }
    else
    {
        m_Log->OnMenu(event);
    }
}

// Nothing but the log has places to find again: those keys are about it wherever the keyboard is. A
// text field keeps them.
void MonitorFrame::OnReadingKey(wxKeyEvent& event)
{
    const int       command = wxTextLineCtrl::ReadingCommandOf(event);
    wxWindow* const focus = FindFocus();
    const bool      isElsewhere = focus && !m_Splitter->GetWindow2()->IsDescendant(focus) &&
                             !dynamic_cast<const wxTextEntry*>(focus);
    if (command == wxID_NONE || !isElsewhere)
    {
        event.Skip();
        return;
    }
    wxCommandEvent menu(wxEVT_MENU, command);
    m_Log->OnMenu(menu);
}

void MonitorFrame::OnJobCommand(wxCommandEvent& event)
{
    if (!m_JobMenu->Run(event.GetId()) && !m_PopUp->Run(event.GetId()))
    {
        event.Skip();
    }
}

void MonitorFrame::OnSubmit()
{
    SubmitDlg dialog(this, m_Program.send);
    dialog.ShowModal();
}

void MonitorFrame::Resubmit(const String& id, wxWindow* parent)
{
    const FarmJob* const job = m_Program.jobs.Find(id);
    const auto type = job ? JobFactory::s_JobFactory->GetTypeInfo(UID(job->type), true) : nullptr;
    if (!type)
    {
        TellFailure("The job, or its product, is not there any more.", parent);
        return;
    }
    SubmitDlg dialog(parent, m_Program.send, JobForm(type, *job->job));
    dialog.ShowModal();
}

void MonitorFrame::OnPreferences()
{
    const auto     makeHidden = [](wxWindow* parent) { return new HideProducts(parent); };
    const auto     makeChoice = [](wxWindow* parent) { return new NoticeChoice(parent); };
    const auto     makeLook = [](wxWindow* parent) { return new LogLookChoice(parent); };
    PreferencesDlg dialog(this, {{wxGetTranslation("Logs"), makeLook, false},
                                 {wxGetTranslation("Notices of the desktop"), makeChoice, false},
                                 {wxGetTranslation("Hide Products"), makeHidden}});
    dialog.ShowModal();
}

void MonitorFrame::OnAbout()
{
    wxtAboutBox(AboutInfo(wxGetTranslation("Tolvan Monitor"),
                          wxGetTranslation("Shows the jobs of a Tolvan render farm.")),
                this);
}

bool MonitorFrame::MayQuit()
{
    const int running = m_Program.jobs.Summarize().running;
    if (running == 0 || !m_Connected || m_Asking)
    {
        return !m_Asking;
    }
    const wxString count =
        running == 1 ? wxString(wxGetTranslation("A job is running."))
                     : wxString::Format(wxGetTranslation("%d jobs are running."), running);
    m_Asking = true;
    const bool isConfirmed =
        wxAsk(this, {kQuitQuestion, wxGetTranslation("Quit"),
                     count + "\n" + wxGetTranslation("The farm goes on without the monitor. Quit?"),
                     wxGetTranslation("Quit"), wxGetTranslation("Stay")});
    m_Asking = false;
    return isConfirmed;
}

void MonitorFrame::OnClose(wxCloseEvent& event)
{
    const bool mustEnd = !event.CanVeto() || m_Program.isToldToEnd();
    if (mustEnd && m_End.Begin())
    {
        return;
    }
    if (!mustEnd && !(MayQuit() && MayEndSaving(this, nullptr)))
    {
        event.Veto();
        return;
    }
    m_Jobs->SaveLayout();
    m_Splitter->SaveSash();
    SaveWindowPosition();
    event.Skip();
}
