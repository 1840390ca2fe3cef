#include "listviews/wxDoubleBufferedWindow.h"
#include "tests/support/FrameTest.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Pictures.h"
#include "vesta/CallEntry.h"
#include "vesta/Exception.h"

#include <wx/dcmemory.h>
#include <wx/scrolwin.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>

#include <functional>
#include <stdexcept>

namespace
{
/// Fills its bitmap with one colour and tells what it was asked for.
class PlainView : public wxDoubleBufferedWindow
{
public:
    explicit PlainView(wxWindow* parent) : wxDoubleBufferedWindow(parent, wxID_ANY, 0) {}

    void SetContent(int lines, int width)
    {
        m_LineCount = lines;
        m_ContentWidth = width;
    }
    void Link(wxDoubleBufferedWindow* other) { m_LinkedWindow = other; }
    void Follow() { m_FollowEnd = true; }
    void KeepDrawn() { m_KeepsDrawn = true; }
    void CallStale() { m_Stale = true; }
    void GatherBy(const std::function<void()>& gather)
    {
        m_Gather = gather;
        GatherLater();
    }
    wxRect Pending() const { return m_PendingArea; }
    wxSize BufferSize() const { return m_Buffer ? m_Buffer->GetSize() : wxSize(); }
    int    VisibleLines() const { return m_VisibleLines; }
    int    NativePos(int orientation) const { return wxWindow::GetScrollPos(orientation); }
    int    NativeRange(int orientation) const { return wxWindow::GetScrollRange(orientation); }

    int                   m_Drawn = 0;
    std::vector<wxRect>   m_Areas; ///< That the last drawing was for.
    wxColour              m_Colour = *wxBLUE;
    std::function<void()> m_BeforeDrawing;

protected:
    void DrawBitmap() override
    {
        CALL_ENTRY("PlainView::DrawBitmap");
        ++m_Drawn;
        m_Areas = StaleAreas();
        if (m_BeforeDrawing)
        {
            m_BeforeDrawing();
        }
        wxMemoryDC dc(*m_Buffer);
        dc.SetBackground(wxBrush(m_Colour));
        dc.Clear();
    }
};

class DoubleBufferedWindowTest : public FrameTest
{
protected:
    DoubleBufferedWindowTest() : m_View(new PlainView(Frame()))
    {
        m_View->SetSize(0, 0, 300, 200);
        EXPECT_TRUE(WaitFor([this] { return m_View->m_Drawn > 0; }));
        Settle();
    }

    /// Lets every redraw that is under way come to its end.
    void Settle()
    {
        EXPECT_TRUE(WaitFor(
            [this]
            {
                const int         before = m_View->m_Drawn;
                const wxStopWatch quiet;
                WaitFor([&] { return m_View->m_Drawn != before || quiet.Time() > 200; });
                return m_View->m_Drawn == before;
            }));
    }

    /// Waits until the view has been drawn once more.
    bool IsDrawn(int before) const
    {
        return WaitFor([&] { return m_View->m_Drawn > before; });
    }
    void ExpectPosition(int position) const
    {
        EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), position);
    }

    /// Gives the view that content and waits until its scrollbars have found their place.
    void Fill(int lines, int width)
    {
        m_View->SetContent(lines, width);
        m_View->AdjustScrollbars();
        Settle();
    }

    void Send(wxEventType type, int orientation, int position = 0)
    {
        wxScrollWinEvent event(type, position, orientation);
        m_View->ProcessWindowEvent(event);
    }

    /// Pixels from the end of a scrollbar: on the thumb that is there, past the arrow of one port.
    static constexpr int kOnThumb = 22;
    /// A place on the native scrollbar, by its distance from the near end.
    wxPoint OnBar(int orientation, int distance) const
    {
        const wxSize client = m_View->GetClientSize();
        const int    across = 6; // pixels from its edge
        return m_View->ClientToScreen(orientation == wxVERTICAL
                                          ? wxPoint(client.x + across, distance)
                                          : wxPoint(distance, client.y + across));
    }
    /// Moves the pressed pointer there and waits until the view has followed and come to rest.
    void DragTo(int orientation, int distance)
    {
        const int before = m_View->GetScrollPos(orientation);
        m_Input.MouseMove(OnBar(orientation, distance));
        EXPECT_TRUE(WaitFor([&] { return m_View->GetScrollPos(orientation) != before; }));
        Settle();
    }

    PlainView*          m_View;
    wxUIActionSimulator m_Input;
};
} // namespace

