#include "monitor/JobWindow.h"

#include "monitor/JobCommands.h"
#include "monitor/JobDetails.h"
#include "monitor/JobMenu.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtScrolledPane.h"
#include "appearance/wxtSplitterWindow.h"
#include "appearance/wxtStockControls.h"
#include "common/EscapesMenu.h"
#include "common/FollowingText.h"
#include "common/ReadingAids.h"
#include "common/SavingQuestion.h"
#include "shell/OpenWindows.h"
#include "tolvan/JobFactory.h"
#include "vesta/Application.h"

#include <wx/menu.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int     kBorder = 8;          // pixels around the details
constexpr int     kDetailsHeight = 240; // pixels, before the user has chosen
constexpr int     kSashStep = 40;       // pixels
constexpr size_t  kMostTitle = 80;      // characters
const char* const kPositionName = "JobWindow";

enum
{
    id_SwitchPane = 22100,
    id_SashDown,
    id_SashUp,
    id_Follow
};

const wxSize kFirstSize(760, 560); // pixels, before the user has chosen

// Each further window stands a caption's height lower and further right.
int CascadeOffset()
{
    const int caption = wxSystemSettings::GetMetric(wxSYS_CAPTION_Y);
    return std::max(caption, 20) * static_cast<int>(g_ChildFrames.size() - 1);
}
} // namespace

JobWindow::JobWindow(FarmJobs& jobs, const FarmJob& job, const Resubmit& resubmit)
    : wxTolvanFrame(wxtToWx(OneLine(job.name, kMostTitle)), wxDefaultPosition, kFirstSize),
      m_Jobs(jobs),
      m_Id(job.id),
      m_Type(JobFactory::s_JobFactory->GetTypeInfo(UID(job.type), true))
{
    m_Jobs.Watch(m_Id, true);
    BuildMenus(resubmit);
    BuildViews();
    ShowDetails(job);
    ShowOutput(job);
    m_Jobs.Changed.Connect(this, [this](const FarmJobs::News& news) { OnNews(news); });
    wxSetWindowPos(this, kPositionName, CascadeOffset());
    wxOpenUserWindow(this, job.product);
    // The handler that is bound last comes first: a window that stays is kept in the menu of
    // windows.
    Bind(wxEVT_CLOSE_WINDOW, &JobWindow::OnClose, this);
    m_Built = true;
}

JobWindow::~JobWindow()
{
    DisconnectAll();
    m_Jobs.Watch(m_Id, false);
    // Here, not when it is closed: it may also go with the main window.
    const OptionsFile::PauseAutoWrite pause(Application::the_Application->Options());
    m_Splitter->SaveSash();
    wxSaveWindowPos(this, kPositionName);
}

void JobWindow::BuildMenus(const Resubmit& resubmit)
{
    auto* const file = new wxMenu;
    AppendSave(*file, wxGetTranslation("Save Output &As..."));
    file->AppendSeparator();
    file->Append(wxID_CLOSE, wxGetTranslation("&Close\tCtrl+W"));

    auto* const edit = new wxMenu;
    AppendTextCommands(*edit);
    AppendReadingCommands(*edit);
    AppendErrorCommands(*edit);

    auto* const view = new wxMenu;
    view->Append(id_SwitchPane, wxGetTranslation("Switch &Pane\tF6"));
    view->Append(id_SashDown, wxGetTranslation("More Room for the &Details\tAlt+Down"));
    view->Append(id_SashUp, wxGetTranslation("More Room for the &Output\tAlt+Up"));
    view->AppendSeparator();
    view->AppendCheckItem(id_Follow, wxGetTranslation("&Follow the Output\tCtrl+L"))->Check();
    AppendEscapes(*view);
    AppendGutterChoices(*view, *this);
    AppendRuleChoices(*view, *this);

    JobMenu::Own own;
    own.resubmit = [this, resubmit](const String& id) { resubmit(id, this); };
    m_Menu = new JobMenu(m_Jobs, *this, own);
    m_Menu->ShowJobs({m_Id});

    auto* const bar = new wxMenuBar;
    bar->Append(file, wxGetTranslation("&File"));
    bar->Append(edit, wxGetTranslation("&Edit"));
    bar->Append(view, wxGetTranslation("&View"));
    bar->Append(m_Menu, wxGetTranslation("&Job"));
    SetMenuBar(bar);

    const auto on = [this](int id, const std::function<void()>& act)
    {
        Bind(
            wxEVT_MENU, [act](wxCommandEvent&) { act(); }, id);
    };
    on(wxID_CLOSE, [this] { Close(); });
    on(id_SwitchPane, [this] { m_Splitter->SwitchPane(); });
    on(id_SashDown, [this] { m_Splitter->MoveSash(kSashStep); });
    on(id_SashUp, [this] { m_Splitter->MoveSash(-kSashStep); });
    on(id_Follow, [this] { m_Output->SetFollowing(!m_Output->IsFollowing()); });
    Bind(
        wxEVT_UPDATE_UI, [this](wxUpdateUIEvent& event) { event.Check(m_Output->IsFollowing()); },
        id_Follow);
    const auto pass = [this](wxCommandEvent& event) { m_Output->OnMenu(event); };
    Bind(wxEVT_MENU, pass, wxTextLineCtrl::id_SelectAll, wxTextLineCtrl::id_CopyPlain);
    Bind(wxEVT_MENU, pass, wxTextLineCtrl::id_OnlyMatching);
    Bind(wxEVT_MENU, pass, wxTextLineCtrl::id_GoToLine, wxTextLineCtrl::id_RemoveBookmarks);
    Bind(wxEVT_MENU, pass, wxTextLineCtrl::id_NextError, wxTextLineCtrl::id_PreviousError);
    Bind(wxEVT_MENU, &JobWindow::OnCommand, this);
}

