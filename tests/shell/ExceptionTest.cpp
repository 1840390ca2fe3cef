#include "tests/support/FrameTest.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestApp.h"

#include "shell/wxTimed.h"
#include "vesta/Exception.h"

#include <wx/dcclient.h>
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

class Thrower : public wxTimed
{
public:
    void OnTick() override
    {
        if (++ticks == 1)
        {
            throw new CountedException;
        }
    }
    int ticks = 0;
};
} // namespace

TEST_F(ExceptionTest, ReachesOnExceptionOnceFromWhereverItComes)
{
    wxTimer timer;
    timer.Bind(wxEVT_TIMER, [](wxTimerEvent&) { throw new CountedException; });
    Frame()->Bind(
        wxEVT_MENU, [](wxCommandEvent&) { throw new CountedException; }, wxID_NEW);
    auto* const painted = new wxWindow(Frame(), wxID_ANY, wxPoint(0, 0), wxSize(50, 50));
    const auto  paint = [&](wxPaintEvent&)
    {
        const wxPaintDC dc(painted);
        if (m_Count == 0)
        {
            throw new CountedException;
        }
    };
    PumpEvents();
    std::unique_ptr<Thrower>                            thrower; // of the master timer
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"a posted event", [] { throw new CountedException; }},
        {"a menu handler",
         [this]
         {
             wxCommandEvent event(wxEVT_MENU, wxID_NEW);
             Frame()->GetEventHandler()->SafelyProcessEvent(event);
         }},
        {"a timer", [&timer] { timer.StartOnce(20); }},
        {"a timed object", [&] { thrower = std::make_unique<Thrower>(); }},
        {"a paint handler",
         [&]
         {
             painted->Bind(wxEVT_PAINT, paint);
             painted->Refresh();
         }},
    };
    for (const auto& [from, trigger] : cases)
    {
        m_Count = 0;
        m_Survived = false;
        RunLoop(trigger);
        EXPECT_EQ(1, m_Count) << from;
        EXPECT_EQ("thrown on purpose", m_LastText) << from;
        EXPECT_EQ(0, s_Alive) << from;
        EXPECT_TRUE(m_Survived) << from;
    }
    EXPECT_TRUE(WaitFor([&] { return thrower->ticks > 1; })) << "the timer goes on";
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
