#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestApp.h"

#include "dialogs/wxTolvanDlg.h"
#include "vesta/ThreadPool.h"

#include <atomic>
#include <thread>

namespace
{
/// Takes the messages while it lives, and remembers their names.
struct Handler
{
    Handler()
        : m_Id(TestApp::Get().AddMessageHandler("Test",
                                                [this](const boost::shared_ptr<Message>& message)
                                                {
                                                    names += message->Get("Name");
                                                    return ++count > 0;
                                                }))
    {
    }
    ~Handler() { TestApp::Get().RemoveMessageHandler(m_Id); }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;

    std::string      names;
    std::atomic<int> count{0};

private:
    const int m_Id;
};

class BridgeTest : public FrameTest
{
protected:
    BridgeTest() { TestApp::Get().SetTopWindow(Frame()); }
    ~BridgeTest() override
    {
        ThreadPool::Stop();
        App().EnableMessageProcessing();
        App().Queue().Clear();
        App().SetTopWindow(nullptr);
    }

    static TestApp& App() { return TestApp::Get(); }

    // As the messenger does with what comes in.
    static void Receive(const char* name = "")
    {
        MessageReceivedEvt event;
        event.m_Message.reset(new Message("Test"));
        event.m_Message->Set("Name", name);
        App().Queue().RaiseAndQueue(event, [](MessageReceivedEvt& raised)
                                    { MessageReceivedEvt::s_Signal.Emit(raised); });
    }
    static void Close()
    {
        if (wxWindow* const top = App().GetTopWindow())
        {
            top->Destroy();
        }
        App().SetTopWindow(nullptr);
        WaitFor([] { return !App().GetTopWindow(); });
        PumpEvents(); // other threads know of it from the next idle moment on
    }
};

class Listener : public wxTolvanDlg
{
public:
    explicit Listener(wxWindow* parent) : wxTolvanDlg(parent, "Listener", "", false) {}
    void OnConnected(bool connected) override
    {
        EXPECT_TRUE(wxIsMainThread());
        heard += connected ? "+" : "-";
    }
    std::string heard;
};
} // namespace

TEST_F(BridgeTest, ConnectionChangesReachWindowsAndDialogs)
{
    const LogCapture         log;
    EventCounter             connects(Frame(), wxTOLVAN_CONNECT_EVENT);
    EventCounter             disconnects(Frame(), wxTOLVAN_DISCONNECT_EVENT);
    auto* const              dialog = new Listener(Frame());
    MessengerConnectedEvt    connected;
    MessengerDisconnectedEvt disconnected;
    MessengerConnectedEvt::s_Signal.Emit(connected);
    EXPECT_EQ("+", dialog->heard); // at once on the main thread
    EXPECT_EQ(0, connects.Count());
    std::thread([&] { MessengerDisconnectedEvt::s_Signal.Emit(disconnected); }).join();
    EXPECT_TRUE(WaitFor([&] { return disconnects.Count() == 1 && dialog->heard == "+-"; }));
    EXPECT_EQ(1, connects.Count());
    EXPECT_EQ(0, dynamic_cast<const wxCommandEvent&>(*connects.Last()).GetId());
    EXPECT_TRUE(log.Has("... Messenger Connected: translating to wxTOLVAN_CONNECT_EVENT"));
    EXPECT_TRUE(log.Has("... Messenger Disconnected: translating to wxTOLVAN_DISCONNECT_EVENT"));
}