TEST_F(DoubleBufferedWindowTest, MergesRequestsToRedraw)
{
    const int         before = m_View->m_Drawn;
    const wxStopWatch watch;
    m_View->Redraw(wxRect(10, 10, 20, 20));
    WaitFor([&] { return watch.Time() >= 10; });
    m_View->Redraw(wxRect(50, 5, 10, 10));
    EXPECT_EQ(m_View->Pending(), wxRect(10, 5, 50, 25));
    EXPECT_TRUE(IsDrawn(before));
    EXPECT_GE(watch.Time(), 75);
    EXPECT_TRUE(m_View->Pending().IsEmpty());
    Settle();
    EXPECT_EQ(m_View->m_Drawn, before + 1);
}

TEST_F(DoubleBufferedWindowTest, LaterRequestsDoNotPutARedrawOff)
{
    const int before = m_View->m_Drawn;
    EXPECT_TRUE(WaitFor(
        [&]
        {
            m_View->Redraw();
            return m_View->m_Drawn > before;
        },
        2000));
}

TEST_F(DoubleBufferedWindowTest, ShowsWhatWasDrawnAfterAResizeToo)
{
    m_View->m_Colour = wxColour(10, 200, 30);
    m_View->SetSize(250, 150);
    wxDoubleBufferedWindow::RedrawAll();
    const auto isShown = [this](int x, int y)
    { return PixelAt(PictureOf(m_View), x, y) == m_View->m_Colour; };
    EXPECT_TRUE(WaitFor([&] { return isShown(0, 0) && isShown(249, 149); }))
        << Kept(PictureOf(m_View), "double-buffered");
    EXPECT_EQ(m_View->BufferSize(), m_View->GetClientSize());
    EXPECT_EQ(m_View->VisibleLines(), m_View->GetClientSize().y / 10 + 2);
}

// The toolkit complains about scrollbars squeezed into too little; the harness hears it.
TEST_F(DoubleBufferedWindowTest, AnySizeIsFine)
{
    Fill(1000, 5000);
    PumpEvents();
    for (int size = 90; size >= 0; size -= 3)
    {
        m_View->SetSize(size, 200);
        PumpEvents();
        m_View->SetSize(200, size);
        PumpEvents();
        m_View->SetSize(size, size);
        m_View->Redraw();
        PumpEvents();
    }
    const int before = m_View->m_Drawn;
    m_View->SetSize(0, 0);
    m_View->Refresh();
    m_View->Update();
    Settle();
    EXPECT_EQ(m_View->m_Drawn, before) << "nothing to draw on";
    m_View->SetSize(300, 200);
    EXPECT_TRUE(IsDrawn(before));
    EXPECT_TRUE(WaitFor([&] { return m_View->NativeRange(wxVERTICAL) == 10000; }));
}

// What comes in before the paint may not make less of it.
TEST_F(DoubleBufferedWindowTest, AViewThatCallsItselfStaleIsDrawnAsAWhole)
{
    m_View->KeepDrawn();
    Fill(1000, 10);
    const wxRect part(0, 10, 50, 20);
    const auto   areasAfter = [&](const std::function<void()>& change)
    {
        const int before = m_View->m_Drawn;
        change();
        EXPECT_TRUE(IsDrawn(before));
        Settle();
        return m_View->m_Areas;
    };
    const std::vector<wxRect> whole{wxRect(m_View->GetClientSize())};
    EXPECT_EQ(areasAfter([&] { m_View->Redraw(part); }), std::vector<wxRect>{part});
    const auto redrawDue = [&]
    {
        m_View->Redraw(part);
        m_View->CallStale();
        wxTimer      timer;
        wxTimerEvent due(timer);
        m_View->Timeout(due);
    };
    EXPECT_EQ(areasAfter(redrawDue), whole);
    const auto scrolledThereAndBack = [&]
    {
        m_View->CallStale();
        m_View->ScrollLines(3);
        m_View->ScrollLines(-3);
    };
    EXPECT_EQ(areasAfter(scrolledThereAndBack), whole);
    const LogCapture log;
    const auto       unknown = [&]
    {
        m_View->Redraw(part);
        m_View->GatherBy([] { throw std::runtime_error("nobody knows"); });
    };
    EXPECT_EQ(areasAfter(unknown), whole);
    EXPECT_TRUE(log.Has("nobody knows"));
}

