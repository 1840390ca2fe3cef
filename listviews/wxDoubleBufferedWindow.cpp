#include "listviews/wxDoubleBufferedWindow.h"

#include "internal/drawing/Damage.h"
#include "internal/port/FocusMoves.h"
#include "internal/port/Scrollbars.h"
#include "internal/scrolling/ScrollModel.h"
#include "listviews/scrolling/ScrollState.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/utils.h>
#include <wx/weakref.h>

#include <algorithm>

namespace
{
constexpr int kRedrawTimerId = 1;
constexpr int kHoldCheckMs = 100;  // milliseconds between two looks at a window that is pressed
constexpr int kLeastSize = 80;     // pixels: room for two scrollbars and a little content
constexpr int kScrollbarRoom = 64; // pixels: a view that is smaller shows no scrollbars

bool AnyButtonIsDown()
{
    const wxMouseState mouse = wxGetMouseState();
    return mouse.LeftIsDown() || mouse.MiddleIsDown() || mouse.RightIsDown();
}
} // namespace

std::set<wxDoubleBufferedWindow*> wxDoubleBufferedWindow::s_Windows;

// clang-format off
wxBEGIN_EVENT_TABLE(wxDoubleBufferedWindow, wxWindow)
    EVT_PAINT(wxDoubleBufferedWindow::Paint)
    EVT_SIZE(wxDoubleBufferedWindow::Resize)
    EVT_ERASE_BACKGROUND(wxDoubleBufferedWindow::Erase)
    EVT_SYS_COLOUR_CHANGED(wxDoubleBufferedWindow::OnSysColorChange)
    EVT_SCROLLWIN_TOP(wxDoubleBufferedWindow::Scroll)
    EVT_SCROLLWIN_BOTTOM(wxDoubleBufferedWindow::Scroll)
    EVT_SCROLLWIN_LINEUP(wxDoubleBufferedWindow::Scroll)
    EVT_SCROLLWIN_LINEDOWN(wxDoubleBufferedWindow::Scroll)
    EVT_SCROLLWIN_PAGEUP(wxDoubleBufferedWindow::Scroll)
    EVT_SCROLLWIN_PAGEDOWN(wxDoubleBufferedWindow::Scroll)
    EVT_SCROLLWIN_THUMBTRACK(wxDoubleBufferedWindow::Scroll)
    EVT_SCROLLWIN_THUMBRELEASE(wxDoubleBufferedWindow::Scroll)
    EVT_MOUSEWHEEL(wxDoubleBufferedWindow::OnMouseWheel)
    EVT_TIMER(kRedrawTimerId, wxDoubleBufferedWindow::Timeout)
wxEND_EVENT_TABLE()
// clang-format on

wxDoubleBufferedWindow::wxDoubleBufferedWindow(wxWindow* parent, int id, long style)
    : m_Scroll(std::make_unique<listviews::ScrollState>()),
      m_Pending(std::make_unique<internal::Damage>()),
      m_Due(std::make_unique<internal::Damage>())
{
    CALL_ENTRY("wxDoubleBufferedWindow::wxDoubleBufferedWindow");
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, id, wxDefaultPosition, wxDefaultSize,
           style | wxVSCROLL | wxHSCROLL | wxWANTS_CHARS, wxASCII_STR(wxPanelNameStr));
    internal::UseSolidScrollbars(*this);
    internal::KeepFromArrows(*this);
    SetMinSize(wxSize(kLeastSize, kLeastSize));
    SetSize(wxSize(kLeastSize, kLeastSize));
    m_RedrawTimer.SetOwner(this, kRedrawTimerId);
    m_HoldTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { WatchHold(); });
    s_Windows.insert(this);
}

// GTK 3 complains about scrollbars that are laid out in less room than they need, as happens for a
// moment even to the views of a frame that is about to be shown. They are gone before it can.
void wxDoubleBufferedWindow::DoMoveWindow(int x, int y, int width, int height)
{
    if (!HasScrollbarRoom({width, height}))
    {
        HideNative(wxHORIZONTAL);
        HideNative(wxVERTICAL);
    }
    wxWindow::DoMoveWindow(x, y, width, height);
}

bool wxDoubleBufferedWindow::HasScrollbarRoom(const wxSize& size)
{
    return size.x >= kScrollbarRoom && size.y >= kScrollbarRoom;
}

