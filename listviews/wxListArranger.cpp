#include "listviews/wxListArranger.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtSearchField.h"
#include "listviews/arranging/Arrangement.h"
#include "listviews/arranging/FilterColumns.h"
#include "listviews/arranging/HiddenSelection.h"
#include "listviews/arranging/LeavingRows.h"
#include "listviews/arranging/ListOrder.h"
#include "listviews/columns/ColumnEvent.h"
#include "listviews/refresh/RefreshEvent.h"
#include "listviews/slices/Slices.h"
#include "listviews/wxDBListCtrl.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"

#include <wx/listbase.h>
#include <wx/utils.h>

#include <algorithm>
#include <utility>

class wxListArranger::_HostItems final : public listviews::ArrangedItems
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
      m_Wanted(std::make_unique<listviews::ListOrder>()),
      m_Hidden(std::make_unique<listviews::HiddenSelection>()),
      m_Slices(std::make_unique<listviews::Slices>([this] { GoOn(); }))
{
    CALL_ENTRY("wxListArranger::wxListArranger");
    list.Bind(wxEVT_LIST_COL_CLICK, &wxListArranger::OnTitle, this);
    list.Bind(wxEVT_LIST_ITEM_SELECTED, &wxListArranger::OnSelection, this);
    list.Bind(wxEVT_LIST_ITEM_DESELECTED, &wxListArranger::OnSelection, this);
    list.Bind(listviews::EVT_COLUMNS_CHANGED, &wxListArranger::OnColumns, this);
    list.Bind(listviews::EVT_REFRESH_BEGINS, &wxListArranger::OnRefreshBegins, this);
    list.Bind(listviews::EVT_REFRESH_ENDS, &wxListArranger::OnRefreshEnds, this);
    ItemsChanged();
}

wxListArranger::~wxListArranger() = default;

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
    return m_List && (m_Work || m_IsFound || m_Again);
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
    m_Hidden->ItemsChanged();
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
    m_Leaving.reset();
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
            TakeBack();
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

void wxListArranger::GoOn()
{
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
    else
    {
        SelectReturned();
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
        TakeBack();
    }
    else
    {
        m_Slices->GoOn();
    }
}

void wxListArranger::WorkSlice()
{
    if (listviews::RunSlice([this] { return m_Work->Step(); }))
    {
        return;
    }
    m_Wanted->items = m_Work->Rows();
    m_Work.reset();
    m_IsFound = true;
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
    if (m_List && m_List->IsOnTitles(event) && event.GetColumn() >= 0 &&
        event.GetColumn() < m_List->GetColumnCount())
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
    HighlightFirst();
}

// Typed text is looked for in that column. Unsorted, the host's own one stays.
void wxListArranger::HighlightFirst()
{
    const int  first = m_Rules.empty() ? -1 : m_List->FindColumnByType(m_Rules.front().type);
    const bool isOurs = std::exchange(m_IsHighlighted, first >= 0);
    if ((first >= 0 || isOurs) && first != m_List->GetHighlightColumn())
    {
        m_List->SetHighlightColumn(first);
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
        listviews::WarnOfWordsLeftOut(text);
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

// Words without a column are looked for in those that are shown.
void wxListArranger::OnColumns(wxCommandEvent& event)
{
    event.Skip();
    if (!m_Wanted->query.IsEmpty() && !m_Wanted->query.IsOf(listviews::FilterColumnsOf(*m_List)))
    {
        m_Again = true;
        m_Slices->GoOn();
    }
}

void wxListArranger::ShowNote()
{
    if (m_Field)
    {
        m_Field->SetShown(GetShownCount(), m_Shown->query.IsEmpty() ? -1 : GetTotalCount());
    }
}
