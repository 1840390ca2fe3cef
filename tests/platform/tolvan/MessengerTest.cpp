#include "tolvan/Messenger.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Threads.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "tolvan/MessageQueue.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"
#include "wire/Framing.h"

#include <atomic>
#include <stdexcept>

#include <unistd.h>

namespace
{

using Clock = std::chrono::steady_clock;

/// Counts what the messenger raises.
class Slots : public HasSlots
{
public:
    Slots()
    {
        MessengerConnectedEvt::s_Signal.Connect(this, [this](const auto&) { ++m_Connected; });
        MessengerDisconnectedEvt::s_Signal.Connect(this, [this](const auto&) { ++m_Disconnected; });
        MessageReceivedEvt::s_Signal.Connect(this, [this](const auto&) { ++m_Messages; });
    }
    ~Slots() override { DisconnectAll(); }

    int Count() const { return m_Connected + m_Disconnected + m_Messages; }

    std::atomic<int> m_Connected{0};
    std::atomic<int> m_Disconnected{0};
    std::atomic<int> m_Messages{0};
};

class MessengerTest : public UserFolderTest
{
protected:
    /// The next client of the master, after its greeting.
    static TestPeer Welcome(TestMaster& master)
    {
        TestPeer   peer = master.Accept();
        const auto hello = peer.IsConnected() ? peer.Receive() : nullptr;
        EXPECT_TRUE(hello && hello->Type() == msg_Hello &&
                    hello->Get("component") == component_Monitor &&
                    hello->Get("user") == Platform::GetCurrentUserName());
        EXPECT_TRUE(peer.Send(Message(msg_Welcome).Set("version", 1)));
        return peer;
    }
    /// The messenger's connection, from its start.
    TestPeer StartWith(TestMaster& master)
    {
        m_Messenger.Start(component_Monitor);
        TestPeer peer = Welcome(master);
        EXPECT_TRUE(WaitFor([&] { return m_Messenger.IsConnected(); }));
        return peer;
    }
    bool SendBig() { return m_Messenger.Send(Message("M").Set("F", String(1000000, 'x'))); }

    LogCapture   m_Log;
    Slots        m_Slots;
    MessageQueue m_Queue;
    Messenger    m_Messenger{m_Queue};
};

TEST_F(MessengerTest, ConnectsAgainAndSlowsDownWhenTheMasterMakesNoSense)
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
    const auto begin = Clock::now();
    for (int round = 1; round <= 4; ++round)
    {
        TestPeer peer = master.Accept();
        ASSERT_TRUE(peer.Send(wire::Framing::Wrap("garbage")));
        EXPECT_TRUE(peer.SeesEnd());
    }
    EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(700));
    Welcome(master);
    EXPECT_TRUE(WaitFor([&] { return m_Slots.m_Messages == 4; })) << "the next one is as good";
    EXPECT_EQ(m_Log.Count("Closed the connection to the master (process", log_Warning), 4)
        << m_Log.All();
}

TEST_F(MessengerTest, SurvivesSlotsThatFail)
{
    HasSlots failing;
    MessengerConnectedEvt::s_Signal.Connect(&failing, [](MessengerConnectedEvt&)
                                            { throw std::runtime_error("no window"); });
    MessageReceivedEvt::s_Signal.Connect(&failing,
                                         [this](MessageReceivedEvt&)
                                         {
                                             if (m_Slots.m_Messages == 1)
                                             {
                                                 Exception::Throw("Test", "Slot", ec_BadData,
                                                                  "by pointer");
                                             }
                                             throw 7;
                                         });
    TestMaster master;
    TestPeer   peer = StartWith(master);
    peer.Send(Message("A"));
    ASSERT_TRUE(WaitFor([&] { return m_Queue.Size() == 2; })) << "no message is lost";
    for (const char* const text : {"no window", "by pointer", "of an unknown type"})
    {
        EXPECT_EQ(m_Log.Count(text, log_Error), 1) << text << "\n" << m_Log.All();
    }
    EXPECT_TRUE(m_Messenger.IsConnected());
}

TEST_F(MessengerTest, RefusesToQueueWithoutEnd)
{
    TestMaster master;
    TestPeer   peer = StartWith(master);
    EXPECT_FALSE(m_Messenger.Send(Message("M").Set("F", String(2u << 20, 'x')))) << "no frame";
    EXPECT_TRUE(m_Log.Has("over the limit", log_Error)) << m_Log.All();
    int accepted = 0;
    while (accepted < 100 && SendBig())
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

TEST_F(MessengerTest, TalksBothWaysAndStopSendsWhatWaitsButNotForEver)
{
    TestMaster   master;
    TestPeer     peer = StartWith(master);
    const String line("\0\xff odd", 6);
    EXPECT_TRUE(m_Log.Has(SFormat("Connected to the master (process %d)", getpid()), log_Info));
    ASSERT_TRUE(peer.Send(Message(msg_Output).Set("Line", line)));
    ASSERT_TRUE(WaitFor([&] { return m_Queue.Size() == 2; }));
    EXPECT_EQ(m_Queue.Take()->Type(), msg_Welcome);
    EXPECT_EQ(m_Queue.Take()->Get("Line"), line);
    for (int i = 0; i < 100; ++i)
    {
        EXPECT_TRUE(m_Messenger.Send(Message("M").Set("N", i).Set("Line", line)));
    }
    m_Messenger.Stop();
    EXPECT_FALSE(m_Messenger.IsConnected());
    for (int i = 0; i < 100; ++i)
    {
        const auto message = peer.Receive();
        ASSERT_TRUE(message) << i;
        EXPECT_EQ(message->GetInt("N"), i);
        EXPECT_EQ(message->Get("Line"), line);
    }
    EXPECT_TRUE(peer.SeesEnd());

    const TestPeer deaf = StartWith(master);
    while (SendBig())
    {
    }
    const auto begin = Clock::now();
    m_Messenger.Stop();
    EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(450));
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(3));
    EXPECT_TRUE(m_Log.Has("bytes for the master unsent")) << m_Log.All();
}

TEST_F(MessengerTest, IsSilentAfterStop)
{
    TestMaster master;
    for (int round = 0; round < 20; ++round)
    {
        const int before = m_Slots.m_Messages;
        m_Messenger.Start(component_Monitor);
        Threads flood(1,
                      [&](int)
                      {
                          TestPeer peer = master.Accept();
                          while (peer.Send(Message(msg_Output).Set("Line", "x")))
                          {
                          }
                      });
        EXPECT_TRUE(WaitFor([&] { return m_Slots.m_Messages > before + round; }));
        m_Messenger.Stop();
        const int counted = m_Slots.Count();
        flood.Join();
        EXPECT_EQ(m_Slots.Count(), counted);
    }
    EXPECT_EQ(m_Slots.m_Connected, 20);
    EXPECT_EQ(m_Slots.m_Disconnected, 0);
}

} // namespace
