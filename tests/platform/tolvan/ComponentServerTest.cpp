#include "tolvan/ComponentServer.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "tolvan/Framing.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"

#include <atomic>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
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
    Path OwnSocket() const
    {
        return SocketFolder::ForProgram(component_Monitor, Platform::GetProcessId());
    }
    static Message Request(const String& name) { return Message("Request").Set("Name", name); }

    LogCapture        m_Log;
    std::atomic<int>  m_Requests{0};
    std::atomic<bool> m_Answer{true};
    ComponentServer   m_Server{component_Monitor, [this](const String& request)
                             {
                                 ++m_Requests;
                                 if (request == "THROW")
                                 {
                                     Exception::Throw("Test", "Handler", ec_BadData, "no way");
                                 }
                                 return m_Answer.load();
                             }};
};

TEST_F(ComponentServerTest, SendsToOtherPrograms)
{
    Program monitor("TolvanMonitor");
    Program logView("TolvanLogView");
    ASSERT_EQ(monitor.ReadLine(), "ready");
    ASSERT_EQ(logView.ReadLine(), "ready");
    EXPECT_TRUE(Components::DidStart(component_LogView));

    EXPECT_TRUE(m_Server.Send(component_Monitor, "COLORS"));
    EXPECT_EQ(monitor.ReadLine(), "COLORS");
    EXPECT_TRUE(m_Server.Send(component_LogView, "OTHER"));
    EXPECT_EQ(logView.ReadLine(), "OTHER");
    EXPECT_TRUE(WaitFor(
        [&]
        {
            return m_Log.Has("answers the request \"COLORS\": Yes") &&
                   m_Log.Has("answers the request \"OTHER\": No");
        }))
        << m_Log.All();
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
    TestPeer peer = TestPeer::ConnectTo(OwnSocket());
    ASSERT_TRUE(peer.Send(Request("COLORS")));
    auto answer = peer.Receive();
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->Type(), "Answer");
    EXPECT_EQ(answer->Get("Done"), k_Yes);

    m_Answer = false;
    ASSERT_TRUE(peer.Send(Request("COLORS"))) << "one connection carries several requests";
    answer = peer.Receive();
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->Get("Done"), k_No);

    ASSERT_TRUE(peer.Send(Request("THROW")));
    answer = peer.Receive();
    ASSERT_TRUE(answer) << "a handler that fails answers no";
    EXPECT_EQ(answer->Get("Done"), k_No);
    EXPECT_TRUE(m_Log.Has("no way", log_Error)) << m_Log.All();
    EXPECT_EQ(m_Requests, 3);
}

TEST_F(ComponentServerTest, ClosesConnectionsThatMakeNoSense)
{
    const String bad[] = {
        "GET / HTTP/1.1\r\n\r\n",
        String("TLV1\x00\x10\x00\x01", 8) + String(100, 'x'),
        Framing::Wrap("no message"),
        Framing::Wrap(Message("Answer").Set("Done", k_Yes).Encode()),
    };
    for (const String& bytes : bad)
    {
        TestPeer peer = TestPeer::ConnectTo(OwnSocket());
        ASSERT_TRUE(peer.Send(bytes));
        EXPECT_TRUE(peer.SeesEnd());
    }
    const String from = SFormat("Closed the connection of process %d: ", getpid());
    EXPECT_TRUE(WaitFor([&] { return m_Log.Count(from, log_Warning) == 4; })) << m_Log.All();
    EXPECT_TRUE(m_Log.Has(from + "A frame begins with 47455420 instead of 544c5631"));
    EXPECT_TRUE(m_Log.Has(from + "A frame of 1048577 bytes is over the limit of 1048576"));
    EXPECT_TRUE(m_Log.Has(from + "10 bytes came that are no message"));
    EXPECT_TRUE(m_Log.Has(from + "a message \"Answer\" came instead of \"Request\""));
    EXPECT_EQ(m_Requests, 0);

    TestPeer::ConnectTo(OwnSocket()).Close();
    TestPeer peer = TestPeer::ConnectTo(OwnSocket());
    ASSERT_TRUE(peer.Send(Request("COLORS")));
    EXPECT_TRUE(peer.Receive()) << "it goes on serving";
    EXPECT_EQ(m_Log.Count("", log_Warning), 4) << "connecting and going is no fault" << m_Log.All();
}

