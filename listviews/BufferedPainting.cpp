#include "internal/scrolling/ScrollModel.h"
#include "listviews/scrolling/ScrollState.h"
#include "listviews/wxDoubleBufferedWindow.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"

#include <wx/dcclient.h>

void wxDoubleBufferedWindow::Redraw(const wxRect& area)
{
    CALL_ENTRY("wxDoubleBufferedWindow::Redraw");
    m_PendingArea.Union(area);
    if (!m_RedrawTimer.IsRunning())
    {
        m_RedrawTimer.StartOnce(m_RedrawDelay);
    }
}

void wxDoubleBufferedWindow::Redraw()
{
    if (IsWholeRedrawPending())
    {
        return;
    }
    CALL_ENTRY("wxDoubleBufferedWindow::Redraw");
    Redraw(wxRect(GetClientAreaOrigin(), GetClientSize()));
    m_WholePending = true;
}

bool wxDoubleBufferedWindow::IsWholeRedrawPending() const
{
    return m_WholePending && m_RedrawTimer.IsRunning();
}

void wxDoubleBufferedWindow::RedrawAll()
{
    CALL_ENTRY("wxDoubleBufferedWindow::RedrawAll");
    for (wxDoubleBufferedWindow* window : s_Windows)
    {
        window->Redraw();
    }
}

void wxDoubleBufferedWindow::Timeout(wxTimerEvent&)
{
    CALL_ENTRY("wxDoubleBufferedWindow::Timeout");
    ApplyDueScrollbars();
    if (m_Scroll->due && IsHeld())
    {
        m_RedrawTimer.StartOnce(m_RedrawDelay); // nothing else may ever tell that it is let go
    }
    if (m_PendingArea.IsEmpty())
    {
        return; // only the scrollbars were due
    }
    const wxRect area = m_PendingArea;
    m_PendingArea = wxRect();
    m_WholePending = false;
    m_Stale = true;
    Refresh(false, &area);
}

void wxDoubleBufferedWindow::Paint(wxPaintEvent&)
{
    CALL_ENTRY("wxDoubleBufferedWindow::Paint");
    try
    {
        PaintBuffer();
        m_PaintFailed = false;
    }
    catch (...) // whatever a derived class throws, the view has to come back
    {
        RetryPaint(TakeCurrentException());
    }
}

// Painting is tried again for ever, the log hears of it once until a paint has succeeded.
void wxDoubleBufferedWindow::RetryPaint(const String& reason)
{
    if (!m_PaintFailed)
    {
        m_PaintFailed = true;
        LogError("wxDoubleBufferedWindow: painting failed and is tried again: " + reason);
    }
    m_Stale = true;
    Redraw();
}

void wxDoubleBufferedWindow::PaintBuffer()
{
    // The native scrollbars stay as they are: GTK 3 loses the layout of the whole window when one
    // comes or goes while it paints.
    wxPaintDC dc(this);
    if (!EnsureBuffer())
    {
        return;
    }
    if (m_Stale)
    {
        const _QuietTraces again(m_PaintFailed);
        DrawBitmap();
        m_Stale = false;
    }
    dc.DrawBitmap(*m_Buffer, 0, 0, false);
}

// False while the client area is empty. Size events tell of a new size only when the window is laid
// out: the buffer is compared. It has the scale of the window, or everything drawn through it
// would be blurred on a high-resolution screen.
bool wxDoubleBufferedWindow::EnsureBuffer()
{
    const double scale = GetContentScaleFactor();
    const wxSize client = GetClientSize();
    if (m_Buffer && m_Buffer->GetScaleFactor() == scale && m_Buffer->GetLogicalSize() == client)
    {
        return true;
    }
    if (client.x < 1 || client.y < 1)
    {
        return false;
    }
    auto buffer = std::make_unique<wxBitmap>();
    if (!buffer->CreateScaled(client.x, client.y, wxBITMAP_SCREEN_DEPTH, scale))
    {
        Exception::Throw("wxDoubleBufferedWindow", "EnsureBuffer", ec_System,
                         "Can't create the off-screen bitmap");
    }
    m_Buffer = std::move(buffer);
    m_Stale = true;
    return true;
}

// The counts go by the size that the event names, less what border and scrollbars take of it, so
// that a page never moves by more than is seen.
void wxDoubleBufferedWindow::Resize(wxSizeEvent& event)
{
    CALL_ENTRY("wxDoubleBufferedWindow::Resize");
    const wxSize client = GetClientSize();
    const wxSize visible = event.GetSize() - (GetSize() - client);
    m_VisibleColumns = internal::VisibleUnits(visible.x, m_ColumnWidth);
    m_VisibleLines = internal::VisibleUnits(visible.y, m_LineHeight);
    // Not at once: GTK 3 loses the layout of the window's other children when a scrollbar comes or
    // goes in the middle of it.
    AdjustScrollbarsLater();
    // For every move of a scrollbar the toolkit sends two of these, the first of which comes with a
    // client size that is none. Whether it has changed is known when the window is painted.
    if (event.GetSize() != m_Scroll->size)
    {
        m_Scroll->size = event.GetSize();
        m_Buffer.reset();
        m_WholePending = false; // the area that is whole has changed
    }
    Refresh(false, nullptr);
}

void wxDoubleBufferedWindow::Erase(wxEraseEvent&)
{
}

void wxDoubleBufferedWindow::OnSysColorChange(wxSysColourChangedEvent& event)
{
    CALL_ENTRY("wxDoubleBufferedWindow::OnSysColorChange");
    event.Skip();
    Redraw();
}
