#include "tests/support/FrameTest.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestApp.h"

#include "shell/wxTimed.h"
#include "vesta/Exception.h"

#include <wx/dcclient.h>
#include <wx/menu.h>
#include <wx/timer.h>

#include <memory>
#include <stdexcept>

namespace
{
int s_Alive = 0;

class CountedException : public Exception
{
public:
    CountedException() : Exception("Test", "Throw", ec_BadData, "thrown on purpose") { ++s_Alive; }
    ~CountedException() override { --s_Alive; }
};

/// Runs the application's main loop, with exceptions counted, until `done` holds.
class ExceptionTest : public FrameTest
{
protected:
    ExceptionTest()
    {
        TestApp::Get().m_OnException = [this](Exception* exception)
        {
            ++m_Count;
            m_LastText = exception ? exception->Text() : String("unknown");
            EXPECT_EQ(exception ? 1 : 0, s_Alive);
            return m_GoOn;
        };
    }
    ~ExceptionTest() override { TestApp::Get().m_OnException = nullptr; }

    // Starts the main loop with `trigger` as its first event and ends it when all has been quiet
    // after it: whatever comes twice, comes by then.
    int RunLoop(const std::function<void()>& trigger)
    {
        Frame()->CallAfter([trigger] { trigger(); });
        wxTimer end;
        end.Bind(wxEVT_TIMER,
                 [this](wxTimerEvent&)
                 {
                     m_Survived = true;
                     wxTheApp->ExitMainLoop();
                 });
        end.Start(300, wxTIMER_CONTINUOUS);
        return TestApp::Get().OnRun();
    }

    int    m_Count = 0;
    String m_LastText;
    bool   m_GoOn = true;
    bool   m_Survived = false; ///< The main loop ran on after the exception.
};

class Painter : public wxWindow
{
public:
    explicit Painter(wxWindow* parent) : wxWindow(parent, wxID_ANY, wxPoint(0, 0), wxSize(50, 50))
    {
        Bind(wxEVT_PAINT, &Painter::OnPaint, this);
    }
    bool armed = false;

private:
    void OnPaint(wxPaintEvent&)
    {
        const wxPaintDC dc(this);
        if (armed)
        {
            armed = false;
            throw new CountedException;
        }
    }
};

class Thrower : public wxTimed
{
public:
    void OnTick() override
    {
        if (armed)
        {
            armed = false;
            throw new CountedException;
        }
        ++ticks;
    }
    bool armed = true;
    int  ticks = 0;
};
} // namespace

TEST_F(ExceptionTest, ReachesOnExceptionOnceFromWhereverItComes)
{
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) { throw new CountedException; });
    Frame()->Bind(
        wxEVT_MENU, [](wxCommandEvent&) { throw new CountedException; }, wxID_NEW);
    const struct
    {
        const char*           from;
        std::function<void()> trigger;
    } cases[] = {
        {"a posted event", [] { throw new CountedException; }},
        {"a menu handler",
         [this]
         {
             wxCommandEvent event(wxEVT_MENU, wxID_NEW);
             Frame()->GetEventHandler()->SafelyProcessEvent(event);
         }},
        {"a timer", [&timer] { timer.StartOnce(20); }},
    };
    for (const auto& one : cases)
    {
        m_Count = 0;
        m_Survived = false;
        RunLoop(one.trigger);
        EXPECT_EQ(1, m_Count) << one.from;
        EXPECT_EQ("thrown on purpose", m_LastText) << one.from;
        EXPECT_EQ(0, s_Alive) << one.from;
        EXPECT_TRUE(m_Survived) << one.from;
    }
}

TEST_F(ExceptionTest, FromAnObjectOfTheMasterTimer)
{
    Thrower thrower;
    RunLoop([] {});
    EXPECT_EQ(1, m_Count);
    EXPECT_EQ(0, s_Alive);
    EXPECT_TRUE(WaitFor([&] { return thrower.ticks > 0; })); // the timer goes on
}

TEST_F(ExceptionTest, FromAPaintHandler)
{
    auto* const painter = new Painter(Frame());
    PumpEvents();
    painter->armed = true;
    RunLoop([painter] { painter->Refresh(); });
    EXPECT_FALSE(painter->armed);
    EXPECT_EQ(1, m_Count);
    EXPECT_EQ(0, s_Alive);
    EXPECT_TRUE(m_Survived);
}

TEST_F(ExceptionTest, OtherExceptionsHaveNoObjectAndOneLineInTheLog)
{
    const LogCapture log;
    RunLoop([] { throw std::runtime_error("not the platform's"); });
    EXPECT_EQ(1, m_Count);
    EXPECT_EQ("unknown", m_LastText);
    EXPECT_TRUE(m_Survived);
    TestApp::Get().m_OnException = [](Exception* exception) // as a program has it
    { return TestApp::Get().TolvanClientApp::OnException(exception); };
    RunLoop([] { throw std::runtime_error("not the platform's"); });
    EXPECT_EQ(1, log.Count("reached the main loop: not the platform's", log_Error)) << log.All();
    EXPECT_EQ(1, log.Count("", log_Error)) << log.All();
}

TEST_F(ExceptionTest, TheProgramEndsWhenOnExceptionSaysSo)
{
    m_GoOn = false;
    EXPECT_EQ(0, RunLoop([] { throw new CountedException; }));
    EXPECT_EQ(1, m_Count);
    EXPECT_EQ(0, s_Alive);
    EXPECT_FALSE(m_Survived);
}