TEST_F(ComponentServerTest, ClosesTheSilentWhileItServesOthers)
{
    const auto begin = std::chrono::steady_clock::now();
    TestPeer   silent = TestPeer::ConnectTo(OwnSocket());
    TestPeer   half = TestPeer::ConnectTo(OwnSocket());
    TestPeer   served = TestPeer::ConnectTo(OwnSocket());
    ASSERT_TRUE(half.Send(String("TLV1\0\0", 6)));
    ASSERT_TRUE(served.Send(Request("COLORS")));
    EXPECT_TRUE(served.Receive());
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(4));
    EXPECT_TRUE(silent.SeesEnd());
    EXPECT_TRUE(half.SeesEnd());
    EXPECT_TRUE(served.SeesEnd());
    EXPECT_EQ(m_Log.Count("", log_Warning), 2) << m_Log.All();
    EXPECT_TRUE(m_Log.Has(": silent for 5000 ms", log_Warning)) << m_Log.All();
}

TEST_F(ComponentServerTest, DoesNotBlockOnAProgramThatDoesNotRead)
{
    // A program that hangs: it is there, but nobody accepts or reads.
    const Path path = SocketFolder::ForProgram(component_LogView, 1);
    const int  hanging = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    {
        // The plainest way to bind a socket by hand.
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        path.Text().copy(address.sun_path, sizeof address.sun_path - 1);
        ASSERT_EQ(bind(hanging, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ASSERT_EQ(listen(hanging, 2), 0);
    }
    const auto begin = std::chrono::steady_clock::now();
    int        taken = 0;
    for (int i = 0; i < 20; ++i)
    {
        taken += m_Server.Send(component_LogView, String(100000, 'x'));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3));
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
    const Path path = OwnSocket();
    const Path folder = SocketFolder::Get();
    for (const Path& opened : {path, folder, TempFile("runtime"), TempFile("")})
    {
        ASSERT_EQ(chmod(opened.Text().c_str(), 0777), 0);
    }
    const pid_t child = fork();
    if (child == 0)
    {
        const bool isOther = setresuid(65534, 65534, 65534) == 0;
        TestPeer   peer = TestPeer::ConnectTo(path);
        _exit(isOther && peer.IsConnected() && peer.SeesEnd() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(WaitFor(
        [&]
        {
            return m_Log.Has(SFormat("Refused a connection of process %d, which belongs to user"
                                     " 65534",
                                     child),
                             log_Warning);
        }))
        << m_Log.All();
}

TEST_F(ComponentServerTest, SendsFromManyThreads)
{
    Program logView("TolvanLogView");
    ASSERT_EQ(logView.ReadLine(), "ready");
    std::atomic<int>         taken{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&]
            {
                for (int j = 0; j < 10; ++j)
                {
                    taken += m_Server.Send(component_LogView, "COLORS");
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(taken, 40);
    for (int i = 0; i < 40; ++i)
    {
        ASSERT_EQ(logView.ReadLine(), "COLORS") << i;
    }
}

TEST(ComponentServer, WorksWithoutASocket)
{
    LogCapture log;
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

TEST(ComponentServer, WorksInAFolderWithALongName)
{
    char pattern[] = "/tmp/tolvan-test-XXXXXX";
    ASSERT_TRUE(mkdtemp(pattern));
    const String folder = String(pattern) + "/" + String(200, 'n');
    ASSERT_EQ(mkdir(folder.c_str(), 0700), 0);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    {
        ComponentServer server(component_Monitor, {});
        EXPECT_TRUE(server.IsListening());
        EXPECT_TRUE(Components::DidStart(component_Monitor));
        Program logView("TolvanLogView");
        EXPECT_EQ(logView.ReadLine(), "ready");
        EXPECT_TRUE(server.Send(component_LogView, "COLORS"));
        EXPECT_EQ(logView.ReadLine(), "COLORS");
    }
    EXPECT_FALSE(Components::DidStart(component_Monitor)) << "the socket stays behind";
    EXPECT_TRUE(File::List(Path(folder) / "tolvan").empty());
    rmdir((folder + "/tolvan").c_str());
    rmdir(folder.c_str());
    rmdir(pattern);
}

} // namespace
