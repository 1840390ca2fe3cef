#include "appearance/tabs/DropPlace.h"
#include "appearance/tabs/NotebookParts.h"
#include "appearance/tabs/TabLayout.h"
#include "appearance/wxtDockArt.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"

#include <wx/wupdlock.h>

#include <algorithm>
#include <set>

// The panes of a notebook, and the layout that is kept.

namespace
{
const char* const kLayoutKey = "Tabs";
constexpr double  kMostOfBook = 0.9; // that the panes beside the middle one may take

appearance::DropSide SideOfDirection(int direction)
{
    return direction == wxLEFT    ? appearance::DropSide::left
           : direction == wxRIGHT ? appearance::DropSide::right
           : direction == wxTOP   ? appearance::DropSide::top
                                  : appearance::DropSide::bottom;
}

bool IsColumn(int direction)
{
    return direction == wxAUI_DOCK_LEFT || direction == wxAUI_DOCK_RIGHT;
}
} // namespace

// Both orders: that of the row, and that of all pages, in which neighbours are neighbours, too.
void wxtNotebook::MoveTo(wxWindow* page, wxAuiTabCtrl& tabs, size_t place)
{
    int                 oldPlace = wxNOT_FOUND;
    wxAuiTabCtrl* const old = TabsOf(page, &oldPlace);
    if (!old || (old == &tabs && oldPlace == static_cast<int>(place)))
    {
        return;
    }
    wxWindow* const current =
        m_curPage < 0 ? page : m_tabs.GetWindowFromIdx(static_cast<size_t>(m_curPage));
    if (old == &tabs)
    {
        tabs.MovePage(page, std::min(place, tabs.GetPageCount() - 1));
    }
    else
    {
        PutInTabs(tabs, page, place);
    }
    const auto now = static_cast<size_t>(tabs.GetIdxFromWindow(page));
    if (tabs.GetPageCount() > 1)
    {
        const bool isLast = now + 1 == tabs.GetPageCount();
        const int  neighbour = FindPage(tabs.GetWindowFromIdx(isLast ? now - 1 : now + 1));
        const int  before = neighbour > FindPage(page) ? neighbour - 1 : neighbour;
        m_tabs.MovePage(page, static_cast<size_t>(isLast ? before + 1 : before));
    }
    m_curPage = FindPage(current);
    StripOf(tabs).ShowTab(static_cast<int>(now));
}

void wxtNotebook::PutInTabs(wxAuiTabCtrl& tabs, wxWindow* page, size_t place)
{
    int                 oldPlace = wxNOT_FOUND;
    wxAuiTabCtrl* const old = TabsOf(page, &oldPlace);
    wxAuiNotebookPage   info = old->GetPage(static_cast<size_t>(oldPlace));
    const bool          wasShown = std::exchange(info.active, false);
    old->RemovePage(page);
    tabs.InsertPage(page, info, std::min(place, tabs.GetPageCount()));
    if (old->GetPageCount() == 0)
    {
        RemoveEmptyTabFrames();
    }
    else if (wasShown)
    {
        ShowLatest(*old);
    }
    ShowIn(tabs, page);
}

// The page of the pane that was used last.
void wxtNotebook::ShowLatest(wxAuiTabCtrl& tabs)
{
    std::vector<wxWindow*> pages;
    for (size_t i = 0; i < tabs.GetPageCount(); ++i)
    {
        pages.push_back(tabs.GetWindowFromIdx(i));
    }
    if (!pages.empty())
    {
        ShowIn(tabs, m_Parts->order.Sorted(pages).front());
    }
}

void wxtNotebook::MovePage(wxWindow* page, size_t place)
{
    CALL_ENTRY("wxtNotebook::MovePage");
    if (wxAuiTabCtrl* const tabs = TabsOf(page))
    {
        MoveTo(page, *tabs, std::min(place, tabs->GetPageCount() - 1));
        RefreshTabs();
    }
}

