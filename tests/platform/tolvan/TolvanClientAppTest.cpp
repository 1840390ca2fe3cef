#include "tolvan/TolvanClientApp.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "vesta/LibStatic.h"
#include "vesta/ThreadPool.h"

#include <atomic>
#include <stdexcept>

namespace
{

class App : public TolvanClientApp
{
public:
    App() : TolvanClientApp(log_Debug, log_Warning) {}
    ~App() override { DisconnectAll(); }

    String GetClientName() const override { return component_Monitor; }
    void   OnUnhandledMessage(const boost::shared_ptr<Message>& message) override
    {
        TolvanClientApp::OnUnhandledMessage(message);
        notes.push_back("unhandled " + message->Type());
    }

    std::vector<String> notes;
};

/// Counts its end.
struct Static : LibStatic
{
    explicit Static(int& count) : LibStatic("test"), m_Count(count) {}
    void OnLibCleanup() override { ++m_Count; }

    int& m_Count;
};

class TolvanClientAppTest : public UserFolderTest
{
protected:
    ~TolvanClientAppTest() override
    {
        m_App.Cleanup();
        Log::s_GlobalLog->Close();
    }
    bool Start(std::vector<String> options = {"--no-master"})
    {
        options.insert(options.begin(), "program");
        CommandLine commandLine(options);
        return m_App.Startup(commandLine);
    }
    static boost::shared_ptr<Message> Shared(const Message& message)
    {
        return boost::shared_ptr<Message>(new Message(message));
    }
    void Queue(const Message& message)
    {
        MessageReceivedEvt event;
        event.m_Message = Shared(message);
        m_App.Queue().RaiseAndQueue(event, [](MessageReceivedEvt&) {});
    }
    LogCapture m_Log;
    App        m_App;
};

TEST_F(TolvanClientAppTest, StartsAndEnds)
{
    int          ended = 0;
    const Static one(ended);
    TestMaster   master;
    ASSERT_TRUE(Start({"--log-dir", TempFile("logs").Text()}));
    EXPECT_TRUE(ThreadPool::IsReady());
    EXPECT_TRUE(Components::DidStart(component_Monitor));
    EXPECT_EQ(m_App.LogDir(), TempFile("logs").Text());
    EXPECT_EQ(m_App.OptionsFilename(), UserFile("TolvanMonitor.ini").Text());
    TestPeer peer = master.Accept();
    EXPECT_TRUE(WaitFor([&] { return m_App.IsConnected(); }));
    EXPECT_TRUE(m_App.Send(Message("M")));
    EXPECT_FALSE(m_App.SendRequest(component_Monitor, "COLORS")) << "there is no other monitor";

    m_App.Cleanup();
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(ThreadPool::IsReady());
    EXPECT_FALSE(Components::DidStart(component_Monitor));
    EXPECT_FALSE(m_App.Send(Message("M")));
    EXPECT_FALSE(m_App.SendRequest(component_LogView, "COLORS"));
    EXPECT_EQ(peer.Receive()->Type(), msg_Hello);
    EXPECT_EQ(peer.Receive()->Type(), "M") << "what was sent arrives";
    EXPECT_TRUE(peer.SeesEnd());
    const String text = ReadFile(TempFile("logs") / "TolvanMonitor.log");
    EXPECT_NE(text.find("TolvanMonitor started: process "), String::npos) << text;
}

TEST_F(TolvanClientAppTest, DispatchesOneMessageAtATime)
{
    const auto add = [&](const char* type, const String& text, bool isTaken)
    {
        m_App.AddMessageHandler(type,
                                [=](const boost::shared_ptr<Message>& message)
                                {
                                    m_App.notes.push_back(text + " " + message->Type());
                                    return isTaken;
                                });
    };
    add("A", "first", false);
    add("", "any", false);
    m_App.AddMessageHandler("B",
                            [](const boost::shared_ptr<Message>&) -> bool
                            { throw std::runtime_error("broken handler"); });
    add("A", "second", true);
    add("A", "never", true);
    m_App.DispatchMessage();
    Queue(Message("A"));
    Queue(Message("B"));
    std::vector<String> expected = {"first A", "any A", "second A"};
    m_App.DispatchMessage();
    EXPECT_EQ(m_App.notes, expected);
    expected.insert(expected.end(), {"any B", "unhandled B"});
    m_App.DispatchMessage();
    EXPECT_EQ(m_App.notes, expected);
    EXPECT_EQ(m_Log.Count("broken handler", log_Error), 1) << m_Log.All();
}

TEST_F(TolvanClientAppTest, CallsHandlersInOrderOnThePool)
{
    std::vector<long long> numbers; // touched by one task at a time
    std::vector<long long> expected;
    const auto             here = std::this_thread::get_id();
    bool                   isElsewhere = true;
    std::atomic<int>       begun{0};
    m_App.AddMessageHandler(
        "M",
        [&](const boost::shared_ptr<Message>& message)
        {
            isElsewhere = isElsewhere && std::this_thread::get_id() != here;
            // The first stays until another could have come before it.
            EXPECT_FALSE(++begun == 1 &&
                         WaitFor([&begun] { return begun > 1; }, std::chrono::milliseconds(50)));
            numbers.push_back(message->GetInt("N"));
            return true;
        });
    m_App.CallMessageHandlers(nullptr);
    ASSERT_TRUE(Start());
    for (int i = 0; i < 1000; ++i)
    {
        m_App.CallMessageHandlers(Shared(Message("M").Set("N", i)));
        expected.push_back(i);
    }
    m_App.Cleanup();
    EXPECT_EQ(numbers, expected) << "the end waits for what is posted";
    EXPECT_TRUE(isElsewhere);
    m_App.CallMessageHandlers(Shared(Message("M")));
    EXPECT_FALSE(isElsewhere) << "without a pool on the calling thread";
}

} // namespace
