#include "appearance/wxTolvanString.h"
#include "listviews/arranging/FilterColumns.h"
#include "listviews/slices/RowsAtRest.h"
#include "listviews/slices/Slices.h"
#include "listviews/tree/ChildrenOf.h"
#include "listviews/tree/TreeCarry.h"
#include "listviews/tree/TreeState.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/weakref.h>

#include <algorithm>
#include <chrono>
#include <climits>
#include <cstdint>
#include <memory>
#include <utility>

using listviews::OpenNode;
using listviews::OpenTree;
using listviews::TreeMark;
using listviews::TreePlace;
using listviews::TreeState;

/// What has to stay in sight while the rows are replaced.
struct wxDBTreeListCtrl::_Sight
{
    std::vector<TreeMark> marks;
    TreePlace             anchor;     ///< In the old tree.
    int                   offset = 0; ///< Of the reference from the view's top, pixels.
    bool                  isFocusSeen = false;
};

namespace
{
using Clock = std::chrono::steady_clock;

constexpr size_t kFewRows = 64; // between two looks at the clock
constexpr size_t kManySelected = 10000;

// The marks of what is in sight.
enum
{
    kAnchor,
    kFocus,
    kReference // the row that stays where it is on the screen
};

std::optional<uint64_t> KnownIdentity(const TreeState& tree, const TreePlace& place)
{
    const auto selected = place.parent->selected.find(place.place);
    if (selected != place.parent->selected.end())
    {
        return selected->second;
    }
    if (const OpenNode* const node = place.Opened())
    {
        return node->identity;
    }
    const auto seen = std::find_if(tree.seen.begin(), tree.seen.end(),
                                   [&place](const auto& row) { return row.place == place; });
    if (seen != tree.seen.end())
    {
        return seen->identity;
    }
    return tree.isStale ? std::nullopt
                        : std::optional(listviews::IdentityOf(
                              *tree.model, listviews::ChildAt(*tree.model, place)));
}

bool HasNode(const OpenTree& tree, wxDBTreeNode node)
{
    bool found = false;
    ForOpened(tree.Root(), [&](const OpenNode& opened) { found |= opened.node == node; });
    return found;
}
} // namespace

void wxDBTreeListCtrl::ModelChanged()
{
    CALL_ENTRY("wxDBTreeListCtrl::ModelChanged");
    m_Tree->isStale = true;
    m_Tree->row = {};
    if (m_Tree->job || m_Tree->asking > 0)
    {
        // A model that changes all the time would never be shown if each change began anew.
        m_Tree->isAgain = true;
        m_Tree->slices->GoOn();
    }
    else
    {
        StartArranging();
    }
    if (IsArranging())
    {
        GetBody()->Redraw(); // the rows that stay meanwhile, by a question for long
    }
}

void wxDBTreeListCtrl::ChildrenChanged(wxDBTreeNode node)
{
    CALL_ENTRY("wxDBTreeListCtrl::ChildrenChanged");
    if (!m_Tree->wish.filter.IsEmpty() || m_Tree->aside || HasNode(*m_Tree->shown, node))
    {
        ModelChanged();
    }
    else
    {
        GetBody()->Redraw(); // its expander
    }
}

void wxDBTreeListCtrl::SortChildren(const std::vector<wxDBTreeSort>& by)
{
    CALL_ENTRY("wxDBTreeListCtrl::SortChildren");
    m_Tree->wish.by = by;
    StartArranging();
}

void wxDBTreeListCtrl::SetFilter(const std::function<bool(wxDBTreeNode)>& matches)
{
    CALL_ENTRY("wxDBTreeListCtrl::SetFilter");
    m_Tree->wish.filter = {matches, {}};
    m_Tree->words.clear();
    StartArranging();
}

void wxDBTreeListCtrl::SetFilterText(const String& text)
{
    CALL_ENTRY("wxDBTreeListCtrl::SetFilterText");
    if (text != m_Tree->words || m_Tree->wish.filter.matches)
    {
        m_Tree->words = text;
        listviews::WarnOfWordsLeftOut(text);
        m_Tree->wish.filter = {nullptr, {text, listviews::FilterColumnsOf(*this)}};
        StartArranging();
    }
}

