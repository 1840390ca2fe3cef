#include "tolvan/SocketFolder.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "vesta/Exception.h"
#include "vesta/Platform.h"

#include <cstdlib>
#include <functional>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

class SocketFolderTest : public UserFolderTest
{
protected:
    Path Folder() const { return TempFile("runtime") / "tolvan"; }

    static mode_t ModeOf(const Path& path)
    {
        struct stat status = {};
        EXPECT_EQ(lstat(path.Text().c_str(), &status), 0) << path.Text();
        return status.st_mode & 07777;
    }

    /// What the folder is refused for; empty when it is not.
    static String Refusal()
    {
        try
        {
            SocketFolder::Get();
            return String();
        }
        catch (Exception* exception)
        {
            EXPECT_EQ(exception->Code(), ec_Refused);
            const String text = exception->Text();
            delete exception;
            return text;
        }
    }

    /// A socket file; whoever listens on it does so as long as the result is open.
    static int Bind(const Path& path)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        path.Text().copy(address.sun_path, sizeof address.sun_path - 1);
        const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(descriptor, 1), 0);
        return descriptor;
    }

    /// The id of a process that has ended.
    static int DeadProcess()
    {
        const pid_t child = fork();
        if (child == 0)
        {
            _exit(0);
        }
        waitpid(child, nullptr, 0);
        return child;
    }
};

TEST_F(SocketFolderTest, IsCreatedForThisUserOnly)
{
    EXPECT_EQ(SocketFolder::Get().Text(), Folder().Text());
    EXPECT_EQ(ModeOf(Folder()), 0700u);
    EXPECT_EQ(SocketFolder::ForMaster().Text(), (Folder() / "master").Text());
    EXPECT_EQ(SocketFolder::ForProgram("TolvanWorker", 12).Text(),
              (Folder() / "TolvanWorker.12").Text());
}

TEST_F(SocketFolderTest, BecomesPrivateAgain)
{
    LogCapture log;
    SocketFolder::Get();
    ASSERT_EQ(chmod(Folder().Text().c_str(), 0755), 0);
    EXPECT_EQ(Refusal(), "");
    EXPECT_EQ(ModeOf(Folder()), 0700u);
    EXPECT_TRUE(log.Has("private again", log_Warning)) << log.All();
}

TEST_F(SocketFolderTest, IsRefusedWhenItIsNoFolderOfOurs)
{
    ASSERT_EQ(symlink(TempFile("user").Text().c_str(), Folder().Text().c_str()), 0);
    EXPECT_NE(Refusal().find(Folder().Text()), String::npos) << Refusal();
    EXPECT_NE(Refusal().find("a link or no folder"), String::npos) << Refusal();
    unlink(Folder().Text().c_str());

    WriteFile(Folder(), "a file");
    EXPECT_NE(Refusal().find("a link or no folder"), String::npos) << Refusal();
    EXPECT_FALSE(Components::DidStart(component_Master)) << "asking never throws";
    unlink(Folder().Text().c_str());

    if (geteuid() != 0)
    {
        GTEST_SKIP() << "only root can make a folder that belongs to somebody else";
    }
    SocketFolder::Get();
    ASSERT_EQ(chown(Folder().Text().c_str(), 65534, 65534), 0);
    EXPECT_NE(Refusal().find("another user (65534)"), String::npos) << Refusal();
}

TEST_F(SocketFolderTest, FallsBackToTheTemporaryFolder)
{
    const Path expected = TempFile("runtime") / SFormat("tolvan-%u", geteuid());
    setenv("TMPDIR", TempFile("runtime").Text().c_str(), 1);
    for (const char* const runtime : {"", "not/absolute", "/no/such/folder"})
    {
        setenv("XDG_RUNTIME_DIR", runtime, 1);
        EXPECT_EQ(SocketFolder::Get().Text(), expected.Text()) << runtime;
        EXPECT_EQ(ModeOf(expected), 0700u);
    }
    unsetenv("XDG_RUNTIME_DIR");
    EXPECT_EQ(SocketFolder::Get().Text(), expected.Text());
    unsetenv("TMPDIR");
}

TEST_F(SocketFolderTest, FindsTheLivingAndRemovesTheDead)
{
    const int  ownId = Platform::GetProcessId();
    const Path living = SocketFolder::ForProgram(component_Monitor, ownId);
    const Path dead = SocketFolder::ForProgram(component_Monitor, DeadProcess());
    const Path deaf = SocketFolder::ForProgram(component_Monitor, 1);
    const Path other = SocketFolder::ForProgram("TolvanMonitorX", ownId);
    const Path noSocket = Folder() / "TolvanMonitor.4711";
    const int  listener = Bind(living);
    const int  another = Bind(other);
    close(Bind(dead));
    close(Bind(deaf));
    WriteFile(noSocket, "somebody's notes");

    EXPECT_TRUE(Components::DidStart(1));
    const std::vector<Path> found = SocketFolder::Find(component_Monitor);

    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].Text(), living.Text());
    EXPECT_FALSE(File::Exists(dead));
    EXPECT_FALSE(File::Exists(deaf)) << "a process of that number lives, but nobody listens";
    EXPECT_TRUE(File::Exists(noSocket)) << "only sockets are removed";
    EXPECT_TRUE(File::Exists(other)) << "only the component's own are looked at";
    EXPECT_FALSE(Components::DidStart(component_LogView));
    close(listener);
    close(another);
}

TEST_F(SocketFolderTest, TheMasterStartsWithItsClientsSocket)
{
    EXPECT_FALSE(Components::DidStart(0));
    const int listener = Bind(SocketFolder::ForMaster());
    EXPECT_TRUE(Components::DidStart(0));
    EXPECT_FALSE(Components::DidStart(1));
    close(listener);
    EXPECT_FALSE(Components::DidStart(0));
    EXPECT_TRUE(File::Exists(SocketFolder::ForMaster())) << "the next master takes its place";
}

TEST(Components, AreSix)
{
    EXPECT_EQ(Components::GetName(0), component_Master);
    EXPECT_EQ(Components::GetName(2), component_LogView);
    EXPECT_EQ(Components::GetName(-1), "");
    EXPECT_EQ(Components::GetName(6), "");
    EXPECT_FALSE(Components::DidStart(6));
}

} // namespace