void JobWindow::BuildViews()
{
    m_Splitter = new wxtSplitterWindow(this, kPositionName);
    m_DetailsPane = new wxtScrolledPane(m_Splitter);
    BuildDetails(*m_DetailsPane);
    auto* const output = new wxtPanel(m_Splitter);
    BuildOutput(*output);
    m_Splitter->Split(m_DetailsPane, output, kDetailsHeight);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(m_Splitter, 1, wxEXPAND);
    SetSizer(whole);
    m_Output->SetFocus();
}

void JobWindow::BuildDetails(wxtScrolledPane& pane)
{
    m_Details = new JobDetails(&pane);
    m_Kill = new wxtButton(&pane, wxID_ANY, wxGetTranslation("Kill"));
    m_Kill->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { CallAfter(&JobWindow::OnKill); });
    m_Parameters = new JobDetails(&pane);
    auto* const heading = new wxtStaticText(&pane, wxID_ANY, wxGetTranslation("Parameters"));
    heading->SetFont(heading->GetFont().Bold());
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Details, 0, wxEXPAND | wxALL, kBorder);
    sizer->Add(m_Kill, 0, wxLEFT | wxRIGHT | wxBOTTOM, kBorder);
    sizer->Add(heading, 0, wxLEFT | wxRIGHT, kBorder);
    sizer->Add(m_Parameters, 0, wxEXPAND | wxALL, kBorder);
    pane.SetSizer(sizer);
}

void JobWindow::BuildOutput(wxtPanel& pane)
{
    m_Output = new FollowingText(&pane);
    m_Output->SetLineLimit(k_MostLiveLines);
    m_Output->KeepArrivalTimes();
}

void JobWindow::ShowDetails(const FarmJob& job)
{
    const bool isDetailsOther = m_Details->Show(JobDetailRows(job, Time::CurrentTime()));
    const bool isOther = m_Parameters->Show(JobParameterRows(job, m_Type.get())) || isDetailsOther;
    m_Kill->Enable(job.CurrentPhase() != FarmJob::kEnded);
    if (isOther)
    {
        m_DetailsPane->FitInside();
        m_DetailsPane->Layout();
    }
}

void JobWindow::ShowOutput(const FarmJob& job)
{
    const JobOutput& output = job.output;
    if (m_Shown < output.Begin())
    {
        const long long missing = output.Begin() - m_Shown;
        m_Output->Add(SFormat("--- %lld lines are not shown; all are in ", missing) +
                      job.job->GetParam(p_LogFile) + " ---");
    }
    m_Shown = std::max(m_Shown, output.Begin());
    const auto& lines = output.Lines();
    for (auto i = static_cast<size_t>(m_Shown - output.Begin()); i < lines.size(); ++i)
    {
        m_Output->Append(lines[i].text, lines[i].came);
    }
    m_Shown = output.End();
}

void JobWindow::ShowGone()
{
    m_IsGone = true;
    m_Kill->Disable();
    m_Output->Add("--- The master no longer knows this job ---");
}

void JobWindow::OnTick()
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    if (job && job->IsUnderWay())
    {
        ShowDetails(*job); // for the time that has passed
    }
}

void JobWindow::OnNews(const FarmJobs::News& news)
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    if (!job && !m_IsGone)
    {
        ShowGone();
    }
    if (!job || news.changed.count(m_Id) == 0)
    {
        return;
    }
    ShowOutput(*job);
    ShowDetails(*job);
}

void JobWindow::OnCommand(wxCommandEvent& event)
{
    if (!m_Menu->Run(event.GetId()))
    {
        event.Skip();
    }
}

void JobWindow::OnClose(wxCloseEvent& event)
{
    const bool stays = event.CanVeto() && !MayEndSaving(this, this);
    stays ? event.Veto() : event.Skip();
}

void JobWindow::OnKill()
{
    if (const FarmJob* const job = m_Jobs.Find(m_Id))
    {
        KillJobs({job->job}, this);
    }
}