const String& wxDBTreeListCtrl::GetFilterText() const
{
    return m_Tree->words;
}

void wxDBTreeListCtrl::Follow(wxtSearchField& field)
{
    CALL_ENTRY("wxDBTreeListCtrl::Follow");
    m_Tree->field = &field;
    field.SetNext(this);
    field.Bind(wxEVT_TEXT, &wxDBTreeListCtrl::OnField, this);
    SetFilterText(wxtFromWx(field.GetValue()));
}

void wxDBTreeListCtrl::OnField(wxCommandEvent& event)
{
    event.Skip();
    if (m_Tree->field)
    {
        SetFilterText(wxtFromWx(m_Tree->field->GetValue()));
    }
}

bool wxDBTreeListCtrl::IsFiltered() const
{
    return m_Tree->aside != nullptr;
}

long long wxDBTreeListCtrl::GetMatchCount() const
{
    return m_Tree->matches;
}

bool wxDBTreeListCtrl::IsArranging() const
{
    return m_Tree->job || m_Tree->isDue || m_Tree->isAgain || m_Tree->isReturning;
}

bool wxDBTreeListCtrl::IsReselecting() const
{
    return m_Tree->leaving || m_Tree->isReturning;
}

// Has the tree made that is wished for, at once if that is done in a moment.
void wxDBTreeListCtrl::StartArranging()
{
    TreeState& tree = *m_Tree;
    if (tree.asking > 0)
    {
        tree.isDue = true;
        tree.slices->GoOn();
        return;
    }
    DropJob();
    tree.isDue = tree.isAgain = false;
    if (tree.model && Ask("Arranging a tree",
                          [&] {
                              tree.job = std::make_unique<listviews::ArrangeJob>(
                                  *tree.model, tree.wish, tree.Unfiltered());
                          }))
    {
        ArrangeOn();
    }
}

// What it has made until then is freed later.
void wxDBTreeListCtrl::DropJob()
{
    ++m_Tree->jobs;
    m_Tree->leaving.reset();
    m_Tree->returning.reset();
    m_Tree->isReturning = false;
    if (m_Tree->job)
    {
        m_Tree->remains.Add(m_Tree->job->Take());
        m_Tree->job.reset();
        m_Tree->slices->GoOn();
    }
}

// A tree with very many selected rows is taken in a slice of its own.
void wxDBTreeListCtrl::ArrangeOn()
{
    const bool isMade = m_Tree->job->IsDone();
    bool       isMore = true;
    const bool worked =
        Ask("Arranging a tree",
            [&] { isMore = listviews::RunSlice([this] { return m_Tree->job->Step(); }); });
    if (!worked)
    {
        DropJob(); // the old rows stay
    }
    else if (isMore || (!isMade && m_Tree->shown->SelectedCount() > kManySelected))
    {
        m_Tree->slices->GoOn();
    }
    else if (m_Tree->shown->RowCount() == 0 || listviews::MayReplaceRows(*this))
    {
        TakeArranged();
    }
    else
    {
        m_Tree->slices->LookAgain();
    }
}

// A slice of what is to be done.
void wxDBTreeListCtrl::GoOnArranging()
{
    const wxWeakRef<wxDBTreeListCtrl> self(this);
    if (m_Tree->asking > 0)
    {
        m_Tree->slices->LookAgain();
        return;
    }
    if (m_Tree->isReturning)
    {
        GoOnReturning();
    }
    else if (m_Tree->job && !m_Tree->isDue)
    {
        ArrangeOn();
    }
    // First: the trees of a model that changes all the time would pile up.
    else if (listviews::RunSlice([this] { return m_Tree->remains.Step(); }))
    {
        m_Tree->slices->GoOn();
    }
    else if (m_Tree->isDue || m_Tree->isAgain)
    {
        StartArranging();
    }
    if (self && !m_Tree->job && (IsArranging() || !m_Tree->remains.IsEmpty()))
    {
        m_Tree->slices->GoOn();
    }
}

