#pragma once

#include "listviews/wxViewBuffer.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/timer.h>
#include <wx/window.h>

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace internal
{
class Damage;
struct ScrollAxis;
struct ScrollUnits;
} // namespace internal
namespace listviews
{
struct ScrollState;
}

/// Base of every custom-drawn scrollable view. It owns an off-screen bitmap of the client area, has
/// the derived class paint into it only when its content is out of date, and copies it to the
/// screen on every paint. Requests to redraw are merged and served together a moment later.
/// Scrolling is done by drawing at an offset taken from the scroll positions: vertically in lines
/// of a fixed height, horizontally in pixels. Main thread only.
///
/// A derived class sets `m_LineHeight` and `m_ColumnWidth`, keeps `m_LineCount` and
/// `m_ContentWidth` (followed by `AdjustScrollbars` or `AdjustScrollbarsLater`) and calls `Redraw`
/// when its content changes.
class TOLVAN_API wxDoubleBufferedWindow : public wxWindow
{
public:
    /// @param style Window style; scrollbars and the wish for all keys are added to it.
    wxDoubleBufferedWindow(wxWindow* parent, int id, long style);
    ~wxDoubleBufferedWindow() override;

    /// Asks for a repaint of `area` (client pixels) within the redraw delay. Requests made
    /// meanwhile join it; they never put it off.
    void Redraw(const wxRect& area);
    /// The same for the whole client area. Costs next to nothing while such a request is pending.
    void Redraw();
    /// True while such a request for everything is pending: no area has to be worked out meanwhile.
    bool IsWholeRedrawPending() const;
    /// Asks every living view for a repaint, for instance after the colours have changed.
    static void RedrawAll();

    /// Brings both scrollbars in step with the content. Does nothing while the client area is
    /// empty.
    void AdjustScrollbars();
    /// The same, cheap enough for every line of a stream: the native scrollbars follow with the
    /// next redraw, while whoever asks for a position, thumb or range sees what is due at once.
    void AdjustScrollbarsLater();

    /// The one way of scrolling: by the scrollbars, the wheel, the keys and the program. Line and
    /// page events move from the current position, top and bottom lead to the ends, and any other
    /// type leads to the event's position. Positions outside the content are corrected.
    void Scroll(wxScrollWinEvent& event);
    bool ScrollLines(int lines) override; ///< Down by that many lines; negative is up.
    bool ScrollPages(int pages) override; ///< Down by that many client heights; negative is up.

    void Paint(wxPaintEvent& event);
    void Resize(wxSizeEvent& event);
    void Erase(wxEraseEvent& event); ///< Does nothing: the copied bitmap covers everything.
    void OnSysColorChange(wxSysColourChangedEvent& event);
    void OnMouseWheel(wxMouseEvent& event);
    void Timeout(wxTimerEvent& event);

    void SetScrollbar(int orientation, int position, int thumb, int range,
                      bool refresh = true) override;
    void SetScrollPos(int orientation, int position, bool refresh = true) override;
    int  GetScrollPos(int orientation) const override;
    int  GetScrollThumb(int orientation) const override;
    int  GetScrollRange(int orientation) const override;

protected:
    /// Paints the whole visible content into `m_Buffer`, which exists and has the client area's
    /// size. What it throws is caught: the painting is tried again after the redraw delay.
    virtual void DrawBitmap() = 0;
    /// For a `DrawBitmap` that keeps what it has drawn before and is still true: the areas (client
    /// pixels) that are not. None when all that was asked for lies outside of what is seen.
    std::vector<wxRect> StaleAreas() const;
    /// For a view that finds out by itself what looks different now: has `m_Gather` called, which
    /// asks for it, when the redraw delay is over.
    void GatherLater();

    void DoMoveWindow(int x, int y, int width, int height) override;

