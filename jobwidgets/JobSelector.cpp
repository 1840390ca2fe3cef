#include "jobwidgets/JobSelector.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtSearchField.h"
#include "appearance/wxtStockControls.h"
#include "internal/input/PadKey.h"
#include "internal/windows/UpperFloors.h"
#include "jobwidgets/selection/ClosedGroups.h"
#include "jobwidgets/selection/JobTree.h"
#include "jobwidgets/selection/JobTreeModel.h"
#include "jobwidgets/selection/RecentJobs.h"
#include "listviews/wxDBListBody.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/intl.h>
#include <wx/listbase.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/treelist.h>

#include <algorithm>
#include <chrono>
#include <set>
#include <utility>

wxDEFINE_EVENT(wxtEVT_JOB_SELECTION, wxCommandEvent);
wxDEFINE_EVENT(wxtEVT_JOBS_PICKED, wxCommandEvent);

const String JobSelector::k_Section = "Job Selector";

namespace
{
using Clock = std::chrono::steady_clock;

constexpr int     kGap = 6;              // pixels between the parts
constexpr int     kGather = 100;         // milliseconds in which changes are gathered
constexpr int     kLeastShare = 10;      // of the time goes by before it is done again
constexpr int     kFarthestFirst = 1000; // rows among which the first job is looked for
const wxSize      kTreeSize(400, 200);
const char* const kGrouping = "Grouping";
const char* const kRecent = "Recent";
const char* const kClosed = "Closed";

OptionsFile& Options()
{
    return Application::the_Application->Options();
}

void Keep(const String& key, const String& value)
{
    const WriteLock lock(Options().Lock());
    Options().InsertSection(JobSelector::k_Section);
    Options().SetValue(JobSelector::k_Section, key, value);
}

std::vector<UID> Sorted(std::vector<UID> jobs)
{
    std::sort(jobs.begin(), jobs.end());
    jobs.erase(std::unique(jobs.begin(), jobs.end()), jobs.end());
    return jobs;
}
} // namespace

JobSelector::JobSelector(wxWindow* parent, int id, JobSet& jobs, bool singleSelection)
    : wxtPanel(parent, id),
      m_Jobs(jobs),
      m_IsSingle(singleSelection),
      m_Model(std::make_unique<jobwidgets::JobTreeModel>()),
      m_Recent(std::make_unique<jobwidgets::RecentJobs>(Options().GetValue(k_Section, kRecent))),
      m_Closed(std::make_unique<jobwidgets::ClosedGroups>(Options().GetValue(k_Section, kClosed))),
      m_Grouping(jobwidgets::GroupingNamed(Options().GetValue(k_Section, kGrouping))),
      m_Gather(kGather),
      m_Timer(this)
{
    CALL_ENTRY("JobSelector::JobSelector");
    BuildControls(singleSelection);
    BindControls();
    m_Tree->RestoreLayout(k_Section);
    ShowGrouping();
    m_Jobs.Changed.Connect(this, &JobSelector::OnJobs);
}

JobSelector::~JobSelector()
{
    DisconnectAll();
    const OptionsFile::PauseAutoWrite pause(Options());
    KeepClosedGroups();
    m_Tree->SaveLayout(k_Section);
    DestroyChildren(); // the tree asks its model as long as it is there
}

void JobSelector::BuildControls(bool singleSelection)
{
    m_Field = new wxtSearchField(this, wxID_ANY,
                                 wxGetTranslation("Search, user:name, state:running, -word"));
    m_Choice = new wxtChoice(this);
    for (int i = 0; i < jobwidgets::k_JobGroupings; ++i)
    {
        m_Choice->Append(jobwidgets::LabelOf(static_cast<Grouping>(i)));
    }
    m_Choice->SetToolTip(wxGetTranslation("How the jobs are grouped"));
    m_Tree = new jobwidgets::JobTree(this, *m_Model, singleSelection);
    m_Tree->SetMinSize(kTreeSize);
    m_Note = new wxtStaticText(this, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                               wxST_NO_AUTORESIZE | wxST_ELLIPSIZE_END);
    m_Note->m_ForegroundName = color_TextGrey;
    m_Note->RefreshColors();

    auto* const head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(m_Field, 1, wxALIGN_CENTRE_VERTICAL | wxRIGHT, kGap);
    head->Add(m_Choice, 0, wxALIGN_CENTRE_VERTICAL);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(head, 0, wxEXPAND | wxBOTTOM, kGap);
    whole->Add(m_Tree, 1, wxEXPAND | wxBOTTOM, kGap);
    whole->Add(m_Note, 0, wxEXPAND);
    SetSizer(whole);
}

