#include "internal/drawing/Damage.h"
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
    m_Pending->Add(area);
    Ask(area);
}

void wxDoubleBufferedWindow::Ask(const wxRect& area)
{
    m_PendingArea.Union(area);
    StartRedrawTimer();
}

void wxDoubleBufferedWindow::StartRedrawTimer()
{
    if (!m_RedrawTimer.IsRunning())
    {
        m_RedrawTimer.StartOnce(m_RedrawDelay);
    }
}

// With the next frame: after the delay, as other changes are, a hand that scrolls would see it
// stumble. The delay is there for a view that cannot be painted now.
void wxDoubleBufferedWindow::PaintScrolled()
{
    if (!m_KeepsDrawn)
    {
        Redraw();
        return;
    }
    m_Pending->Add(wxRect());
    Ask(wxRect(GetClientAreaOrigin(), GetClientSize()));
    internal::Damage onlyAsked;
    onlyAsked.Add(wxRect());
    BecomeStale(onlyAsked);
    Refresh(false);
}

// A derived class that has called the content stale by itself means all of it.
void wxDoubleBufferedWindow::BecomeStale(const internal::Damage& changes)
{
    if (m_Stale && !m_Due->IsAsked())
    {
        m_Due->AddAll();
    }
    m_Due->Add(changes);
    m_Stale = true;
}

// What was scrolled has been painted meanwhile.
bool wxDoubleBufferedWindow::IsShownAsScrolled() const
{
    return m_KeepsDrawn && !m_Stale && m_Scroll->drawn == ScrollPosition();
}

void wxDoubleBufferedWindow::Redraw()
{
    if (IsWholeRedrawPending())
    {
        return;
    }
    CALL_ENTRY("wxDoubleBufferedWindow::Redraw");
    m_Pending->AddAll();
    Ask(wxRect(GetClientAreaOrigin(), GetClientSize()));
    m_WholePending = true;
}

void wxDoubleBufferedWindow::GatherLater()
{
    m_GatherDue = true;
    StartRedrawTimer();
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
    if (m_GatherDue && m_Gather && !m_WholePending)
    {
        GatherChanges();
    }
    m_GatherDue = false;
    if (m_PendingArea.IsEmpty())
    {
        return; // only the scrollbars were due, or nothing looks different
    }
    const wxRect area = m_PendingArea;
    m_PendingArea = wxRect();
    m_WholePending = false;
    if (!m_Pending->HasAny() && IsShownAsScrolled())
    {
        m_Pending->Clear();
        return;
    }
    BecomeStale(*m_Pending);
    m_Pending->Clear();
    Refresh(false, &area);
}

// A view that cannot tell what looks different is painted as a whole.
void wxDoubleBufferedWindow::GatherChanges()
{
    try
    {
        m_Gather();
    }
    catch (...)
    {
        LogError("wxDoubleBufferedWindow: what has changed is not known, all is painted: " +
                 TakeCurrentException());
        Redraw();
    }
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
    m_Due->AddAll();
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
        DrawStale();
        m_Stale = false;
        m_Due->Clear();
        m_Scroll->drawn = ScrollPosition();
    }
    m_Buffer.ShowOn(dc);
}

void wxDoubleBufferedWindow::DrawStale()
{
    m_IsPainting = true;
    try
    {
        DrawBitmap();
    }
    catch (...)
    {
        m_IsPainting = false;
        throw;
    }
    m_IsPainting = false;
}

// All is when a derived class has called the content stale by itself, or has it drawn by itself,
// and when the view has been scrolled since it was drawn.
std::vector<wxRect> wxDoubleBufferedWindow::StaleAreas() const
{
    const wxSize client = GetClientSize();
    const bool   isScrolled = m_Scroll->drawn != ScrollPosition();
    return !m_IsPainting || !m_Due->IsAsked() || isScrolled ? std::vector<wxRect>{wxRect(client)}
                                                            : m_Due->Within(client);
}

wxPoint wxDoubleBufferedWindow::ScrollPosition() const
{
    return {GetScrollPos(wxHORIZONTAL), GetScrollPos(wxVERTICAL)};
}

// False while the client area is empty. Size events tell of a new size only when the window is laid
// out: the buffer is compared.
bool wxDoubleBufferedWindow::EnsureBuffer()
{
    const wxSize client = GetClientSize();
    if (m_Buffer.Fits(*this, client))
    {
        return true;
    }
    if (client.x < 1 || client.y < 1)
    {
        return false;
    }
    m_Buffer.Create(*this, client);
    m_Due->AddAll();
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
    // What is painted anew with the rest of the window meanwhile has the new colours already.
    m_Due->AddAll();
    m_Stale = true;
    Redraw();
}
