#include "tolvan/TolvanClientApp.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "tolvan/SocketFolder.h"
#include "vesta/LibStatic.h"
#include "vesta/Platform.h"
#include "vesta/ThreadPool.h"

#include <atomic>
#include <mutex>
#include <stdexcept>
#include <thread>

#include <sys/stat.h>
#include <unistd.h>

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
        Note("unhandled " + message->Type());
    }
    bool RequestHasFailed(const String& text) override
    {
        Note("failed " + text);
        return true;
    }

    void Note(const String& text)
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Notes.push_back(text);
    }
    std::vector<String> Notes() const
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        return m_Notes;
    }

private:
    mutable std::mutex  m_Mutex;
    std::vector<String> m_Notes;
};

class TolvanClientAppTest : public UserFolderTest
{
protected:
    static bool Start(App& app, std::vector<String> options = {})
    {
        options.insert(options.begin(), "program");
        CommandLine commandLine(options);
        return app.Startup(commandLine);
    }
    static void Queue(App& app, const Message& message)
    {
        MessageReceivedEvt event;
        event.m_Message = boost::shared_ptr<Message>(new Message(message));
        app.Queue().RaiseAndQueue(event, [](MessageReceivedEvt&) {});
    }
    static boost::shared_ptr<Message> Shared(const Message& message)
    {
        return boost::shared_ptr<Message>(new Message(message));
    }

    LogCapture m_Log;
};

TEST_F(TolvanClientAppTest, StartsAndEnds)
{
    App        app;
    TestMaster master;
    ASSERT_TRUE(Start(app, {"--log-dir", TempFile("logs").Text()}));
    EXPECT_TRUE(ThreadPool::IsReady());
    EXPECT_TRUE(Components::DidStart(component_Monitor));
    EXPECT_EQ(app.LogDir(), TempFile("logs").Text());
    EXPECT_EQ(app.OptionsFilename(), UserFile("TolvanMonitor.ini").Text());
    TestPeer peer = master.Accept();
    EXPECT_TRUE(WaitFor([&] { return app.IsConnected(); }));
    EXPECT_TRUE(app.Send(Message("M")));

    app.Cleanup();
    EXPECT_FALSE(ThreadPool::IsReady());
    EXPECT_FALSE(Components::DidStart(component_Monitor));
    EXPECT_FALSE(app.IsConnected());
    EXPECT_FALSE(app.Send(Message("M")));
    EXPECT_FALSE(app.SendRequest(component_LogView, "COLORS"));
    EXPECT_EQ(peer.Receive()->Type(), msg_Hello);
    EXPECT_EQ(peer.Receive()->Type(), "M") << "what was sent arrives";
    EXPECT_TRUE(peer.SeesEnd());
    app.Cleanup();
    const String text = ReadFile(TempFile("logs") / "TolvanMonitor.log");
    EXPECT_NE(text.find("TolvanMonitor started: process "), String::npos) << text;
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, FailsToStartWithoutALogFolder)
{
    WriteFile(TempFile("file"), "");
    const String folder = (TempFile("file") / "logs").Text();
    App          app;
    EXPECT_FALSE(Start(app, {"--log-dir=" + folder}));
    EXPECT_EQ(app.LogDir(), folder) << "the user has to be told";
    EXPECT_TRUE(m_Log.Has(folder, log_Error)) << m_Log.All();
    EXPECT_FALSE(ThreadPool::IsReady());
    app.Cleanup();
    app.Cleanup();

    ASSERT_TRUE(Start(app, {"--no-master"})) << "it may be tried again";
    EXPECT_EQ(app.LogDir(), UserFile("logs").Text());
    app.Cleanup();
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, LivesWithoutAUserFolder)
{
    File::s_UserDir.clear();
    setenv("TMPDIR", TempFile("runtime").Text().c_str(), 1);
    App app;
    EXPECT_TRUE(Start(app, {"--no-master"}));
    EXPECT_EQ(app.OptionsFilename(), "");
    const Path folder = TempFile("runtime") / SFormat("tolvan-%u", geteuid());
    EXPECT_EQ(app.LogDir(), folder.Text());
    EXPECT_TRUE(File::Exists(folder / "TolvanMonitor.log"));
    EXPECT_EQ(m_Log.Count("No User Folder available", log_Warning), 1) << m_Log.All();
    app.Options().SetValue("Window", "Key", "value");
    EXPECT_EQ(app.Options().GetValue("Window", "Key"), "value");
    app.Cleanup();
    unsetenv("TMPDIR");
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, DispatchesOneMessageAtATime)
{
    App  app;
    auto note = [&](const String& text, bool isTaken)
    {
        return [&app, text, isTaken](const boost::shared_ptr<Message>& message)
        {
            app.Note(text + " " + message->Type());
            return isTaken;
        };
    };
    app.AddMessageHandler("A", note("first", false));
    app.AddMessageHandler("", note("any", false));
    app.AddMessageHandler("B",
                          [](const boost::shared_ptr<Message>&) -> bool
                          { throw std::runtime_error("broken handler"); });
    app.AddMessageHandler("A", note("second", true));
    app.AddMessageHandler("A", note("never", true));
    app.DispatchMessage();
    EXPECT_TRUE(app.Notes().empty());
    Queue(app, Message("A"));
    Queue(app, Message("B"));
    app.DispatchMessage();
    EXPECT_EQ(app.Notes(), (std::vector<String>{"first A", "any A", "second A"}));
    app.DispatchMessage();
    EXPECT_EQ(app.Notes(),
              (std::vector<String>{"first A", "any A", "second A", "any B", "unhandled B"}));
    EXPECT_EQ(m_Log.Count("broken handler", log_Error), 1) << m_Log.All();
    app.DispatchMessage();
    EXPECT_EQ(app.Notes().size(), 5u);
}

