#include "master/StartMaster.h"
#include "tests/master/MasterFixture.h"
#include "tolvan/Components.h"
#include "tolvan/SocketFolder.h"

#include <cerrno>
#include <csignal>

#include <sys/wait.h>

namespace
{

class MasterLife : public MasterTest
{
protected:
    static bool HasSocket() { return File::Exists(SocketFolder::ForMaster()); }
};

TEST_F(MasterLife, EndsWhenTheLastClientHasGoneAndNoJobRuns)
{
    Start({"--grace", "0", "--first-client", "1000"});
    const String job = client.Submit("while ! test -e ../go; do sleep 0.02; done");
    client.peer.Close();

    MasterClient second; // the job keeps the master; a probe of the socket is no client
    ASSERT_TRUE(Components::DidStart(component_Master));
    ASSERT_TRUE(second.Connect());
    EXPECT_EQ(second.Param(job, p_State), "");
    ASSERT_TRUE(second.WaitForState(job, state_Running));
    second.peer.Close();
    WriteFile(TempFile("run-folder/go"), "");
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_FALSE(HasSocket());
}

TEST_F(MasterLife, EndsWithoutClientsAndIsNotKeptByWhoeverAsksWhetherItRuns)
{
    for (const bool hadOne : {false, true})
    {
        Launch({"--grace", "1", "--first-client", hadOne ? "1000" : "1"});
        EXPECT_TRUE(!hadOne || client.Connect());
        client.peer.Close();
        EXPECT_TRUE(WaitFor([] { return !Components::DidStart(component_Master); }));
        EXPECT_EQ(WaitForEnd(), 0);
        EXPECT_FALSE(HasSocket());
    }
}

TEST_F(MasterLife, SecondOneSaysSoAndEnds)
{
    Start();
    std::unique_ptr<Program> first = std::move(master);
    Launch({});
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_NE(Console().find("A master of this user runs already\n"), String::npos);
    master = std::move(first);
    EXPECT_NE(client.Submit("true"), "");
}

/// A killed master takes its jobs' processes with it, and what has left their group keeps the next
/// master from running the job a second time beside it.
TEST_F(MasterLife, NoJobRunsTwiceAtATime)
{
    const String script =
        "if test -e ../go; then echo again; exit; fi; trap '' TERM HUP; "
        "sleep 1000 & echo $!; kill -STOP $!; "
        "setsid sh -c 'echo left; until test -e ../go; do sleep 0.02; done' & wait";
    WriteFile(TempFile("jobs/1.job"), "[Job]\nType = " + String(kScriptType) +
                                          "\nName = Lasting\n[Parameters]\nScript = " + script +
                                          "\n");
    Start();
    const auto hasJob = [this] { return client.jobs.size() == 1; };
    ASSERT_TRUE(client.ReadUntil(hasJob));
    const String job = client.jobs.begin()->first;
    const auto   child = static_cast<pid_t>(client.FirstNumber(job));
    ASSERT_GT(child, 0);
    ASSERT_TRUE(client.ReadUntil([&] { return client.lines[job].size() == 2; }));
    master->Signal(SIGKILL);
    EXPECT_EQ(WaitForEnd(), -1);
    EXPECT_TRUE(WaitFor([&] { return ProcessState(child) == '\0'; }));
    ASSERT_TRUE(HasSocket()); // the dead one could not remove it

    client = MasterClient();
    Start();
    const auto isHeldUp = [&]
    { return client.Param(job, p_Error).find("(process ") != String::npos; };
    ASSERT_TRUE(client.ReadUntil(isHeldUp));
    EXPECT_EQ(client.Param(job, p_State), state_Waiting);
    ASSERT_TRUE(client.WaitForState(client.Submit("true"), state_Done)); // others are not held up
    EXPECT_EQ(client.Param(job, p_State), state_Waiting);
    WriteFile(TempFile("run-folder/go"), "");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    EXPECT_EQ(client.Text(job), "again\n");
    EXPECT_EQ(client.Param(job, p_Error), "");
}

TEST_F(MasterLife, RequestToEndEndsTheJobsAndRemovesTheSocket)
{
    Start();
    const auto sleeper = static_cast<pid_t>(client.FirstNumber(
        client.Submit("trap '' TERM; sleep 1000 & echo $!; while :; do sleep 1; done")));
    ASSERT_GT(sleeper, 0);
    master->Signal(SIGTERM);
    // Clients are let go at once; they connect again by themselves.
    EXPECT_TRUE(client.peer.SeesEnd());
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == '\0'; }));
    EXPECT_FALSE(HasSocket());
}

TEST_F(MasterLife, IsStartedInTheBackground)
{
    ASSERT_EQ(StartMaster({"--grace", "0", "--jobs", TempFile("jobs").Text(), "--modules",
                           TempFile("modules").Text(), "--run-folder",
                           TempFile("run-folder").Text(), "--log-dir", TempFile("log-dir").Text()}),
              "");
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1); // no child of this program is left
    EXPECT_EQ(errno, ECHILD);
    ASSERT_TRUE(client.Connect());
    const String job = client.Submit("cut -d' ' -f6 /proc/$PPID/stat; readlink /proc/$PPID/fd/1");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    EXPECT_NE(client.lines[job][0], String::FromInt(getsid(0)));
    EXPECT_EQ(client.lines[job][1], "/dev/null");
    client.peer.Close();
    EXPECT_TRUE(WaitFor([] { return !HasSocket(); }));

    const String failure = StartInBackground(TempFile("nothing"), {});
    EXPECT_EQ(failure,
              TempFile("nothing").Text() + " cannot be started: No such file or directory");
}

} // namespace
