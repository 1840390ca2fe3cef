#include "listviews/wxListArranger.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtSearchField.h"
#include "internal/windows/UpperFloors.h"
#include "listviews/arranging/Arrangement.h"
#include "listviews/arranging/FilterColumns.h"
#include "listviews/arranging/ListOrder.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"

#include <wx/dialog.h>
#include <wx/listbase.h>
#include <wx/utils.h>

#include <algorithm>
#include <chrono>

namespace
{
constexpr auto kSlice = std::chrono::milliseconds(10);
constexpr int  kPause = 1;  // milliseconds between slices, for events and repaints
constexpr int  kRetry = 50; // milliseconds until it is looked again whether the order may be shown

using Clock = std::chrono::steady_clock;

// A dialog that the window runs; the list may itself lie in one.
bool HasModalDialog(wxWindow* top)
{
    return std::any_of(wxTopLevelWindows.begin(), wxTopLevelWindows.end(),
                       [top](wxWindow* window)
                       {
                           const auto* const dialog = dynamic_cast<const wxDialog*>(window);
                           return dialog && dialog != top && dialog->IsModal() &&
                                  dialog->GetParent() &&
                                  wxGetTopLevelParent(dialog->GetParent()) == top;
                       });
}

bool IsButtonHeld()
{
    const wxMouseState mouse = wxGetMouseState();
    return mouse.LeftIsDown() || mouse.MiddleIsDown() || mouse.RightIsDown();
}
} // namespace

class wxListArranger::_HostItems : public listviews::ArrangedItems
{
public:
    explicit _HostItems(Items items) : m_Items(std::move(items)) {}

    int                   Count() override { return std::max(m_Items.count(), 0); }
    String                TextOf(int item, int type) override { return m_Items.text(item, type); }
    std::optional<double> NumberOf(int item, int type) override
    {
        return m_Items.number ? m_Items.number(item, type) : std::nullopt;
    }
    /// The same as `Count`; none when the host throws.
    int SafeCount()
    {
        int count = 0;
        Guarded("Counting the items of a list", [&] { count = Count(); });
        return count;
    }

private:
    Items m_Items;
};

wxListArranger::wxListArranger(wxDBListCtrl& list, Items items)
    : m_List(&list),
      m_Items(std::make_unique<_HostItems>(std::move(items))),
      m_Shown(std::make_unique<listviews::ListOrder>()),
      m_Wanted(std::make_unique<listviews::ListOrder>())
{
    CALL_ENTRY("wxListArranger::wxListArranger");
    m_Timer.SetOwner(this);
    Bind(wxEVT_TIMER, &wxListArranger::OnTimer, this);
    list.Bind(wxEVT_LIST_COL_CLICK, &wxListArranger::OnTitle, this);
    ItemsChanged();
}

wxListArranger::~wxListArranger()
{
    m_Timer.Stop();
}

int wxListArranger::ItemAt(int row) const
{
    return row < 0 ? -1 : m_Shown->ItemAt(row, m_Items->SafeCount());
}

int wxListArranger::RowOf(int item) const
{
    return m_Shown->RowOf(item, m_Items->SafeCount());
}

int wxListArranger::GetShownCount() const
{
    return m_Shown->RowCount(m_Items->SafeCount());
}

int wxListArranger::GetTotalCount() const
{
    return m_Items->SafeCount();
}

bool wxListArranger::IsArranging() const
{
    return m_Work || m_IsFound;
}

bool wxListArranger::IsSorted() const
{
    return !m_Rules.empty();
}

// Work that runs goes on to its end first: items that change all the time would let nothing be
// finished.
void wxListArranger::ItemsChanged()
{
    CALL_ENTRY("wxListArranger::ItemsChanged");
    m_Shown->isCurrent = false;
    if (IsArranging() || m_InSlice)
    {
        m_Again = true;
        return;
    }
    Begin();
}

