#include "listviews/arranging/Arrangement.h"
#include "listviews/arranging/HiddenSelection.h"
#include "listviews/arranging/LeavingRows.h"
#include "listviews/arranging/ListOrder.h"
#include "listviews/refresh/RefreshEvent.h"
#include "listviews/slices/RowsAtRest.h"
#include "listviews/slices/Slices.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxListArranger.h"
#include "vesta/Guarded.h"

#include <wx/listbase.h>

#include <algorithm>
#include <chrono>
#include <cstdint>

// How an order that has been found takes the place of the one that is shown, and what becomes of
// the selection.

namespace
{
constexpr int kFewRows = 256; // between two looks at the clock
}

void wxListArranger::Show()
{
    if (!m_List || m_InSlice)
    {
        return;
    }
    if (!listviews::MayReplaceRows(*m_List))
    {
        m_Slices->LookAgain();
        return;
    }
    const wxWeakRef<wxListArranger> self(this);
    m_InSlice = true; // what handlers ask for waits
    const bool isReady = DeselectHidden();
    if (!self)
    {
        return;
    }
    m_InSlice = false;
    if (!m_List)
    {
        return;
    }
    if (!isReady)
    {
        m_Slices->GoOn();
        return;
    }
    m_Leaving.reset();
    SwapOrders(m_Wanted->Shown(GetTotalCount()));
    m_IsFound = m_ByUser = false;
    ShowRules();
    ShowNote();
    if (!TakeBack())
    {
        return;
    }
    if (const std::function<void()> tell = m_OnArranged)
    {
        tell();
    }
}

// What the user had made of rows that are shown now. False when the arranger is gone.
bool wxListArranger::TakeBack()
{
    m_Returned = 0;
    return RestoreRefreshed() && SelectReturned();
}

// As many as a slice allows, from the rows as they still are; false when there are more.
bool wxListArranger::DeselectHidden()
{
    const wxWeakRef<wxListArranger> self(this);
    const auto                      end = listviews::EndOfSlice();
    while ((m_Leaving && m_Leaving->told < m_Leaving->rows.size()) || FindLeaving())
    {
        const int row = m_Leaving->rows[m_Leaving->told];
        if (std::chrono::steady_clock::now() >= end)
        {
            return false;
        }
        ++m_Leaving->told;
        Guarded("Deselecting a row that goes from sight",
                [&]
                {
                    if (!Leaves(row) || !m_List->IsRowSelected(row))
                    {
                        return; // a handler has been there meanwhile
                    }
                    if (!m_Marks) // else it is another item than it was
                    {
                        m_Hidden->Add(ItemAt(row), m_List->GetRowKey(row));
                    }
                    m_List->GetBody()->SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(0, 0), 0,
                                                     row);
                });
        if (!self || !m_List || !m_Leaving)
        {
            return true;
        }
    }
    return true;
}

// All at first, then what was selected meanwhile, but not again and again what the host keeps
// selected: to ask for the selection is long work where it is large. False when there is nothing.
bool wxListArranger::FindLeaving()
{
    const size_t before = m_Leaving ? m_Leaving->rows.size() : SIZE_MAX;
    m_Leaving = std::make_unique<listviews::LeavingRows>();
    m_Leaving->shown = m_Wanted->Shown(GetTotalCount());
    Guarded("The selection of a list",
            [this]
            {
                for (const int row : m_List->GetSelection())
                {
                    if (Leaves(row))
                    {
                        m_Leaving->rows.push_back(row);
                    }
                }
            });
    return !m_Leaving->rows.empty() && m_Leaving->rows.size() < before;
}

bool wxListArranger::Leaves(int row) const
{
    const int item = ItemAt(row);
    return item >= 0 && static_cast<size_t>(item) < m_Leaving->shown.size() &&
           !m_Leaving->shown[static_cast<size_t>(item)];
}