// The events of the parts stay here: a host hears of this control.
void JobSelector::BindControls()
{
    m_Tree->Follow(*m_Field);
    m_Field->SetNext(nullptr);
    Bind(wxEVT_TEXT, [](wxCommandEvent&) {});
    Bind(wxEVT_COMBOBOX, [](wxCommandEvent&) {});
    Bind(wxEVT_TREELIST_ITEM_EXPANDING, [](wxTreeListEvent&) {});
    Bind(wxEVT_TREELIST_ITEM_EXPANDED, [](wxTreeListEvent&) {});
    Bind(wxEVT_CHOICE,
         [this](wxCommandEvent& event) { SetGrouping(static_cast<Grouping>(event.GetInt())); });
    Bind(wxEVT_LIST_ITEM_SELECTED, &JobSelector::OnSelect, this);
    Bind(wxEVT_LIST_ITEM_DESELECTED, &JobSelector::OnSelect, this);
    Bind(wxEVT_LIST_ITEM_ACTIVATED,
         [this](wxListEvent& event) { Activate(static_cast<int>(event.GetIndex())); });
    Bind(wxEVT_DBTREELIST_ARRANGED, &JobSelector::OnArranged, this);
    Bind(wxEVT_CHAR_HOOK, &JobSelector::OnKey, this);
    Bind(wxEVT_TIMER, &JobSelector::OnTimer, this);
}

void JobSelector::SetFocus()
{
    m_Field->GetField()->SetFocus();
}

// Jobs.

// On the screen soon, and all at once: thousands may come.
void JobSelector::OnJobs(JobSet::Change change)
{
    m_IsOld |=
        change != JobSet::Change::kProgress || m_Tree->IsSortedBy(jobwidgets::column_Progress);
    if (!m_Timer.IsRunning())
    {
        m_Timer.StartOnce(m_Gather);
    }
}

void JobSelector::OnTimer(wxTimerEvent&)
{
    CALL_ENTRY("JobSelector::OnTimer");
    // What changes all the time would never be shown, and no row may become another one under a
    // hand.
    if (m_Tree->IsArranging() || m_Tree->GetBody()->HasCapture() ||
        internal::g_UpperFloors.isMenuOpen())
    {
        m_Timer.StartOnce(m_Gather);
    }
    else if (std::exchange(m_IsOld, false))
    {
        TakeJobs();
    }
    else
    {
        m_Tree->GetBody()->Redraw();
    }
}

void JobSelector::TakeJobs()
{
    const auto start = Clock::now();
    if (!m_Wanted)
    {
        m_Wanted = GetSelection();
    }
    m_Model->Show(m_Jobs, m_Grouping, m_Recent->InOrder());
    m_Tree->ModelChanged();
    SelectionChanged();
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    m_Gather = std::max(kGather, kLeastShare * static_cast<int>(took.count()));
}

void JobSelector::SetGrouping(Grouping grouping)
{
    CALL_ENTRY("JobSelector::SetGrouping");
    if (grouping == m_Grouping)
    {
        return;
    }
    KeepClosedGroups();
    m_Wanted = GetSelection();
    m_Grouping = grouping;
    Keep(kGrouping, jobwidgets::NameOf(grouping));
    ShowGrouping();
}

// Without the filter at first: what is open is known for the whole tree.
void JobSelector::ShowGrouping()
{
    m_Choice->SetSelection(static_cast<int>(m_Grouping));
    m_IsFresh = true;
    m_Seen.clear();
    m_IsOld = false;
    m_Model->Show(m_Jobs, m_Grouping, m_Recent->InOrder());
    m_Tree->SetModel(nullptr);
    m_Tree->SetFilterText(String());
    m_Tree->SetModel(m_Model.get());
}

// As they are without the filter.
void JobSelector::KeepClosedGroups()
{
    m_Tree->SetFilterText(String());
    if (m_Tree->IsFiltered())
    {
        return; // it takes its time
    }
    for (const wxDBTreeNode group : m_Seen)
    {
        const int row = m_Tree->RowOf({group});
        if (row >= 0)
        {
            m_Closed->Put(m_Model->_Key(group), !m_Tree->IsOpen(row));
        }
    }
    Keep(kClosed, m_Closed->ToText());
}

