#include "tests/programs/MasterFixture.h"

#include <csignal>

namespace
{

class MasterJobs : public MasterTest
{
protected:
    /// The number that the job's first line holds.
    long long FirstNumber(const String& job)
    {
        EXPECT_TRUE(client.ReadUntil([&] { return !client.lines[job].empty(); }));
        return client.lines[job].empty() ? 0 : client.lines[job][0].ToInt();
    }
    void ExpectRefused(const boost::shared_ptr<Message>& answer, const String& reason)
    {
        ASSERT_TRUE(answer);
        EXPECT_STREQ(answer->Type().c_str(), msg_Failed);
        EXPECT_NE((answer->Get("Text") + answer->Get("Text2")).find(reason), String::npos)
            << answer->Get("Text") << " / " << answer->Get("Text2");
    }
};

TEST_F(MasterJobs, OutputArrivesAndIsLoggedByteForByte)
{
    Start();
    const String job = client.Submit("printf 'a\\000b\\377\\303\\n\\r\\n\\nout\\n'; echo err >&2; "
                                     "printf 'tab\\tlast'");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    const std::vector<String> expected = {
        String(std::string("a\0b\xff\xc3", 5)), "\r", "", "out", "err", "tab\tlast"};
    EXPECT_EQ(client.lines[job], expected);
    EXPECT_EQ(ReadFile(client.Param(job, p_LogFile)),
              String(std::string("a\0b\xff\xc3\n\r\n\nout\nerr\ntab\tlast", 25)));
    EXPECT_EQ(client.Param(job, p_ExitCode), "0");
    EXPECT_EQ(client.Param(job, p_Progress), "100");
    EXPECT_EQ(client.Param(job, p_Name), "Test");
    EXPECT_GE(client.Param(job, p_Ended).ToInt(), client.Param(job, p_Started).ToInt(1));
    EXPECT_EQ(Path(client.Param(job, p_LogFile)).Branch().Text(), client.Param(job, p_Folder));
}

TEST_F(MasterJobs, VeryLongLineComesInPiecesAndStaysWholeInTheLog)
{
    Start();
    const String job =
        client.Submit("head -c 3000000 /dev/zero | tr '\\0' '\\377'; echo; echo end");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    size_t bytes = 0;
    for (const String& line : client.lines[job])
    {
        EXPECT_LE(line.size(), 256u << 10);
        bytes += line.size();
    }
    EXPECT_EQ(bytes, 3000003u);
    EXPECT_EQ(client.lines[job].back(), "end");
    EXPECT_EQ(ReadFile(client.Param(job, p_LogFile)),
              String(std::string(3000000, '\xff') + "\nend\n"));
}

TEST_F(MasterJobs, ProgressIsReadFromTheOutput)
{
    Start();
    const String job = client.Submit("echo FRAME 3/4; read nothing; exit 7");
    ASSERT_TRUE(client.WaitForState(job, state_Failed));
    EXPECT_EQ(client.Param(job, p_FramesDone), "3");
    EXPECT_EQ(client.Param(job, p_FrameCount), "4");
    EXPECT_EQ(client.Param(job, p_Progress), "75");
    EXPECT_EQ(client.Param(job, p_ExitCode), "7");
    EXPECT_EQ(client.Param(job, p_Error), "The program ended with exit code 7");
}

TEST_F(MasterJobs, SuspendResumeAndKillReachTheWholeProcessGroup)
{
    Start();
    const String job =
        client.Submit("sleep 1000 & echo $!; while :; do sleep 0.02; echo tick; done");
    const auto sleeper = static_cast<pid_t>(FirstNumber(job));
    ASSERT_GT(sleeper, 0);

    EXPECT_STREQ(client.Command(job, "Suspend")->Type().c_str(), msg_Done);
    ASSERT_TRUE(client.WaitForState(job, state_Suspended));
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == 'T'; }));
    ExpectRefused(client.Command(job, "Suspend"), "already");
    ExpectRefused(client.Command(job, "Retry"), "ended");

    EXPECT_STREQ(client.Command(job, "Resume")->Type().c_str(), msg_Done);
    ASSERT_TRUE(client.WaitForState(job, state_Running));
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == 'S'; }));
    const size_t before = client.lines[job].size();
    EXPECT_TRUE(client.ReadUntil([&] { return client.lines[job].size() > before + 1; }));

    client.Command(job, "Suspend");
    EXPECT_STREQ(client.Command(job, "Kill")->Type().c_str(), msg_Done); // while it is stopped
    ASSERT_TRUE(client.WaitForState(job, state_Killed));
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == '\0'; }));
    ExpectRefused(client.Command(job, "Kill"), "ended");
}

