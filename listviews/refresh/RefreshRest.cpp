#include "listviews/refresh/RefreshRest.h"

#include "listviews/refresh/RefreshEvent.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/Guarded.h"

#include <wx/listbase.h>
#include <wx/weakref.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <unordered_set>
#include <utility>

namespace listviews
{
namespace
{
constexpr int kFewSteps = 100; // of the search, at once whatever they take
} // namespace

struct RefreshRest::Work
{
    explicit Work(const RowMarks& marks) : before(marks) {}

    RowMarks                    before;
    std::unique_ptr<MarkSearch> search; // null: to be begun anew
    // As the list was left with what had been found until then.
    int anchor = -1;
    int focus = -1;
    int scroll = 0;
};

RefreshRest::RefreshRest(wxDBListCtrl& list) : m_List(list), m_Slices([this] { GoOn(false); })
{
}

RefreshRest::~RefreshRest() = default;

void RefreshRest::Restore(const RowMarks& marks)
{
    const wxWeakRef<wxDBListCtrl> list(&m_List);
    Drop();
    const unsigned              changes = m_Changes;
    const std::shared_ptr<Work> work = std::make_shared<Work>(marks);
    const bool                  isMore = Search(*work, false);
    const RowMarks&             found = work->search->Found();
    RestoreKeys(m_List, marks, found);
    RestoreScroll(m_List, marks, found);
    RestoreSelection(m_List, found);
    if (isMore && list && !list->IsBeingDeleted() && changes == m_Changes)
    {
        Begin(work);
    }
}

// Whether there is more to look for.
bool RefreshRest::Search(Work& work, bool toTheEnd)
{
    const auto end = EndOfSlice();
    if (!work.search)
    {
        // A host that knows by itself what is selected has those rows right there.
        work.search =
            std::make_unique<MarkSearch>(work.before, m_List.GetItemCount(), m_List.GetSelection());
    }
    const auto keyOf = [this](int row) { return m_List.GetRowKey(row); };
    for (int step = 0; work.search->Step(keyOf); ++step)
    {
        if (!toTheEnd && step >= kFewSteps && std::chrono::steady_clock::now() >= end)
        {
            return true;
        }
    }
    return false;
}

void RefreshRest::Begin(std::shared_ptr<Work> work)
{
    m_Work = std::move(work);
    m_Work->anchor = m_List.GetLastSelect();
    m_Work->focus = m_List.GetFocusRow();
    m_Work->scroll = m_List.GetScrollPos(wxVERTICAL);
    // Only for as long as it takes: every row that is selected would ask for it.
    m_List.Bind(wxEVT_LIST_ITEM_SELECTED, &RefreshRest::OnSelection, this);
    m_List.Bind(wxEVT_LIST_ITEM_DESELECTED, &RefreshRest::OnSelection, this);
    m_Slices.GoOn();
}

void RefreshRest::Drop()
{
    ++m_Changes;
    if (std::exchange(m_Work, nullptr))
    {
        m_Slices.Stop();
        m_List.Unbind(wxEVT_LIST_ITEM_SELECTED, &RefreshRest::OnSelection, this);
        m_List.Unbind(wxEVT_LIST_ITEM_DESELECTED, &RefreshRest::OnSelection, this);
    }
}

void RefreshRest::RowsChanged()
{
    ++m_Changes;
    if (m_Work)
    {
        m_Work->search.reset();
    }
}

bool RefreshRest::Finish()
{
    const wxWeakRef<wxDBListCtrl> list(&m_List);
    if (m_Work)
    {
        GoOn(true);
    }
    return list && !list->IsBeingDeleted();
}

void RefreshRest::GoOn(bool toTheEnd)
{
    const wxWeakRef<wxDBListCtrl> list(&m_List);
    const std::shared_ptr<Work>   work = m_Work;
    const bool                    worked = Guarded("The refresh of a list",
                                                   [&]
                                                   {
                                    if (work && Search(*work, toTheEnd))
                                    {
                                        m_Slices.GoOn();
                                    }
                                    else if (work)
                                    {
                                        End();
                                    }
                                });
    if (!worked && list)
    {
        Drop();
    }
}

void RefreshRest::End()
{
    const std::shared_ptr<Work> work = m_Work;
    const RowMarks&             found = work->search->Found();
    Drop();
    if (m_List.GetScrollPos(wxVERTICAL) == work->scroll)
    {
        RestoreScroll(m_List, work->before, found);
    }
    if (m_List.GetLastSelect() == work->anchor && m_List.GetFocusRow() == work->focus)
    {
        RestoreKeys(m_List, work->before, found);
    }
    RestoreSelection(m_List, found);
}

RowMarks RefreshRest::Take()
{
    RowMarks marks = MarksOf(m_List);
    if (m_Work)
    {
        std::unordered_set<std::string> selected;
        for (const RowMark& mark : marks.selected)
        {
            selected.insert(mark.key);
        }
        const RowMarks& before = m_Work->before;
        std::copy_if(before.selected.begin(), before.selected.end(),
                     std::back_inserter(marks.selected),
                     [&](const RowMark& mark)
                     { return !mark.key.empty() && selected.count(mark.key) == 0; });
        if (m_List.GetLastSelect() == m_Work->anchor && marks.anchor.key != before.anchor.key)
        {
            marks.anchor = before.anchor;
        }
    }
    Drop();
    return marks;
}

// The user has another selection now.
void RefreshRest::OnSelection(wxListEvent& event)
{
    event.Skip();
    Drop();
}
} // namespace listviews