// The row that the keys are on keeps its place on the screen if it is seen, else the topmost row
// does.
void wxListArranger::SwapOrders(const std::vector<bool>& shown)
{
    wxDBListCtrl& list = *m_List;
    const int     count = static_cast<int>(shown.size());
    const int     height = list.GetRowHeight();
    const int     scroll = list.GetScrollPos(wxVERTICAL);
    const int     focus = list.GetFocusRow();
    const int     focusTop = focus * height - scroll;
    const bool    isSeen =
        focus >= 0 && focusTop > -height && focusTop < list.GetBody()->GetClientSize().y;
    const int keptRow = isSeen ? focus : scroll / height;
    const int keptTop = keptRow * height - scroll;
    const int anchorItem = m_Shown->ItemAt(list.GetLastSelect(), count);
    const int focusItem = listviews::NearestShown(*m_Shown, focus, shown);
    const int keptItem = listviews::NearestShown(*m_Shown, keptRow, shown);

    const bool isTop = scroll == 0 ? !isSeen : m_ByUser && focus < 0;
    // An anchor that comes back has the keys with it, as it had when it went.
    const auto isShown = [&shown](int item) {
        return item >= 0 && item < static_cast<int>(shown.size()) &&
               shown[static_cast<size_t>(item)];
    };
    const auto keyOf = [&list](int row)
    {
        String key;
        Guarded("The key of a row", [&] { key = list.GetRowKey(row); });
        return key;
    };
    const String anchorKey = anchorItem >= 0 ? keyOf(list.GetLastSelect()) : String();
    *m_Shown = *m_Wanted;
    m_Shown->isCurrent = !m_Again;
    list.SetItemCount(m_Shown->RowCount(count));
    // Items may have changed meanwhile: the same number may be another one.
    const bool isBack = !isShown(anchorItem) && isShown(m_HiddenAnchor) &&
                        keyOf(m_Shown->RowOf(m_HiddenAnchor, count)) == m_HiddenKey;
    const int newAnchor = isBack ? m_HiddenAnchor : anchorItem;
    if (isShown(newAnchor))
    {
        m_HiddenAnchor = -1;
    }
    else if (anchorItem >= 0)
    {
        m_HiddenAnchor = anchorItem;
        m_HiddenKey = anchorKey;
    }
    list.SetLastSelect(m_Shown->RowOf(newAnchor, count));
    list.SetFocusRow(isBack ? -1 : m_Shown->RowOf(focusItem, count));
    const int kept = m_Shown->RowOf(keptItem, count);
    list.SetScrollPos(wxVERTICAL, isTop || kept < 0 ? 0 : std::max(kept * height - keptTop, 0));
    if (isBack && (isSeen || isTop || scroll == 0))
    {
        list.EnsureVisible(list.GetLastSelect());
    }
    list.Redraw();
}

// What went from sight and is shown again. False when the arranger is gone.
bool wxListArranger::SelectReturned()
{
    const wxWeakRef<wxListArranger> self(this);
    const int                       count = GetTotalCount();
    bool                            isMore = false;
    m_InSlice = true;
    Guarded("Selecting rows that are shown again",
            [&] { isMore = listviews::RunSlice([&] { return self && SelectSome(count); }); });
    if (!self)
    {
        return false;
    }
    m_InSlice = false;
    if (!isMore)
    {
        m_Returned = -1;
        if (m_Shown->query.IsEmpty() && !m_Again)
        {
            m_Hidden->Clear(); // the rest has gone altogether
        }
    }
    if (isMore || m_Again)
    {
        m_Slices->GoOn();
    }
    return true;
}

// False when there are no more of them.
bool wxListArranger::SelectSome(int count)
{
    const wxWeakRef<wxListArranger> self(this);
    for (int i = 0; i < kFewRows; ++i)
    {
        if (!self || !m_List || m_Hidden->IsEmpty() || m_Returned < 0 ||
            m_Returned >= m_List->GetItemCount())
        {
            return false;
        }
        const int row = m_Returned++;
        const int item = m_Shown->ItemAt(row, count);
        if (item >= 0 && m_Hidden->Take(item, [&] { return m_List->GetRowKey(row); }) &&
            !m_List->IsRowSelected(row))
        {
            m_List->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
        }
    }
    return true;
}

// The user or the host has another selection now.
void wxListArranger::OnSelection(wxListEvent& event)
{
    event.Skip();
    if (!m_InSlice && m_Refreshing == 0)
    {
        m_Hidden->Clear();
        m_HiddenAnchor = m_Returned = -1;
        m_Marks.reset();
    }
}

// A list that is filled anew.

void wxListArranger::OnRefreshBegins(listviews::RefreshEvent& event)
{
    ++m_Refreshing;
    event.Marks() = std::move(m_Marks);
}

void wxListArranger::OnRefreshEnds(listviews::RefreshEvent& event)
{
    --m_Refreshing;
    if (IsArranging())
    {
        m_Marks = std::move(event.Marks());
    }
}

// False when the arranger is gone. What was selected and does not match, or is not found yet, may
// come back.
bool wxListArranger::RestoreRefreshed()
{
    const std::unique_ptr<listviews::RowMarks> marks = std::move(m_Marks);
    if (!marks)
    {
        return true;
    }
    const wxWeakRef<wxListArranger> self(this);
    m_InSlice = true;
    Guarded("The refresh of a list",
            [&]
            {
                const auto                end = listviews::EndOfSlice();
                bool                      isCutOff = false;
                const listviews::RowMarks found = listviews::RestoreMarks(
                    *m_List, *marks,
                    [&] { return isCutOff = std::chrono::steady_clock::now() >= end; });
                for (const listviews::RowMark& mark : found.selected)
                {
                    const bool mayCome = self && (isCutOff || m_Again || !m_Shown->query.IsEmpty());
                    if (mayCome && mark.row < 0 && !mark.key.empty())
                    {
                        m_Hidden->AddKey(mark.key);
                    }
                }
            });
    if (self)
    {
        m_InSlice = false;
    }
    return self;
}