TEST_F(BridgeTest, MessagesGoToTheThreadPoolWhenItIsReady)
{
    const LogCapture log;
    EventCounter     events(Frame(), wxTOLVAN_MESSAGE_EVENT);
    const Handler    handled;
    ThreadPool::Start(2);
    Receive();
    EXPECT_TRUE(WaitFor([&] { return handled.count == 1; }));
    EXPECT_EQ(0u, App().Queue().Size());
    ThreadPool::Stop();

    Receive();
    Receive();
    EXPECT_EQ(2u, App().Queue().Size());
    EXPECT_TRUE(WaitFor([&] { return handled.count == 3; }));
    EXPECT_EQ(2, events.Count());
    EXPECT_EQ(0u, App().Queue().Size());

    EXPECT_EQ(1, log.Count("... Received message: initiating deferred processing"));
    EXPECT_EQ(2, log.Count("... Received message: translating to wxTOLVAN_MESSAGE_EVENT"));

    // Whether with a pool or without one, what waited is not left to the next message, and comes
    // before it.
    for (const bool hasPool : {true, false})
    {
        hasPool ? ThreadPool::Start(1) : ThreadPool::Stop();
        App().DisableMessageProcessing();
        Receive("a");
        Receive("b");
        EXPECT_TRUE(WaitFor([&] { return events.Count() == (hasPool ? 4 : 6); }));
        EXPECT_EQ(2u, App().Queue().Size());
        App().EnableMessageProcessing();
        Receive("c");
        EXPECT_TRUE(WaitFor([&] { return handled.count == (hasPool ? 6 : 9); })) << handled.count;
        EXPECT_EQ(hasPool ? "abc" : "abcabc", handled.names);
    }
}

// Other threads may be the first to hear of a window: no event has come with it yet.
TEST_F(BridgeTest, AWindowThatHasOnlyJustComeMissesNothingAndGetsItInOrder)
{
    for (const bool hasPool : {true, false})
    {
        Close();
        hasPool ? ThreadPool::Start(1) : ThreadPool::Stop();
        const Handler handled;
        if (hasPool) // without one, what came before is left
        {
            Receive("a");
            Receive("b");
        }
        auto* const frame = new wxFrame(nullptr, wxID_ANY, "New");
        frame->Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });
        const EventCounter closes(frame, wxEVT_CLOSE_WINDOW);
        const EventCounter connects(frame, wxTOLVAN_CONNECT_EVENT);
        std::thread(
            []
            {
                MessengerConnectedEvt connected;
                MessengerConnectedEvt::s_Signal.Emit(connected);
                Receive("c");
                the_Exe->Signal(0);
            })
            .join();
        const std::string expected = hasPool ? "abc" : "c";
        EXPECT_TRUE(WaitFor(
            [&]
            { return closes.Count() == 1 && connects.Count() == 1 && handled.names == expected; }))
            << closes.Count() << connects.Count() << handled.names;
    }
    Close();
}

TEST_F(BridgeTest, ShutdownAsksTheTopWindowToClose)
{
    Frame()->Bind(wxEVT_CLOSE_WINDOW, [](wxCloseEvent& event) { event.Veto(); });
    EventCounter     closes(Frame(), wxEVT_CLOSE_WINDOW);
    const LogCapture log;
    the_Exe->Signal(15);
    App().DisableMessageProcessing();
    the_Exe->Signal(0);
    App().EnableMessageProcessing();
    PumpEvents();
    EXPECT_EQ(0, closes.Count());

    const auto shutDown = []
    {
        std::thread(
            [] {
                ShutdownMsg::s_Signal.Emit(boost::shared_ptr<ShutdownMsg>(new ShutdownMsg("test")));
            })
            .join();
    };
    shutDown();
    EXPECT_TRUE(WaitFor([&] { return closes.Count() == 1; }));
    EXPECT_TRUE(dynamic_cast<const wxCloseEvent&>(*closes.Last()).CanVeto());
    EXPECT_TRUE(log.Has("Received Shutdown request", log_System));

    wxCloseEvent session(wxEVT_QUERY_END_SESSION);
    App()._EndSession(session);
    EXPECT_FALSE(session.GetVeto());
    EXPECT_TRUE(WaitFor([&] { return closes.Count() == 2; }));
    EXPECT_TRUE(log.Has("Notified of user request to log out or shut down the system", log_System));

    // A request that comes while processing is disabled is not lost.
    App().DisableMessageProcessing();
    shutDown();
    App()._EndSession(session);
    PumpEvents();
    EXPECT_EQ(2, closes.Count());
    App().EnableMessageProcessing();
    EXPECT_TRUE(WaitFor([&] { return closes.Count() == 3; }));
    App().EnableMessageProcessing();
    PumpEvents();
    EXPECT_EQ(3, closes.Count());
}
