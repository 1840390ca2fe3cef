#include "tolvan/ComponentServer.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"
#include "wire/Framing.h"

#include <atomic>
#include <vector>

#include <unistd.h>

namespace
{

/// Stands for a program of that component; answers yes to "YES" only.
struct Program
{
    explicit Program(const String& component)
        : m_Server(component, [this](const String& request) { return Answer(request); })
    {
        EXPECT_TRUE(m_Server.IsListening());
    }

    bool Answer(const String& request)
    {
        ++m_Requests;
        if (request == "THROW")
        {
            Exception::Throw("Test", "Handler", ec_BadData, "no way");
        }
        return request == "YES";
    }

    std::atomic<int> m_Requests{0};
    ComponentServer  m_Server;
};

class ComponentServerTest : public UserFolderTest
{
protected:
    using Clock = std::chrono::steady_clock;

    TestPeer       Connect() const { return TestPeer::ConnectTo(m_Socket); }
    static Message Request(const String& name) { return Message("Request").Set("Name", name); }

    LogCapture m_Log;
    Program    m_Own{component_Monitor};
    const Path m_Socket = SocketFolder::ForProgram(component_Monitor, Platform::GetProcessId());
};

TEST_F(ComponentServerTest, SendsToOtherPrograms)
{
    {
        const Program logView(component_LogView);
        for (const char* const request : {"YES", "NO", "THROW"})
        {
            EXPECT_TRUE(m_Own.m_Server.Send(component_LogView, request));
        }
        for (const char* const answer : {"\"YES\": Yes", "\"NO\": No", "\"THROW\": No"})
        {
            EXPECT_TRUE(WaitFor([&] { return m_Log.Has(String("answers the request ") + answer); }))
                << m_Log.All();
        }
        EXPECT_EQ(logView.m_Requests, 3);
    }
    EXPECT_TRUE(m_Log.Has("no way", log_Error)) << m_Log.All();
    EXPECT_FALSE(m_Own.m_Server.Send(component_LogView, "YES"));
    EXPECT_FALSE(m_Own.m_Server.Send(component_Monitor, "YES")) << "never to oneself";
    EXPECT_EQ(m_Own.m_Requests, 0);
}

TEST_F(ComponentServerTest, ClosesConnectionsThatMakeNoSense)
{
    const struct
    {
        String      bytes;
        const char* complaint;
    } cases[] = {
        {"GET / HTTP/1.1\r\n\r\n", "A frame begins with 47455420 instead of 544c5631"},
        {String("TLV1\x00\x10\x00\x01", 8) + String(100, 'x'),
         "A frame of 1048577 bytes is over the limit of 1048576"},
        {wire::Framing::Wrap("no message"), "10 bytes came that are no message"},
        {wire::Framing::Wrap(Message("Answer").Set("Done", k_Yes).Encode()),
         "a message \"Answer\" came instead of \"Request\""},
    };
    const String from = SFormat("Closed the connection of process %d: ", getpid());
    for (const auto& one : cases)
    {
        TestPeer peer = Connect();
        ASSERT_TRUE(peer.Send(one.bytes));
        EXPECT_TRUE(peer.SeesEnd());
        EXPECT_TRUE(WaitFor([&] { return m_Log.Has(from + one.complaint, log_Warning); }))
            << one.complaint << "\n"
            << m_Log.All();
    }
    EXPECT_EQ(m_Own.m_Requests, 0);

    Connect().Close();
    TestPeer peer = Connect();
    ASSERT_TRUE(peer.Send(Request("YES")));
    EXPECT_TRUE(peer.Receive()) << "it goes on serving";
    EXPECT_EQ(m_Log.Count("", log_Warning), 4) << "connecting and going is no fault" << m_Log.All();
}

TEST_F(ComponentServerTest, ClosesTheSilentWhileItServesOthers)
{
    const auto begin = Clock::now();
    TestPeer   silent = Connect();
    TestPeer   half = Connect();
    TestPeer   served = Connect();
    ASSERT_TRUE(half.Send(String("TLV1\0\0", 6)));
    for (const char* const name : {"YES", "NO"}) // one connection carries several requests
    {
        ASSERT_TRUE(served.Send(Request(name)));
        const auto answer = served.Receive();
        ASSERT_TRUE(answer) << name;
        EXPECT_EQ(answer->Type(), "Answer");
        EXPECT_EQ(answer->Get("Done"), name == String("YES") ? k_Yes : k_No);
    }
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(4));
    EXPECT_TRUE(silent.SeesEnd());
    EXPECT_TRUE(half.SeesEnd());
    EXPECT_TRUE(served.SeesEnd());
    EXPECT_EQ(m_Log.Count("", log_Warning), 2) << m_Log.All();
    EXPECT_TRUE(m_Log.Has(": silent for 5000 ms", log_Warning)) << m_Log.All();
}

TEST_F(ComponentServerTest, RefusesAFlood)
{
    const auto hasRefused = [this] { return m_Log.Has("there are too many", log_Warning); };
    {
        std::vector<TestPeer> silent;
        EXPECT_TRUE(WaitFor(
            [&]
            {
                silent.push_back(Connect());
                return hasRefused();
            }));
        EXPECT_GT(silent.size(), 256u);
        EXPECT_TRUE(silent.back().SeesEnd());
    }
    EXPECT_TRUE(WaitFor(
        [this]
        {
            TestPeer peer = Connect();
            return peer.Send(Request("YES")) && peer.Receive();
        }));
}

} // namespace
