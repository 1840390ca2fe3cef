#include "appearance/controls/MnemonicKeys.h"
#include "appearance/tabs/NotebookParts.h"
#include "appearance/wxTolvanString.h"
#include "internal/input/MouseHold.h"
#include "internal/input/PadKey.h"
#include "internal/port/MenuKeys.h"
#include "internal/windows/Geometry.h"
#include "internal/windows/UpperFloors.h"
#include "vesta/CallEntry.h"

#include <wx/display.h>
#include <wx/sizer.h>

#include <algorithm>

// Pages in windows of their own.

void wxtNotebook::AllowWindows(bool allow)
{
    m_AllowsWindows = allow;
}

appearance::PageWindow* wxtNotebook::WindowOf(const wxWindow* page) const
{
    for (const auto& window : m_Parts->windows)
    {
        if (page && window->page == page)
        {
            return window.get();
        }
    }
    return nullptr;
}

std::vector<wxWindow*> wxtNotebook::PagesInWindows() const
{
    std::vector<wxWindow*> pages;
    for (const auto& window : m_Parts->windows)
    {
        if (window->page)
        {
            pages.push_back(window->page);
        }
    }
    return pages;
}

// By the notebook's name and the page's key.
String wxtNotebook::WindowName(const wxWindow* page) const
{
    return m_Name + " " + KeyOf(page);
}

void wxtNotebook::KeepWindowPlaces() const
{
    for (const auto& window : m_Parts->windows)
    {
        if (window->page && window->frame && !m_Name.empty())
        {
            internal::g_UpperFloors.keepPlace(*window->frame, WindowName(window->page));
        }
    }
}

wxFrame* wxtNotebook::OpenWindow(wxWindow* page)
{
    CALL_ENTRY("wxtNotebook::OpenWindow");
    const int index = FindPage(page);
    if (index == wxNOT_FOUND)
    {
        return nullptr;
    }
    return MoveToWindow(page, wxRect(wxDefaultPosition, page->GetSize()));
}

// A rectangle without a place: where the window of the page was last.
wxFrame* wxtNotebook::MoveToWindow(wxWindow* page, const wxRect& screen)
{
    int                 place = wxNOT_FOUND;
    wxAuiTabCtrl* const home = TabsOf(page, &place);
    if (!home)
    {
        return nullptr;
    }
    auto window = std::make_unique<appearance::PageWindow>();
    window->data = *DataOf(page);
    window->page = page;
    window->info = home->GetPage(static_cast<size_t>(place));
    window->info.active = true;
    window->place = static_cast<size_t>(place);
    const wxString& caption = window->info.caption;
    wxFrame* const  frame = internal::g_UpperFloors.makePageFrame(*this, caption);
    window->frame = frame;
    const auto index = static_cast<size_t>(FindPage(page));
    const bool wasCurrent = m_curPage == FindPage(page);
    m_Parts->windows.push_back(std::move(window));
    const bool wasQuiet = std::exchange(m_IsQuiet, true);
    RemovePage(index);
    m_IsQuiet = wasQuiet;
    // The home is gone if it was the last page there.
    m_Parts->windows.back()->home = GetTabFrameFromTabCtrl(home) ? home : nullptr;

    auto* const bar = new appearance::PageBar(*frame, *this, page);
    page->Reparent(frame);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(bar, 0, wxEXPAND);
    sizer->Add(page, 1, wxEXPAND);
    frame->SetSizer(sizer);
    page->Show();
    frame->SetClientSize(screen.width, screen.height + bar->GetMinSize().y);
    if (screen.GetPosition() != wxDefaultPosition)
    {
        // Dragged out near an edge of the screen it would open beyond it.
        const int    at = wxDisplay::GetFromPoint(screen.GetPosition());
        const wxRect area = at == wxNOT_FOUND
                                ? internal::DisplayAreaOf(this)
                                : wxDisplay(static_cast<unsigned>(at)).GetClientArea();
        frame->SetSize(internal::MovedInto(area, wxRect(screen.GetPosition(), frame->GetSize())));
    }
    else if (!m_Name.empty())
    {
        internal::g_UpperFloors.bringToPlace(*frame, WindowName(page));
    }
    frame->Bind(wxEVT_CLOSE_WINDOW, &wxtNotebook::OnWindowClose, this);
    appearance::WatchMnemonics(*frame); // of the page's controls, which are not made in it
    frame->Bind(wxEVT_CHAR_HOOK, &wxtNotebook::OnWindowKey, this);
    frame->Bind(wxEVT_ACTIVATE, &wxtNotebook::OnWindowActive, this);
    frame->Bind(wxEVT_IDLE,
                [frame, weak = wxWeakRef<wxWindow>(page)](wxIdleEvent& event)
                {
                    event.Skip();
                    if (!weak && !frame->IsBeingDeleted())
                    {
                        frame->Destroy(); // nothing is left to be shown
                    }
                });
    frame->Show();
    page->SetFocus();
    const wxWeakRef<wxFrame> opened(frame);
    if (wasCurrent && !m_IsQuiet && m_curPage >= 0)
    {
        Send(wxEVT_AUINOTEBOOK_PAGE_CHANGED, m_curPage, wxNOT_FOUND);
    }
    return opened;
}

