#include "appearance/wxtNotebook.h"

#include "appearance/tabs/NotebookParts.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtDockArt.h"
#include "internal/input/MouseHold.h"
#include "vesta/CallEntry.h"

#include <algorithm>

// The pages and which of them are shown.

namespace
{
// The toolkit's art draws its hints and its stock sash otherwise than in the scheme's colours.
constexpr unsigned kManagerFlags = wxAUI_MGR_LIVE_RESIZE;

constexpr int kLeastPage = 20; // pixels of either side
} // namespace

wxtNotebook::wxtNotebook(wxWindow* parent, wxWindowID id, const wxPoint& position,
                         const wxSize& size, long style)
    : wxAuiNotebook(parent, id, position, size, style), m_Parts(std::make_unique<Parts>())
{
    CALL_ENTRY("wxtNotebook::wxtNotebook");
    m_mgr.SetFlags(kManagerFlags);
    m_mgr.SetArtProvider(new wxtDockArt);
    SetArtProvider(new wxtTabArt);
    Manage(this);
    Bind(wxEVT_CHAR_HOOK, &wxtNotebook::OnKey, this);
    Bind(wxEVT_CHILD_FOCUS, &wxtNotebook::OnChildFocus, this);
}

wxtNotebook::~wxtNotebook()
{
    CALL_ENTRY("wxtNotebook::~wxtNotebook");
    SendDestroyEvent();
    internal::EndMouseHold(*this);
    m_Parts->chooser.reset();
    m_Parts->drag.reset();
    for (const auto& window : m_Parts->windows)
    {
        if (window->frame)
        {
            internal::EndMouseHold(*window->frame);
            window->frame->Destroy();
        }
    }
    while (GetPageCount() > 0)
    {
        DeletePage(GetPageCount() - 1);
    }
    m_Parts->strips.clear();
}

void wxtNotebook::SetArtProvider(wxtTabArt* art)
{
    CALL_ENTRY("wxtNotebook::SetArtProvider");
    art->SetNormalFont(GetFont());
    wxAuiNotebook::SetArtProvider(art);
    for (wxAuiTabCtrl* const tabs : AllTabs())
    {
        // The toolkit has given it to some already.
        tabs->SetArtProvider(art->Clone());
        tabs->Refresh();
    }
}

bool wxtNotebook::SetFont(const wxFont& font)
{
    CALL_ENTRY("wxtNotebook::SetFont");
    const bool isSet = wxAuiNotebook::SetFont(font);
    UpdateTabCtrlHeight();
    RefreshTabs();
    return isSet;
}

wxAuiTabCtrl* wxtNotebook::TabsOf(const wxWindow* page, int* place) const
{
    auto* const   self = const_cast<wxtNotebook*>(this); // the toolkit only looks
    wxAuiTabCtrl* tabs = nullptr;
    int           index = wxNOT_FOUND;
    const bool    isFound = page && self->FindTab(const_cast<wxWindow*>(page), &tabs, &index);
    if (place)
    {
        *place = index;
    }
    return isFound ? tabs : nullptr;
}

appearance::PageData* wxtNotebook::DataOf(const wxWindow* page) const
{
    if (appearance::PageWindow* const window = WindowOf(page))
    {
        return &window->data;
    }
    const auto found = m_Parts->data.find(page);
    return found == m_Parts->data.end() ? nullptr : &found->second;
}

appearance::TabStrip& wxtNotebook::StripOf(wxAuiTabCtrl& tabs)
{
    auto&      strips = m_Parts->strips;
    const auto isDead = [](const auto& strip) { return !strip->Tabs(); };
    const auto isIts = [&tabs](const auto& strip) { return strip->Tabs() == &tabs; };
    auto       found = std::find_if(strips.begin(), strips.end(), isIts);
    if (found == strips.end())
    {
        strips.erase(std::remove_if(strips.begin(), strips.end(), isDead), strips.end());
        strips.push_back(std::make_unique<appearance::TabStrip>(*this, tabs));
        found = strips.end() - 1;
    }
    return **found;
}

