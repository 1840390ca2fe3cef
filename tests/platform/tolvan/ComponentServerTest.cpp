#include "tolvan/ComponentServer.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Threads.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "tolvan/Framing.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"

#include <atomic>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace
{

constexpr int kPatience = 10000; // ms that a program may take to say something

/// Another program of the system, a real process.
class Program
{
public:
    explicit Program(const char* component)
    {
        int input[2];
        int output[2];
        EXPECT_EQ(pipe2(input, O_CLOEXEC), 0);
        EXPECT_EQ(pipe2(output, O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, input[0], 0);
        posix_spawn_file_actions_adddup2(&actions, output[1], 1);
        char  program[] = COMPONENT_PROGRAM;
        char* arguments[] = {program, const_cast<char*>(component), nullptr};
        EXPECT_EQ(posix_spawn(&m_Id, program, &actions, nullptr, arguments, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(input[0]);
        close(output[1]);
        m_Input = input[1];
        m_Output = output[0];
        EXPECT_EQ(ReadLine(), "ready");
    }
    ~Program()
    {
        End();
        close(m_Output);
    }

    int Id() const { return m_Id; }

    /// The next line that it prints; what there is of it when it says no more.
    String ReadLine()
    {
        String line;
        pollfd entry = {m_Output, POLLIN, 0};
        char   byte = 0;
        while (poll(&entry, 1, kPatience) == 1 && read(m_Output, &byte, 1) == 1 && byte != '\n')
        {
            line.push_back(byte);
        }
        return line;
    }
    void Kill()
    {
        kill(m_Id, SIGKILL);
        End();
    }
    void End()
    {
        if (m_Input >= 0)
        {
            close(m_Input);
            m_Input = -1;
            int status = 0;
            waitpid(m_Id, &status, 0);
        }
    }

private:
    pid_t m_Id = 0;
    int   m_Input = -1;
    int   m_Output = -1;
};

class ComponentServerTest : public UserFolderTest
{
protected:
    using Clock = std::chrono::steady_clock;

    TestPeer       Connect() const { return TestPeer::ConnectTo(m_Own); }
    static Message Request(const String& name) { return Message("Request").Set("Name", name); }
    bool           Answer(const String& request)
    {
        ++m_Requests;
        if (request == "THROW")
        {
            Exception::Throw("Test", "Handler", ec_BadData, "no way");
        }
        return request == "YES";
    }

    LogCapture       m_Log;
    std::atomic<int> m_Requests{0};
    ComponentServer  m_Server{component_Monitor,
                             [this](const String& request) { return Answer(request); }};
    const Path       m_Own = SocketFolder::ForProgram(component_Monitor, Platform::GetProcessId());
};

TEST_F(ComponentServerTest, SendsToOtherPrograms)
{
    Program monitor("TolvanMonitor");
    Program logView("TolvanLogView");
    EXPECT_TRUE(Components::DidStart(component_LogView));
    EXPECT_TRUE(m_Server.Send(component_Monitor, "COLORS"));
    EXPECT_EQ(monitor.ReadLine(), "COLORS");
    EXPECT_TRUE(m_Server.Send(component_LogView, "OTHER"));
    EXPECT_EQ(logView.ReadLine(), "OTHER");
    for (const char* const answer : {"\"COLORS\": Yes", "\"OTHER\": No"})
    {
        EXPECT_TRUE(WaitFor([&] { return m_Log.Has(String("answers the request ") + answer); }))
            << m_Log.All();
    }
    EXPECT_EQ(m_Requests, 0) << "never to oneself";

    logView.Kill();
    EXPECT_FALSE(m_Server.Send(component_LogView, "COLORS"));
    EXPECT_FALSE(File::Exists(SocketFolder::ForProgram(component_LogView, logView.Id())))
        << "the socket of a dead program stays";
    monitor.End();
    EXPECT_FALSE(m_Server.Send(component_Monitor, "COLORS")) << "only this program is left";
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
    EXPECT_EQ(m_Requests, 3);
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
        {Framing::Wrap("no message"), "10 bytes came that are no message"},
        {Framing::Wrap(Message("Answer").Set("Done", k_Yes).Encode()),
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
    EXPECT_EQ(m_Requests, 0);

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
        taken += m_Server.Send(component_LogView, String(100000, 'x'));
    }
    EXPECT_LT(Clock::now() - begin, std::chrono::seconds(3));
    EXPECT_LT(taken, 20) << "its backlog should be full by then";
    close(hanging);
}

TEST_F(ComponentServerTest, RefusesOtherUsers)
{
    if (geteuid() != 0)
    {
        GTEST_SKIP() << "only root can become another user";
    }
    // The folder keeps others out; the peer's user is checked all the same.
    for (const Path& opened : {m_Own, m_Own.Branch(), TempFile("runtime"), TempFile("")})
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
    constexpr int    kEach = 10;
    Program          logView("TolvanLogView");
    std::atomic<int> taken{0};
    Threads(4,
            [&](int)
            {
                for (int i = 0; i < kEach; ++i)
                {
                    taken += m_Server.Send(component_LogView, "COLORS");
                }
            });
    EXPECT_EQ(taken, 4 * kEach);
    for (int i = 0; i < 4 * kEach; ++i)
    {
        ASSERT_EQ(logView.ReadLine(), "COLORS") << i;
    }
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
    ASSERT_EQ(mkdir(folder.Text().c_str(), 0700), 0);
    setenv("XDG_RUNTIME_DIR", folder.Text().c_str(), 1);
    {
        ComponentServer server(component_Monitor, {});
        EXPECT_TRUE(server.IsListening());
        EXPECT_TRUE(Components::DidStart(component_Monitor));
        Program logView("TolvanLogView");
        EXPECT_TRUE(server.Send(component_LogView, "COLORS"));
        EXPECT_EQ(logView.ReadLine(), "COLORS");
    }
    EXPECT_TRUE(File::List(folder / "tolvan").empty()) << "the socket stays behind";
}

} // namespace