void wxtNotebook::OnWindowClose(wxCloseEvent& event)
{
    CALL_ENTRY("wxtNotebook::OnWindowClose");
    event.Skip();
    if (wxWindow* const page = PageIn(event.GetEventObject()))
    {
        CloseWindow(page);
        TellOfMove(page);
    }
}

// Null when the frame is none of a page, or the page has gone.
wxWindow* wxtNotebook::PageIn(const wxObject* frame) const
{
    for (wxWindow* const page : PagesInWindows())
    {
        if (WindowOf(page)->frame == frame)
        {
            return page;
        }
    }
    return nullptr;
}

void wxtNotebook::OnWindowActive(wxActivateEvent& event)
{
    event.Skip();
    wxWindow* const page = event.GetActive() ? PageIn(event.GetEventObject()) : nullptr;
    if (page)
    {
        m_Parts->order.Use(page);
    }
}

void wxtNotebook::OnWindowKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxtNotebook::OnWindowKey");
    auto* const     window = dynamic_cast<wxWindow*>(event.GetEventObject());
    wxWindow* const page = PageIn(window ? wxGetTopLevelParent(window) : nullptr);
    auto* const     host = dynamic_cast<wxFrame*>(wxGetTopLevelParent(this));
    if (!page || (!OnPageKey(page, event) && !(host && internal::PressMenuKey(*host, event))))
    {
        event.Skip();
    }
}

// Of a page in a window the keys that lead to other pages work as they do in the notebook.
bool wxtNotebook::OnPageKey(wxWindow* page, const wxKeyEvent& event)
{
    const int  key = internal::OffThePad(event.GetKeyCode());
    const bool isPage = key == WXK_PAGEUP || key == WXK_PAGEDOWN;
    if (event.RawControlDown() && !event.AltDown() && key == WXK_TAB)
    {
        ChooseByUse(page, !event.ShiftDown());
        return true;
    }
    wxWindow* const neighbour = event.GetModifiers() == wxMOD_CONTROL && isPage
                                    ? Neighbour(*WindowOf(page), key == WXK_PAGEUP ? -1 : 1)
                                    : nullptr;
    if (neighbour)
    {
        BringUp(neighbour);
    }
    return neighbour != nullptr;
}

wxWindow* wxtNotebook::PageInUse() const
{
    for (const auto& window : m_Parts->windows)
    {
        if (window->page && window->frame && window->frame->IsActive())
        {
            return window->page;
        }
    }
    return GetCurrentPage();
}

// Of the place among the tabs that the page came from; null when there are no tabs.
wxWindow* wxtNotebook::Neighbour(const appearance::PageWindow& window, int steps) const
{
    std::vector<wxWindow*> pages;
    size_t                 at = 0;
    for (wxAuiTabCtrl* const tabs : AllTabs())
    {
        at = tabs == window.home ? pages.size() + std::min(window.place, tabs->GetPageCount()) : at;
        for (size_t i = 0; i < tabs->GetPageCount(); ++i)
        {
            pages.push_back(tabs->GetWindowFromIdx(i));
        }
    }
    if (pages.empty())
    {
        return nullptr;
    }
    return pages[(steps > 0 ? at : at + pages.size() - 1) % pages.size()];
}