void wxtNotebook::Split(size_t index, int direction)
{
    CALL_ENTRY("wxtNotebook::Split");
    wxWindow* const     page = m_tabs.GetWindowFromIdx(index);
    wxAuiTabCtrl* const tabs = TabsOf(page);
    if (tabs && tabs->GetPageCount() > 1)
    {
        SplitBeside(page, *tabs, SideOfDirection(direction));
    }
}

// The toolkit makes the new pane, at some place, and shows the first page that stays.
wxAuiTabCtrl& wxtNotebook::SplitOff(wxWindow* page)
{
    wxAuiTabCtrl* const old = TabsOf(page);
    const bool          wasQuiet = std::exchange(m_IsQuiet, true);
    wxAuiNotebook::Split(static_cast<size_t>(FindPage(page)), wxRIGHT);
    m_IsQuiet = wasQuiet;
    wxAuiTabCtrl& added = *TabsOf(page);
    StripOf(added);
    if (GetTabFrameFromTabCtrl(old))
    {
        ShowLatest(*old);
    }
    return added;
}

void wxtNotebook::SplitBeside(wxWindow* page, wxAuiTabCtrl& target, appearance::DropSide side)
{
    wxAuiTabCtrl* const old = TabsOf(page);
    if (!old || (old == &target && old->GetPageCount() < 2))
    {
        return;
    }
    std::vector<std::pair<wxAuiTabCtrl*, wxSize>> sizes;
    for (wxAuiTabCtrl* const tabs : AllTabs())
    {
        sizes.emplace_back(tabs, PaneSize(*tabs));
    }
    wxAuiTabCtrl&                      added = SplitOff(page);
    size_t                             at = 0;
    std::vector<wxAuiTabCtrl*>         others;
    std::vector<appearance::PanePlace> places;
    for (const auto& [tabs, size] : sizes)
    {
        if (GetTabFrameFromTabCtrl(tabs))
        {
            at = tabs == &target ? others.size() : at;
            others.push_back(tabs);
            places.push_back(PlaceOf(*tabs));
            places.back().size = size;
        }
    }
    PanePlaces panes = {{&added, appearance::MakeRoom(places, at, side)}};
    for (size_t i = 0; i < others.size(); ++i)
    {
        panes.emplace_back(others[i], places[i]);
    }
    Arrange(panes);
    ShowPage(page, false);
}

appearance::PanePlace wxtNotebook::PlaceOf(wxAuiTabCtrl& tabs)
{
    const wxAuiPaneInfo& pane = m_mgr.GetPane(GetTabFrameFromTabCtrl(&tabs));
    return {pane.dock_direction, pane.dock_layer, pane.dock_row, pane.dock_pos, PaneSize(tabs)};
}

// Its border counts.
wxSize wxtNotebook::PaneSize(wxAuiTabCtrl& tabs)
{
    const int border = 2 * m_mgr.GetArtProvider()->GetMetric(wxAUI_DOCKART_PANE_BORDER_SIZE);
    return PaneRect(tabs).GetSize() + wxSize(border, border);
}

// The sizes of docks are known to the toolkit by its own text only.
void wxtNotebook::Arrange(const PanePlaces& panes)
{
    wxString           docks;
    std::set<wxString> known;
    const wxSize       most = GetClientSize() * kMostOfBook;
    for (const auto& [tabs, place] : panes)
    {
        wxAuiPaneInfo& pane = m_mgr.GetPane(GetTabFrameFromTabCtrl(tabs));
        const bool     isColumn = IsColumn(place.direction);
        pane.Direction(place.direction).Layer(place.layer).Row(place.row).Position(place.position);
        pane.BestSize(place.size);
        pane.dock_proportion = std::max(1, isColumn ? place.size.y : place.size.x);
        const wxString dock =
            wxString::Format("dock_size(%d,%d,%d)=", place.direction, place.layer, place.row);
        if (place.direction != wxAUI_DOCK_CENTER && known.insert(dock).second)
        {
            const int room = isColumn ? most.x : most.y;
            const int size = isColumn ? place.size.x : place.size.y;
            docks << dock << std::max(1, room > 0 ? std::min(size, room) : size) << "|";
        }
    }
    wxString text = m_mgr.SavePerspective();
    m_mgr.LoadPerspective(text.Left(text.find("dock_size(")) + docks);
}

