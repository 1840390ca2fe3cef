#include "tolvan/Messenger.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "tolvan/Framing.h"
#include "tolvan/MessageQueue.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"

#include <atomic>
#include <mutex>
#include <stdexcept>
#include <thread>

#include <unistd.h>

namespace
{

/// Counts what the messenger raises.
class Slots : public HasSlots
{
public:
    Slots()
    {
        MessengerConnectedEvt::s_Signal.Connect(this, &Slots::OnConnected);
        MessengerDisconnectedEvt::s_Signal.Connect(this, &Slots::OnDisconnected);
        MessageReceivedEvt::s_Signal.Connect(this, &Slots::OnMessage);
        ShutdownMsg::s_Signal.Connect(this, &Slots::OnShutdown);
    }
    ~Slots() override { DisconnectAll(); }

    String Reason() const
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        return m_Reason;
    }

    std::atomic<int>                         m_Connected{0};
    std::atomic<int>                         m_Disconnected{0};
    std::atomic<int>                         m_Messages{0};
    std::function<void()>                    m_OnConnected; ///< Set before the messenger starts.
    std::function<void(MessageReceivedEvt&)> m_OnMessage;

private:
    void OnConnected(MessengerConnectedEvt&)
    {
        ++m_Connected;
        if (m_OnConnected)
        {
            m_OnConnected();
        }
    }
    void OnDisconnected(MessengerDisconnectedEvt&) { ++m_Disconnected; }
    void OnMessage(MessageReceivedEvt& event)
    {
        ++m_Messages;
        if (m_OnMessage)
        {
            m_OnMessage(event);
        }
    }
    void OnShutdown(const boost::shared_ptr<ShutdownMsg>& message)
    {
        const std::lock_guard<std::mutex> lock(m_Mutex);
        m_Reason = message->Reason();
    }

    mutable std::mutex m_Mutex;
    String             m_Reason;
};

class MessengerTest : public UserFolderTest
{
protected:
    /// The next client of the master, after its greeting.
    static TestPeer Welcome(TestMaster& master)
    {
        TestPeer   peer = master.Accept();
        const auto hello = peer.IsConnected() ? peer.Receive() : nullptr;
        EXPECT_TRUE(hello && hello->Type() == msg_Hello);
        EXPECT_TRUE(peer.Send(Message(msg_Welcome).Set("version", 1)));
        return peer;
    }

    LogCapture   m_Log;
    Slots        m_Slots;
    MessageQueue m_Queue;
    Messenger    m_Messenger{m_Queue};
};

TEST_F(MessengerTest, IntroducesItselfAndTalksBothWays)
{
    TestMaster master;
    m_Messenger.Start(component_Monitor);
    TestPeer   peer = master.Accept();
    const auto hello = peer.Receive();
    ASSERT_TRUE(hello);
    EXPECT_EQ(hello->Type(), msg_Hello);
    EXPECT_EQ(hello->Get("component"), component_Monitor);
    EXPECT_EQ(hello->Get("user"), Platform::GetCurrentUserName());

    const String line("\0\xff odd", 6);
    ASSERT_TRUE(peer.Send(Message(msg_Output).Set("Line", line)));
    ASSERT_TRUE(WaitFor([&] { return m_Queue.Size() == 1; }));
    EXPECT_EQ(m_Queue.Take()->Get("Line"), line);
    EXPECT_EQ(m_Slots.m_Messages, 1);

    EXPECT_TRUE(m_Messenger.IsConnected());
    EXPECT_TRUE(m_Messenger.Send(Message(msg_Command).Set("Item", line)));
    const auto command = peer.Receive();
    ASSERT_TRUE(command);
    EXPECT_EQ(command->Get("Item"), line);
    m_Messenger.Stop();
    EXPECT_FALSE(m_Messenger.IsConnected());
    EXPECT_EQ(m_Slots.m_Connected, 1);
    EXPECT_EQ(m_Slots.m_Disconnected, 0) << "ending it is no event";
    EXPECT_TRUE(m_Log.Has(SFormat("Connected to the master (process %d)", getpid()), log_Info));
}

TEST_F(MessengerTest, ConnectsAgain)
{
    m_Messenger.Start(component_Monitor);
    EXPECT_FALSE(m_Messenger.Send(Message(msg_Command))) << "there is no master yet";
    TestMaster master;
    for (int round = 1; round <= 3; ++round)
    {
        TestPeer peer = Welcome(master);
        ASSERT_TRUE(WaitFor([&] { return m_Slots.m_Messages == round; }));
        EXPECT_EQ(m_Slots.m_Connected, round);
        EXPECT_EQ(m_Slots.m_Disconnected, round - 1);
        peer.Close();
        ASSERT_TRUE(WaitFor([&] { return m_Slots.m_Disconnected == round; }));
    }
}