void wxDoubleBufferedWindow::HideNative(int orientation)
{
    listviews::ScrollState::Bar& bar = m_Scroll->Of(orientation);
    bar.hidden = true;
    bar.shown = internal::ScrollAxis();
    wxWindow::SetScrollbar(orientation, 0, 1, 1, true);
}

wxDoubleBufferedWindow::~wxDoubleBufferedWindow()
{
    CALL_ENTRY("wxDoubleBufferedWindow::~wxDoubleBufferedWindow");
    LetMouseGo();
    if (AnyButtonIsDown())
    {
        internal::EndScrollbarPress(*this);
    }
    s_Windows.erase(this);
    m_RedrawTimer.Stop();
    m_RedrawTimer.SetOwner(nullptr);
}

bool wxDoubleBufferedWindow::TakeFocus()
{
    const wxWeakRef<wxDoubleBufferedWindow> self(this);
    SetFocus();
    return self && !IsBeingDeleted();
}

void wxDoubleBufferedWindow::HoldMouse()
{
    if (!HasCapture())
    {
        CaptureMouse();
    }
    m_HoldTimer.Start(kHoldCheckMs);
}

void wxDoubleBufferedWindow::LetMouseGo()
{
    if (HasCapture())
    {
        ReleaseMouse();
    }
}

void wxDoubleBufferedWindow::WatchHold()
{
    if (m_Scroll->held && (!IsEnabled() || !IsShownOnScreen()))
    {
        m_Scroll->held = false;
        internal::EndScrollbarPress(*this);
    }
    if (!HasCapture() && !m_Scroll->held)
    {
        m_HoldTimer.Stop();
    }
    else if (HasCapture() && (!IsEnabled() || !IsShownOnScreen()))
    {
        LetMouseGo();
        wxMouseCaptureLostEvent lost(GetId());
        lost.SetEventObject(this);
        ProcessWindowEvent(lost);
    }
}

internal::ScrollUnits wxDoubleBufferedWindow::ScrollUnits() const
{
    return {m_LineHeight, m_ColumnWidth, m_VisibleLines, m_VisibleColumns};
}

// What the scrollbar shows once it has followed the content. The getters go by this and not by the
// native scrollbar, which may be behind and which reads back an empty range as 1.
internal::ScrollAxis wxDoubleBufferedWindow::DueAxis(int orientation) const
{
    const internal::ScrollAxis& axis = m_Scroll->Of(orientation).axis;
    if (!m_Scroll->due)
    {
        return axis;
    }
    const wxSize client = GetClientSize();
    if (client.x < 1 || client.y < 1)
    {
        return axis;
    }
    if (orientation == wxHORIZONTAL)
    {
        return internal::Adjusted(axis, client.x, m_ContentWidth, false);
    }
    return internal::Adjusted(axis, m_EndThumb ? m_EndThumb() : client.y,
                              internal::ScrollRange(m_LineCount, m_LineHeight), m_FollowEnd);
}

void wxDoubleBufferedWindow::AdjustScrollbars()
{
    CALL_ENTRY("wxDoubleBufferedWindow::AdjustScrollbars");
    m_Scroll->due = true;
    ApplyDueScrollbars();
}

void wxDoubleBufferedWindow::AdjustScrollbarsLater()
{
    if (m_Scroll->due && m_RedrawTimer.IsRunning())
    {
        return;
    }
    CALL_ENTRY("wxDoubleBufferedWindow::AdjustScrollbarsLater");
    m_Scroll->due = true;
    StartRedrawTimer();
}

// Showing what is shown already would bring further size events.
bool wxDoubleBufferedWindow::IsBehind(int orientation) const
{
    const listviews::ScrollState::Bar& bar = m_Scroll->Of(orientation);
    return bar.hidden || bar.shown != bar.axis;
}

