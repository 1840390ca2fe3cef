#include "appearance/tabs/TabStrip.h"

#include "appearance/tabs/NotebookParts.h"
#include "appearance/tabs/TabLook.h"
#include "internal/input/PadKey.h"
#include "internal/port/Enabling.h"
#include "internal/port/ToolTips.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>
#include <wx/settings.h>

#include <cstdlib>

namespace appearance
{
namespace
{
constexpr int kLeastTab = 90; // pixels at scale 1
constexpr int kLeastDrag = 6; // pixels
constexpr int kButtonIds[] = {wxAUI_BUTTON_LEFT, wxAUI_BUTTON_RIGHT, wxAUI_BUTTON_WINDOWLIST};
} // namespace

TabStrip::TabStrip(wxtNotebook& book, wxAuiTabCtrl& tabs) : m_Book(book), m_Tabs(&tabs)
{
    tabs.SetBackgroundStyle(wxBG_STYLE_PAINT);
    tabs.Bind(wxEVT_PAINT, &TabStrip::OnPaint, this);
    tabs.Bind(wxEVT_LEFT_DOWN, &TabStrip::OnLeftDown, this);
    tabs.Bind(wxEVT_LEFT_DCLICK, &TabStrip::OnLeftDown, this);
    tabs.Bind(wxEVT_LEFT_UP, &TabStrip::OnLeftUp, this);
    tabs.Bind(wxEVT_MOTION, &TabStrip::OnMotion, this);
    tabs.Bind(wxEVT_LEAVE_WINDOW, &TabStrip::OnLeave, this);
    tabs.Bind(wxEVT_MIDDLE_DOWN, &TabStrip::OnMiddle, this);
    tabs.Bind(wxEVT_MIDDLE_DCLICK, &TabStrip::OnMiddle, this);
    tabs.Bind(wxEVT_MIDDLE_UP, &TabStrip::OnMiddle, this);
    tabs.Bind(wxEVT_RIGHT_DOWN, &TabStrip::OnRight, this);
    tabs.Bind(wxEVT_RIGHT_UP, &TabStrip::OnRight, this);
    tabs.Bind(wxEVT_MOUSEWHEEL, &TabStrip::OnWheel, this);
    tabs.Bind(wxEVT_CONTEXT_MENU, &TabStrip::OnContextMenu, this);
    tabs.Bind(wxEVT_CHAR, &TabStrip::OnChar, this);
    tabs.Bind(wxEVT_MOUSE_CAPTURE_LOST, &TabStrip::OnCaptureLost, this);
    tabs.Bind(wxEVT_DESTROY, &TabStrip::OnDestroy, this);
    tabs.Bind(wxEVT_SIZE, &TabStrip::OnSize, this);
    tabs.Bind(internal::EVT_ENABLED, &TabStrip::OnEnabled, this);
    internal::WatchEnabling(tabs);
}

wxtTabArt& TabStrip::Art() const
{
    // The notebook takes no other.
    return static_cast<wxtTabArt&>(*m_Tabs->GetArtProvider());
}

bool TabStrip::HasCloseButton(const wxAuiNotebookPage& page) const
{
    const unsigned flags = m_Tabs->GetFlags();
    return flags & wxAUI_NB_CLOSE_ON_ALL_TABS ||
           (flags & wxAUI_NB_CLOSE_ON_ACTIVE_TAB && page.active);
}

TabRow TabStrip::RowWith(int shown) const
{
    const wxSize     room = m_Tabs->GetClientSize();
    const TabSizes   sizes = wxtTabArt::SizesFor(*m_Tabs);
    std::vector<int> widths;
    widths.reserve(m_Tabs->GetPageCount());
    for (size_t i = 0; i < m_Tabs->GetPageCount(); ++i)
    {
        const wxAuiNotebookPage& page = m_Tabs->GetPage(i);
        widths.push_back(Art().WidthOf(*m_Tabs, page, HasCloseButton(page), sizes));
    }
    return TabRow::Of(widths, m_Tabs->GetTabOffset(), shown,
                      {room, WithFont(*m_Tabs, kLeastTab), wxtTabArt::ButtonWidth(*m_Tabs)});
}

TabRow TabStrip::Row() const
{
    return RowWith(-1);
}

wxRect TabStrip::ScreenRect() const
{
    return m_Tabs->GetScreenRect();
}

void TabStrip::ShowTab(int index)
{
    m_Tabs->SetTabOffset(RowWith(index).first);
    m_Tabs->Refresh();
}

wxPoint TabStrip::BelowTab(int index) const
{
    const TabRow row = Row();
    const auto   tab = static_cast<size_t>(index);
    const int    x = tab < row.tabs.size() ? row.tabs[tab].x : 0;
    return m_Tabs->ClientToScreen(wxPoint(x, m_Tabs->GetClientSize().y));
}

int TabStrip::SlotState(const wxAuiNotebookPage& page, int index) const
{
    if (!HasCloseButton(page))
    {
        return wxAUI_BUTTON_STATE_HIDDEN;
    }
    const Spot slot{Spot::slot, index, page.window};
    if (!(m_Hover == slot))
    {
        return wxAUI_BUTTON_STATE_NORMAL;
    }
    return m_Press == slot ? wxAUI_BUTTON_STATE_PRESSED : wxAUI_BUTTON_STATE_HOVER;
}

bool TabStrip::CanPress(const TabRow& row, int button) const
{
    return button == button_Back      ? row.CanGoBack()
           : button == button_Forward ? row.CanGoForward()
                                      : true;
}

int TabStrip::ButtonState(const TabRow& row, int button) const
{
    if (!CanPress(row, button))
    {
        return wxAUI_BUTTON_STATE_DISABLED;
    }
    const Spot spot{Spot::button, button, nullptr};
    if (!(m_Hover == spot))
    {
        return wxAUI_BUTTON_STATE_NORMAL;
    }
    return m_Press == spot ? wxAUI_BUTTON_STATE_PRESSED : wxAUI_BUTTON_STATE_HOVER;
}

void TabStrip::OnPaint(wxPaintEvent&)
{
    CALL_ENTRY("TabStrip::OnPaint");
    FollowTabs();
    wxPaintDC    dc(m_Tabs);
    const TabRow row = Row();
    Art().DrawBackground(dc, m_Tabs, m_Tabs->GetClientRect());
    for (size_t i = 0; i < row.tabs.size(); ++i)
    {
        wxAuiNotebookPage& page = m_Tabs->GetPage(i);
        page.rect = row.tabs[i]; // for the toolkit's hit test
        if (!row.tabs[i].IsEmpty())
        {
            const int index = static_cast<int>(i);
            page.hover =
                (m_Hover.part == Spot::tab || m_Hover.part == Spot::slot) && m_Hover.index == index;
            wxRect tab;
            wxRect slot;
            int    extent = 0;
            Art().DrawTab(dc, m_Tabs, page, row.tabs[i], SlotState(page, index), &tab, &slot,
                          &extent);
        }
    }
    for (int button = 0; button < kTabRowButtons && row.scrolls; ++button)
    {
        wxRect rect;
        Art().DrawButton(dc, m_Tabs, row.buttons[button], kButtonIds[button],
                         ButtonState(row, button), wxLEFT, &rect);
    }
}

TabStrip::Spot TabStrip::SpotAt(const wxPoint& point) const
{
    const TabRow row = Row();
    if (const int button = row.ButtonAt(point); button >= 0)
    {
        return {Spot::button, button, nullptr};
    }
    const int tab = row.TabAt(point);
    if (tab < 0)
    {
        return {};
    }
    const wxAuiNotebookPage& page = m_Tabs->GetPage(static_cast<size_t>(tab));
    const bool               isSlot =
        HasCloseButton(page) &&
        Art().SlotIn(*m_Tabs, page, row.tabs[static_cast<size_t>(tab)]).Contains(point);
    return {isSlot ? Spot::slot : Spot::tab, tab, page.window};
}

void TabStrip::Hover(const Spot& spot)
{
    if (!(spot == m_Hover))
    {
        m_Hover = spot;
        m_Tabs->Refresh();
    }
    SetTip(spot);
}

void TabStrip::HoverAt(const wxPoint& point)
{
    m_IsPointerIn = true;
    m_Pointer = point;
    Hover(SpotAt(point));
}

void TabStrip::HoverNothing()
{
    m_IsPointerIn = false;
    Hover({});
}

// Tabs come, go and move under a pointer that rests. What has come there has its tip once the
// pointer moves; the one of what has gone would stay open.
void TabStrip::FollowTabs()
{
    const Spot spot = m_IsPointerIn ? SpotAt(m_Pointer) : Spot{};
    if (m_IsPointerIn && !(spot == m_Hover))
    {
        m_Hover = spot;
        internal::UnsetToolTipHere(*m_Tabs);
    }
}

void TabStrip::SetTip(const Spot& spot)
{
    wxString tip;
    if (spot.part == Spot::tab || spot.part == Spot::slot)
    {
        const auto               index = static_cast<size_t>(spot.index);
        const wxAuiNotebookPage& page = m_Tabs->GetPage(index);
        const bool               isShort =
            Art().IsShortened(*m_Tabs, page, Row().tabs[index].width, HasCloseButton(page));
        tip = page.tooltip.empty() && isShort ? page.caption : page.tooltip;
    }
    else if (spot.part == Spot::button && spot.index == button_List)
    {
        tip = wxGetTranslation("All pages");
    }
    internal::SetToolTipHere(*m_Tabs, tip);
}

bool TabStrip::Tell(wxEventType type, const wxWindow* page)
{
    wxAuiNotebookEvent event(type, m_Book.GetId());
    event.SetEventObject(&m_Book);
    event.SetSelection(page ? m_Book.FindPage(page) : wxNOT_FOUND);
    return m_Book.GetEventHandler()->ProcessEvent(event) || !event.IsAllowed();
}

// Nothing of this object is touched after the notebook has told of something: it may be gone.
void TabStrip::OnLeftDown(wxMouseEvent& event)
{
    CALL_ENTRY("TabStrip::OnLeftDown");
    m_Book.m_Parts->drag.reset(); // whose release went elsewhere
    m_Press = SpotAt(event.GetPosition());
    m_PressPoint = event.GetPosition();
    m_Hover = m_Press;
    m_IsPointerIn = true;
    m_Pointer = m_PressPoint;
    m_Tabs->Refresh();
    if (m_Press.part == Spot::tab)
    {
        m_Book.PressTab(m_Press.page);
    }
    else if (m_Press.part == Spot::nothing && event.LeftDClick())
    {
        Tell(wxEVT_AUINOTEBOOK_BG_DCLICK, nullptr);
    }
}

void TabStrip::OnLeftUp(wxMouseEvent& event)
{
    CALL_ENTRY("TabStrip::OnLeftUp");
    if (m_Book.m_Parts->drag)
    {
        m_Press = {};
        m_Book.m_Parts->drag->Drop(m_Tabs->ClientToScreen(event.GetPosition()));
        return;
    }
    const Spot press = std::exchange(m_Press, {});
    m_Tabs->Refresh();
    if (press.part == Spot::nothing || !(press == SpotAt(event.GetPosition())))
    {
        return;
    }
    if (press.part == Spot::slot)
    {
        m_Book.ClosePage(press.page);
    }
    else if (press.part == Spot::button)
    {
        PressButton(press.index);
    }
}

void TabStrip::PressButton(int button)
{
    const TabRow row = Row();
    if (button == button_List)
    {
        internal::UnsetToolTipHere(*m_Tabs); // it would come up over the list
        m_Book.ShowPageList();
    }
    else if (CanPress(row, button))
    {
        const int seen = std::max(1, static_cast<int>(row.end - row.first));
        Scroll(button == button_Back ? -seen : seen);
    }
}

void TabStrip::Scroll(int tabs)
{
    const int first = static_cast<int>(Row().first) + tabs;
    const int last = static_cast<int>(m_Tabs->GetPageCount()) - 1;
    m_Tabs->SetTabOffset(static_cast<size_t>(std::max(0, std::min(first, last))));
    m_Tabs->SetTabOffset(Row().first);
    m_Tabs->Refresh();
}

bool TabStrip::IsDragStart(const wxPoint& point) const
{
    const wxPoint way = point - m_PressPoint;
    const int     leastX = std::max(kLeastDrag, wxSystemSettings::GetMetric(wxSYS_DRAG_X, m_Tabs));
    const int     leastY = std::max(kLeastDrag, wxSystemSettings::GetMetric(wxSYS_DRAG_Y, m_Tabs));
    return m_Press.part == Spot::tab && m_Press.page &&
           (std::abs(way.x) > leastX || std::abs(way.y) > leastY);
}

void TabStrip::OnMotion(wxMouseEvent& event)
{
    CALL_ENTRY("TabStrip::OnMotion");
    if (!event.LeftIsDown())
    {
        m_Press = {}; // released where nobody heard it
    }
    const wxPoint screen = m_Tabs->ClientToScreen(event.GetPosition());
    if (m_Book.m_Parts->drag)
    {
        m_Book.m_Parts->drag->Follow(screen, event.LeftIsDown());
        return;
    }
    HoverAt(event.GetPosition());
    if (IsDragStart(event.GetPosition()))
    {
        HoverNothing(); // no tip over what is dragged
        // A press begins one drag, also when that is refused or cancelled.
        const wxWeakRef<wxWindow> page = std::exchange(m_Press, {}).page;
        TabDrag::Begin(m_Book, page, *m_Tabs, screen);
    }
}

void TabStrip::OnLeave(wxMouseEvent&)
{
    HoverNothing();
}

// Closes at the release, on the tab that was pressed.
void TabStrip::OnMiddle(wxMouseEvent& event)
{
    CALL_ENTRY("TabStrip::OnMiddle");
    const Spot spot = SpotAt(event.GetPosition());
    const bool isOnTab = spot.part == Spot::tab || spot.part == Spot::slot;
    if (!event.MiddleUp())
    {
        m_MiddlePress = isOnTab ? spot : Spot{};
        if (isOnTab)
        {
            Tell(wxEVT_AUINOTEBOOK_TAB_MIDDLE_DOWN, spot.page);
        }
        return;
    }
    const Spot press = std::exchange(m_MiddlePress, {});
    if (!isOnTab || press.page != spot.page)
    {
        return;
    }
    const wxWeakRef<wxtNotebook> book(&m_Book);
    const bool                   mayClose = m_Tabs->GetFlags() & wxAUI_NB_MIDDLE_CLICK_CLOSE;
    const wxWeakRef<wxWindow>    page(spot.page);
    if (!Tell(wxEVT_AUINOTEBOOK_TAB_MIDDLE_UP, page) && book && page && mayClose)
    {
        book->ClosePage(page);
    }
}

// The toolkit's own handler would tell of it once more, so that the port never asks for a menu.
void TabStrip::OnRight(wxMouseEvent& event)
{
    CALL_ENTRY("TabStrip::OnRight");
    const wxWeakRef<wxWindow>    page(SpotAt(event.GetPosition()).page);
    const wxWeakRef<wxtNotebook> book(&m_Book);
    const bool                   isUp = event.RightUp();
    if (page &&
        !Tell(isUp ? wxEVT_AUINOTEBOOK_TAB_RIGHT_UP : wxEVT_AUINOTEBOOK_TAB_RIGHT_DOWN, page) &&
        !isUp && book && page)
    {
        book->ShowTabMenu(page);
    }
}

// By the keyboard.
void TabStrip::OnContextMenu(wxContextMenuEvent&)
{
    CALL_ENTRY("TabStrip::OnContextMenu");
    const int active = m_Tabs->GetActivePage();
    if (active >= 0)
    {
        m_Book.ShowTabMenu(m_Tabs->GetWindowFromIdx(static_cast<size_t>(active)));
    }
}

// The notebook has taken the keys that are the tabs'. One whose handler threw comes here, where the
// toolkit would select once more.
void TabStrip::OnChar(wxKeyEvent& event)
{
    const int key = internal::OffThePad(event.GetKeyCode());
    event.Skip(key != WXK_LEFT && key != WXK_RIGHT && key != WXK_HOME && key != WXK_END);
}

void TabStrip::OnWheel(wxMouseEvent& event)
{
    m_WheelTurn += event.GetWheelAxis() == wxMOUSE_WHEEL_HORIZONTAL ? -event.GetWheelRotation()
                                                                    : event.GetWheelRotation();
    const int notch = std::max(1, event.GetWheelDelta());
    const int notches = m_WheelTurn / notch;
    m_WheelTurn -= notches * notch;
    Scroll(-notches);
    HoverAt(event.GetPosition());
}

void TabStrip::OnEnabled(internal::EnabledEvent& event)
{
    event.Skip();
    m_Press = {};
    m_Hover = {};
    m_IsPointerIn = false;
    if (m_Book.m_Parts->drag && !event.IsEnabled())
    {
        m_Book.m_Parts->drag->Cancel();
    }
    m_Tabs->Refresh();
}

// The toolkit removes a row with its last page, whoever takes that away.
void TabStrip::OnDestroy(wxWindowDestroyEvent& event)
{
    event.Skip();
    TabDrag::EndWith(m_Book, *m_Tabs);
}

// The shown page keeps its tab in sight.
void TabStrip::OnSize(wxSizeEvent& event)
{
    event.Skip();
    const int active = m_Tabs->GetActivePage();
    const int old = std::exchange(m_Width, m_Tabs->GetClientSize().x);
    if (m_Width != old && active >= 0)
    {
        ShowTab(active);
    }
}

void TabStrip::OnCaptureLost(wxMouseCaptureLostEvent&)
{
    m_Press = {};
    if (m_Book.m_Parts->drag)
    {
        m_Book.m_Parts->drag->Cancel();
    }
}
} // namespace appearance