TEST_F(DoubleBufferedWindowTest, AFailedPaintIsTriedAgainAndLoggedOnce)
{
    const LogCapture log;
    const int        before = m_View->m_Drawn;
    int              failures = 0;
    m_View->m_BeforeDrawing = [&]
    {
        switch (++failures)
        {
        case 1:
            Exception::Throw("Test", "Draw", ec_System, "no paint today");
        case 2:
            throw std::runtime_error("still none");
        case 3:
            throw 3;
        default:
            break;
        }
    };
    // After a paint that succeeded a new failure is news again.
    for (int round = 1; round <= 2; ++round)
    {
        failures = 0;
        m_View->Redraw();
        EXPECT_TRUE(WaitFor([&] { return m_View->m_Drawn == before + 4 * round; }));
        EXPECT_EQ(log.Count("no paint today"), round) << log.All();
        EXPECT_LE(log.Count("PlainView::DrawBitmap"), round) << log.All();
        EXPECT_EQ(log.Count("still none"), 0) << log.All();
    }
    Settle();
    EXPECT_EQ(m_View->m_Drawn, before + 8);
}

// With a real pointer: an event that a test makes already knows where the thumb is.
TEST_F(DoubleBufferedWindowTest, ContentMayGrowUnderAHeldThumb)
{
    for (const int axis : {wxVERTICAL, wxHORIZONTAL})
    {
        Fill(100, 1200);
        const wxSize client = m_View->GetClientSize();
        const int    length = axis == wxVERTICAL ? client.y : client.x;
        const int    most = m_View->GetScrollRange(axis) - length;
        m_Input.MouseMove(OnBar(axis, kOnThumb));
        m_Input.MouseDown();
        PumpEvents();
        const int before = m_View->m_Drawn;
        DragTo(axis, length / 3);
        EXPECT_EQ(m_View->m_Drawn, before + 1) << "once a step";
        const int held = m_View->GetScrollPos(axis);

        Fill(1000, 12000); // the thumb that is held stays, and so does what is seen
        EXPECT_EQ(m_View->GetScrollPos(axis), held);
        EXPECT_EQ(m_View->NativePos(axis), held);
        EXPECT_EQ(m_View->NativeRange(axis), most + length);
        DragTo(axis, 2 * length);
        EXPECT_EQ(m_View->GetScrollPos(axis), most);
        m_Input.MouseUp();
        EXPECT_TRUE(
            WaitFor([&] { return m_View->NativeRange(axis) == m_View->GetScrollRange(axis); }));
        EXPECT_EQ(m_View->GetScrollPos(axis), most);
        EXPECT_EQ(m_View->NativePos(axis), most);
    }
}

// A view that follows its end goes on with it while the thumb is held there, and where the hand
// comes to the end that the scrollbar knows.
TEST_F(DoubleBufferedWindowTest, TheEndIsFollowedUnderAHeldThumb)
{
    m_View->Follow();
    Fill(100, 100);
    m_Input.MouseMove(OnBar(wxVERTICAL, m_View->GetClientSize().y - kOnThumb));
    m_Input.MouseDown();
    m_Input.MouseMove(OnBar(wxVERTICAL, 100));
    PumpEvents();
    Fill(200, 100);
    DragTo(wxVERTICAL, 400);
    ExpectPosition(2000 - m_View->GetScrollThumb(wxVERTICAL));
    Fill(300, 100);
    ExpectPosition(3000 - m_View->GetScrollThumb(wxVERTICAL));
    m_View->ScrollLines(-50); // the wheel turns meanwhile
    ExpectPosition(2500 - m_View->GetScrollThumb(wxVERTICAL));
    m_Input.MouseUp();
    EXPECT_TRUE(WaitFor([&] { return m_View->NativeRange(wxVERTICAL) == 3000; }));
    ExpectPosition(2500 - m_View->GetScrollThumb(wxVERTICAL));
    EXPECT_EQ(m_View->NativePos(wxVERTICAL), m_View->GetScrollPos(wxVERTICAL));
}

