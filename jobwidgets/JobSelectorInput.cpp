#include "jobwidgets/JobSelector.h"

#include "appearance/wxtSearchField.h"
#include "appearance/wxtStockControls.h"
#include "internal/input/PadKey.h"
#include "internal/text/Digits.h"
#include "jobwidgets/selection/JobTree.h"
#include "jobwidgets/selection/JobTreeModel.h"
#include "jobwidgets/selection/RecentJobs.h"
#include "listviews/wxDBListBody.h"
#include "vesta/CallEntry.h"

#include <wx/intl.h>
#include <wx/listbase.h>
#include <wx/textctrl.h>
#include <wx/weakref.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

// What is selected and picked.

namespace
{
constexpr int kFarthestFirst = 1000; // rows among which the first job is looked for

using Known = std::pair<int64_t, UID>; // a job's number and identifier

// By their numbers: to compare identifiers takes longer.
template <class Visit> std::vector<Known> Sorted(const Visit& visitJobs)
{
    std::vector<Known> known;
    visitJobs([&known](const JobSet::Facts& job) { known.emplace_back(job->number, job->id); });
    std::sort(known.begin(), known.end());
    known.erase(std::unique(known.begin(), known.end()), known.end());
    return known;
}

// A job that has gone and is there again has another number.
bool AreSame(const std::vector<Known>& left, const std::vector<Known>& right)
{
    if (left == right || left.size() != right.size())
    {
        return left.size() == right.size();
    }
    const auto sortedIds = [](const std::vector<Known>& jobs)
    {
        std::vector<UID> ids;
        std::transform(jobs.begin(), jobs.end(), std::back_inserter(ids),
                       [](const Known& job) { return job.second; });
        std::sort(ids.begin(), ids.end());
        return ids;
    };
    return sortedIds(left) == sortedIds(right);
}
} // namespace

std::vector<UID> JobSelector::GetSelection() const
{
    CALL_ENTRY("JobSelector::GetSelection");
    std::vector<UID> selected;
    VisitSelected([&selected](const JobSet::Facts& job) { selected.push_back(job->id); });
    return selected;
}

JobSelector::Jobs JobSelector::SelectedJobs() const
{
    Jobs selected;
    VisitSelected([&selected](const JobSet::Facts& job) { selected.push_back(job); });
    return selected;
}

// Those that the tree shows as selected, or is going to.
void JobSelector::VisitSelected(const std::function<void(const JobSet::Facts&)>& visit) const
{
    if (!m_Wanted)
    {
        VisitInTree(visit);
        return;
    }
    for (const JobSet::Facts& job : *m_Wanted)
    {
        const JobSet::Facts again = job->isGone ? m_Jobs.Find(job->id) : nullptr;
        if (again || !job->isGone)
        {
            visit(again ? again : job);
        }
    }
}

void JobSelector::VisitInTree(const std::function<void(const JobSet::Facts&)>& visit) const
{
    if (!m_Tree->FinishSelecting())
    {
        return;
    }
    std::set<int64_t> recent; // few: these may be there twice
    for (const wxDBTreeNode node : m_Tree->GetSelectedNodes())
    {
        const JobSet::Facts* const job = m_Model->FactsOf(node);
        const bool                 isRecent = jobwidgets::JobTreeModel::IsRecent(node);
        if (job && !(*job)->isGone &&
            (isRecent ? recent.insert((*job)->number).second : recent.count((*job)->number) == 0))
        {
            visit(*job);
        }
    }
}

void JobSelector::SetSelection(const std::vector<UID>& jobs)
{
    CALL_ENTRY("JobSelector::SetSelection");
    Jobs wanted = m_Jobs.Find(jobs);
    if (m_IsSingle && !wanted.empty())
    {
        wanted.resize(1);
    }
    m_Tree->ChangeSelection({}, false);
    m_Tree->SetLastSelect(-1);
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
    const auto inTree = [this](const auto& visit) { VisitInTree(visit); };
    Jobs       jobs = SelectedJobs();
    m_Wanted.reset();
    const std::vector<Known> wanted =
        Sorted([&jobs](const auto& visit) { std::for_each(jobs.begin(), jobs.end(), visit); });
    const std::vector<Known> kept = Sorted(inTree);
    std::vector<Known>       missing;
    std::set_difference(wanted.begin(), wanted.end(), kept.begin(), kept.end(),
                        std::back_inserter(missing));
    std::vector<int64_t> numbers;
    std::transform(missing.begin(), missing.end(), std::back_inserter(numbers),
                   [](const Known& job) { return job.first; });
    const int first = missing.empty() ? -1 : SelectRowsOf(numbers);
    if (std::exchange(m_IsToBeShown, false) && !missing.empty())
    {
        m_Tree->EnsureVisible(first);
        if (!m_Field->GetValue().empty() && Sorted(inTree) != wanted)
        {
            m_Wanted = std::move(jobs);
            m_Field->ChangeValue(wxString());
            m_Tree->SetFilterText(String());
        }
    }
}

// The first row of theirs, or -1. `jobs`: their numbers, in ascending order.
int JobSelector::SelectRowsOf(const std::vector<int64_t>& jobs)
{
    int        first = -1;
    const auto selectFrom = [&](int row, int level)
    {
        std::vector<int> rows;
        for (; row < m_Tree->GetItemCount() && m_Tree->GetLevel(row) >= level; ++row)
        {
            const int64_t number = jobwidgets::JobTreeModel::NumberOf(m_Tree->NodeAt(row));
            if (number > 0 && std::binary_search(jobs.begin(), jobs.end(), number))
            {
                rows.push_back(row);
            }
        }
        m_Tree->ChangeSelection(rows, true);
        if (!rows.empty() && (first < 0 || rows.front() < first))
        {
            first = rows.front();
        }
    };
    for (const wxDBTreeNode group : m_Model->GroupsWith(jobs))
    {
        const int row = m_Tree->RowOf({group});
        if (row >= 0 && m_Tree->Open(row))
        {
            selectFrom(row + 1, 1);
        }
    }
    if (m_Grouping == Grouping::kNone)
    {
        selectFrom(0, 0);
    }
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
    if (m_Tree->IsSelecting() || m_Tree->IsReselecting())
    {
        return; // there is more to come
    }
    std::vector<Known> selected = Sorted([this](const auto& visit) { VisitSelected(visit); });
    ShowNote(selected.size());
    const bool isOther = !AreSame(selected, m_Told);
    m_Told = std::move(selected);
    if (isOther)
    {
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
    const wxString all = internal::Grouped(static_cast<long long>(count));
    const wxString note =
        count == 0 ? wxString(wxGetTranslation("No jobs"))
        : selected == 0
            ? wxString::Format(wxGetTranslation("Jobs: %s"), all)
            : wxString::Format(wxGetTranslation("Selected: %s of %s"),
                               internal::Grouped(static_cast<long long>(selected)), all);
    if (note != m_Note->GetLabel())
    {
        m_Note->SetLabel(note);
    }
}

void JobSelector::SelectRow(int row)
{
    if (m_Tree->GetBody()->SelectOnly(row, wxPoint(0, 0)))
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
