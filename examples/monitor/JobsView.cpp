#include "monitor/JobsView.h"

#include "monitor/JobSelection.h"

#include "appearance/wxtScrolledPane.h"
#include "appearance/wxtStockControls.h"

#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>
#include <utility>

namespace
{
constexpr int kBorder = 8; // pixels
constexpr int kGap = 2;    // pixels between panels
} // namespace

JobsView::JobsView(wxWindow* parent, FarmJobs& jobs, JobPanel::OpenJob open)
    : wxtPanel(parent), m_Jobs(jobs), m_Open(std::move(open))
{
    m_Note = new wxtStaticText(this, wxID_ANY, wxString());
    m_Note->m_ForegroundName = color_TextGrey;
    m_Note->RefreshColors();
    m_Pane = new wxtScrolledPane(this);
    m_Pane->SetSizer(new wxBoxSizer(wxVERTICAL));
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Note, 0, wxEXPAND | wxALL, kBorder);
    sizer->Add(m_Pane, 1, wxEXPAND | wxLEFT, kBorder);
    SetSizer(sizer);
    ShowNote(0, 0);
    m_Jobs.Changed.Connect(this, [this](const FarmJobs::News& news) { OnNews(news); });
}

JobsView::~JobsView()
{
    DisconnectAll();
}

void JobsView::SetFocus()
{
    m_Pane->SetFocus();
}

void JobsView::OnNews(const FarmJobs::News& news)
{
    m_IsListStale |= news.isListChanged;
    m_Stale.insert(news.changed.begin(), news.changed.end());
}

void JobsView::OnTick()
{
    const std::set<String> stale = std::exchange(m_Stale, {});
    bool                   isOther = std::exchange(m_IsListStale, false);
    if (isOther)
    {
        RefreshList();
    }
    for (const auto& [id, panel] : m_Panels)
    {
        const FarmJob* const job = m_Jobs.Find(id);
        // The time that has passed changes by itself.
        if (job && (stale.count(id) > 0 || job->IsUnderWay()))
        {
            isOther |= panel->ShowJob(*job);
        }
    }
    if (isOther)
    {
        m_Pane->FitInside();
        m_Pane->Layout();
    }
}

void JobsView::RefreshList()
{
    // What the user has opened must not vanish because its job is done.
    const auto isOpen = [this](const FarmJob& job)
    {
        const auto panel = m_Panels.find(job.id);
        return panel != m_Panels.end() && panel->second->IsExpanded();
    };
    const std::vector<const FarmJob*> all = Candidates();
    const std::vector<const FarmJob*> shown = SelectJobs(all, k_MostPanels, isOpen);
    Freeze();
    DropPanels(shown);
    ArrangePanels(shown);
    ShowNote(shown.size(), all.size());
    Thaw();
}

void JobsView::DropPanels(const std::vector<const FarmJob*>& shown)
{
    std::map<String, JobPanel*> kept;
    for (const FarmJob* const job : shown)
    {
        if (const auto found = m_Panels.find(job->id); found != m_Panels.end())
        {
            kept.insert(*found);
            m_Panels.erase(found);
        }
    }
    for (const auto& [id, panel] : m_Panels)
    {
        const bool hadFocus = panel->IsDescendant(FindFocus());
        panel->Destroy();
        if (hadFocus)
        {
            m_Pane->SetFocus(); // or the keyboard would have lost its place
        }
    }
    m_Panels = std::move(kept);
}

void JobsView::ArrangePanels(const std::vector<const FarmJob*>& shown)
{
    wxSizer* const sizer = m_Pane->GetSizer();
    sizer->Clear(false);
    JobPanel* previous = nullptr;
    for (const FarmJob* const job : shown)
    {
        JobPanel*& panel = m_Panels[job->id];
        if (!panel)
        {
            panel = new JobPanel(m_Pane, m_Jobs, *job, m_Open);
        }
        // The Tab key goes through them as they stand.
        if (previous)
        {
            panel->MoveAfterInTabOrder(previous);
        }
        sizer->Add(panel, 0, wxEXPAND | wxBOTTOM, kGap);
        previous = panel;
    }
}

void JobsView::ShowNote(size_t shown, size_t all)
{
    if (m_Jobs.InOrder().empty())
    {
        m_Note->SetLabel(wxGetTranslation("No jobs yet. Submit one with Ctrl+N."));
    }
    else if (shown < all)
    {
        m_Note->SetLabel(wxString::Format(
            m_Only.empty() ? wxGetTranslation("%zu of %zu jobs: the running ones and the latest")
                           : wxGetTranslation("%zu of %zu selected jobs"),
            shown, all));
    }
    m_Note->Show(shown < all || m_Jobs.InOrder().empty());
    Layout();
}

void JobsView::ShowOnly(std::vector<String> ids)
{
    if (ids != m_Only)
    {
        m_Only = std::move(ids);
        m_IsListStale = true;
    }
}

std::vector<const FarmJob*> JobsView::Candidates() const
{
    std::vector<const FarmJob*> jobs;
    for (const String& id : m_Only)
    {
        if (const FarmJob* const job = m_Jobs.Find(id))
        {
            jobs.push_back(job);
        }
    }
    return jobs.empty() ? m_Jobs.InOrder() : jobs;
}