void JobSelector::OpenNewGroups()
{
    std::set<int64_t> seen;
    for (const wxDBTreeNode group : m_Model->Groups())
    {
        if (m_Seen.count(group) == 0 && !m_Closed->Has(m_Model->_Key(group)))
        {
            m_Tree->Open(m_Tree->RowOf({group}));
        }
        seen.insert(group);
    }
    m_Seen = std::move(seen);
}

void JobSelector::OnArranged(wxCommandEvent&)
{
    CALL_ENTRY("JobSelector::OnArranged");
    if (!m_Tree->IsFiltered())
    {
        OpenNewGroups();
    }
    if (std::exchange(m_IsFresh, false))
    {
        m_Tree->SetFilterText(wxtFromWx(m_Field->GetValue()));
    }
    if (m_Wanted && !m_Tree->IsArranging())
    {
        SelectWanted();
    }
    SelectionChanged();
}

// Selection.

std::vector<UID> JobSelector::GetSelection() const
{
    CALL_ENTRY("JobSelector::GetSelection");
    std::vector<UID> selected;
    if (m_Wanted)
    {
        std::copy_if(m_Wanted->begin(), m_Wanted->end(), std::back_inserter(selected),
                     [this](const UID& job) { return m_Jobs.Find(job) != nullptr; });
        return selected;
    }
    std::set<UID> recent; // few: these may be there twice
    for (const wxDBTreeNode node : m_Tree->GetSelectedNodes())
    {
        const JobFacts* const job = m_Model->JobOf(node);
        const bool            isRecent = jobwidgets::JobTreeModel::IsRecent(node);
        if (job && !job->isGone &&
            (isRecent ? recent.insert(job->id).second : recent.count(job->id) == 0))
        {
            selected.push_back(job->id);
        }
    }
    return selected;
}

void JobSelector::SetSelection(const std::vector<UID>& jobs)
{
    CALL_ENTRY("JobSelector::SetSelection");
    std::vector<UID> wanted;
    std::copy_if(jobs.begin(), jobs.end(), std::back_inserter(wanted),
                 [this](const UID& job) { return m_Jobs.Find(job) != nullptr; });
    if (m_IsSingle && !wanted.empty())
    {
        wanted.resize(1);
    }
    m_IsSelecting = true;
    m_Tree->GetBody()->DeselectAll(true);
    m_IsSelecting = false;
    m_Wanted = std::move(wanted);
    m_IsToBeShown = true;
    if (std::exchange(m_IsOld, false))
    {
        TakeJobs(); // some of them may have come just now
    }
    else if (!m_Tree->IsArranging())
    {
        SelectWanted();
    }
    SelectionChanged();
}

// What the tree has not kept selected by itself, because it is in another place now.
void JobSelector::SelectWanted()
{
    const std::vector<UID> wanted = Sorted(*m_Wanted);
    m_Wanted.reset();
    const std::vector<UID> kept = Sorted(GetSelection());
    std::vector<UID>       missing;
    std::set_difference(wanted.begin(), wanted.end(), kept.begin(), kept.end(),
                        std::back_inserter(missing));
    const int first = missing.empty() ? -1 : SelectRowsOf(missing);
    if (std::exchange(m_IsToBeShown, false) && !missing.empty())
    {
        m_Tree->EnsureVisible(first);
        if (!m_Field->GetValue().empty() && Sorted(GetSelection()) != wanted)
        {
            m_Wanted = wanted;
            m_Field->ChangeValue(wxString());
            m_Tree->SetFilterText(String());
        }
    }
}

// The first row of theirs, or -1. `jobs`: in ascending order.
int JobSelector::SelectRowsOf(const std::vector<UID>& jobs)
{
    for (const wxDBTreeNode group : m_Model->GroupsWith(jobs))
    {
        m_Tree->Open(m_Tree->RowOf({group}));
    }
    int first = -1;
    m_IsSelecting = true;
    for (int row = 0; row < m_Tree->GetItemCount(); ++row)
    {
        const wxDBTreeNode    node = m_Tree->NodeAt(row);
        const JobFacts* const job = m_Model->JobOf(node);
        if (job && !jobwidgets::JobTreeModel::IsRecent(node) &&
            std::binary_search(jobs.begin(), jobs.end(), job->id))
        {
            m_Tree->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
            first = first < 0 ? row : first;
        }
    }
    m_IsSelecting = false;
    if (first >= 0)
    {
        m_Tree->SetLastSelect(first);
    }
    return first;
}

