#include "jobwidgets/JobSelector.h"

#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtSearchField.h"
#include "appearance/wxtStockControls.h"
#include "internal/windows/UpperFloors.h"
#include "jobwidgets/ClosedGroups.h"
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
#include <utility>

wxDEFINE_EVENT(wxtEVT_JOB_SELECTION, wxCommandEvent);
wxDEFINE_EVENT(wxtEVT_JOBS_PICKED, wxCommandEvent);

const String JobSelector::k_Section = "Job Selector";

namespace
{
using Clock = std::chrono::steady_clock;

constexpr int     kGap = 6;      // pixels between the parts
constexpr int     kGather = 100; // milliseconds in which changes are gathered
constexpr size_t  kManyWanted = 1000;
constexpr int     kLeastShare = 10; // of the time goes by before it is done again
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
} // namespace

JobSelector::JobSelector(wxWindow* parent, int id, JobSet& jobs, bool singleSelection)
    : wxtPanel(parent, id),
      m_Jobs(jobs),
      m_IsSingle(singleSelection),
      m_Model(std::make_unique<jobwidgets::JobTreeModel>()),
      m_Recent(std::make_unique<jobwidgets::RecentJobs>(Options().GetValue(k_Section, kRecent))),
      m_Closed(std::make_unique<jobwidgets::ClosedGroups>()),
      m_Grouping(
          jobwidgets::GroupingNamed(Options().GetValue(k_Section, kGrouping), Grouping::kUser)),
      m_Gather(kGather),
      m_Timer(this)
{
    CALL_ENTRY("JobSelector::JobSelector");
    BuildControls(singleSelection);
    BindControls();
    m_Tree->RestoreLayout(k_Section);
    m_Closed->Read(Options().GetValue(k_Section, kClosed));
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
    m_Note->KeepReadable();

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
        m_Wanted = SelectedJobs();
    }
    m_Closed->Note(*m_Tree);
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
    m_Wanted = SelectedJobs();
    m_Grouping = grouping;
    Keep(kGrouping, jobwidgets::NameOf(grouping));
    ShowGrouping();
}

// Without the filter at first: what is open is known for the whole tree.
void JobSelector::ShowGrouping()
{
    m_Choice->SetSelection(static_cast<int>(m_Grouping));
    m_IsFresh = true;
    m_Closed->StartAnew();
    m_IsOld = false;
    m_Model->Show(m_Jobs, m_Grouping, m_Recent->InOrder());
    m_Tree->SetModel(nullptr);
    m_Tree->SetFilterText(String());
    m_Tree->SetModel(m_Model.get());
}

void JobSelector::KeepClosedGroups()
{
    m_Closed->Note(*m_Tree);
    Keep(kClosed, m_Closed->ToText());
}

void JobSelector::OnArranged(wxCommandEvent&)
{
    CALL_ENTRY("JobSelector::OnArranged");
    m_Closed->OpenNew(*m_Tree);
    if (std::exchange(m_IsFresh, false))
    {
        m_Tree->SetFilterText(wxtFromWx(m_Field->GetValue()));
    }
    if (m_Wanted && m_Wanted->size() > kManyWanted)
    {
        CallAfter(&JobSelector::GoOnSelecting); // what was arranged has taken its time
        return;
    }
    GoOnSelecting();
}

void JobSelector::GoOnSelecting()
{
    if (m_Wanted && !m_Tree->IsArranging())
    {
        SelectWanted();
    }
    SelectionChanged();
}

void JobSelector::RememberPicked()
{
    CALL_ENTRY("JobSelector::RememberPicked");
    m_Recent->Add(GetSelection());
    Keep(kRecent, m_Recent->ToText());
    OnJobs(JobSet::Change::kJobs);
}