String wxtNotebook::KeyOf(const wxWindow* page) const
{
    const appearance::PageData* const data = DataOf(page);
    return data ? data->key : String();
}

appearance::TabLayout wxtNotebook::LayoutNow()
{
    appearance::TabLayout layout;
    for (wxAuiTabCtrl* const tabs : AllTabs())
    {
        appearance::TabLayout::Pane pane{PlaceOf(*tabs), {}, 0};
        for (size_t i = 0; i < tabs->GetPageCount(); ++i)
        {
            pane.keys.push_back(KeyOf(tabs->GetWindowFromIdx(i)));
        }
        pane.active = static_cast<size_t>(std::max(0, tabs->GetActivePage()));
        layout.panes.push_back(pane);
    }
    for (wxWindow* const page : PagesInWindows())
    {
        layout.windows.push_back(KeyOf(page));
    }
    layout.current = m_curPage < 0 ? String() : KeyOf(GetPage(static_cast<size_t>(m_curPage)));
    return layout;
}

void wxtNotebook::SaveLayout(const String& name)
{
    CALL_ENTRY("wxtNotebook::SaveLayout");
    m_Name = name;
    OptionsFile&                      options = Application::the_Application->Options();
    const OptionsFile::PauseAutoWrite pause(options);
    options.SetValue(name, kLayoutKey, LayoutNow().Text());
    KeepWindowPlaces();
}

bool wxtNotebook::LoadLayout(const String& name)
{
    CALL_ENTRY("wxtNotebook::LoadLayout");
    m_Name = name;
    const auto layout = appearance::TabLayout::OfText(
        Application::the_Application->Options().GetValue(name, kLayoutKey));
    if (layout)
    {
        Restore(*layout);
    }
    return layout.has_value();
}

// All pages in one pane first; then the others are split off.
void wxtNotebook::Restore(const appearance::TabLayout& layout)
{
    const wxWindowUpdateLocker frozen(this);
    for (wxWindow* const page : PagesInWindows())
    {
        CloseWindow(page);
    }
    std::vector<wxWindow*> pages;
    std::vector<String>    keys;
    for (size_t i = 0; i < GetPageCount(); ++i)
    {
        pages.push_back(GetPage(i));
        keys.push_back(KeyOf(pages.back()));
    }
    const appearance::TabPlan plan = layout.PlanFor(keys);
    if (pages.empty())
    {
        return;
    }
    wxAuiTabCtrl* const middle = AllTabs().front();
    PanePlaces          panes;
    for (wxWindow* const page : pages)
    {
        MoveTo(page, *middle, middle->GetPageCount());
    }
    for (const appearance::TabPlan::Pane& pane : plan.panes)
    {
        const bool    isMiddle = pane.place.direction == wxAUI_DOCK_CENTER;
        wxAuiTabCtrl& tabs = isMiddle ? *middle : SplitOff(pages[pane.pages.front()]);
        for (const size_t page : pane.pages)
        {
            MoveTo(pages[page], tabs, tabs.GetPageCount());
        }
        panes.emplace_back(&tabs, pane.place);
    }
    Arrange(panes);
    for (const appearance::TabPlan::Pane& pane : plan.panes)
    {
        ShowPage(pages[pane.active], false);
    }
    ShowPage(pages[plan.current], false);
    for (const size_t page : plan.windows)
    {
        OpenWindow(pages[page]);
    }
}