// The page is shown, has the keys, and its window is in front of the others.
void wxtNotebook::BringUp(wxWindow* page)
{
    CALL_ENTRY("wxtNotebook::BringUp");
    const wxWeakRef<wxWindow> aimed(page);
    const bool                isInTabs = FindPage(page) != wxNOT_FOUND;
    if ((!isInTabs && !WindowOf(page)) || (isInTabs && !Select(page, true)) || !aimed)
    {
        return;
    }
    auto* const top = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(aimed));
    if (top && top->IsIconized())
    {
        top->Restore();
    }
    if (top && top->IsShown() && !top->IsActive())
    {
        top->Raise();
    }
    if (aimed->IsShownOnScreen())
    {
        aimed->SetFocus();
    }
}

void wxtNotebook::CloseWindow(wxWindow* page)
{
    CALL_ENTRY("wxtNotebook::CloseWindow");
    if (appearance::PageWindow* const window = WindowOf(page))
    {
        const bool isHomeThere = window->home && GetTabFrameFromTabCtrl(window->home);
        Dock(page, isHomeThere ? window->home.get() : nullptr, window->place);
    }
}

// Into the pane, or without one to where pages come.
void wxtNotebook::Dock(wxWindow* page, wxAuiTabCtrl* tabs, size_t place)
{
    KeepWindowPlaces();
    auto&      windows = m_Parts->windows;
    const auto isIts = [page](const auto& window) { return window->page == page; };
    const auto found = std::find_if(windows.begin(), windows.end(), isIts);
    const std::unique_ptr<appearance::PageWindow> window = std::move(*found);
    windows.erase(found);
    const bool hadKeys = window->frame && window->frame->IsActive();
    if (window->frame)
    {
        internal::EndMouseHold(*window->frame);
        window->frame->GetSizer()->Detach(page);
        window->frame->Hide();
    }
    const bool wasQuiet = std::exchange(m_IsQuiet, true);
    InsertPage(GetPageCount(), page, window->info.caption, false, window->info.bitmap);
    const auto index = static_cast<size_t>(FindPage(page));
    m_tabs.GetPage(index).tooltip = window->info.tooltip;
    int                 nowPlace = wxNOT_FOUND;
    wxAuiTabCtrl* const now = TabsOf(page, &nowPlace);
    now->GetPage(static_cast<size_t>(nowPlace)).tooltip = window->info.tooltip;
    *DataOf(page) = window->data;
    wxAuiTabCtrl& target = tabs ? *tabs : *now;
    MoveTo(page, target, std::min(place, target.GetPageCount()));
    const int old = m_curPage;
    ShowPage(page, hadKeys);
    m_IsQuiet = wasQuiet;
    // Later: whoever brings the page back goes on with the notebook.
    auto* const changed = new wxAuiNotebookEvent(wxEVT_AUINOTEBOOK_PAGE_CHANGED, GetId());
    changed->SetSelection(m_curPage);
    changed->SetOldSelection(old);
    changed->SetEventObject(this);
    QueueEvent(changed);
    if (window->frame)
    {
        window->frame->Destroy();
    }
}

// Where it is now; in a window of its own it has no index.
void wxtNotebook::TellOfMove(wxWindow* page)
{
    GiveKeysTo(page);
    const int index = FindPage(page);
    Send(wxEVT_AUINOTEBOOK_DRAG_DONE, index, index);
}

// A page that comes into another window or pane loses the keys on the way. Once the toolkit has
// shown it: what has the keys until then may not have heard of it.
void wxtNotebook::GiveKeysTo(wxWindow* page)
{
    CallAfter(
        [this, moved = wxWeakRef<wxWindow>(page)]
        {
            wxAuiTabCtrl* const   tabs = moved ? TabsOf(moved) : nullptr;
            const wxWindow* const focus = FindFocus();
            const bool            isElsewhere = focus && focus != tabs &&
                                     !moved->IsDescendant(const_cast<wxWindow*>(focus)) &&
                                     !dynamic_cast<const wxAuiTabCtrl*>(focus);
            if (tabs && focus != tabs && !isElsewhere && moved->IsShownOnScreen())
            {
                moved->SetFocus();
            }
        });
}