TEST_F(MessengerTest, LogsALongAbsenceOnce)
{
    m_Messenger.Start(component_Monitor);
    // The fourth attempt comes 700 ms after the first.
    const auto begin = std::chrono::steady_clock::now();
    WaitFor([&] { return std::chrono::steady_clock::now() > begin + std::chrono::seconds(1); });
    EXPECT_EQ(m_Log.Count("Not connected to the master"), 1) << m_Log.All();
    m_Messenger.Stop();
    EXPECT_EQ(m_Slots.m_Connected, 0);
    EXPECT_EQ(m_Slots.m_Disconnected, 0);
}

TEST_F(MessengerTest, LeavesAMasterThatMakesNoSense)
{
    TestMaster   master;
    const String bad[] = {"HTTP/1.0 400 Bad Request\r\n\r\n", Framing::Wrap("garbage"),
                          String("TLV1\x7f\xff\xff\xff", 8)};
    m_Messenger.Start(component_Monitor);
    int count = 0;
    for (const String& bytes : bad)
    {
        TestPeer peer = master.Accept();
        ASSERT_TRUE(peer.Send(bytes));
        EXPECT_TRUE(peer.SeesEnd());
        ++count;
        ASSERT_TRUE(WaitFor([&] { return m_Slots.m_Disconnected == count; }));
    }
    EXPECT_EQ(m_Log.Count("Closed the connection to the master (process", log_Warning), 3)
        << m_Log.All();
    EXPECT_EQ(m_Slots.m_Messages, 0);
    Welcome(master);
    EXPECT_TRUE(WaitFor([&] { return m_Slots.m_Messages == 1; })) << "the next one is as good";
}

TEST_F(MessengerTest, SlowsDownWhileTheMasterMakesNoSense)
{
    TestMaster master;
    m_Messenger.Start(component_Monitor);
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 4; ++i)
    {
        TestPeer peer = master.Accept();
        ASSERT_TRUE(peer.IsConnected());
        peer.Send("garbage!");
        peer.SeesEnd();
    }
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(700));
}

TEST_F(MessengerTest, RaisesAShutdownAsSuch)
{
    TestMaster master;
    m_Messenger.Start(component_Monitor);
    TestPeer peer = Welcome(master);
    peer.Send(Message(msg_Shutdown).Set("Reason", "power"));
    EXPECT_TRUE(WaitFor([&] { return m_Slots.Reason() == "power"; }));
    EXPECT_EQ(m_Slots.m_Messages, 1) << "of the welcome only";
}

TEST_F(MessengerTest, SurvivesSlotsThatFail)
{
    int round = 0;
    m_Slots.m_OnConnected = [] { throw std::runtime_error("no window"); };
    m_Slots.m_OnMessage = [&](MessageReceivedEvt&)
    {
        switch (++round)
        {
        case 1:
            Exception::Throw("Test", "Slot", ec_BadData, "by pointer");
        case 2:
            throw 7;
        default:
            break;
        }
    };
    TestMaster master;
    m_Messenger.Start(component_Monitor);
    TestPeer peer = Welcome(master);
    peer.Send(Message("A"));
    peer.Send(Message("B"));
    ASSERT_TRUE(WaitFor([&] { return m_Queue.Size() == 3; })) << "no message is lost";
    for (const char* const text : {"no window", "by pointer", "of an unknown type"})
    {
        EXPECT_EQ(m_Log.Count(text, log_Error), 1) << text << "\n" << m_Log.All();
    }
    EXPECT_TRUE(m_Messenger.IsConnected());
}

TEST_F(MessengerTest, ASlotMayTakeTheMessageAndAnswer)
{
    m_Slots.m_OnMessage = [&](MessageReceivedEvt& event)
    {
        const auto message = std::move(event.m_Message);
        m_Messenger.Send(Message("Echo").Set("Of", message->Type()));
    };
    TestMaster master;
    m_Messenger.Start(component_Monitor);
    TestPeer   peer = Welcome(master);
    const auto echo = peer.Receive();
    ASSERT_TRUE(echo);
    EXPECT_EQ(echo->Get("Of"), msg_Welcome);
    m_Messenger.Stop();
    EXPECT_EQ(m_Queue.Size(), 0u);
}