// The tree is made: it takes the place of the one that is shown, once what it does not have is
// deselected.
void wxDBTreeListCtrl::TakeArranged()
{
    _Sight sight;
    if (!DeselectLeaving(sight))
    {
        return;
    }
    const std::unique_ptr<listviews::ArrangeJob> job = std::move(m_Tree->job);
    ++m_Tree->jobs;
    m_Tree->leaving.reset();
    ShowTree(job->Take(), job->IsFiltered(), sight);
    m_Tree->matches = job->Matches();
    if (m_Tree->field)
    {
        const int64_t total = job->IsFiltered() ? job->Total() : -1;
        m_Tree->field->SetShown(static_cast<int>(job->Matches()), static_cast<int>(total));
    }
    m_Tree->isReturning = true;
    GoOnReturning();
}

// As much as a slice allows. False when there is more to do, or when the tree that is made is not
// to be shown any more; the list may be gone then.
bool wxDBTreeListCtrl::DeselectLeaving(_Sight& sight)
{
    TreeState& tree = *m_Tree;
    const auto end = listviews::EndOfSlice();
    for (bool isFirst = true;; isFirst = false)
    {
        const std::shared_ptr<TreeState::Telling> leaving = tree.leaving;
        const bool isTold = leaving && leaving->told == leaving->rows.size();
        if (!leaving || isTold || leaving->revision != tree.revision)
        {
            if (!isFirst && Clock::now() >= end)
            {
                tree.slices->GoOn();
                return false;
            }
            std::vector<int64_t> lost;
            OpenTree&            made = tree.job->Made();
            made.DeselectIn(made.Root());
            if (!Carry(made, sight, lost))
            {
                DropJob();
                return false;
            }
            // Not again and again what the host keeps selected.
            if (lost.empty() || (isTold && lost.size() >= leaving->rows.size()))
            {
                return true;
            }
            tree.leaving = std::make_shared<TreeState::Telling>();
            tree.leaving->rows.assign(lost.rbegin(), lost.rend());
            tree.leaving->revision = tree.revision;
        }
        if (!TellLeaving(end))
        {
            return false;
        }
    }
}

// The last row first. False when there are more, or when nothing is to be told of any more.
bool wxDBTreeListCtrl::TellLeaving(Clock::time_point end)
{
    TreeState&                                tree = *m_Tree;
    const unsigned                            jobs = tree.jobs;
    const bool                                isFiltered = tree.job->IsFiltered();
    const std::shared_ptr<TreeState::Telling> leaving = tree.leaving;
    while (tree.leaving == leaving && leaving->told < leaving->rows.size() &&
           leaving->revision == tree.revision)
    {
        if (leaving->told % kFewRows == kFewRows - 1 && Clock::now() >= end)
        {
            tree.slices->GoOn();
            return false;
        }
        const int64_t   row = leaving->rows[leaving->told++];
        const TreePlace place = tree.shown->At(row);
        if (isFiltered && tree.shown->IsSelected(place))
        {
            tree.hidden.Add(place, place.parent->selected.at(place.place));
        }
        if (!TellOwn(wxEVT_LIST_ITEM_DESELECTED, row, isFiltered) || jobs != tree.jobs)
        {
            return false;
        }
    }
    return true;
}

// False when a handler has destroyed the list.
bool wxDBTreeListCtrl::TellOwn(wxEventType type, int64_t row, bool isFiltering)
{
    if (row >= GetItemCount())
    {
        return true;
    }
    TreeState&                        tree = *m_Tree;
    const wxWeakRef<wxDBTreeListCtrl> self(this);
    const bool                        wasTelling = std::exchange(tree.isTelling, true);
    const bool wasFiltering = std::exchange(tree.isFiltering, tree.isFiltering || isFiltering);
    const auto leave = [&]
    {
        if (self)
        {
            tree.isTelling = wasTelling;
            tree.isFiltering = wasFiltering;
        }
    };
    try
    {
        GetBody()->SendListEvent(type, wxPoint(0, 0), 0, static_cast<int>(row));
    }
    catch (...)
    {
        leave();
        if (self)
        {
            tree.slices->GoOn(); // with the next row
        }
        throw;
    }
    leave();
    return self && !IsBeingDeleted();
}

