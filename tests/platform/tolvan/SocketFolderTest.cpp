#include "tolvan/SocketFolder.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Components.h"
#include "vesta/Platform.h"

#include <sys/wait.h>
#include <unistd.h>

namespace
{

class SocketFolderTest : public UserFolderTest
{
protected:
    void ExpectRefused(const String& why) const
    {
        const auto exception = Thrown([] { SocketFolder::Get(); });
        ASSERT_TRUE(exception);
        EXPECT_EQ(exception->Code(), ec_Refused);
        EXPECT_NE(exception->Text().find(m_Folder.Text()), String::npos) << exception->Text();
        EXPECT_NE(exception->Text().find(why), String::npos) << exception->Text();
        EXPECT_FALSE(Components::DidStart(component_Master)) << "asking never throws";
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

    const Path m_Folder = TempFile("runtime") / "tolvan";
};

TEST_F(SocketFolderTest, IsCreatedForThisUserAndBecomesPrivateAgain)
{
    const LogCapture log;
    EXPECT_EQ(SocketFolder::Get().Text(), m_Folder.Text());
    EXPECT_EQ(ModeOf(m_Folder), 0700u);
    ASSERT_EQ(chmod(m_Folder.Text().c_str(), 0755), 0);
    EXPECT_EQ(SocketFolder::ForMaster().Text(), (m_Folder / "master").Text());
    EXPECT_EQ(ModeOf(m_Folder), 0700u);
    EXPECT_TRUE(log.Has("private again", log_Warning)) << log.All();
}

TEST_F(SocketFolderTest, IsRefusedWhenItIsNoFolderOfOurs)
{
    const char* const name = m_Folder.Text().c_str();
    ASSERT_EQ(symlink(TempFile("user").Text().c_str(), name), 0);
    ExpectRefused("a link or no folder");
    unlink(name);
    WriteFile(m_Folder, "a file");
    ExpectRefused("a link or no folder");
    unlink(name);

    if (geteuid() != 0)
    {
        GTEST_SKIP() << "only root can make a folder that belongs to somebody else";
    }
    SocketFolder::Get();
    ASSERT_EQ(chown(name, 65534, 65534), 0);
    ExpectRefused("another user (65534)");
}

TEST_F(SocketFolderTest, FindsTheLivingAndRemovesTheDead)
{
    const int ownId = Platform::GetProcessId();
    // In another namespace a living program may have a number that is nobody's here.
    const Path living = SocketFolder::ForProgram(component_Monitor, DeadProcess());
    const Path dead = SocketFolder::ForProgram(component_Monitor, ownId);
    const Path deaf = SocketFolder::ForProgram(component_Monitor, 1);
    const Path other = SocketFolder::ForProgram("TolvanMonitorX", ownId);
    const Path noSocket = m_Folder / "TolvanMonitor.4711";
    const auto listener = ListenAt(living);
    for (const Path& path : {dead, deaf, other})
    {
        ListenAt(path);
    }
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
}

} // namespace
