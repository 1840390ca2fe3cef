#include "tolvan/ComponentServer.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Threads.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"
#include "wire/Framing.h"

#include <atomic>
#include <vector>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
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
        for (const char* const request : {"YES", "NO"})
        {
            EXPECT_TRUE(m_Own.m_Server.Send(component_LogView, request));
        }
        for (const char* const answer : {"\"YES\": Yes", "\"NO\": No"})
        {
            EXPECT_TRUE(WaitFor([&] { return m_Log.Has(String("answers the request ") + answer); }))
                << m_Log.All();
        }
        EXPECT_EQ(logView.m_Requests, 2);
    }
    EXPECT_FALSE(m_Own.m_Server.Send(component_LogView, "YES"));
    EXPECT_FALSE(m_Own.m_Server.Send(component_Monitor, "YES")) << "never to oneself";
    EXPECT_EQ(m_Own.m_Requests, 0);
}

TEST_F(ComponentServerTest, AnswersRequests)
{
    TestPeer peer = Connect(); // one connection carries several requests
    for (const char* const name : {"YES", "NO", "THROW"})
    {
        ASSERT_TRUE(peer.Send(Request(name)));
        const auto answer = peer.Receive();
        ASSERT_TRUE(answer) << name;
        EXPECT_EQ(answer->Type(), "Answer");
        EXPECT_EQ(answer->Get("Done"), name == String("YES") ? k_Yes : k_No) << name;
    }
    EXPECT_TRUE(m_Log.Has("no way", log_Error)) << m_Log.All();
    EXPECT_EQ(m_Own.m_Requests, 3);
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
    ASSERT_TRUE(served.Send(Request("YES")));
    EXPECT_TRUE(served.Receive());
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(4));
    EXPECT_TRUE(silent.SeesEnd());
    EXPECT_TRUE(half.SeesEnd());
    EXPECT_TRUE(served.SeesEnd());
    EXPECT_EQ(m_Log.Count("", log_Warning), 2) << m_Log.All();
    EXPECT_TRUE(m_Log.Has(": silent for 5000 ms", log_Warning)) << m_Log.All();
}

TEST_F(ComponentServerTest, DoesNotBlockOnAProgramThatDoesNotRead)
{
    // A program that hangs: it is there, but nobody accepts or reads.
    const int  hanging = ListenAt(SocketFolder::ForProgram(component_LogView, 1), 2);
    const auto begin = Clock::now();
    int        taken = 0;
    for (int i = 0; i < 20; ++i)
    {
        taken += m_Own.m_Server.Send(component_LogView, String(100000, 'x'));
    }
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(3));
    EXPECT_LT(taken, 20) << "its backlog should be full by then";
    close(hanging);
}

TEST_F(ComponentServerTest, LeavesTheMastersClientsSocketAlone)
{
    const int listener = ListenAt(SocketFolder::ForMaster());
    fcntl(listener, F_SETFL, O_NONBLOCK);
    EXPECT_FALSE(m_Own.m_Server.Send(component_Master, "COLORS"));
    EXPECT_EQ(accept(listener, nullptr, nullptr), -1);
    close(listener);
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

TEST_F(ComponentServerTest, RefusesOtherUsers)
{
    if (geteuid() != 0)
    {
        GTEST_SKIP() << "only root can become another user";
    }
    // The folder keeps others out; the peer's user is checked all the same.
    for (const Path& opened : {m_Socket, m_Socket.Branch(), TempFile("runtime"), TempFile("")})
    {
        ASSERT_EQ(chmod(opened.Text().c_str(), 0777), 0);
    }
    const pid_t child = fork();
    if (child == 0)
    {
        const bool isOther = setresuid(65534, 65534, 65534) == 0;
        TestPeer   peer = Connect();
        _exit(isOther && peer.IsConnected() && peer.SeesEnd() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    const String refusal =
        SFormat("Refused a connection of process %d, which belongs to user 65534", child);
    EXPECT_TRUE(WaitFor([&] { return m_Log.Has(refusal, log_Warning); })) << m_Log.All();
}

TEST_F(ComponentServerTest, SendsFromManyThreads)
{
    const Program    logView(component_LogView);
    std::atomic<int> taken{0};
    Threads(4,
            [&](int)
            {
                for (int i = 0; i < 10; ++i)
                {
                    taken += m_Own.m_Server.Send(component_LogView, "YES");
                }
            });
    EXPECT_EQ(taken, 40);
    EXPECT_TRUE(WaitFor([&] { return logView.m_Requests == 40; })) << logView.m_Requests;
}

TEST(ComponentServer, WorksWithoutASocket)
{
    const LogCapture log;
    setenv("XDG_RUNTIME_DIR", "", 1);
    setenv("TMPDIR", "/no/such/folder", 1);
    {
        ComponentServer server(component_Monitor, {});
        EXPECT_FALSE(server.IsListening());
        EXPECT_FALSE(server.Send(component_LogView, "COLORS"));
    }
    unsetenv("TMPDIR");
    EXPECT_TRUE(log.Has("/no/such/folder/tolvan-", log_Error)) << log.All();
}

using LongNameTest = UserFolderTest;

TEST_F(LongNameTest, ComponentServerWorksInAFolderWithALongName)
{
    const Path folder = TempFile(String(200, 'n'));
    File::MakeFolder(folder);
    setenv("XDG_RUNTIME_DIR", folder.Text().c_str(), 1);
    {
        Program       monitor(component_Monitor);
        const Program logView(component_LogView);
        EXPECT_TRUE(Components::DidStart(component_Monitor));
        EXPECT_TRUE(monitor.m_Server.Send(component_LogView, "YES"));
        EXPECT_TRUE(WaitFor([&] { return logView.m_Requests == 1; }));
    }
    EXPECT_TRUE(File::List(folder / "tolvan").empty()) << "the socket stays behind";
}

} // namespace