std::vector<wxAuiTabCtrl*> wxtNotebook::AllTabs() const
{
    auto* const                self = const_cast<wxtNotebook*>(this); // the toolkit only looks
    std::vector<wxAuiTabCtrl*> all;
    for (const auto& strip : m_Parts->strips)
    {
        wxWindow* const frame =
            strip->Tabs() ? self->GetTabFrameFromTabCtrl(strip->Tabs()) : nullptr;
        const bool isCentre =
            frame && self->m_mgr.GetPane(frame).dock_direction == wxAUI_DOCK_CENTER;
        if (frame)
        {
            all.insert(isCentre ? all.begin() : all.end(), strip->Tabs());
        }
    }
    return all;
}

wxRect wxtNotebook::PaneRect(wxAuiTabCtrl& tabs) const
{
    auto* const self = const_cast<wxtNotebook*>(this); // the toolkit only looks
    wxRect      pane = tabs.GetRect();
    if (wxWindow* const frame = self->GetTabFrameFromTabCtrl(&tabs))
    {
        const int height = frame->GetSize().y;
        pane.y -= GetWindowStyleFlag() & wxAUI_NB_BOTTOM ? height - pane.height : 0;
        pane.height = height;
    }
    return pane;
}

void wxtNotebook::RefreshTabs()
{
    for (wxAuiTabCtrl* const tabs : AllTabs())
    {
        tabs->Refresh();
    }
}

bool wxtNotebook::AddPage(wxWindow* page, const wxString& caption, bool select,
                          const wxBitmapBundle& bitmap)
{
    CALL_ENTRY("wxtNotebook::AddPage");
    return InsertPage(GetPageCount(), page, caption, select, bitmap);
}

// The toolkit sizes, shows and draws all pages for each one that comes.
bool wxtNotebook::InsertPage(size_t index, wxWindow* page, const wxString& caption, bool select,
                             const wxBitmapBundle& bitmap)
{
    CALL_ENTRY("wxtNotebook::InsertPage");
    if (!page || FindPage(page) != wxNOT_FOUND || WindowOf(page))
    {
        return false;
    }
    page->Reparent(this);
    page->Hide();
    const bool        isFirst = GetPageCount() == 0;
    wxAuiNotebookPage info;
    info.window = page;
    info.caption = caption;
    info.bitmap = bitmap;
    info.active = false;
    info.hover = false;
    index = std::min(index, GetPageCount());
    int                 place = wxNOT_FOUND;
    wxAuiTabCtrl* const after = index > 0 ? TabsOf(GetPage(index - 1), &place) : nullptr;
    wxAuiTabCtrl* const tabs = GetActiveTabCtrl();
    m_tabs.InsertPage(page, info, index);
    m_curPage += m_curPage >= static_cast<int>(index) ? 1 : 0;
    m_Parts->data[page] = {wxtFromWx(caption), false};
    StripOf(*tabs);
    tabs->InsertPage(page, info,
                     after == tabs ? static_cast<size_t>(place) + 1
                     : index == 0  ? 0
                                   : tabs->GetPageCount());
    if (isFirst)
    {
        UpdateTabCtrlHeight();
    }
    tabs->Refresh();
    if (select || isFirst)
    {
        SetSelectionToWindow(page);
    }
    return true;
}

void wxtNotebook::FitPage(wxAuiTabCtrl& tabs, wxWindow* page)
{
    wxRect     room = PaneRect(tabs);
    const int  height = tabs.GetSize().y;
    const bool isAtBottom = GetWindowStyleFlag() & wxAUI_NB_BOTTOM;
    room.y += isAtBottom ? 0 : height;
    room.height -= height;
    // The notebook itself may not have its size yet, and the port complains of controls without.
    const bool isRoom = room.width > kLeastPage && room.height > kLeastPage;
    page->SetSize(isRoom ? room : wxRect(room.GetPosition(), page->GetBestSize()));
}

