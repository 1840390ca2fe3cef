#include "appearance/tabs/NotebookParts.h"
#include "internal/input/PadKey.h"
#include "vesta/CallEntry.h"

#include <wx/menu.h>

#include <algorithm>

// What a hand and the keys do to a notebook, and pages that are closed.

bool wxtNotebook::ClosePage(wxWindow* page)
{
    CALL_ENTRY("wxtNotebook::ClosePage");
    const wxWeakRef<wxtNotebook> book(this);
    const wxWeakRef<wxWindow>    closed(page);
    const int                    index = FindPage(page);
    if (index == wxNOT_FOUND && !WindowOf(page))
    {
        return false;
    }
    const wxWeakRef<wxWindow> outer = m_Closing; // its handler closes this one, too
    m_Closing = page;
    const bool isAllowed = Send(wxEVT_AUINOTEBOOK_PAGE_CLOSE, index, m_curPage);
    if (book)
    {
        m_Closing = outer;
    }
    if (!book || !isAllowed || !closed)
    {
        return !closed;
    }
    if (appearance::PageWindow* const window = WindowOf(closed))
    {
        const wxWeakRef<wxFrame> frame = window->frame;
        m_Parts->order.Forget(closed);
        closed->Destroy();
        if (frame)
        {
            frame->Destroy();
        }
    }
    else
    {
        const int now = FindPage(closed);
        DeletePage(static_cast<size_t>(now));
    }
    if (book)
    {
        Send(wxEVT_AUINOTEBOOK_PAGE_CLOSED, index, wxNOT_FOUND);
    }
    return true;
}

bool wxtNotebook::DeleteAllPages()
{
    CALL_ENTRY("wxtNotebook::DeleteAllPages");
    const wxWeakRef<wxtNotebook> book(this);
    while (book && GetPageCount() > 0)
    {
        // Those that are not seen first: nothing is shown on the way.
        const bool isLast = GetPageCount() == 1;
        DeletePage(!isLast && m_curPage == static_cast<int>(GetPageCount()) - 1
                       ? GetPageCount() - 2
                       : GetPageCount() - 1);
    }
    return true;
}

// A page that is selected already gives the keys to its tab.
void wxtNotebook::PressTab(wxWindow* page)
{
    const wxWeakRef<wxtNotebook> book(this);
    const wxWeakRef<wxWindow>    pressed(page);
    const bool                   wasSelected = FindPage(page) == m_curPage;
    if (!Select(page, true) || !book || !pressed)
    {
        return;
    }
    wxAuiTabCtrl* const tabs = TabsOf(pressed);
    if (tabs && wasSelected)
    {
        tabs->SetFocus();
    }
    else if (pressed->IsShownOnScreen())
    {
        pressed->SetFocus();
    }
}

// The keys of a notebook that lies in a page are that one's.
void wxtNotebook::OnKey(wxKeyEvent& event)
{
    CALL_ENTRY("wxtNotebook::OnKey");
    const int  key = internal::OffThePad(event.GetKeyCode());
    auto*      tabs = dynamic_cast<wxAuiTabCtrl*>(event.GetEventObject());
    const bool isPage = key == WXK_PAGEUP || key == WXK_PAGEDOWN;
    const int  way = key == WXK_PAGEUP ? -1 : 1;
    if (event.GetModifiers() == wxMOD_CONTROL && isPage)
    {
        GoTo(way);
    }
    else if (event.GetModifiers() == (wxMOD_CONTROL | wxMOD_SHIFT) && isPage)
    {
        MoveTab(way);
    }
    else if (event.RawControlDown() && !event.AltDown() && key == WXK_TAB)
    {
        ChooseByUse(m_curPage < 0 ? nullptr : GetPage(static_cast<size_t>(m_curPage)),
                    !event.ShiftDown());
    }
    else if (!tabs || tabs->GetParent() != this || event.HasAnyModifiers() || !OnTabKey(*tabs, key))
    {
        event.Skip();
    }
}