// Selects again what is shown again, and tells that the tree is arranged.
void wxDBTreeListCtrl::GoOnReturning()
{
    TreeState&     tree = *m_Tree;
    const auto     end = listviews::EndOfSlice();
    const unsigned jobs = tree.jobs;
    size_t         fewerThan = tree.returning ? tree.returning->rows.size() : SIZE_MAX;
    while (!tree.hidden.IsEmpty())
    {
        if (!tree.returning || tree.returning->revision != tree.revision)
        {
            if (!FindReturning(fewerThan))
            {
                break;
            }
            fewerThan = tree.returning->rows.size();
        }
        else if (tree.returning->told == tree.returning->rows.size())
        {
            break;
        }
        if (Clock::now() >= end)
        {
            tree.slices->GoOn();
            return;
        }
        if (!TellReturning(end) || jobs != tree.jobs)
        {
            return;
        }
    }
    tree.isReturning = false;
    tree.returning.reset();
    if (!IsFiltered())
    {
        tree.hidden.Clear();
    }
    wxCommandEvent arranged(wxEVT_DBTREELIST_ARRANGED, GetId());
    arranged.SetEventObject(this);
    ProcessWindowEvent(arranged);
}

// False when there are none, or no fewer: the host does not select them.
bool wxDBTreeListCtrl::FindReturning(size_t fewerThan)
{
    TreeState& tree = *m_Tree;
    const auto found = std::make_shared<TreeState::Telling>();
    found->revision = tree.revision;
    Ask("Selecting again what was hidden",
        [&] { found->rows = tree.hidden.FindIn(*tree.shown, *tree.model); });
    tree.returning = found;
    return !found->rows.empty() && found->rows.size() < fewerThan;
}

// False when the list is gone.
bool wxDBTreeListCtrl::TellReturning(Clock::time_point end)
{
    TreeState&                                tree = *m_Tree;
    const unsigned                            jobs = tree.jobs;
    const std::shared_ptr<TreeState::Telling> returning = tree.returning;
    while (returning->told < returning->rows.size() && returning->revision == tree.revision &&
           !tree.hidden.IsEmpty())
    {
        if (returning->told % kFewRows == kFewRows - 1 && Clock::now() >= end)
        {
            return true;
        }
        const int64_t row = returning->rows[returning->told++];
        if (!TellOwn(wxEVT_LIST_ITEM_SELECTED, row, true))
        {
            return false;
        }
        if (jobs != tree.jobs)
        {
            return true;
        }
    }
    return true;
}

wxDBTreeListCtrl::_Sight wxDBTreeListCtrl::SightOf() const
{
    const int  height = GetRowHeight();
    const int  scroll = GetScrollPos(wxVERTICAL);
    const int  focus = GetFocusRow();
    const auto topOf = [&](int row) { return static_cast<int64_t>(row) * height - scroll; };
    _Sight     sight;
    sight.isFocusSeen =
        focus >= 0 && topOf(focus) > -height && topOf(focus) < GetScrollThumb(wxVERTICAL);
    const int reference = sight.isFocusSeen ? focus : scroll / height;
    sight.offset = static_cast<int>(topOf(reference));
    sight.marks.resize(3);
    sight.anchor = m_Tree->shown->At(GetLastSelect());
    sight.marks[kAnchor].place = sight.anchor;
    sight.marks[kFocus].place = m_Tree->shown->At(focus);
    sight.marks[kReference].place = m_Tree->shown->At(reference);
    for (TreeMark& mark : sight.marks)
    {
        if (mark.place)
        {
            mark.identity = KnownIdentity(*m_Tree, mark.place);
        }
    }
    return sight;
}

