#include "monitor/JobPanel.h"

#include "monitor/FarmJobs.h"
#include "monitor/JobCommands.h"
#include "monitor/JobDetails.h"
#include "monitor/PanelMemory.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtScrolledPane.h"
#include "jobwidgets/JobColors.h"
#include "vesta/Application.h"

#include <wx/app.h>
#include <wx/control.h>
#include <wx/dcclient.h>
#include <wx/utils.h>

#include <utility>

namespace
{
constexpr int kIndent = 20; // pixels, of the content
constexpr int kGap = 6;     // pixels
} // namespace

JobPanel::JobPanel(wxWindow* parent, const FarmJobs& jobs, const FarmJob& job, OpenJob open)
    : wxExpandablePanel(parent, wxVERTICAL), m_Jobs(jobs), m_Id(job.id), m_Open(std::move(open))
{
    m_Section = k_PanelSection;
    m_Key = PanelKey(job.name);
    CreateInfrastructure(wxGetTranslation("Shows or hides the job's details"), true);
    UnsetToolTip(); // over the details it would only be in the way
    Bind(wxEVT_BUTTON, &JobPanel::OnToggle, this, id_Expand);
    Bind(wxEVT_SIZE,
         [this](wxSizeEvent& event)
         {
             event.Skip();
             FitCaption();
         });
    if (IsExpanded())
    {
        BuildContent();
    }
    ShowJob(job);
}

bool JobPanel::ShowJob(const FarmJob& job)
{
    ShowCaption(job);
    return ShowDetails(job);
}

bool JobPanel::IsSpare() const
{
    return !m_Details && !IsExpanded() && !IsDescendant(FindFocus()) &&
           !wxGetMouseState().LeftIsDown();
}

bool JobPanel::Become(const FarmJob& job)
{
    const String key = PanelKey(job.name);
    if (Application::the_Application->Options().GetBool(k_PanelSection, key, false))
    {
        return false;
    }
    m_Id = job.id;
    m_Key = key;
    ShowJob(job);
    return true;
}

void JobPanel::ShowCaption(const FarmJob& job)
{
    // The state decides on the colour and is part of the text.
    const String text = JobCaption(job);
    if (text == std::exchange(m_ShownCaption, text))
    {
        return;
    }
    if (auto* const label = dynamic_cast<wxtStaticText*>(FindWindow(id_Caption)))
    {
        label->m_ForegroundName = wxtJobStateColor(job.state);
        label->KeepReadable();
    }
    FitCaption();
}

// As much as there is room for: the state is at its end.
void JobPanel::FitCaption()
{
    wxWindow* const caption = FindWindow(id_Caption);
    if (!caption)
    {
        return;
    }
    const wxClientDC dc(caption);
    const int        room = GetClientSize().x - caption->GetPosition().x;
    const wxString   text = wxtToWx(m_ShownCaption);
    const wxString   fitting =
        wxControl::Ellipsize(text, dc, wxELLIPSIZE_MIDDLE, room, wxELLIPSIZE_FLAGS_NONE);
    m_CollapsedCaption = wxControl::EscapeMnemonics(fitting);
    m_ExpandedCaption = m_CollapsedCaption;
    if (caption->GetLabel() != m_CollapsedCaption)
    {
        caption->SetLabel(m_CollapsedCaption);
        Layout();
    }
}

bool JobPanel::ShowDetails(const FarmJob& job)
{
    if (!m_Details || !IsExpanded())
    {
        return false;
    }
    m_Kill->Enable(job.CurrentPhase() != FarmJob::kEnded);
    return m_Details->Show(JobPanelRows(job, Time::CurrentTime()));
}

void JobPanel::BuildContent()
{
    m_Details = new JobDetails(this);
    auto* const open = new wxtButton(this, wxID_ANY, wxGetTranslation("Open"));
    m_Kill = new wxtButton(this, wxID_ANY, wxGetTranslation("Kill"));
    open->SetToolTip(wxGetTranslation("Opens the job in a window of its own"));
    m_Kill->SetToolTip(wxGetTranslation("Ends the job"));
    open->Bind(wxEVT_BUTTON, &JobPanel::OnOpen, this);
    m_Kill->Bind(wxEVT_BUTTON, &JobPanel::OnKill, this);
    auto* const buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(open, 0, wxRIGHT, kGap);
    buttons->Add(m_Kill);
    auto* const content = new wxBoxSizer(wxVERTICAL);
    content->Add(m_Details, 0, wxEXPAND | wxTOP | wxRIGHT, kGap);
    content->Add(buttons, 0, wxTOP | wxBOTTOM, kGap);
    m_ContentSizer->Add(content, 0, wxEXPAND | wxLEFT, kIndent);
}

void JobPanel::OnToggle(wxCommandEvent& event)
{
    // One write for the panel's state and what is forgotten.
    OptionsFile&                      options = Application::the_Application->Options();
    const OptionsFile::PauseAutoWrite pause(options);
    if (!m_Details)
    {
        BuildContent();
    }
    OnExpand(event);
    const FarmJob* const job = m_Jobs.Find(m_Id);
    if (job && ShowDetails(*job))
    {
        Expand(); // the details have made it higher
    }
    if (auto* const pane = dynamic_cast<wxtScrolledPane*>(GetParent()))
    {
        pane->ShowChild(*this);
    }
    PrunePanelMemory(options);
}

void JobPanel::OnOpen(wxCommandEvent&)
{
    m_Open(m_Id);
}

void JobPanel::OnKill(wxCommandEvent&)
{
    const FarmJob* const job = m_Jobs.Find(m_Id);
    if (!job)
    {
        return;
    }
    // Later, and without the panel: it may go while the user is being asked.
    const wxWeakRef<wxWindow> parent(wxGetTopLevelParent(this));
    wxTheApp->CallAfter([parent, theJob = job->job] { KillJobs({theJob}, parent.get()); });
}