void wxDoubleBufferedWindow::ApplyDueScrollbars()
{
    // A scrollbar that comes or goes changes the client area, and with it what is due.
    for (int pass = 0; pass < 2 && m_Scroll->due; ++pass)
    {
        const wxSize client = GetClientSize();
        if (client.x < 1 || client.y < 1)
        {
            return; // stays due until there is room
        }
        const internal::ScrollAxis horizontal = m_Scroll->horizontal.axis = DueAxis(wxHORIZONTAL);
        const internal::ScrollAxis vertical = m_Scroll->vertical.axis = DueAxis(wxVERTICAL);
        if (IsHeld())
        {
            return; // the thumb would run away from the pointer, and the view after the thumb
        }
        if (IsBehind(wxHORIZONTAL) || IsBehind(wxVERTICAL))
        {
            SetScrollbar(wxHORIZONTAL, horizontal.position, horizontal.thumb, horizontal.range,
                         true);
            SetScrollbar(wxVERTICAL, vertical.position, vertical.thumb, vertical.range, true);
        }
        m_Scroll->due = GetClientSize() != client;
        if (m_ScrollTrace)
        {
            TraceScrolling();
        }
    }
    m_Scroll->due = false;
}

void wxDoubleBufferedWindow::TraceScrolling() const
{
    const internal::ScrollAxis h = m_Scroll->horizontal.axis;
    const internal::ScrollAxis v = m_Scroll->vertical.axis;
    LogInfo(SFormat("wxDoubleBufferedWindow %x    H: %d %d %d   first: %d -%d (%d / %d x %d)   "
                    "V: %d %d %d   first: %d -%d (%d / %d x %d)",
                    static_cast<unsigned>(reinterpret_cast<uintptr_t>(this)), h.position, h.thumb,
                    h.range, h.position / m_ColumnWidth, h.position % m_ColumnWidth, m_ContentWidth,
                    m_VisibleColumns, m_ColumnWidth, v.position, v.thumb, v.range,
                    v.position / m_LineHeight, v.position % m_LineHeight, m_LineCount,
                    m_VisibleLines, m_LineHeight));
}

void wxDoubleBufferedWindow::SetScrollbar(int orientation, int position, int thumb, int range,
                                          bool refresh)
{
    CALL_ENTRY("wxDoubleBufferedWindow::SetScrollbar");
    listviews::ScrollState::Bar& bar = m_Scroll->Of(orientation);
    const int                    before = bar.axis.position;
    bar.axis.thumb = thumb;
    bar.axis.range = range;
    bar.axis.position = bar.axis.Clamped(position);
    if (HasScrollbarRoom(GetSize()))
    {
        // A thumb larger than the range would look like an axis pulled beyond its end.
        wxWindow::SetScrollbar(orientation, bar.axis.position, std::min(thumb, range), range,
                               refresh);
        bar.hidden = false;
        bar.shown = bar.axis;
        bar.shown.position = wxWindow::GetScrollPos(orientation);
    }
    else
    {
        HideNative(orientation);
    }
    if (bar.axis.position != before)
    {
        RedrawScrolled();
    }
}

void wxDoubleBufferedWindow::SetScrollPos(int orientation, int position, bool refresh)
{
    CALL_ENTRY("wxDoubleBufferedWindow::SetScrollPos");
    ApplyDueScrollbars();
    listviews::ScrollState::Bar& bar = m_Scroll->Of(orientation);
    const int                    target = bar.axis.Clamped(position);
    if (IsHeld())
    {
        m_Scroll->due = true; // the thumb follows when it is let go
    }
    else if (!bar.hidden)
    {
        // The toolkit asks for the position and leaves the scrollbar alone when it is there
        // already: ours changes after its.
        wxWindow::SetScrollPos(orientation, target, refresh);
        bar.shown.position = wxWindow::GetScrollPos(orientation);
    }
    if (bar.axis.position != target)
    {
        bar.axis.position = target;
        RedrawScrolled();
    }
}

// The user has moved the native thumb, and the event that tells of it is on its way.
bool wxDoubleBufferedWindow::IsMovedByHand(int orientation) const
{
    const listviews::ScrollState::Bar& bar = m_Scroll->Of(orientation);
    return !bar.hidden && wxWindow::GetScrollPos(orientation) != bar.shown.position;
}

// The toolkit, too, asks here, when it fills its events with the position.
int wxDoubleBufferedWindow::GetScrollPos(int orientation) const
{
    return IsMovedByHand(orientation) ? wxWindow::GetScrollPos(orientation)
                                      : DueAxis(orientation).position;
}

int wxDoubleBufferedWindow::GetScrollThumb(int orientation) const
{
    return DueAxis(orientation).thumb;
}

int wxDoubleBufferedWindow::GetScrollRange(int orientation) const
{
    return DueAxis(orientation).range;
}

