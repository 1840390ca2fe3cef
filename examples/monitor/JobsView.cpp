#include "monitor/JobsView.h"

#include "monitor/JobSelection.h"

#include "appearance/wxtScrolledPane.h"
#include "appearance/wxtStockControls.h"

#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace
{
constexpr int kBorder = 8; // pixels
constexpr int kGap = 2;    // pixels between panels

using Clock = std::chrono::steady_clock;

// Panels take time to make: not all at once, or the window would stop.
constexpr auto kSlice = std::chrono::milliseconds(10);
constexpr int  kPause = 5; // milliseconds between slices
} // namespace

JobsView::JobsView(wxWindow* parent, FarmJobs& jobs, JobPanel::OpenJob open)
    : wxtPanel(parent), m_Jobs(jobs), m_Open(std::move(open))
{
    m_Note = new wxtStaticText(this, wxID_ANY, wxString());
    m_Note->m_ForegroundName = color_TextGrey;
    m_Note->KeepReadable();
    m_Pane = new wxtScrolledPane(this);
    m_Pane->SetSizer(new wxBoxSizer(wxVERTICAL));
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_Note, 0, wxEXPAND | wxALL, kBorder);
    sizer->Add(m_Pane, 1, wxEXPAND | wxLEFT, kBorder);
    SetSizer(sizer);
    ShowNote(0, 0);
    m_More.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { BringUpToDate(); });
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
    m_IsOnlyKnown &= !news.isAnyGone;
    m_Stale.insert(news.changed.begin(), news.changed.end());
}

void JobsView::OnTick()
{
    BringUpToDate();
}

void JobsView::BringUpToDate()
{
    m_End = Clock::now() + kSlice;
    const std::set<String> stale = std::exchange(m_Stale, {});
    bool                   isOther = std::exchange(m_IsListStale, false);
    if (isOther)
    {
        RefreshList();
    }
    for (const auto& [id, panel] : m_Panels)
    {
        const FarmJob* const job = m_Jobs.Find(id);
        const bool           isStale = stale.count(id) > 0;
        // The time that has passed changes by itself.
        if (!job || (!isStale && !job->IsUnderWay()))
        {
            continue;
        }
        if (Clock::now() < m_End)
        {
            isOther |= panel->ShowJob(*job);
        }
        else if (isStale)
        {
            m_Stale.insert(id);
        }
    }
    if (isOther)
    {
        m_Pane->FitInside();
        m_Pane->Layout();
    }
    if (m_IsListStale || !m_Stale.empty())
    {
        m_More.StartOnce(kPause);
    }
}

void JobsView::RefreshList()
{
    // What the user has opened must not vanish because its job is done.
    std::set<const FarmJob*> open;
    for (const auto& [id, panel] : m_Panels)
    {
        if (panel->IsExpanded())
        {
            open.insert(m_Jobs.Find(id));
        }
    }
    const auto isOpen = [&open](const FarmJob& job) { return open.count(&job) > 0; };
    const std::vector<const FarmJob*>& all = Candidates();
    const std::vector<const FarmJob*>  shown = SelectJobs(all, k_MostPanels, isOpen);
    Freeze();
    std::vector<JobPanel*> leaving = TakeLeaving(shown);
    m_IsListStale = !AddMissing(shown, leaving);
    if (m_IsListStale)
    {
        KeepSpare(leaving);
    }
    DropPanels(leaving);
    ArrangePanels();
    ShowNote(shown.size(), all.size());
    Thaw();
}

// The panels of jobs that are not shown any more.
std::vector<JobPanel*> JobsView::TakeLeaving(const std::vector<const FarmJob*>& shown)
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
    std::vector<JobPanel*> leaving;
    for (const auto& [id, panel] : m_Panels)
    {
        leaving.push_back(panel);
    }
    m_Panels = std::move(kept);
    return leaving;
}

// As many as a slice allows, one at least; false when there are more to come.
bool JobsView::AddMissing(const std::vector<const FarmJob*>& shown, std::vector<JobPanel*>& leaving)
{
    bool isComplete = true;
    bool isOver = false;
    for (const FarmJob* const job : shown)
    {
        if (m_Panels.count(job->id) > 0)
        {
            continue;
        }
        if (isOver)
        {
            isComplete = false;
            break;
        }
        JobPanel* const spare = TakeSpare(*job, leaving);
        m_Panels[job->id] = spare ? spare : new JobPanel(m_Pane, m_Jobs, *job, m_Open);
        isOver = Clock::now() >= m_End;
    }
    return isComplete;
}

// Those that may become another job's in a moment are still there until then.
void JobsView::KeepSpare(std::vector<JobPanel*>& leaving)
{
    const auto isKept = [this](JobPanel* panel)
    {
        const bool isSpare = panel->IsSpare() && m_Jobs.Find(panel->GetJob());
        if (isSpare)
        {
            m_Panels[panel->GetJob()] = panel;
        }
        return isSpare;
    };
    leaving.erase(std::remove_if(leaving.begin(), leaving.end(), isKept), leaving.end());
}

// One that becomes the job's; null when there is none for it.
JobPanel* JobsView::TakeSpare(const FarmJob& job, std::vector<JobPanel*>& leaving)
{
    const auto spare = std::find_if(leaving.begin(), leaving.end(),
                                    [](const JobPanel* panel) { return panel->IsSpare(); });
    if (spare == leaving.end() || !(*spare)->Become(job))
    {
        return nullptr;
    }
    JobPanel* const panel = *spare;
    leaving.erase(spare);
    return panel;
}

void JobsView::DropPanels(const std::vector<JobPanel*>& leaving)
{
    for (JobPanel* const panel : leaving)
    {
        const bool hadFocus = panel->IsDescendant(FindFocus());
        panel->Destroy();
        if (hadFocus)
        {
            m_Pane->SetFocus(); // or the keyboard would have lost its place
        }
    }
}

// In the order of the jobs' coming, the latest first.
void JobsView::ArrangePanels()
{
    std::vector<std::pair<uint64_t, JobPanel*>> panels;
    for (const auto& [id, panel] : m_Panels)
    {
        panels.emplace_back(m_Jobs.Find(id)->number, panel);
    }
    std::sort(panels.rbegin(), panels.rend());
    wxSizer* const sizer = m_Pane->GetSizer();
    sizer->Clear(false);
    JobPanel* previous = nullptr;
    for (const auto& [number, panel] : panels)
    {
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
        m_IsOnlyKnown = false;
        m_IsListStale = true;
    }
}

const std::vector<const FarmJob*>& JobsView::Candidates()
{
    if (!std::exchange(m_IsOnlyKnown, true) || m_OnlyJobs.size() < m_Only.size())
    {
        m_OnlyJobs.clear();
        for (const String& id : m_Only)
        {
            if (const FarmJob* const job = m_Jobs.Find(id))
            {
                m_OnlyJobs.push_back(job);
            }
        }
    }
    return m_OnlyJobs.empty() ? m_Jobs.InOrder() : m_OnlyJobs;
}