    /// Takes the keyboard. False when the window has gone meanwhile: whoever hears that the focus
    /// comes here or leaves another window may destroy it.
    bool TakeFocus();
    /// Captures the mouse for a button that has gone down here. A window that is hidden or disabled
    /// meanwhile hears of no button any more, and nobody else would either: it is made to lose the
    /// capture.
    void HoldMouse();
    /// Gives it back; does nothing when it is lost already.
    void LetMouseGo();

    internal::ScrollUnits ScrollUnits() const;
    /// Scrolls to that position (pixels), corrected to the content.
    void ScrollTo(int orientation, long long position);

    wxViewBuffer            m_Buffer; ///< None until the first paint after a resize.
    bool                    m_Stale = false;
    wxTimer                 m_RedrawTimer;
    int                     m_RedrawDelay = 75; ///< Milliseconds.
    wxRect                  m_PendingArea;      ///< Client pixels; empty when none is pending.
    int                     m_LineHeight = 10;  ///< Pixels; the step of a line scroll.
    int                     m_ColumnWidth = 10; ///< Pixels.
    int                     m_ContentWidth = 0; ///< Pixels; the horizontal scroll range.
    int                     m_LineCount = 0;
    int                     m_VisibleColumns = 0; ///< Whole columns that fit, plus two.
    int                     m_VisibleLines = 0;   ///< Whole lines that fit, plus two.
    bool                    m_FollowEnd = false;  ///< A view at the bottom stays there.
    int                     m_WheelAccumulator = 0;
    wxDoubleBufferedWindow* m_LinkedWindow = nullptr; ///< Redrawn with every scroll; not owned.
    bool                    m_ScrollTrace = false;    ///< Logs every scrollbar adjustment.
    bool                    m_KeepsDrawn = false;     ///< `DrawBitmap` draws the `StaleAreas` only.
    std::function<void()>   m_Gather;                 ///< Calls `Redraw` for areas.

    /// @name For a view whose lines are not all as high as one another
    /// Its scrollbar still has the height of a line for each. How much of that is seen at the end;
    /// and where a vertical scroll event leads, given with the position that it names.
    /// @{
    std::function<int()>                 m_EndThumb;
    std::function<int(wxEventType, int)> m_ScrollRows;
    /// @}

    static std::set<wxDoubleBufferedWindow*> s_Windows;

private:
    static bool HasScrollbarRoom(const wxSize& size);

    void                 HideNative(int orientation);
    bool                 IsMovedByHand(int orientation) const;
    bool                 TakeHandPosition(const wxScrollWinEvent& event);
    bool                 IsHeld() const;
    bool                 IsBehind(int orientation) const;
    void                 Ask(const wxRect& area);
    void                 GatherChanges();
    void                 BecomeStale(const internal::Damage& changes);
    void                 StartRedrawTimer();
    void                 RedrawScrolled();
    void                 PaintScrolled();
    bool                 IsShownAsScrolled() const;
    internal::ScrollAxis DueAxis(int orientation) const;
    void                 ApplyDueScrollbars();
    void                 TraceScrolling() const;
    wxPoint              ScrollPosition() const;
    bool                 EnsureBuffer();
    void                 PaintBuffer();
    void                 DrawStale();
    void                 RetryPaint(const String& reason);

    void WatchHold();

    wxTimer                                 m_HoldTimer; ///< Runs while the mouse is held.
    std::unique_ptr<listviews::ScrollState> m_Scroll;
    bool                                    m_GatherDue = false;
    std::unique_ptr<internal::Damage> m_Pending; ///< What is asked for; more exactly than the area.
    std::unique_ptr<internal::Damage> m_Due;     ///< What the next `DrawBitmap` is for; none: all.
    bool                              m_WholePending = false; ///< `m_PendingArea` is everything.
    bool m_IsPainting = false;  ///< `DrawBitmap` is called for a paint event.
    bool m_PaintFailed = false; ///< Logged; no paint succeeded since.

    wxDECLARE_EVENT_TABLE();
};