void wxListArranger::Begin()
{
    if (m_InSlice || !m_List)
    {
        m_Again = true;
        return;
    }
    m_Again = m_IsFound = false;
    m_HiddenLeft = 0;
    m_Work.reset();
    m_Wanted->items.clear();
    m_Wanted->isCurrent = true;
    m_Wanted->rules = m_Rules;
    m_Wanted->query = listviews::FilterQuery(m_Filter, listviews::FilterColumnsOf(*m_List));
    if (m_Wanted->IsPlain())
    {
        m_IsFound = true;
        if (m_Shown->IsPlain())
        {
            *m_Shown = *m_Wanted; // at once, as without an arranger
            m_IsFound = m_ByUser = false;
            m_List->SetItemCount(m_Items->SafeCount());
            ShowNote();
            return;
        }
        Show();
        return;
    }
    Guarded("Arranging a list",
            [this]
            {
                auto among = listviews::AmongThose(*m_Shown, *m_Wanted, m_Items->Count());
                // What is sorted already stays so when some of it goes.
                const bool sorted = among && m_Shown->rules == m_Wanted->rules;
                m_Work = std::make_unique<listviews::Arrangement>(
                    *m_Items, m_Wanted->query, sorted ? listviews::SortRules() : m_Wanted->rules,
                    std::move(among));
            });
    Work();
}

void wxListArranger::OnTimer(wxTimerEvent&)
{
    CALL_ENTRY("wxListArranger::OnTimer");
    if (!m_List)
    {
        m_Work.reset();
        m_IsFound = false;
    }
    else if (m_IsFound)
    {
        Show();
    }
    else if (m_Work)
    {
        Work();
    }
    else if (m_Again)
    {
        Begin();
    }
}

void wxListArranger::Work()
{
    if (!m_Work)
    {
        return;
    }
    m_InSlice = true;
    const wxWeakRef<wxListArranger> self(this);
    const bool done = !Guarded("Arranging a list", [this] { WorkSlice(); }) || !m_Work;
    if (!self)
    {
        return;
    }
    m_InSlice = false;
    if (m_IsFound)
    {
        Show();
    }
    else if (done)
    {
        m_Work.reset(); // it has thrown
        m_Again = m_ByUser = false;
    }
    else
    {
        m_Timer.StartOnce(kPause);
    }
}

void wxListArranger::WorkSlice()
{
    const auto end = Clock::now() + kSlice;
    while (m_Work->Step())
    {
        if (Clock::now() >= end)
        {
            return;
        }
    }
    m_Wanted->items = m_Work->Rows();
    m_Work.reset();
    m_IsFound = true;
}

// Showing.

bool wxListArranger::MayShow() const
{
    return !IsButtonHeld() && !internal::g_UpperFloors.isMenuOpen() &&
           !HasModalDialog(wxGetTopLevelParent(m_List));
}

void wxListArranger::Show()
{
    if (!m_List || m_InSlice)
    {
        return;
    }
    if (!MayShow())
    {
        m_Timer.StartOnce(kRetry);
        return;
    }
    const std::vector<bool>         shown = m_Wanted->Shown(m_Items->SafeCount());
    const wxWeakRef<wxListArranger> self(this);
    m_InSlice = true; // what handlers ask for waits
    const bool isReady = DeselectHidden(shown);
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
        m_Timer.StartOnce(kPause);
        return;
    }
    SwapOrders(shown);
    m_IsFound = m_ByUser = false;
    m_HiddenLeft = 0;
    ShowRules();
    ShowNote();
    if (m_Again)
    {
        m_Timer.StartOnce(kPause);
    }
    if (const std::function<void()> tell = m_OnArranged)
    {
        tell();
    }
}

// As many as a slice allows, from the rows as they still are; false when there are more. A host
// that keeps a row selected is asked once.
bool wxListArranger::DeselectHidden(const std::vector<bool>& shown)
{
    const wxWeakRef<wxListArranger> self(this);
    std::vector<int>                hidden;
    for (const int row : m_List->GetSelection())
    {
        const int item = ItemAt(row);
        if (item >= 0 && static_cast<size_t>(item) < shown.size() &&
            !shown[static_cast<size_t>(item)])
        {
            hidden.push_back(row);
        }
    }
    if (m_HiddenLeft > 0 && hidden.size() >= m_HiddenLeft)
    {
        return true;
    }
    m_HiddenLeft = hidden.size();
    const auto end = Clock::now() + kSlice;
    for (const int row : hidden)
    {
        if (Clock::now() >= end)
        {
            return false;
        }
        Guarded("Deselecting a row that goes from sight",
                [&] {
                    m_List->GetBody()->SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(0, 0), 0,
                                                     row);
                });
        if (!self || !m_List)
        {
            return true;
        }
    }
    return true;
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
    *m_Shown = *m_Wanted;
    m_Shown->isCurrent = !m_Again;
    list.SetItemCount(m_Shown->RowCount(count));
    list.SetLastSelect(m_Shown->RowOf(anchorItem, count));
    list.SetFocusRow(m_Shown->RowOf(focusItem, count));
    const int kept = m_Shown->RowOf(keptItem, count);
    list.SetScrollPos(wxVERTICAL, isTop || kept < 0 ? 0 : std::max(kept * height - keptTop, 0));
    list.Redraw();
}

