#include "monitor/JobsPane.h"

#include "monitor/FilterBar.h"
#include "monitor/FrameList.h"
#include "monitor/FrameThumbnail.h"
#include "monitor/JobList.h"
#include "monitor/JobsView.h"

#include "appearance/wxtSearchField.h"
#include "appearance/wxtSplitterWindow.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/Application.h"

#include <wx/sizer.h>

#include <algorithm>
#include <utility>

namespace
{
constexpr int     kListHeight = 200; // pixels, before anything is known
constexpr int     kGap = 4;          // pixels between frames, picture and details
const char* const kName = "JobsPane";
} // namespace

JobsPane::JobsPane(wxWindow* parent, FarmJobs& jobs, Actions actions)
    : wxtPanel(parent),
      m_Actions(std::move(actions)),
      m_Splitter(new wxtSplitterWindow(this, kName))
{
    BuildList(jobs);
    BuildLower(jobs);
    m_Splitter->Split(m_JobsPart.whole, m_Lower, kListHeight);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Splitter, 1, wxEXPAND);
    SetSizer(sizer);
    ShowFramesInTree(m_List->ShowsFrames());
}

void JobsPane::BuildList(FarmJobs& jobs)
{
    auto* const whole = new wxtPanel(m_Splitter);
    m_List = new JobList(whole, jobs,
                         {m_Actions.open, [this] { SelectionChanged(); }, m_Actions.showMenu});
    auto* const bar =
        new FilterBar(whole, *m_List, wxGetTranslation("Filter jobs: words, -word, state:failed"));
    m_List->Follow(bar->GetField());
    m_JobsPart = {whole, m_List, bar};
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(bar, 0, wxEXPAND);
    sizer->Add(m_List, 1, wxEXPAND);
    whole->SetSizer(sizer);
}

void JobsPane::BuildLower(FarmJobs& jobs)
{
    m_Lower = new wxtPanel(m_Splitter);
    auto* const whole = new wxtPanel(m_Lower);
    m_Frames = new FrameList(whole, jobs, [this] { SelectionChanged(); });
    auto* const bar = new FilterBar(whole, *m_Frames,
                                    wxGetTranslation("Filter frames: words, -word, state:done"));
    m_Frames->Arranger().Follow(bar->GetField());
    m_FramesPart = {whole, m_Frames, bar};
    auto* const frames = new wxBoxSizer(wxVERTICAL);
    frames->Add(bar, 0, wxEXPAND);
    frames->Add(m_Frames, 1, wxEXPAND);
    whole->SetSizer(frames);
    m_Picture = new FrameThumbnail(m_Lower, jobs);
    m_Details = new JobsView(m_Lower, jobs, m_Actions.open);
    auto* const sizer = new wxBoxSizer(wxHORIZONTAL);
    sizer->Add(whole, 2, wxEXPAND | wxRIGHT, kGap);
    sizer->Add(m_Picture, 1, wxEXPAND | wxRIGHT, kGap);
    sizer->Add(m_Details, 2, wxEXPAND);
    m_Lower->SetSizer(sizer);
}

// A selection of thousands is told row by row; it is shown once.
void JobsPane::SelectionChanged()
{
    if (!std::exchange(m_IsDue, true))
    {
        CallAfter(&JobsPane::ShowSelected);
    }
}

void JobsPane::ShowSelected()
{
    m_IsDue = false;
    if (m_List->IsArranging() || m_List->IsSelecting())
    {
        return; // it tells once more afterwards
    }
    std::vector<String> selected = m_List->SelectedJobs();
    if (selected != m_Selected)
    {
        m_Selected = std::move(selected);
        m_Actions.selected(m_Selected);
        m_Frames->ShowJob(m_Selected.empty() ? String() : m_Selected.front());
        m_Details->ShowOnly(m_Selected);
    }
    ShowPicture();
}

void JobsPane::ShowPicture()
{
    const std::vector<FrameId> frames = m_List->SelectedFrames();
    m_Picture->ShowFrame(frames.empty() ? FrameId{m_Frames->GetJob(), m_Frames->SelectedFrame()}
                                        : frames.front());
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

void JobsPane::LoadAnew()
{
    m_List->LoadAnew();
    m_Frames->LoadAnew();
    m_Picture->LoadAnew();
}

JobGrouping JobsPane::GetGrouping() const
{
    return m_List->GetGrouping();
}

void JobsPane::SetGrouping(JobGrouping grouping)
{
    m_List->SetGrouping(grouping);
}

bool JobsPane::ShowsFramesInTree() const
{
    return m_List->ShowsFrames();
}

// One of the two views of the frames is enough.
void JobsPane::ShowFramesInTree(bool show)
{
    if (show != m_List->ShowsFrames())
    {
        m_List->ShowFrames(show);
    }
    if (show && m_Frames->GetBody()->HasFocus())
    {
        m_List->SetFocus();
    }
    m_FramesPart.whole->Show(!show);
    m_Lower->Layout();
}

const JobsPane::Filtered* JobsPane::FindFocused() const
{
    for (const Filtered* const part : {&m_JobsPart, &m_FramesPart})
    {
        if (part->list->IsDescendant(FindFocus()))
        {
            return part;
        }
    }
    return nullptr;
}

bool JobsPane::HasListFocus() const
{
    return FindFocused() != nullptr;
}

void JobsPane::CopyRows()
{
    const Filtered* const part = FindFocused();
    (part ? part : &m_JobsPart)->list->CopySelection();
}

void JobsPane::SelectAllRows()
{
    const Filtered* const part = FindFocused();
    (part ? part : &m_JobsPart)->list->SelectAllRows();
}

void JobsPane::OpenFilter()
{
    const Filtered* const part = FindFocused();
    (part ? part : &m_JobsPart)->bar->Open();
}

int JobsPane::ListHeight(int jobs) const
{
    const int rows = std::max(m_List->GetItemCount(), jobs) + 1; // one more says that it is all
    return m_List->GetHeader()->GetSize().y + rows * m_List->GetRowHeight();
}

bool JobsPane::IsSashRemembered() const
{
    return m_Splitter->IsRemembered();
}

void JobsPane::SetListHeight(int height)
{
    m_Splitter->SetSashPosition(height);
}
