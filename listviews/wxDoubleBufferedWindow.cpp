#include "listviews/wxDoubleBufferedWindow.h"

#include "appearance/_Port.h"
#include "listviews/_ScrollModel.h"
#include "listviews/_ScrollState.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <algorithm>

namespace
{
constexpr int kRedrawTimerId = 1;
constexpr int kLeastSize = 80;     // pixels: room for two scrollbars and a little content
constexpr int kScrollbarRoom = 64; // pixels: a view that is smaller shows no scrollbars
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
    : m_Scroll(std::make_unique<ScrollState>())
{
    CALL_ENTRY("wxDoubleBufferedWindow::wxDoubleBufferedWindow");
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(parent, id, wxDefaultPosition, wxDefaultSize,
           style | wxVSCROLL | wxHSCROLL | wxWANTS_CHARS, wxASCII_STR(wxPanelNameStr));
    _UseSolidScrollbars(*this);
    SetMinSize(wxSize(kLeastSize, kLeastSize));
    SetSize(wxSize(kLeastSize, kLeastSize));
    m_RedrawTimer.SetOwner(this, kRedrawTimerId);
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
    m_Scroll->hidden = true;
    wxWindow::SetScrollbar(orientation, 0, 1, 1, true);
}

wxDoubleBufferedWindow::~wxDoubleBufferedWindow()
{
    CALL_ENTRY("wxDoubleBufferedWindow::~wxDoubleBufferedWindow");
    s_Windows.erase(this);
    m_RedrawTimer.Stop();
    m_RedrawTimer.SetOwner(nullptr);
}

_ScrollUnits wxDoubleBufferedWindow::ScrollUnits() const
{
    return {m_LineHeight, m_ColumnWidth, m_VisibleLines, m_VisibleColumns};
}

// What the scrollbar shows once it has followed the content. The getters go by this and not by the
// native scrollbar, which may be behind and which reads back an empty range as 1.
_ScrollAxis wxDoubleBufferedWindow::DueAxis(int orientation) const
{
    const _ScrollAxis& axis = m_Scroll->Axis(orientation);
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
        return _Adjusted(axis, client.x, m_ContentWidth, false);
    }
    return _Adjusted(axis, client.y, _ScrollRange(m_LineCount, m_LineHeight), m_FollowEnd);
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
    if (!m_RedrawTimer.IsRunning())
    {
        m_RedrawTimer.StartOnce(m_RedrawDelay);
    }
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
        const _ScrollAxis horizontal = DueAxis(wxHORIZONTAL);
        const _ScrollAxis vertical = DueAxis(wxVERTICAL);
        // Setting what is set already would bring a further size event, which makes them due again.
        if (m_Scroll->hidden || horizontal != m_Scroll->horizontal ||
            vertical != m_Scroll->vertical)
        {
            m_Scroll->hidden = false;
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
    const _ScrollAxis h = m_Scroll->horizontal;
    const _ScrollAxis v = m_Scroll->vertical;
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
    _ScrollAxis& axis = m_Scroll->Axis(orientation);
    axis.thumb = thumb;
    axis.range = range;
    axis.position = axis.Clamped(position);
    if (HasScrollbarRoom(GetSize()))
    {
        // A thumb larger than the range would look like an axis pulled beyond its end.
        wxWindow::SetScrollbar(orientation, axis.position, std::min(thumb, range), range, refresh);
    }
    else
    {
        HideNative(orientation);
    }
}

void wxDoubleBufferedWindow::SetScrollPos(int orientation, int position, bool refresh)
{
    CALL_ENTRY("wxDoubleBufferedWindow::SetScrollPos");
    ApplyDueScrollbars();
    _ScrollAxis& axis = m_Scroll->Axis(orientation);
    const int    target = axis.Clamped(position);
    // The toolkit asks for the position and leaves the scrollbar alone when it is there already:
    // ours changes after its.
    wxWindow::SetScrollPos(orientation, target, refresh);
    axis.position = target;
}

int wxDoubleBufferedWindow::GetScrollPos(int orientation) const
{
    return DueAxis(orientation).position;
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
    // First: a scrollbar that comes with the content takes room, and the end lies further on then.
    ApplyDueScrollbars();
    const int         orientation = event.GetOrientation();
    const _ScrollAxis axis{GetScrollPos(orientation), GetScrollThumb(orientation),
                           GetScrollRange(orientation)};
    const int         target = _ScrollTarget(event.GetEventType(), axis, m_LineHeight,
                                             _PageSize(orientation, ScrollUnits()), event.GetPosition());
    SetScrollPos(orientation, target, true);
    Redraw();
    if (m_LinkedWindow && s_Windows.count(m_LinkedWindow))
    {
        m_LinkedWindow->Redraw();
    }
}

void wxDoubleBufferedWindow::ScrollTo(int orientation, long long position)
{
    const _ScrollAxis axis{0, GetScrollThumb(orientation), GetScrollRange(orientation)};
    wxScrollWinEvent  event(wxEVT_SCROLLWIN_THUMBRELEASE, axis.Clamped(position), orientation);
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
    const int lines = _WheelLines(m_WheelAccumulator, event.GetWheelRotation(),
                                  event.GetWheelDelta(), event.GetLinesPerAction());
    if (lines != 0)
    {
        ScrollLines(lines);
    }
}