bool wxtNotebook::OnTabKey(wxAuiTabCtrl& tabs, int key)
{
    const int count = static_cast<int>(tabs.GetPageCount());
    const int active = tabs.GetActivePage();
    if (active < 0)
    {
        return false;
    }
    wxWindow* const page = tabs.GetWindowFromIdx(static_cast<size_t>(active));
    const auto      select = [&](int place)
    {
        Select(tabs.GetWindowFromIdx(static_cast<size_t>(std::clamp(place, 0, count - 1))), true);
        return true;
    };
    switch (key)
    {
    case WXK_LEFT:
        return select(active - 1);
    case WXK_RIGHT:
        return select(active + 1);
    case WXK_HOME:
        return select(0);
    case WXK_END:
        return select(count - 1);
    case WXK_DOWN:
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
        page->SetFocus();
        return true;
    case WXK_DELETE:
        ClosePage(page);
        return true;
    default:
        return false;
    }
}

// Round the tabs of the pane, and on to those of the next one.
void wxtNotebook::GoTo(int steps)
{
    std::vector<wxWindow*> pages;
    for (wxAuiTabCtrl* const tabs : AllTabs())
    {
        for (size_t i = 0; i < tabs->GetPageCount(); ++i)
        {
            pages.push_back(tabs->GetWindowFromIdx(i));
        }
    }
    if (m_curPage < 0 || pages.size() < 2)
    {
        return;
    }
    const auto at = std::find(pages.begin(), pages.end(), GetPage(static_cast<size_t>(m_curPage)));
    const int  count = static_cast<int>(pages.size());
    const int  place = (static_cast<int>(at - pages.begin()) + steps + count) % count;
    Select(pages[static_cast<size_t>(place)], true);
}

void wxtNotebook::MoveTab(int steps)
{
    int                 place = wxNOT_FOUND;
    wxWindow* const     page = m_curPage < 0 ? nullptr : GetPage(static_cast<size_t>(m_curPage));
    wxAuiTabCtrl* const tabs = TabsOf(page, &place);
    const int           wanted = place + steps;
    if (tabs && GetWindowStyleFlag() & wxAUI_NB_TAB_MOVE && wanted >= 0 &&
        wanted < static_cast<int>(tabs->GetPageCount()))
    {
        MoveTo(page, *tabs, static_cast<size_t>(wanted));
        TellOfMove(page);
    }
}

// From the page that has the keys.
void wxtNotebook::ChooseByUse(wxWindow* page, bool forward)
{
    if (page && GetPageCount() + PagesInWindows().size() > 1)
    {
        m_Parts->order.Use(page);
        wxWindow&    owner = WindowOf(page) ? *wxGetTopLevelParent(page) : *this;
        const wxRect place = owner.GetScreenRect();
        OpenChooser(owner, place.GetPosition() + wxPoint(place.width / 2, place.height / 2), true,
                    forward);
    }
}

void wxtNotebook::ShowPageList()
{
    CALL_ENTRY("wxtNotebook::ShowPageList");
    wxAuiTabCtrl* const tabs = GetPageCount() > 0 ? GetActiveTabCtrl() : nullptr;
    if (tabs)
    {
        const wxRect place = tabs->GetScreenRect();
        OpenChooser(*this, wxPoint(place.GetRight(), place.GetBottom() + 1), false, true);
    }
}

// By use: the page before this one is the first to be chosen.
void wxtNotebook::OpenChooser(wxWindow& owner, const wxPoint& screen, bool byUse, bool forward)
{
    std::vector<wxWindow*> windows = byUse ? PagesInWindows() : std::vector<wxWindow*>();
    for (size_t i = 0; i < GetPageCount(); ++i)
    {
        windows.push_back(GetPage(i));
    }
    windows = byUse ? m_Parts->order.Sorted(windows) : windows;
    std::vector<appearance::PageChooser::Page> pages;
    for (wxWindow* const window : windows)
    {
        const appearance::PageWindow* const own = WindowOf(window);
        const wxAuiNotebookPage&            page =
            own ? own->info : m_tabs.GetPage(static_cast<size_t>(FindPage(window)));
        pages.push_back({window, {page.caption, page.bitmap, IsPageModified(window)}});
    }
    const int marked = byUse ? 0 : std::max(0, m_curPage);
    m_Parts->chooser = std::make_unique<appearance::PageChooser>(
        owner, std::move(pages), marked, [this](wxWindow* page) { OnChosen(page); });
    if (byUse)
    {
        m_Parts->chooser->GoOn(forward ? 1 : -1);
        m_Parts->chooser->OpenWhileHeld(screen);
    }
    else
    {
        m_Parts->chooser->OpenBelow(screen);
    }
}