TEST_F(MasterJobs, JobThatIgnoresTheRequestToEndIsKilled)
{
    Start();
    const String job = client.Submit("trap '' TERM; echo ready; while :; do sleep 0.05; done");
    ASSERT_TRUE(client.ReadUntil([&] { return !client.lines[job].empty(); }));
    const auto begin = std::chrono::steady_clock::now();
    client.Command(job, "Kill");
    ASSERT_TRUE(client.WaitForState(job, state_Killed));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(2900));
}

TEST_F(MasterJobs, WhatAJobLeavesRunningIsEnded)
{
    Start();
    const String job = client.Submit("sleep 1000 & echo $!");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    const auto sleeper = static_cast<pid_t>(FirstNumber(job));
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == '\0'; }));
}

TEST_F(MasterJobs, RetryRunsFromTheStartAndKeepsTheEarlierLog)
{
    Start();
    const String job =
        client.Submit("echo run; test -e mark || { touch mark; exit 3; }; echo more");
    ASSERT_TRUE(client.WaitForState(job, state_Failed));
    EXPECT_EQ(client.Param(job, p_ExitCode), "3");
    EXPECT_STREQ(client.Command(job, "Retry")->Type().c_str(), msg_Done);
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    EXPECT_EQ(client.Text(job), "run\nrun\nmore\n");
    const Path folder = client.Param(job, p_Folder);
    EXPECT_EQ(ReadFile(folder / "output.log"), "run\nmore\n");
    EXPECT_EQ(ReadFile(folder / "output.1.log"), "run\n");
    EXPECT_EQ(client.Param(job, p_Error), "");
}

TEST_F(MasterJobs, ProgramThatCannotBeStartedFailsAloneAndSaysWhy)
{
    WriteFile(TempFile("modules/broken.module"),
              "[Type]\nId = 11111111-2222-3333-4444-777777777777\nName = Broken\n"
              "Execute = ./broken\n");
    WriteFile(TempFile("modules/broken"), "this is no program");
    WriteFile(TempFile("modules/reference.module"),
              "[Type]\nId = 11111111-2222-3333-4444-888888888888\nName = Reference\n"
              "Execute = /bin/echo %Nothing%\n");
    Start();
    const String well = client.Submit("sleep 0.2; echo well");
    struct
    {
        const char* type;
        const char* reason;
    } const cases[] = {{"Missing", "no-such-program"},
                       {"Broken", "cannot be started: Permission denied"},
                       {"reference", "%Nothing%"}};
    for (const auto& one : cases)
    {
        const auto answer = client.Ask(Message(msg_Submit).Set(p_Type, one.type));
        ASSERT_STREQ(answer->Type().c_str(), msg_Done);
        const String job = answer->Get(p_Id);
        ASSERT_TRUE(client.WaitForState(job, state_Failed)) << one.type;
        EXPECT_NE(client.Param(job, p_Error).find(one.reason), String::npos)
            << client.Param(job, p_Error);
    }
    EXPECT_TRUE(client.WaitForState(well, state_Done));
    EXPECT_EQ(client.Text(well), "well\n");
}