TEST_F(MessengerTest, RefusesToQueueWithoutEnd)
{
    TestMaster master;
    m_Messenger.Start(component_Monitor);
    TestPeer peer = Welcome(master);
    ASSERT_TRUE(WaitFor([&] { return m_Messenger.IsConnected(); }));
    EXPECT_FALSE(m_Messenger.Send(Message("M").Set("F", String(2u << 20, 'x')))) << "no frame";
    EXPECT_TRUE(m_Log.Has("over the limit", log_Error)) << m_Log.All();

    const Message big = Message("M").Set("F", String(1000000, 'x'));
    int           accepted = 0;
    while (accepted < 100 && m_Messenger.Send(big))
    {
        ++accepted;
    }
    EXPECT_GE(accepted, 8);
    EXPECT_LE(accepted, 12);
    for (int i = 0; i < accepted; ++i)
    {
        ASSERT_TRUE(peer.Receive()) << i;
    }
    EXPECT_TRUE(WaitFor([&] { return m_Messenger.Send(Message("Small")); }));
    const auto small = peer.Receive();
    EXPECT_TRUE(small && small->Type() == "Small");
}

TEST_F(MessengerTest, StopSendsWhatWaitsButNotForEver)
{
    TestMaster master;
    m_Messenger.Start(component_Monitor);
    TestPeer peer = Welcome(master);
    ASSERT_TRUE(WaitFor([&] { return m_Messenger.IsConnected(); }));
    for (int i = 0; i < 100; ++i)
    {
        EXPECT_TRUE(m_Messenger.Send(Message("M").Set("N", i)));
    }
    m_Messenger.Stop();
    for (int i = 0; i < 100; ++i)
    {
        const auto message = peer.Receive();
        ASSERT_TRUE(message) << i;
        EXPECT_EQ(message->GetInt("N"), i);
    }
    EXPECT_TRUE(peer.SeesEnd());

    m_Messenger.Start(component_Monitor);
    TestPeer deaf = Welcome(master);
    ASSERT_TRUE(WaitFor([&] { return m_Messenger.IsConnected(); }));
    while (m_Messenger.Send(Message("M").Set("F", String(1000000, 'x'))))
    {
    }
    const auto begin = std::chrono::steady_clock::now();
    m_Messenger.Stop();
    const auto taken = std::chrono::steady_clock::now() - begin;
    EXPECT_GE(taken, std::chrono::milliseconds(450));
    EXPECT_LT(taken, std::chrono::seconds(3));
    EXPECT_TRUE(m_Log.Has("bytes for the master unsent")) << m_Log.All();
}

TEST_F(MessengerTest, IsSilentAfterStop)
{
    TestMaster master;
    for (int round = 0; round < 20; ++round)
    {
        m_Messenger.Start(component_Monitor);
        std::atomic<bool> isOver{false};
        std::thread       masterThread(
            [&]
            {
                TestPeer peer = master.Accept();
                while (!isOver && peer.Send(Message(msg_Output).Set("Line", "x")))
                {
                }
            });
        const int before = m_Slots.m_Messages;
        EXPECT_TRUE(WaitFor([&] { return m_Slots.m_Messages > before + round; }));
        m_Messenger.Stop();
        const int counted = m_Slots.m_Messages + m_Slots.m_Connected + m_Slots.m_Disconnected;
        isOver = true;
        masterThread.join();
        EXPECT_EQ(m_Slots.m_Messages + m_Slots.m_Connected + m_Slots.m_Disconnected, counted);
    }
    EXPECT_EQ(m_Slots.m_Connected, 20);
    EXPECT_EQ(m_Slots.m_Disconnected, 0);
}

TEST_F(MessengerTest, SendsFromManyThreadsWhileTheMasterComesAndGoes)
{
    TestMaster               master;
    std::atomic<bool>        isOver{false};
    std::vector<std::thread> threads;
    m_Messenger.Start(component_Monitor);
    for (int i = 0; i < 3; ++i)
    {
        threads.emplace_back(
            [&]
            {
                while (!isOver)
                {
                    m_Messenger.Send(Message(msg_Command).Set("Item", String(1000, 'x')));
                    std::this_thread::yield();
                }
            });
    }
    for (int i = 0; i < 5; ++i)
    {
        TestPeer peer = Welcome(master);
        for (int j = 0; j < 50; ++j)
        {
            EXPECT_TRUE(peer.Receive());
        }
    }
    isOver = true;
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    TestPeer last = Welcome(master);
    EXPECT_TRUE(WaitFor([&] { return m_Messenger.Send(Message("Last")); }));
    auto message = last.Receive();
    while (message && message->Type() != "Last")
    {
        message = last.Receive();
    }
    EXPECT_TRUE(message) << "it was lost, or the count of waiting bytes is off";
}

TEST_F(MessengerTest, ReportsAFolderThatCannotBeUsed)
{
    WriteFile(TempFile("runtime") / "tolvan", "in the way");
    m_Messenger.Start(component_Monitor);
    EXPECT_TRUE(WaitFor([&] { return m_Log.Has("a link or no folder at all", log_Info); }))
        << m_Log.All();
    File::Remove(TempFile("runtime") / "tolvan");
    TestMaster master;
    Welcome(master);
    EXPECT_TRUE(WaitFor([&] { return m_Slots.m_Messages == 1; }));
}

} // namespace
