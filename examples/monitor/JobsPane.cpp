#include "monitor/JobsPane.h"

#include "monitor/FrameList.h"
#include "monitor/JobList.h"
#include "monitor/JobsView.h"

#include "appearance/wxtSplitterWindow.h"
#include "vesta/Application.h"

#include <wx/sizer.h>

#include <utility>

namespace
{
constexpr int     kListHeight = 200; // pixels, before the user has chosen
constexpr int     kGap = 4;          // pixels between frames and details
const char* const kName = "JobsPane";
} // namespace

JobsPane::JobsPane(wxWindow* parent, FarmJobs& jobs, Actions actions)
    : wxtPanel(parent),
      m_Actions(std::move(actions)),
      m_Splitter(new wxtSplitterWindow(this, kName))
{
    // A selection of thousands is told row by row; it is shown once.
    const auto selectionChanged = [this]
    {
        if (!std::exchange(m_IsDue, true))
        {
            CallAfter(&JobsPane::ShowSelected);
        }
    };
    m_List = new JobList(m_Splitter, jobs, {m_Actions.open, selectionChanged, m_Actions.showMenu});
    BuildLower(*m_Splitter, jobs);
    m_Splitter->Split(m_List, m_Lower, kListHeight);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Splitter, 1, wxEXPAND);
    SetSizer(sizer);
}

void JobsPane::BuildLower(wxtSplitterWindow& splitter, FarmJobs& jobs)
{
    m_Lower = new wxtPanel(&splitter);
    m_Frames = new FrameList(m_Lower, jobs);
    m_Details = new JobsView(m_Lower, jobs, m_Actions.open);
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(m_Frames, 1, wxEXPAND | wxRIGHT, kGap);
    sizer->Add(m_Details, 1, wxEXPAND);
    m_Lower->SetSizer(sizer);
}

void JobsPane::ShowSelected()
{
    m_IsDue = false;
    const std::vector<String> selected = m_List->SelectedJobs();
    const String              first = selected.empty() ? String() : selected.front();
    m_Actions.selected(selected);
    m_Frames->ShowJob(first);
    m_Details->ShowOnly(selected);
}

void JobsPane::SaveLayout()
{
    const OptionsFile::PauseAutoWrite pause(Application::the_Application->Options());
    m_List->SaveLayout();
    m_Frames->SaveLayout();
    m_Splitter->SaveSash();
}

void JobsPane::SetFocus()
{
    m_List->SetFocus();
}

void JobsPane::CopyRows()
{
    m_List->CopySelection();
}