TEST_F(MasterJobs, ImpossibleRequestsAreRefusedWithAReason)
{
    Start();
    const String job = client.Submit("sleep 1000");
    ExpectRefused(client.Command("no-such-job", "Kill"), "no job");
    ExpectRefused(client.Command(job, "Open Output Folder"), "does not know");
    ExpectRefused(client.Command(job, "Set Priority", "101"), "from 0 to 100");
    ExpectRefused(client.Command(job, "Resume"), "suspended");
    ExpectRefused(client.Ask(Message(msg_Submit).Set(p_Type, "Nonsense")), "job type");
    ExpectRefused(client.Ask(Message(msg_Submit).Set(p_Type, "Script").Set(p_Priority, "high")),
                  "from 0 to 100");
    ExpectRefused(
        client.Ask(
            Message(msg_Submit).Set(p_Type, "Script").Set("Script", std::string(300 << 10, 'x'))),
        "larger than");
    ExpectRefused(client.Ask(Message("Dance")), "Dance");
    EXPECT_EQ(client.jobs.size(), 1u);
}

TEST_F(MasterJobs, JobsStartByPriorityWhenThereIsASlot)
{
    Start({"--stay", "--slots", "1"});
    const String first = client.Submit("while ! test -e ../go; do sleep 0.02; done", "first");
    const String low = client.Submit("true", "low", 10);
    const String middle = client.Submit("true", "middle", 50);
    const String raised = client.Submit("true", "raised", 20);
    const String held = client.Submit("true", "held", 99);
    EXPECT_STREQ(client.Command(raised, "Set Priority", "90")->Type().c_str(), msg_Done);
    EXPECT_STREQ(client.Command(held, "Suspend")->Type().c_str(), msg_Done);
    EXPECT_EQ(client.Param(low, p_State), state_Waiting);
    WriteFile(TempFile("runs/go"), "");
    ASSERT_TRUE(client.WaitForState(low, state_Done));
    const auto started = [&](const String& job) { return client.Param(job, p_Started).ToInt(); };
    EXPECT_LT(started(first), started(raised));
    EXPECT_LT(started(raised), started(middle));
    EXPECT_LT(started(middle), started(low));
    EXPECT_EQ(client.Param(held, p_State), state_Suspended);
    EXPECT_STREQ(client.Command(held, "Resume")->Type().c_str(), msg_Done);
    EXPECT_TRUE(client.WaitForState(held, state_Done));
}

TEST_F(MasterJobs, JobFilesRunTheRealJobPrograms)
{
    File::MakeFolder(TempFile("data"));
    WriteFile(TempFile("data/abc"), "abc");
    WriteFile(TempFile("jobs/1.job"),
              "[Job]\nType = Checksum\nName = Sums\n[Parameters]\nSource = " +
                  TempFile("data").Text() + "\n");
    WriteFile(TempFile("jobs/2.job"), "[Job]\nType = Ray Tracer\nName = Frames\n[Parameters]\n"
                                      "LastFrame = 2\nWidth = 32\nHeight = 18\nSamples = 1\n");
    WriteFile(TempFile("jobs/3.job"), "[Job]\nName = No type\n");
    WriteFile(TempFile("jobs/4.job"), "[Job]\nType = Unknown\n");
    Start({"--stay", "--modules", SHARE_FOLDER "/modules"});
    const auto allDone = [&]
    {
        int count = 0;
        for (const auto& [id, params] : client.jobs)
        {
            count += params.at(p_State) == state_Done ? 1 : 0;
        }
        return count == 2;
    };
    ASSERT_TRUE(client.ReadUntil(allDone));
    EXPECT_EQ(client.jobs.size(), 2u);
    for (const auto& [id, params] : client.jobs)
    {
        const Path folder = params.at(p_Folder);
        if (params.at(p_Name) == "Sums")
        {
            EXPECT_NE(
                client.Text(id).find("a9993e364706816aba3e25717850c26c9cd0d89d            3 abc"),
                String::npos)
                << client.Text(id);
            continue;
        }
        EXPECT_EQ(params.at(p_FramesDone), "2");
        const String one = ReadFile(folder / "frame_0001.png");
        EXPECT_EQ(one.substr(0, 8), "\x89PNG\r\n\x1a\n");
        EXPECT_NE(one, ReadFile(folder / "frame_0002.png"));
    }
    EXPECT_NE(LogText().find("3.job"), String::npos);
    EXPECT_NE(LogText().find("4.job"), String::npos);
}

} // namespace