// While jobs are on their way to other places, what the tree loses is not what the user has
// deselected; what is selected by hand then is all that counts.
void JobSelector::OnSelect(wxListEvent& event)
{
    if (m_IsSelecting)
    {
        return;
    }
    if (event.GetEventType() == wxEVT_LIST_ITEM_SELECTED)
    {
        m_Wanted.reset();
        m_IsToBeShown = false;
    }
    SelectionChanged();
}

void JobSelector::SelectionChanged()
{
    if (!std::exchange(m_IsToBeTold, true))
    {
        CallAfter(&JobSelector::TellSelection);
    }
}

void JobSelector::TellSelection()
{
    m_IsToBeTold = false;
    std::vector<UID> selected = Sorted(GetSelection());
    ShowNote(selected.size());
    if (selected != m_Told)
    {
        m_Told = std::move(selected);
        Tell(wxtEVT_JOB_SELECTION);
    }
}

// Last in whatever calls it: a handler may destroy the control.
void JobSelector::Tell(wxEventType type)
{
    wxCommandEvent event(type, GetId());
    event.SetEventObject(this);
    ProcessWindowEvent(event);
}

void JobSelector::ShowNote(size_t selected)
{
    const size_t   count = m_Jobs.GetCount();
    const wxString note =
        count == 0 ? wxString(wxGetTranslation("No jobs"))
        : selected == 0
            ? wxString::Format(wxGetTranslation("Jobs: %zu"), count)
            : wxString::Format(wxGetTranslation("Selected: %zu of %zu"), selected, count);
    if (note != m_Note->GetLabel())
    {
        m_Note->SetLabel(note);
    }
}

// Input.

void JobSelector::SelectRow(int row)
{
    wxDBListBody& body = *m_Tree->GetBody();
    if (body.DeselectAll(false) &&
        body.SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row))
    {
        m_Tree->SetLastSelect(row);
        m_Tree->EnsureVisible(row);
    }
}

void JobSelector::Activate(int row)
{
    if (row < 0 || row >= m_Tree->GetItemCount())
    {
        return;
    }
    if (!m_Model->JobOf(m_Tree->NodeAt(row)))
    {
        m_Tree->IsOpen(row) ? m_Tree->Close(row) : m_Tree->Open(row);
        return;
    }
    if (!m_Tree->IsRowSelected(row))
    {
        SelectRow(row); // the keys have gone there without selecting
    }
    Pick();
}

// Before a dialog takes Enter for its default button; the toolkit keeps from the tree what it does
// not.
void JobSelector::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("JobSelector::OnKey");
    const int  key = event.HasAnyModifiers() ? 0 : internal::OffThePad(event.GetKeyCode());
    const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    const wxWindow* const focus = FindFocus();
    if (isEnter && focus == m_Tree->GetBody())
    {
        Activate(m_Tree->GetFocusRow());
    }
    else if (focus != m_Field->GetField() || (!isEnter && key != WXK_DOWN))
    {
        event.Skip();
    }
    else if (isEnter && !GetSelection().empty())
    {
        Pick();
    }
    else
    {
        EnterTree();
    }
}

void JobSelector::EnterTree()
{
    const wxWeakRef<JobSelector> self(this);
    m_Tree->SetFocus();
    if (!self || IsBeingDeleted() || !GetSelection().empty())
    {
        return;
    }
    for (int row = 0; row < std::min(m_Tree->GetItemCount(), kFarthestFirst); ++row)
    {
        if (m_Model->JobOf(m_Tree->NodeAt(row)))
        {
            SelectRow(row);
            return;
        }
    }
}

void JobSelector::RememberPicked()
{
    CALL_ENTRY("JobSelector::RememberPicked");
    m_Recent->Add(GetSelection());
    Keep(kRecent, m_Recent->ToText());
    OnJobs(JobSet::Change::kJobs);
}

void JobSelector::Pick()
{
    const wxWeakRef<JobSelector> self(this);
    if (GetSelection().empty())
    {
        return;
    }
    RememberPicked();
    TellSelection();
    if (self && !IsBeingDeleted())
    {
        Tell(wxtEVT_JOBS_PICKED);
    }
}
