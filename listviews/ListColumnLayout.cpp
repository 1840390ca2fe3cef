#include "internal/windows/Geometry.h"
#include "listviews/columns/ColumnFit.h"
#include "listviews/columns/ColumnLayout.h"
#include "listviews/columns/ColumnMenu.h"
#include "listviews/model/ListModel.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxDBListHeader.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/weakref.h>

#include <algorithm>
#include <numeric>

// What a user does with the columns: widths, order, and which of them are shown.

namespace
{
const char* const kLayout = "Layout"; // behind the key of the widths

// Whether they are the same ones, in the same places.
bool AreSame(const std::vector<wxDBListColumn>& a, const std::vector<wxDBListColumn>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const wxDBListColumn& x, const wxDBListColumn& y)
                      { return x.type == y.type && x.key == y.key && x.label == y.label; });
}
} // namespace

wxDEFINE_EVENT(wxtEVT_LIST_COLUMNS, wxListEvent);

void wxDBListCtrl::TellColumns(int column)
{
    wxListEvent event(wxtEVT_LIST_COLUMNS, GetId());
    event.SetEventObject(this);
    event.SetColumn(column);
    GetEventHandler()->ProcessEvent(event);
}

void wxDBListCtrl::AllowColumnMoves(bool allow)
{
    m_Model->canMoveTitles = allow;
    m_Header->GiveUpMove();
}

bool wxDBListCtrl::IsColumnShown(int index) const
{
    return m_Model->HasColumn(index) && m_Model->Column(index).visible;
}

void wxDBListCtrl::ShowColumn(int index, bool show)
{
    CALL_ENTRY("wxDBListCtrl::ShowColumn");
    if (m_Model->HasColumn(index) && m_Model->Column(index).visible != show)
    {
        m_Model->Show(index, show);
        ColumnsChanged();
    }
}

void wxDBListCtrl::FitColumn(int index)
{
    CALL_ENTRY("wxDBListCtrl::FitColumn");
    if (IsColumnShown(index))
    {
        FitWithin(index, listviews::k_FitTime);
        WidthsChanged();
    }
}

void wxDBListCtrl::FitAllColumns()
{
    CALL_ENTRY("wxDBListCtrl::FitAllColumns");
    const int  shown = std::max(m_Model->ShownCount(), 1);
    const auto time = std::min<std::chrono::steady_clock::duration>(
        listviews::k_FitTime, listviews::k_FitAllTime / shown);
    for (int index = 0; index < GetColumnCount(); ++index)
    {
        if (IsColumnShown(index))
        {
            FitWithin(index, time);
        }
    }
    WidthsChanged();
}

// No wider than the view, where both of its edges can be seen. A list that is not shown yet has no
// size of its own: then it is the screen's.
int wxDBListCtrl::WidestFit() const
{
    return IsShownOnScreen() ? m_Body->GetClientSize().x : internal::DisplayAreaOf(this).width;
}

void wxDBListCtrl::FitWithin(int index, std::chrono::steady_clock::duration time)
{
    const int title = m_Header->TitleWidth(index);
    const int cells = m_Body->WidestCell(index, time);
    if (m_Model->HasColumn(index)) // whoever gives the texts may have changed them
    {
        const int most = std::max(WidestFit(), title);
        m_Model->SetWidth(index,
                          std::clamp(std::max(title, cells), listviews::ListGeometry::k_LeastWidth,
                                     std::max(most, listviews::ListGeometry::k_LeastWidth)));
    }
}

void wxDBListCtrl::ResetColumns()
{
    CALL_ENTRY("wxDBListCtrl::ResetColumns");
    listviews::ColumnPlan plan;
    for (const int index : m_Model->Homes().Order())
    {
        const listviews::ColumnHomes::Home& home = m_Model->Homes().Of(index);
        plan.places.push_back({index, home.width, home.visible});
    }
    Arrange(plan);
}

void wxDBListCtrl::Arrange(const listviews::ColumnPlan& plan)
{
    FinishCopying();
    for (const listviews::ColumnPlan::Place& place : plan.places)
    {
        if (place.width >= 0)
        {
            m_Model->SetWidth(place.index, place.width);
        }
        m_Model->Column(place.index).visible =
            place.visible.value_or(m_Model->Column(place.index).visible);
    }
    std::vector<int> now(plan.places.size());
    std::iota(now.begin(), now.end(), 0);
    for (size_t to = 0; to < now.size(); ++to)
    {
        const auto found = std::find(now.begin() + static_cast<std::ptrdiff_t>(to), now.end(),
                                     plan.places[to].index);
        const auto from = static_cast<size_t>(found - now.begin());
        if (from != to)
        {
            std::rotate(now.begin() + static_cast<std::ptrdiff_t>(to), found, found + 1);
            m_Model->MoveColumn(static_cast<int>(from),
                                static_cast<int>(to) - static_cast<int>(from));
            TellColumnMoved(static_cast<int>(from), static_cast<int>(to));
        }
    }
    ColumnsChanged();
}

void wxDBListCtrl::ShowColumnMenu(const wxPoint& where)
{
    CALL_ENTRY("wxDBListCtrl::ShowColumnMenu");
    using Choice = listviews::ColumnMenu::Choice;
    const wxWeakRef<wxDBListCtrl>     self(this);
    const std::vector<wxDBListColumn> before = m_Model->columns;
    wxWindow* const                   top = wxGetTopLevelParent(this);
    listviews::ColumnMenu             menu(before);
    // Over the frame: the list may go while the menu is open.
    top->PopupMenu(&menu, top->ScreenToClient(where));
    if (!self || IsBeingDeleted() || menu.Chosen() == Choice::None ||
        !AreSame(before, m_Model->columns))
    {
        return;
    }
    switch (menu.Chosen())
    {
    case Choice::FitAll:
        FitAllColumns();
        break;
    case Choice::Reset:
        ResetColumns();
        break;
    default:
        ShowColumn(menu.Column(), !IsColumnShown(menu.Column()));
        break;
    }
    TellColumns(menu.Column());
}

void wxDBListCtrl::SaveColumnLayout(const String& section, const String& key)
{
    CALL_ENTRY("wxDBListCtrl::SaveColumnLayout");
    const String                      layout = listviews::LayoutText(m_Model->columns);
    OptionsFile&                      options = Application::the_Application->Options();
    const OptionsFile::PauseAutoWrite pause(options);
    SaveColumnSizes(section, key);
    const WriteLock lock(options.Lock());
    options.SetValue(section, key + kLayout, layout);
}

void wxDBListCtrl::RestoreColumnLayout(const String& section, const String& key)
{
    CALL_ENTRY("wxDBListCtrl::RestoreColumnLayout");
    const String layout = Application::the_Application->Options().GetValue(section, key + kLayout);
    if (const auto plan = listviews::PlanLayout(m_Model->columns, layout))
    {
        Arrange(*plan);
    }
    else
    {
        RestoreColumnSizes(section, key);
    }
}