void wxtNotebook::OnChosen(wxWindow* page)
{
    m_Parts->chooser.reset();
    if (page)
    {
        BringUp(page);
    }
}

void wxtNotebook::OnChildFocus(wxChildFocusEvent& event)
{
    event.Skip();
    if (m_curPage >= 0)
    {
        m_Parts->order.Use(GetPage(static_cast<size_t>(m_curPage)));
    }
}

void wxtNotebook::FillTabMenu(wxMenu&, wxWindow*)
{
}

void wxtNotebook::AppendToMenu(wxMenu& menu, const wxString& label, bool enabled,
                               const std::function<void()>& action)
{
    wxMenuItem* const item = menu.Append(wxID_ANY, label);
    item->Enable(enabled);
    // Once the menu has closed: the command may end the notebook, on which it lies.
    menu.Bind(
        wxEVT_MENU, [this, action](wxCommandEvent&) { CallAfter(action); }, item->GetId());
}

void wxtNotebook::CloseOthers(wxWindow* page)
{
    const wxWeakRef<wxtNotebook>     book(this);
    std::vector<wxWeakRef<wxWindow>> others;
    wxAuiTabCtrl* const              tabs = TabsOf(page);
    for (size_t i = 0; tabs && i < tabs->GetPageCount(); ++i)
    {
        if (tabs->GetWindowFromIdx(i) != page)
        {
            others.emplace_back(tabs->GetWindowFromIdx(i));
        }
    }
    for (size_t i = 0; i < others.size() && book; ++i)
    {
        if (others[i])
        {
            ClosePage(others[i]);
        }
    }
}

void wxtNotebook::MoveOut(wxWindow* page)
{
    const wxWeakRef<wxtNotebook> book(this);
    OpenWindow(page);
    if (book)
    {
        TellOfMove(page);
    }
}

void wxtNotebook::ShowTabMenu(wxWindow* page)
{
    CALL_ENTRY("wxtNotebook::ShowTabMenu");
    int                       place = wxNOT_FOUND;
    wxAuiTabCtrl* const       tabs = TabsOf(page, &place);
    const wxWeakRef<wxWindow> target(page);
    const bool                hasOthers = tabs && tabs->GetPageCount() > 1;
    const long                style = GetWindowStyleFlag();
    wxMenu                    menu;
    const auto append = [&](const char* label, bool enabled, const std::function<void()>& action)
    {
        AppendToMenu(menu, wxGetTranslation(label), enabled,
                     [target, action]
                     {
                         if (target)
                         {
                             action();
                         }
                     });
    };
    const auto move = [this, target](size_t to)
    {
        MovePage(target, to);
        TellOfMove(target);
    };
    const auto split = [this, target](int direction)
    {
        Split(static_cast<size_t>(FindPage(target)), direction);
        TellOfMove(target);
    };
    append("&Close", true, [this, target] { ClosePage(target); });
    if (tabs)
    {
        const int  last = static_cast<int>(tabs->GetPageCount()) - 1;
        const bool maySplit = hasOthers && style & wxAUI_NB_TAB_SPLIT;
        const bool mayMove = style & wxAUI_NB_TAB_MOVE;
        append("Close &Others", hasOthers, [this, target] { CloseOthers(target); });
        menu.AppendSeparator();
        append("Move &Left", mayMove && place > 0, [=] { move(static_cast<size_t>(place - 1)); });
        append("Move &Right", mayMove && place < last,
               [=] { move(static_cast<size_t>(place + 1)); });
        append("&Beside the Others", maySplit, [=] { split(wxRIGHT); });
        append("B&elow the Others", maySplit, [=] { split(wxBOTTOM); });
        append("In a &Window of Its Own", m_AllowsWindows, [this, target] { MoveOut(target); });
    }
    else
    {
        append("Back to the Other &Pages", true, [this, target] { CloseWindow(target); });
    }
    FillTabMenu(menu, page);
    wxWindow* const where = tabs ? static_cast<wxWindow*>(tabs) : wxGetTopLevelParent(page);
    const wxRect    shown = tabs ? tabs->GetScreenRect() : wxRect();
    const bool      isKey = tabs && !shown.Contains(wxGetMousePosition());
    where->PopupMenu(&menu, isKey ? tabs->ScreenToClient(StripOf(*tabs).BelowTab(place))
                                  : wxDefaultPosition);
}