TEST_F(TolvanClientAppTest, CallsHandlersInOrderOnThePool)
{
    App               app;
    std::vector<int>  numbers; // touched by one task at a time
    std::atomic<int>  count{0};
    std::atomic<bool> isElsewhere{true};
    const auto        here = std::this_thread::get_id();
    app.AddMessageHandler("M",
                          [&](const boost::shared_ptr<Message>& message)
                          {
                              isElsewhere = isElsewhere && std::this_thread::get_id() != here;
                              numbers.push_back(static_cast<int>(message->GetInt("N")));
                              ++count;
                              return true;
                          });
    app.CallMessageHandlers(nullptr);
    ASSERT_TRUE(Start(app, {"--no-master"}));
    for (int i = 0; i < 1000; ++i)
    {
        app.CallMessageHandlers(Shared(Message("M").Set("N", i)));
    }
    app.Cleanup();
    EXPECT_EQ(count, 1000) << "the end waits for what is posted";
    EXPECT_TRUE(isElsewhere);
    for (int i = 0; i < 1000; ++i)
    {
        ASSERT_EQ(numbers[static_cast<size_t>(i)], i);
    }
    app.CallMessageHandlers(Shared(Message("M")));
    EXPECT_EQ(count, 1001);
    EXPECT_FALSE(isElsewhere) << "without a pool on the calling thread";
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, ReportsFailedRequests)
{
    App app;
    Queue(app, Message(msg_Failed).Set("Text", "No such job").Set("Text2", "It is gone"));
    Queue(app, Message(msg_Failed).Set("Text", "No").Set("Request", "1"));
    app.DispatchMessage();
    app.DispatchMessage();
    EXPECT_EQ(app.Notes(), (std::vector<String>{"failed No such job\nIt is gone", "failed No"}));
    EXPECT_EQ(m_Log.Count("The master reports that a request has failed", log_Error), 2);

    app.AddMessageHandler(msg_Failed, [](const boost::shared_ptr<Message>&) { return true; });
    Queue(app, Message(msg_Failed).Set("Text", "taken"));
    app.DispatchMessage();
    EXPECT_EQ(app.Notes().size(), 2u) << "a handler may take it";
}

TEST_F(TolvanClientAppTest, AnswersRequestsOfOtherPrograms)
{
    App app;
    ASSERT_TRUE(Start(app, {"--no-master"}));
    std::atomic<int> count{0};
    app.RegisterRequestHandler("COLORS", [&] { return ++count > 0; });
    TestPeer peer =
        TestPeer::ConnectTo(SocketFolder::ForProgram(component_Monitor, Platform::GetProcessId()));
    for (const auto& [name, answer] : {std::pair{"COLORS", k_Yes}, std::pair{"OTHER", k_No}})
    {
        ASSERT_TRUE(peer.Send(Message("Request").Set("Name", name)));
        const auto message = peer.Receive();
        ASSERT_TRUE(message);
        EXPECT_EQ(message->Get("Done"), answer) << name;
    }
    EXPECT_EQ(count, 1);
    EXPECT_FALSE(app.SendRequest(component_Monitor, "COLORS")) << "there is no other monitor";
    app.Cleanup();
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, ARequestMaySendOneWhileTheProgramEnds)
{
    // The handler uses the server that is about to be destroyed.
    for (int round = 0; round < 20; ++round)
    {
        App app;
        ASSERT_TRUE(Start(app, {"--no-master"}));
        app.RegisterRequestHandler("COLORS",
                                   [&] { return app.SendRequest(component_LogView, "COLORS"); });
        TestPeer peer = TestPeer::ConnectTo(
            SocketFolder::ForProgram(component_Monitor, Platform::GetProcessId()));
        ASSERT_TRUE(peer.Send(Message("Request").Set("Name", "COLORS")));
        app.Cleanup();
    }
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, RunsWithoutAWindowUntilTheMasterEndsIt)
{
    TestMaster master;
    App        app;
    ASSERT_TRUE(Start(app));
    std::thread masterThread(
        [&]
        {
            TestPeer peer = master.Accept();
            EXPECT_TRUE(peer.Receive());
            peer.Send(Message("M"));
            EXPECT_TRUE(WaitFor([&] { return app.Notes().size() == 1; }));
            peer.Send(Message(msg_Shutdown).Set("Reason", "power"));
            EXPECT_TRUE(peer.SeesEnd());
        });
    EXPECT_EQ(app.Execute(), 0);
    EXPECT_EQ(app.Notes(), std::vector<String>{"unhandled M"});
    app.EndExecute(3);
    EXPECT_EQ(app.Execute(), 3);
    app.Cleanup();
    masterThread.join();
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, CleansUpStaticsAtItsEnd)
{
    class Static : public LibStatic
    {
    public:
        explicit Static(int& count) : LibStatic("test"), m_Count(count) {}
        void OnLibCleanup() override { ++m_Count; }

    private:
        int& m_Count;
    };
    int    count = 0;
    Static one(count);
    App    app;
    ASSERT_TRUE(Start(app, {"--no-master"}));
    app.Cleanup();
    EXPECT_EQ(count, 1);
    Log::s_GlobalLog->Close();
}

TEST_F(TolvanClientAppTest, GoesOnAfterAnException)
{
    App        app;
    Exception* exception = new Exception("Class", "Method", 7, "it broke");
    EXPECT_TRUE(app.OnException(exception));
    delete exception;
    EXPECT_TRUE(app.OnException(nullptr));
    EXPECT_EQ(m_Log.Count("it broke", log_Error), 1);
    EXPECT_EQ(m_Log.Count("", log_Error), 2) << m_Log.All();
}

} // namespace