void wxDoubleBufferedWindow::Scroll(wxScrollWinEvent& event)
{
    CALL_ENTRY("wxDoubleBufferedWindow::Scroll");
    const int orientation = event.GetOrientation();
    // First the hand: a view that follows its end stays at the end that the hand has found. Then
    // what is due: a scrollbar that comes with the content takes room, and the end lies further on.
    const bool byHand = TakeHandPosition(event);
    ApplyDueScrollbars();
    const internal::ScrollAxis axis{GetScrollPos(orientation), GetScrollThumb(orientation),
                                    GetScrollRange(orientation)};
    int                        target = axis.position;
    if (!byHand && orientation == wxVERTICAL && m_ScrollRows)
    {
        target = m_ScrollRows(event.GetEventType(), event.GetPosition());
    }
    else if (!byHand)
    {
        target = internal::ScrollTarget(event.GetEventType(), axis, m_LineHeight,
                                        internal::PageSize(orientation, ScrollUnits()),
                                        event.GetPosition());
    }
    SetScrollPos(orientation, target, true);
    RedrawScrolled();
}

// The user has dragged the native thumb: the view goes where it stands. Whether the event is about
// that. (A click on an arrow or the trough moves by what a line or a page is here, and the thumb is
// put there.)
bool wxDoubleBufferedWindow::TakeHandPosition(const wxScrollWinEvent& event)
{
    const int  orientation = event.GetOrientation();
    const int  position = wxWindow::GetScrollPos(orientation);
    const bool released = event.GetEventType() == wxEVT_SCROLLWIN_THUMBRELEASE;
    const bool dragged = event.GetEventType() == wxEVT_SCROLLWIN_THUMBTRACK || released;
    if (!IsMovedByHand(orientation) || event.GetPosition() != position)
    {
        m_Scroll->held = m_Scroll->held && !released;
        return false;
    }
    listviews::ScrollState::Bar& bar = m_Scroll->Of(orientation);
    bar.shown.position = position;
    if (dragged)
    {
        m_Scroll->held = !released;
        m_HoldTimer.Start(kHoldCheckMs);
        bar.axis = internal::Adjusted(bar.shown, bar.axis.thumb, bar.axis.range,
                                      orientation == wxVERTICAL && m_FollowEnd);
    }
    return dragged;
}

// Nobody tells of a button that was let go while the scrollbar was hidden.
bool wxDoubleBufferedWindow::IsHeld() const
{
    m_Scroll->held = m_Scroll->held && AnyButtonIsDown();
    return m_Scroll->held;
}

void wxDoubleBufferedWindow::RedrawScrolled()
{
    PaintScrolled();
    if (m_LinkedWindow && s_Windows.count(m_LinkedWindow))
    {
        m_LinkedWindow->PaintScrolled();
    }
}

void wxDoubleBufferedWindow::ScrollTo(int orientation, long long position)
{
    const internal::ScrollAxis axis{0, GetScrollThumb(orientation), GetScrollRange(orientation)};
    wxScrollWinEvent event(wxEVT_SCROLLWIN_THUMBRELEASE, axis.Clamped(position), orientation);
    event.SetEventObject(this);
    Scroll(event);
}

bool wxDoubleBufferedWindow::ScrollLines(int lines)
{
    CALL_ENTRY("wxDoubleBufferedWindow::ScrollLines");
    ScrollTo(wxVERTICAL, GetScrollPos(wxVERTICAL) + static_cast<long long>(lines) * m_LineHeight);
    return true;
}

bool wxDoubleBufferedWindow::ScrollPages(int pages)
{
    CALL_ENTRY("wxDoubleBufferedWindow::ScrollPages");
    ScrollTo(wxVERTICAL,
             GetScrollPos(wxVERTICAL) + static_cast<long long>(pages) * GetScrollThumb(wxVERTICAL));
    return true;
}

// Vertical whatever the wheel's axis: these views are long, not wide.
void wxDoubleBufferedWindow::OnMouseWheel(wxMouseEvent& event)
{
    CALL_ENTRY("wxDoubleBufferedWindow::OnMouseWheel");
    const int lines = internal::WheelLines(m_WheelAccumulator, event.GetWheelRotation(),
                                           event.GetWheelDelta(), event.GetLinesPerAction());
    if (lines != 0)
    {
        ScrollLines(lines);
    }
}