// The port's own scrollbar is pressed then, and nobody tells it that the button was let go.
TEST_F(DoubleBufferedWindowTest, AThumbMayBeHeldWhenItsViewGoes)
{
    auto* const other = new PlainView(Frame());
    other->SetSize(310, 0, 100, 100);
    int moved = 0;
    other->Bind(wxEVT_MOTION, [&moved](wxMouseEvent&) { ++moved; });
    Fill(100, 100);
    m_Input.MouseMove(OnBar(wxVERTICAL, kOnThumb));
    m_Input.MouseDown();
    DragTo(wxVERTICAL, 100);
    m_View->Destroy();
    m_Input.MouseUp();
    PumpEvents();
    for (const int x : {20, 30})
    {
        m_Input.MouseMove(other->ClientToScreen(wxPoint(x, 40)));
    }
    EXPECT_TRUE(WaitFor([&moved] { return moved > 0; }));
}

TEST_F(DoubleBufferedWindowTest, AScrollRedrawsTheLinkedWindow)
{
    auto* const other = new PlainView(Frame());
    other->SetSize(310, 0, 100, 100);
    EXPECT_TRUE(WaitFor([&] { return other->m_Drawn > 0; }));
    Fill(100, 100);
    m_View->Link(other);
    const int before = other->m_Drawn;
    Send(wxEVT_SCROLLWIN_LINEDOWN, wxVERTICAL);
    EXPECT_TRUE(WaitFor([&] { return other->m_Drawn > before; }));

    other->Destroy(); // a link to a window that is gone does no harm
    PumpEvents();
    Send(wxEVT_SCROLLWIN_LINEDOWN, wxVERTICAL);
    ExpectPosition(20);
}

// The native scrollbars may be behind; nobody who asks notices. The horizontal one comes with the
// content and takes room: the end lies further on than it did when the program asked for it.
TEST_F(DoubleBufferedWindowTest, ScrollbarsMayFollowLater)
{
    m_View->Follow();
    const int native = m_View->NativeRange(wxVERTICAL);
    m_View->SetContent(500, 4000);
    m_View->AdjustScrollbarsLater();
    EXPECT_EQ(m_View->NativeRange(wxVERTICAL), native);
    EXPECT_EQ(m_View->GetScrollRange(wxVERTICAL), 5000);
    EXPECT_EQ(m_View->GetScrollRange(wxHORIZONTAL), 4000);
    ExpectPosition(5000 - m_View->GetScrollThumb(wxVERTICAL));
    Send(wxEVT_SCROLLWIN_BOTTOM, wxVERTICAL);
    ExpectPosition(5000 - m_View->GetScrollThumb(wxVERTICAL));
    m_View->SetContent(100000, 4000);
    m_View->AdjustScrollbarsLater();
    ExpectPosition(1000000 - m_View->GetScrollThumb(wxVERTICAL));
    m_View->ScrollPages(-1);
    ExpectPosition(1000000 - 2 * m_View->GetScrollThumb(wxVERTICAL));
    m_View->ScrollLines(5);
    ExpectPosition(1000050 - 2 * m_View->GetScrollThumb(wxVERTICAL));
    EXPECT_TRUE(WaitFor([&] { return m_View->NativeRange(wxVERTICAL) == 1000000; }));

    m_View->SetContent(600, 4000);
    m_View->AdjustScrollbarsLater();
    m_View->SetScrollPos(wxVERTICAL, 100); // brings them up to date first
    EXPECT_EQ(m_View->NativeRange(wxVERTICAL), 6000);
    EXPECT_EQ(m_View->NativePos(wxVERTICAL), 100);
    m_View->SetScrollbar(wxVERTICAL, 0, 0, 0);
    EXPECT_EQ(m_View->GetScrollRange(wxVERTICAL), 0);
}

TEST_F(DoubleBufferedWindowTest, AWindowMayGoWithARedrawPending)
{
    m_View->Redraw();
    m_View->AdjustScrollbarsLater();
    m_View->Destroy();
    wxDoubleBufferedWindow::RedrawAll();
    const wxStopWatch watch;
    EXPECT_TRUE(WaitFor([&] { return watch.Time() > 150; }));
}
