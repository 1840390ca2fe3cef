#include "tests/support/DialogCatcher.h"
#include "tests/support/FrameTest.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestApp.h"

#include "appearance/wxTolvanString.h"
#include "vesta/Platform.h"

#include <wx/log.h>

#include <stdexcept>

namespace
{
/// Starts the application once more.
class AppStartTest : public UserFolderTest
{
protected:
    AppStartTest()
    {
        App().HasSlots::DisconnectAll();
        App().ForgetOptions();
        App().m_Cleanup = [this] { ++m_Cleanups; };
    }
    ~AppStartTest() override
    {
        App().m_Startup = nullptr;
        App().m_Cleanup = nullptr;
        App().HasSlots::DisconnectAll();
        Start();
        App().ForgetOptions();
    }

    static TestApp& App() { return TestApp::Get(); }
    static bool     Start()
    {
        // The application leaves an earlier log target to others.
        const std::unique_ptr<wxLog> earlier(wxLog::GetActiveTarget());
        return App().OnInit();
    }

    int m_Cleanups = 0;
};

} // namespace

TEST_F(AppStartTest, AnyFailureIsExplainedOnceAndCleanedUpOnce)
{
    const std::function<bool()> starts[] = {
        [] { return false; },
        []() -> bool { Exception::Throw("Test", "Start", ec_BadData, "on purpose"); },
        []() -> bool { throw std::runtime_error("on purpose"); },
        []() -> bool { throw 1; },
        [this]
        {
            App().m_Cleanup = [this]
            {
                ++m_Cleanups;
                throw std::runtime_error("on purpose");
            };
            return false;
        },
    };
    // Without a name of its own the program goes by the word it was started with.
    const wxString expected =
        App().argv[0] +
        " failed to start:\n\nPlease check the following:\n1. Tolvan is correctly installed and "
        "all libraries and modules are accessible\n\n2. The current user '" +
        wxtToWx(Platform::GetCurrentUserName()) +
        "' has permission to create and delete log files in the folder:\n" +
        wxtToWx(App().LogDir()) + "\n\nCheck the startup log file for more information:\n" +
        wxtToWx(Log::s_GlobalLog->FileName());
    for (const auto& start : starts)
    {
        HasSlots slots;
        int      started = 0;
        int      exited = 0;
        App().StartedSignal.Connect(&slots, [&started] { ++started; });
        App().ExitedSignal.Connect(&slots, [&exited] { ++exited; });
        const LogCapture    log;
        const DialogCatcher catcher;
        App().m_Startup = start;
        m_Cleanups = 0;
        EXPECT_FALSE(Start());
        EXPECT_EQ(1, catcher.count);
        EXPECT_EQ("Startup Error", catcher.caption);
        EXPECT_EQ(expected, catcher.text);
        EXPECT_EQ(1, m_Cleanups);
        EXPECT_EQ(0, started);
        EXPECT_EQ(1, exited);
        EXPECT_TRUE(&start == starts || log.Has("on purpose", log_Error) ||
                    log.Has("unknown type", log_Error))
            << log.All();
        App().HasSlots::DisconnectAll();
    }
}

TEST_F(AppStartTest, OptionsChangedDuringTheStartAreWrittenOnce)
{
    App().m_Startup = []
    {
        for (int i = 0; i < 50; ++i)
        {
            App().Options().SetValue("Test", String::FromInt(i), "x");
        }
        return true;
    };
    const int before = App().Options().WriteCount();
    EXPECT_TRUE(Start());
    EXPECT_EQ(before + 1, App().Options().WriteCount());
    EXPECT_EQ(0, m_Cleanups);
}

TEST_F(AppStartTest, ToolkitLogsIntoTheProductLog)
{
    const LogCapture log;
    EXPECT_TRUE(Start());
    EXPECT_TRUE(log.Has("wxWidgets 3.1.2: Set wxLog to use VestaLib Log", log_Notice)) << log.All();
    const std::pair<wxLogLevel, LogLevel> levels[] = {
        {wxLOG_Error, log_Error},   {wxLOG_Warning, log_Warning}, {wxLOG_Message, log_Notice},
        {wxLOG_Status, log_Notice}, {wxLOG_Info, log_Info},       {wxLOG_Debug, log_Debug},
        {wxLOG_Trace, log_Debug},   {wxLOG_User + 3, log_Info},
    };
    for (const auto& [level, expected] : levels)
    {
        const String text = SFormat("level %lu", level);
        wxLog::OnLog(level, wxtToWx(text), wxLogRecordInfo(__FILE__, __LINE__, "", ""));
        EXPECT_TRUE(log.Has("wxWidgets 3.1.2: " + text, expected)) << log.All();
    }
}

TEST_F(AppStartTest, ActivationsAndTheCentringKey)
{
    App().ForgetOptions();
    auto* const other = new wxFrame(nullptr, wxID_ANY, "Other", wxPoint(0, 0), wxSize(200, 100));
    other->Show();
    ASSERT_TRUE(WaitFor([&] { return other->IsShownOnScreen(); }));

    wxActivateEvent activation(wxEVT_ACTIVATE, true, other->GetId());
    activation.SetEventObject(other);
    App().ActivateEvent(activation);
    EXPECT_TRUE(activation.GetSkipped());
    EXPECT_EQ(other, s_ActiveWin.get());

    wxActivateEvent strange(wxEVT_ACTIVATE, false, wxID_ANY);
    strange.SetEventObject(&App());
    App().ActivateEvent(strange);
    EXPECT_EQ(other, s_ActiveWin.get());

    const auto press = [](int code, bool control, bool shift)
    {
        wxKeyEvent key(wxEVT_CHAR_HOOK);
        key.m_keyCode = code;
        key.SetControlDown(control);
        key.SetShiftDown(shift);
        App().KeyboardHook(key);
        return !key.GetSkipped();
    };
    EXPECT_FALSE(press('C', true, false));
    EXPECT_FALSE(press('C', false, true));
    EXPECT_FALSE(press('X', true, true));
    EXPECT_TRUE(press('C', true, true));
    EXPECT_TRUE(WaitFor([&] { return other->GetPosition().x > 300; }));

    other->Destroy();
    EXPECT_TRUE(WaitFor([] { return !s_ActiveWin; }));
}