// Sorting.

void wxListArranger::SortBy(int type, bool ascending)
{
    CALL_ENTRY("wxListArranger::SortBy");
    Sort({{type, ascending}});
}

void wxListArranger::ClickTitle(int type, bool add)
{
    CALL_ENTRY("wxListArranger::ClickTitle");
    Sort(listviews::Clicked(m_Rules, type, add));
}

void wxListArranger::StopSorting()
{
    CALL_ENTRY("wxListArranger::StopSorting");
    Sort({});
}

void wxListArranger::Sort(std::vector<listviews::SortRule> rules)
{
    m_Rules = std::move(rules);
    m_ByUser = true;
    ShowRules();
    Begin();
}

void wxListArranger::OnTitle(wxListEvent& event)
{
    event.Skip();
    if (m_List && event.GetColumn() >= 0 && event.GetColumn() < m_List->GetColumnCount())
    {
        ClickTitle(m_List->GetColumn(event.GetColumn()).type, wxGetKeyState(WXK_SHIFT));
    }
}

// Images that the host has given to other titles stay.
void wxListArranger::ShowRules()
{
    if (!m_List)
    {
        return;
    }
    for (int i = 0; i < m_List->GetColumnCount(); ++i)
    {
        const int  type = m_List->GetColumn(i).type;
        const auto rule = std::find_if(m_Rules.begin(), m_Rules.end(),
                                       [type](const auto& each) { return each.type == type; });
        if (rule != m_Rules.end())
        {
            const bool several = m_Rules.size() > 1;
            m_List->SetColumnImage(i, rule->ascending ? wxDBListCtrl::image_Ascending
                                                      : wxDBListCtrl::image_Descending);
            m_List->SetColumnRank(i, several ? static_cast<int>(rule - m_Rules.begin()) + 1 : 0);
            m_Marked.insert(type);
        }
        else if (m_Marked.erase(type) > 0)
        {
            m_List->SetColumnImage(i, wxDBListCtrl::image_None);
            m_List->SetColumnRank(i, 0);
        }
    }
}

void wxListArranger::SaveSorting(const String& section, const String& key) const
{
    CALL_ENTRY("wxListArranger::SaveSorting");
    if (m_List)
    {
        OptionsFile&    options = Application::the_Application->Options();
        const WriteLock lock(options.Lock());
        options.InsertSection(section);
        options.SetValue(section, key,
                         listviews::RulesText(m_Rules, listviews::ColumnsOf(*m_List)));
    }
}

void wxListArranger::RestoreSorting(const String& section, const String& key)
{
    CALL_ENTRY("wxListArranger::RestoreSorting");
    const String value = Application::the_Application->Options().GetValue(section, key);
    if (m_List && !value.empty())
    {
        Sort(listviews::RulesFrom(value, listviews::ColumnsOf(*m_List)));
    }
}

// Filter.

void wxListArranger::SetFilter(const String& text)
{
    CALL_ENTRY("wxListArranger::SetFilter");
    if (text != m_Filter)
    {
        m_Filter = text;
        m_ByUser = true;
        Begin();
    }
}

void wxListArranger::Follow(wxtSearchField& field)
{
    CALL_ENTRY("wxListArranger::Follow");
    m_Field = &field;
    field.SetNext(m_List);
    field.Bind(wxEVT_TEXT, &wxListArranger::OnField, this);
    SetFilter(wxtFromWx(field.GetValue()));
}

void wxListArranger::OnField(wxCommandEvent& event)
{
    event.Skip();
    if (m_Field)
    {
        SetFilter(wxtFromWx(m_Field->GetValue()));
    }
}

void wxListArranger::ShowNote()
{
    if (m_Field)
    {
        m_Field->SetShown(GetShownCount(), m_Shown->query.IsEmpty() ? -1 : GetTotalCount());
    }
}
