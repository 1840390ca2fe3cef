#include "appearance/tabs/PageWindow.h"

#include "appearance/tabs/NotebookParts.h"
#include "internal/input/MouseHold.h"
#include "internal/port/ToolTips.h"
#include "vesta/CallEntry.h"

#include <wx/dcclient.h>

#include <cstdlib>

namespace appearance
{
namespace
{
constexpr int kLeastDrag = 6; // pixels
} // namespace

PageBar::PageBar(wxFrame& frame, wxtNotebook& book, wxWindow* page)
    : wxWindow(&frame, wxID_ANY), wxtColorManaged(this), m_Book(&book), m_Page(page)
{
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    SetFont(book.GetFont());
    const int height =
        book.GetArtProvider()->GetBestTabCtrlSize(this, wxAuiNotebookPageArray(), wxDefaultSize);
    SetMinSize(wxSize(-1, height));
    Bind(wxEVT_PAINT, &PageBar::OnPaint, this);
    Bind(wxEVT_LEFT_DOWN, &PageBar::OnPress, this);
    Bind(wxEVT_LEFT_DCLICK, &PageBar::OnPress, this);
    Bind(wxEVT_LEFT_UP, &PageBar::OnRelease, this);
    Bind(wxEVT_MOTION, &PageBar::OnMotion, this);
    Bind(wxEVT_LEAVE_WINDOW, &PageBar::OnLeave, this);
    Bind(wxEVT_MIDDLE_DOWN, &PageBar::OnMiddle, this);
    Bind(wxEVT_MIDDLE_DCLICK, &PageBar::OnMiddle, this);
    Bind(wxEVT_MIDDLE_UP, &PageBar::OnMiddle, this);
    Bind(wxEVT_RIGHT_DOWN, &PageBar::OnRightDown, this);
    Bind(wxEVT_MOUSE_CAPTURE_LOST, &PageBar::OnCaptureLost, this);
}

PageBar::~PageBar()
{
    if (m_Book)
    {
        TabDrag::EndWith(*m_Book, *this);
    }
}

PageWindow* PageBar::Window() const
{
    return m_Book ? m_Book->WindowOf(m_Page) : nullptr;
}

wxRect PageBar::TabRect() const
{
    const PageWindow* const window = Window();
    const auto&             art = static_cast<wxtTabArt&>(*m_Book->GetArtProvider());
    const wxSize            room = GetClientSize();
    return wxRect(0, 0, std::min(room.x, art.WidthOf(*this, window->info, true)), room.y);
}

bool PageBar::IsOnSlot(const wxPoint& point) const
{
    const PageWindow* const window = Window();
    const auto* const art = window ? static_cast<wxtTabArt*>(m_Book->GetArtProvider()) : nullptr;
    return art && art->SlotIn(*this, window->info, TabRect()).Contains(point);
}

bool PageBar::IsOnTab(const wxPoint& point) const
{
    return Window() && TabRect().Contains(point);
}

// The same as in the notebook's row of tabs.
void PageBar::SetTip(const wxPoint& point)
{
    wxString tip;
    if (IsOnTab(point))
    {
        const wxAuiNotebookPage& page = Window()->info;
        const auto&              art = static_cast<wxtTabArt&>(*m_Book->GetArtProvider());
        const bool               isShort = art.IsShortened(*this, page, TabRect().width, true);
        tip = page.tooltip.empty() && isShort ? page.caption : page.tooltip;
    }
    internal::SetToolTipHere(*this, tip);
}

void PageBar::OnPaint(wxPaintEvent&)
{
    CALL_ENTRY("PageBar::OnPaint");
    wxPaintDC dc(this);
    if (PageWindow* const window = Window())
    {
        wxAuiTabArt& art = *m_Book->GetArtProvider();
        const int    slotState = !m_IsSlotHovered  ? wxAUI_BUTTON_STATE_NORMAL
                                 : m_IsSlotPressed ? wxAUI_BUTTON_STATE_PRESSED
                                                   : wxAUI_BUTTON_STATE_HOVER;
        wxRect       tab;
        wxRect       slot;
        int          extent = 0;
        art.DrawBackground(dc, this, GetClientRect());
        art.DrawTab(dc, this, window->info, TabRect(), slotState, &tab, &slot, &extent);
    }
}

// Nothing of this object is touched after the page has gone back.
void PageBar::OnPress(wxMouseEvent& event)
{
    CALL_ENTRY("PageBar::OnPress");
    m_PressPoint = event.GetPosition();
    m_IsSlotPressed = IsOnSlot(m_PressPoint);
    m_IsPressed = !m_IsSlotPressed && IsOnTab(m_PressPoint);
    Refresh();
    if (event.LeftDClick() && m_IsPressed)
    {
        m_IsPressed = false;
        m_Book->CloseWindow(m_Page);
    }
}

void PageBar::OnRelease(wxMouseEvent& event)
{
    CALL_ENTRY("PageBar::OnRelease");
    const bool isSlotPressed = std::exchange(m_IsSlotPressed, false);
    m_IsPressed = false;
    Refresh();
    if (m_Book && m_Book->m_Parts->drag)
    {
        m_Book->m_Parts->drag->Drop(ClientToScreen(event.GetPosition()));
    }
    else if (isSlotPressed && IsOnSlot(event.GetPosition()))
    {
        m_Book->CloseWindow(m_Page);
    }
}

bool PageBar::IsDragStart(const wxPoint& point) const
{
    const wxPoint way = point - m_PressPoint;
    return m_IsPressed && std::max(std::abs(way.x), std::abs(way.y)) > kLeastDrag;
}

void PageBar::OnMotion(wxMouseEvent& event)
{
    CALL_ENTRY("PageBar::OnMotion");
    const bool    isHeld = event.LeftIsDown();
    const wxPoint screen = ClientToScreen(event.GetPosition());
    m_IsPressed = m_IsPressed && isHeld;
    m_IsSlotPressed = m_IsSlotPressed && isHeld;
    if (m_Book && m_Book->m_Parts->drag)
    {
        m_Book->m_Parts->drag->Follow(screen, isHeld);
        return;
    }
    SetTip(event.GetPosition());
    const bool isOnSlot = IsOnSlot(event.GetPosition());
    if (isOnSlot != m_IsSlotHovered)
    {
        m_IsSlotHovered = isOnSlot;
        Refresh();
    }
    if (Window() && IsDragStart(event.GetPosition()))
    {
        m_IsPressed = false;
        TabDrag::Begin(*m_Book, m_Page, *this, screen);
    }
}

void PageBar::OnLeave(wxMouseEvent&)
{
    m_IsSlotHovered = false;
    Refresh();
}

// Closes at the release, as the tabs of the notebook do.
void PageBar::OnMiddle(wxMouseEvent& event)
{
    CALL_ENTRY("PageBar::OnMiddle");
    const bool isOnTab = IsOnTab(event.GetPosition());
    const bool wasPressed = std::exchange(m_IsMiddlePressed, !event.MiddleUp() && isOnTab);
    if (event.MiddleUp() && isOnTab && wasPressed && m_Book->HasFlag(wxAUI_NB_MIDDLE_CLICK_CLOSE) &&
        !m_Book->m_Parts->drag)
    {
        m_Book->ClosePage(m_Page);
    }
}

void PageBar::OnRightDown(wxMouseEvent& event)
{
    CALL_ENTRY("PageBar::OnRightDown");
    if (IsOnTab(event.GetPosition()))
    {
        m_Book->ShowTabMenu(m_Page);
    }
}

void PageBar::OnCaptureLost(wxMouseCaptureLostEvent&)
{
    if (m_Book && m_Book->m_Parts->drag)
    {
        m_Book->m_Parts->drag->Cancel();
    }
}
} // namespace appearance