// The new page comes before the old one goes, so that nothing is seen of what lies below.
void wxtNotebook::ShowIn(wxAuiTabCtrl& tabs, wxWindow* page)
{
    const int       active = tabs.GetActivePage();
    wxWindow* const old = active < 0 ? nullptr : tabs.GetWindowFromIdx(static_cast<size_t>(active));
    tabs.SetActivePage(page);
    if (page->GetPrevSibling() != &tabs)
    {
        page->MoveAfterInTabOrder(&tabs); // the keys go from the tabs into the page
    }
    FitPage(tabs, page);
    page->Show();
    if (old && old != page)
    {
        old->Hide();
    }
    StripOf(tabs).ShowTab(tabs.GetIdxFromWindow(page));
}

bool wxtNotebook::HasFocusInside() const
{
    const wxWindow* focus = FindFocus();
    return focus && !dynamic_cast<const wxAuiTabCtrl*>(focus) &&
           IsDescendant(const_cast<wxWindow*>(focus));
}

void wxtNotebook::ShowPage(wxWindow* page, bool takesFocus)
{
    wxAuiTabCtrl* const tabs = TabsOf(page);
    if (!tabs)
    {
        return;
    }
    takesFocus = takesFocus || HasFocusInside();
    m_curPage = FindPage(page);
    m_tabs.SetActivePage(page);
    m_Parts->order.Use(page);
    ShowIn(*tabs, page);
    RefreshTabs();
    if (takesFocus && page->IsShownOnScreen() && !tabs->HasFocus())
    {
        page->SetFocus();
    }
}

bool wxtNotebook::Send(wxEventType type, int selection, int oldSelection)
{
    wxAuiNotebookEvent event(type, GetId());
    event.SetSelection(selection);
    event.SetOldSelection(oldSelection);
    event.SetEventObject(this);
    GetEventHandler()->ProcessEvent(event);
    return event.IsAllowed();
}

// Whatever the handlers do to the pages and the notebook; false when the page is not selected.
bool wxtNotebook::Select(wxWindow* page, bool events)
{
    const wxWeakRef<wxtNotebook> book(this);
    const wxWeakRef<wxWindow>    aimed(page);
    const int                    old = m_curPage;
    if (FindPage(page) == old)
    {
        return true;
    }
    if (events && (!Send(wxEVT_AUINOTEBOOK_PAGE_CHANGING, FindPage(page), old) || !book))
    {
        return false;
    }
    if (!aimed || FindPage(aimed) == wxNOT_FOUND)
    {
        return false;
    }
    ShowPage(aimed, false);
    if (events)
    {
        Send(wxEVT_AUINOTEBOOK_PAGE_CHANGED, FindPage(aimed), old);
    }
    return book && aimed;
}

int wxtNotebook::DoModifySelection(size_t index, bool events)
{
    CALL_ENTRY("wxtNotebook::DoModifySelection");
    const int old = m_curPage;
    if (wxWindow* const page = m_tabs.GetWindowFromIdx(index))
    {
        Select(page, events && !m_IsQuiet);
    }
    return old;
}

bool wxtNotebook::SetPageText(size_t index, const wxString& text)
{
    CALL_ENTRY("wxtNotebook::SetPageText");
    if (index >= GetPageCount())
    {
        return false;
    }
    SetCaption(GetPage(index), text);
    return true;
}

bool wxtNotebook::SetPageBitmap(size_t index, const wxBitmapBundle& bitmap)
{
    CALL_ENTRY("wxtNotebook::SetPageBitmap");
    int                 place = wxNOT_FOUND;
    wxAuiTabCtrl* const tabs = index < GetPageCount() ? TabsOf(GetPage(index), &place) : nullptr;
    if (tabs)
    {
        m_tabs.GetPage(index).bitmap = bitmap;
        tabs->GetPage(static_cast<size_t>(place)).bitmap = bitmap;
        tabs->Refresh();
    }
    return tabs != nullptr;
}

void wxtNotebook::SetCaption(wxWindow* page, const wxString& caption)
{
    CALL_ENTRY("wxtNotebook::SetCaption");
    int place = wxNOT_FOUND;
    if (appearance::PageWindow* const window = WindowOf(page))
    {
        window->info.caption = caption;
        if (window->frame)
        {
            window->frame->SetTitle(caption);
            window->frame->Refresh();
        }
    }
    else if (wxAuiTabCtrl* const tabs = TabsOf(page, &place))
    {
        m_tabs.GetPage(static_cast<size_t>(FindPage(page))).caption = caption;
        tabs->GetPage(static_cast<size_t>(place)).caption = caption;
        tabs->Refresh();
    }
}