// Brings to the tree that is to be shown what has to stay, and fills `lost` with the rows that are
// selected and can't. False when the model has thrown.
bool wxDBTreeListCtrl::Carry(OpenTree& made, _Sight& sight, std::vector<int64_t>& lost)
{
    TreeState& tree = *m_Tree;
    return Ask("Arranging a tree",
               [&]
               {
                   sight = SightOf();
                   const auto open = [&](const TreePlace& place)
                   { return OpenChild(made, place, *tree.model, tree.wish.by, tree.isDue); };
                   lost = CarrySelection(*tree.shown, made, *tree.model, open, sight.marks);
               });
}

void wxDBTreeListCtrl::ShowTree(std::unique_ptr<OpenTree> made, bool isFiltered,
                                const _Sight& sight)
{
    TreeState& tree = *m_Tree;
    const bool isStale = std::exchange(tree.isStale, tree.isAgain);
    const bool isAtTop = GetScrollPos(wxVERTICAL) == 0;
    if (isFiltered)
    {
        KeepHiddenAnchor(sight);
    }
    ChangeRows(
        [&]
        {
            if (isFiltered && !tree.aside)
            {
                tree.aside = std::move(tree.shown);
                tree.aside->DeselectIn(tree.aside->Root());
            }
            else if (!isFiltered)
            {
                tree.remains.Add(std::move(tree.aside));
            }
            tree.remains.Add(std::exchange(tree.shown, std::move(made)));
        });
    tree.slices->GoOn();
    // Where the row has gone, its neighbour is as good in a tree that shows the same as before.
    const auto placeOf = [&](int mark)
    {
        const bool isGone = !sight.marks[mark].isSame && (isFiltered || !isStale);
        return isGone ? TreePlace() : sight.marks[mark].place;
    };
    if (const TreePlace anchor = sight.marks[kAnchor].isSame ? TreePlace() : TakeReturnedAnchor())
    {
        GoOnFrom(anchor, anchor); // with the keys, as it had them when it went
        EnsureVisible(GetLastSelect());
        return;
    }
    GoOnFrom(placeOf(kAnchor), placeOf(kFocus));
    const int reference = RowAbove(sight.marks[kReference].place);
    // Rows that are in another order only stay where the user looks at one of them. What a filter
    // has left is looked at where the rows were that it hides.
    const bool isLost = isFiltered && !sight.marks[kReference].isSame;
    const bool isKept = sight.isFocusSeen && sight.marks[kFocus].isSame;
    const bool isMoved = !isAtTop && (isLost || (isStale && !sight.isFocusSeen));
    if (reference >= 0 && (isKept || isMoved))
    {
        const long long top = static_cast<long long>(reference) * GetRowHeight() - sight.offset;
        SetScrollPos(wxVERTICAL, static_cast<int>(std::clamp<long long>(top, 0, INT_MAX)));
    }
}

void wxDBTreeListCtrl::KeepHiddenAnchor(const _Sight& sight)
{
    const TreeMark& mark = sight.marks[kAnchor];
    if (sight.anchor && !mark.isSame && mark.identity)
    {
        m_Tree->hiddenAnchor.Clear();
        m_Tree->hiddenAnchor.Add(sight.anchor, *mark.identity);
    }
}

// None while it is hidden still.
TreePlace wxDBTreeListCtrl::TakeReturnedAnchor()
{
    TreeState&           tree = *m_Tree;
    std::vector<int64_t> rows;
    if (!tree.hiddenAnchor.IsEmpty())
    {
        Ask("The row that a filter had hidden",
            [&] { rows = tree.hiddenAnchor.FindIn(*tree.shown, *tree.model); });
    }
    if (!rows.empty() || !IsFiltered())
    {
        tree.hiddenAnchor.Clear();
    }
    return rows.empty() ? TreePlace() : tree.shown->At(rows.front());
}
