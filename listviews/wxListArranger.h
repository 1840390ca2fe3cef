#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/event.h>
#include <wx/weakref.h>

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace listviews
{
class Arrangement;
class HiddenSelection;
struct LeavingRows;
struct ListOrder;
class RefreshEvent;
struct RowMarks;
class Slices;
struct SortRule;
} // namespace listviews
class wxDBListCtrl;
class wxListEvent;
class wxtSearchField;

/// Sorts and filters what a list shows. The host's items stay where they are, numbered from 0; the
/// arranger says which of them stands in which row, and sets the list's number of rows: the host
/// answers the list's questions about a row with `ItemAt(row)`, keeps its selection by item, and
/// calls `ItemsChanged` after whatever it does to its items.
///
/// A click on a title sorts by that column, another one turns it round, and with Shift it becomes a
/// further column to sort by; the titles show arrows, and their ranks when there are several. While
/// the list is sorted, the first of them is its highlight column. Texts are sorted as people do,
/// numbers in them by value; beyond 512 bytes they count as the same. A filter has words, 64 at
/// most, that all have to occur: `beauty -failed state:running name:"sq 10"`.
///
/// Both are done beside the window's life, in slices of a few milliseconds: the list shows what it
/// has shown until the new order is there, and not while a mouse button is held, a menu is open or
/// the list's window asks a question. Rows that go from sight are deselected first
/// (`wxEVT_LIST_ITEM_DESELECTED`), and selected again when they are shown again, unless the
/// selection has been changed meanwhile; where the host's items have changed, they are known by
/// `wxDBListCtrl::GetRowKey`, or else by their number. For rows that stay, selection, anchor, focus
/// and the place on the screen stay with their items. List and arranger may go in either order;
/// what `Items` ask has to live as long as the arranger. Main thread.
class TOLVAN_API wxListArranger : public wxEvtHandler
{
public:
    /// What the host tells about its items. What throws ends the arranging, with a line in the log;
    /// the list keeps the order that it has.
    struct Items
    {
        std::function<int()>                      count;
        std::function<String(int item, int type)> text; ///< Of the column of that type.
        /// What a column is sorted by where that is a number; may be empty.
        std::function<std::optional<double>(int item, int type)> number;
    };

    wxListArranger(wxDBListCtrl& list, Items items);
    ~wxListArranger() override;

    int  ItemAt(int row) const; ///< -1 where there is none, or none any more.
    int  RowOf(int item) const; ///< -1 when it is not shown. Takes longer the more rows there are.
    int  GetShownCount() const; ///< Rows.
    int  GetTotalCount() const; ///< Items of the host.
    bool IsArranging() const;   ///< Another order is being found, or waits to be shown.
    void ItemsChanged();        ///< Items have come, gone or changed.

    /// @name Sorting
    /// @{
    void SortBy(int type, bool ascending); ///< By that column alone.
    void ClickTitle(int type, bool add);   ///< What a click on its title does, with Shift: `add`.
    void StopSorting();                    ///< The host's own order.
    bool IsSorted() const;
    /// Keeps in the options file what it is sorted by, and takes it from there: columns by their
    /// key, or their type if they have none. What is no column of the list is left out.
    /// @{
    void SaveSorting(const String& section, const String& key) const;
    void RestoreSorting(const String& section, const String& key);
    /// @}
    /// @}

    /// @name Filter
    /// @{
    void          SetFilter(const String& text);
    const String& GetFilter() const { return m_Filter; }
    /// The field's text is the filter from now on, and the field says how many rows are shown. Its
    /// Down key leads to the list.
    void Follow(wxtSearchField& field);
    /// @}

    /// Called when another order is shown. It may destroy list and arranger.
    std::function<void()> m_OnArranged;

private:
    class _HostItems;

    void Begin();
    void GoOn();
    void Work();
    void WorkSlice();
    void OnTitle(wxListEvent& event);
    void OnField(wxCommandEvent& event);
    void OnColumns(wxCommandEvent& event);
    void Sort(std::vector<listviews::SortRule> rules);
    void ShowRules();
    void HighlightFirst();
    void ShowNote();

    void Show();
    bool DeselectHidden();
    bool FindLeaving();
    bool Leaves(int row) const;
    void SwapOrders(const std::vector<bool>& shown);
    bool TakeBack();
    bool SelectReturned();
    bool SelectSome(int count);
    bool RestoreRefreshed();
    void OnSelection(wxListEvent& event);
    void OnRefreshBegins(listviews::RefreshEvent& event);
    void OnRefreshEnds(listviews::RefreshEvent& event);

    wxWeakRef<wxDBListCtrl>                     m_List;
    wxWeakRef<wxtSearchField>                   m_Field;
    std::unique_ptr<_HostItems>                 m_Items;
    std::unique_ptr<listviews::ListOrder>       m_Shown;
    std::unique_ptr<listviews::ListOrder>       m_Wanted;  ///< Its items: once they are found.
    std::unique_ptr<listviews::Arrangement>     m_Work;    ///< While they are being found.
    std::unique_ptr<listviews::HiddenSelection> m_Hidden;  ///< To be selected when it comes back.
    std::unique_ptr<listviews::LeavingRows>     m_Leaving; ///< While it goes from sight.
    std::unique_ptr<listviews::RowMarks>        m_Marks;   ///< Of a refresh, to be found again.
    std::unique_ptr<listviews::Slices>          m_Slices;
    std::vector<listviews::SortRule>            m_Rules;
    String                                      m_Filter;
    std::set<int>                               m_Marked; ///< Types of columns that have an arrow.
    bool   m_IsHighlighted = false;                       ///< The first of them, by the arranger.
    bool   m_IsFound = false;                             ///< The wanted order waits to be shown.
    bool   m_Again = false;     ///< Items have changed since the work began.
    bool   m_ByUser = false;    ///< The user has asked for another order.
    bool   m_InSlice = false;   ///< The host's functions run.
    String m_HiddenKey;         ///< Of the anchor that is hidden.
    int    m_HiddenAnchor = -1; ///< The item that ranges began at before it went from sight.
    int    m_Returned = -1;     ///< The row to be looked at next for what has come back; -1: none.
    int    m_Refreshing = 0;    ///< Refreshes of the list that are under way.
};