void wxtNotebook::SetPageModified(const wxWindow* page, bool modified)
{
    CALL_ENTRY("wxtNotebook::SetPageModified");
    appearance::PageData* const data = DataOf(page);
    if (!data || data->isModified == modified)
    {
        return;
    }
    data->isModified = modified;
    const appearance::PageWindow* const window = WindowOf(page);
    if (window && window->frame)
    {
        window->frame->Refresh();
    }
    else if (wxAuiTabCtrl* const tabs = TabsOf(page))
    {
        tabs->Refresh();
    }
}

bool wxtNotebook::IsPageModified(const wxWindow* page) const
{
    const appearance::PageData* const data = DataOf(page);
    return data && data->isModified;
}

void wxtNotebook::SetPageKey(const wxWindow* page, const String& key)
{
    CALL_ENTRY("wxtNotebook::SetPageKey");
    if (appearance::PageData* const data = DataOf(page))
    {
        data->key = key;
    }
}

// Takes the page out of its row of tabs, and shows another one there.
void wxtNotebook::Detach(wxWindow* page)
{
    int                 place = wxNOT_FOUND;
    wxAuiTabCtrl* const tabs = TabsOf(page, &place);
    wxWindow* const     current =
        m_curPage < 0 ? nullptr : m_tabs.GetWindowFromIdx(static_cast<size_t>(m_curPage));
    if (page != m_Leaving)
    {
        page->Hide();
    }
    m_tabs.RemovePage(page);
    m_Parts->order.Forget(page);
    if (tabs)
    {
        const bool wasShown = tabs->GetPage(static_cast<size_t>(place)).active;
        tabs->RemovePage(page);
        const size_t count = tabs->GetPageCount();
        if (wasShown && count > 0 && !IsBeingDeleted())
        {
            ShowIn(*tabs, tabs->GetWindowFromIdx(std::min(static_cast<size_t>(place), count - 1)));
        }
        if (count == 0)
        {
            RemoveEmptyTabFrames();
        }
        else
        {
            tabs->Refresh();
        }
    }
    m_curPage = current == page || !current ? wxNOT_FOUND : FindPage(current);
}

bool wxtNotebook::RemovePage(size_t index)
{
    CALL_ENTRY("wxtNotebook::RemovePage");
    wxWindow* const page = m_tabs.GetWindowFromIdx(index);
    if (!page)
    {
        return false;
    }
    const bool          hadFocus = HasFocusInside();
    const bool          wasCurrent = m_curPage == static_cast<int>(index);
    int                 place = wxNOT_FOUND;
    wxAuiTabCtrl* const tabs = TabsOf(page, &place);
    const bool          hasNeighbours = tabs && tabs->GetPageCount() > 1;
    Detach(page);
    m_Parts->data.erase(page);
    if (!wasCurrent || GetPageCount() == 0 || IsBeingDeleted())
    {
        return true;
    }
    std::vector<wxWindow*> pages;
    for (size_t i = 0; i < GetPageCount(); ++i)
    {
        pages.push_back(GetPage(i));
    }
    wxWindow* const next = hasNeighbours
                               ? tabs->GetWindowFromIdx(static_cast<size_t>(tabs->GetActivePage()))
                               : m_Parts->order.Sorted(pages).front();
    ShowPage(next, hadFocus);
    if (!m_IsQuiet)
    {
        Send(wxEVT_AUINOTEBOOK_PAGE_CHANGED, m_curPage, wxNOT_FOUND);
    }
    return true;
}

// Of a page that is destroyed the toolkit's own notebook keeps the address.
void wxtNotebook::RemoveChild(wxWindowBase* child)
{
    for (size_t i = 0; m_Parts && i < GetPageCount(); ++i)
    {
        if (GetPage(i) == child)
        {
            const auto* const leaving = std::exchange(m_Leaving, child);
            RemovePage(i);
            m_Leaving = leaving;
            break;
        }
    }
    wxAuiNotebook::RemoveChild(child);
}
