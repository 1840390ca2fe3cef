#include "monitor/MonitorFrame.h"

#include "appearance/wxTolvanString.h"
#include "common/ColorMenu.h"
#include "shell/wxTolvanApp.h"
#include "textviews/wxTextLineCtrl.h"
#include "textviews/wxTextLineSearchPanel.h"
#include "vesta/Log.h"

#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace
{
constexpr size_t kLinesAtOnce = 20000; // between two looks at the user's events
constexpr int    kHeaderBorder = 8;    // pixels

enum
{
    id_Follow = 22000,
    id_FullScreen
};

const wxSize kFirstSize(1000, 640); // pixels, before the user has chosen
} // namespace

MonitorFrame::MonitorFrame(std::shared_ptr<FarmFeed> feed)
    : wxTolvanFrame(wxGetTranslation("Tolvan Monitor"), wxDefaultPosition, kFirstSize),
      m_Feed(std::move(feed))
{
    BuildMenus();
    BuildViews();
    Bind(wxTOLVAN_CONNECT_EVENT, [this](wxCommandEvent&) { OnConnection(true); });
    Bind(wxTOLVAN_DISCONNECT_EVENT, [this](wxCommandEvent&) { OnConnection(false); });
    Bind(wxEVT_CLOSE_WINDOW, &MonitorFrame::OnClose, this);
    LoadWindowPosition();
    m_Built = true;
}

void MonitorFrame::BuildMenus()
{
    auto* const file = new wxMenu;
    file->Append(wxTextLineCtrl::id_SaveAs, wxGetTranslation("Save Log &As..."));
    file->AppendSeparator();
    file->Append(wxID_EXIT, wxGetTranslation("&Quit\tCtrl+Q"));

    // Without keys of their own: the text view takes its keys itself and passes them on, so that an
    // accelerator would do everything twice.
    auto* const edit = new wxMenu;
    edit->Append(wxTextLineCtrl::id_Copy, wxGetTranslation("&Copy"));
    edit->Append(wxTextLineCtrl::id_SelectAll, wxGetTranslation("Select &All"));
    edit->Append(wxTextLineCtrl::id_Search, wxGetTranslation("&Search..."));

    auto* const view = new wxMenu;
    view->AppendCheckItem(id_Follow, wxGetTranslation("&Follow the Log\tF5"))->Check();
    view->AppendSubMenu(new ColorMenu(this), wxGetTranslation("&Colours"));
    view->AppendCheckItem(id_FullScreen, wxGetTranslation("F&ull Screen\tF11"));

    auto* const help = new wxMenu;
    help->Append(wxID_ABOUT, wxGetTranslation("&About"));

    auto* const bar = new wxMenuBar;
    bar->Append(file, wxGetTranslation("&File"));
    bar->Append(edit, wxGetTranslation("&Edit"));
    bar->Append(view, wxGetTranslation("&View"));
    bar->Append(help, wxGetTranslation("&Help"));
    SetMenuBar(bar);

    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
    Bind(wxEVT_MENU, &MonitorFrame::OnFollow, this, id_Follow);
    Bind(wxEVT_MENU, &MonitorFrame::OnFullScreen, this, id_FullScreen);
    Bind(wxEVT_MENU, &MonitorFrame::OnAbout, this, wxID_ABOUT);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent& event) { m_Log->OnMenu(event); },
        wxTextLineCtrl::id_SelectAll, wxTextLineCtrl::id_Search);
}

void MonitorFrame::BuildViews()
{
    auto* const panel = new wxtPanel(this);
    m_Header = new wxtPanel(panel);
    m_Connection = new wxStaticText(m_Header, wxID_ANY, wxString());
    m_Summary = new wxStaticText(m_Header, wxID_ANY, wxString());
    auto* const header = new wxBoxSizer(wxHORIZONTAL);
    header->Add(m_Connection, 0, wxALL, kHeaderBorder);
    header->AddStretchSpacer();
    header->Add(m_Summary, 0, wxALL, kHeaderBorder);
    m_Header->SetSizer(header);
    m_Header->Bind(wxEVT_SYS_COLOUR_CHANGED,
                   [this](wxSysColourChangedEvent& event)
                   {
                       event.Skip();
                       CallAfter(&MonitorFrame::ShowSummary);
                   });

    m_Log = new wxTextLineCtrl(panel);
    auto* const views = new wxBoxSizer(wxVERTICAL);
    views->Add(m_Header, 0, wxEXPAND);
    views->Add(m_Log, 1, wxEXPAND);
    views->Add(m_Log->GetSearchPanel(), 0, wxEXPAND);
    panel->SetSizer(views);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(panel, 1, wxEXPAND);
    SetSizer(whole);
    SetFollowing(true);
    ShowSummary();
    m_Log->SetFocus();
}

void MonitorFrame::ShowNotice(const String& text)
{
    m_Log->Append(Time::CurrentTime().FormatClock() + "  " + text, false);
}

void MonitorFrame::TakeLines()
{
    bool more = false;
    for (const String& line : m_Feed->Take(kLinesAtOnce, more))
    {
        m_Log->Append(line, false);
    }
    ShowSummary();
    if (more)
    {
        CallAfter(&MonitorFrame::TakeLines);
    }
}

void MonitorFrame::ShowSummary()
{
    const FarmText::Summary summary = m_Feed->Summarize();
    if (summary.outputLines > 0 && !m_OutputSeen)
    {
        m_OutputSeen = true;
        LogInfo("The first output of a job is shown");
    }
    const wxString connection = m_Connected ? wxGetTranslation("Connected to the master")
                                            : wxGetTranslation("No connection to the master");
    const wxString jobs =
        wxString::Format(wxGetTranslation("%d jobs: %d running, %d done, %d failed"), summary.jobs,
                         summary.running, summary.done, summary.failed);
    const wxColour colour = wxtGetColor(m_Connected ? color_TextGreen : color_TextRed);
    if (connection == m_Connection->GetLabel() && jobs == m_Summary->GetLabel() &&
        colour == m_Connection->GetForegroundColour())
    {
        return;
    }
    m_Connection->SetLabel(connection);
    m_Connection->SetForegroundColour(colour);
    m_Summary->SetLabel(jobs);
    m_Summary->SetForegroundColour(wxtGetColor(color_Text));
    m_Header->Layout();
    m_Header->Refresh();
}

void MonitorFrame::OnConnection(bool connected)
{
    if (connected == m_Connected)
    {
        return;
    }
    m_Connected = connected;
    m_Feed->OnConnection(connected);
}

void MonitorFrame::SetFollowing(bool follow)
{
    m_Log->SetFollowEnd(follow);
    if (follow)
    {
        m_Log->ScrollToBottom();
    }
}

void MonitorFrame::OnFollow(wxCommandEvent& event)
{
    SetFollowing(event.IsChecked());
}

void MonitorFrame::OnFullScreen(wxCommandEvent& event)
{
    ShowFullScreen(event.IsChecked(), wxFULLSCREEN_NOBORDER | wxFULLSCREEN_NOCAPTION);
}

void MonitorFrame::OnAbout(wxCommandEvent&)
{
    wxMessageBox(wxGetTranslation("A monitor of the Tolvan render farm."),
                 wxGetTranslation("Tolvan Monitor"), wxOK | wxCENTRE, this);
}

void MonitorFrame::OnClose(wxCloseEvent& event)
{
    SaveWindowPosition();
    event.Skip();
}
