#include "tests/master/MasterFixture.h"
#include "vesta/UID.h"

#include <csignal>

#include <sys/resource.h>

namespace
{

class MasterJobs : public MasterTest
{
protected:
    static void ExpectRefused(const String& outcome, const String& reason)
    {
        EXPECT_NE(outcome.find(reason), String::npos) << outcome;
    }
};

TEST_F(MasterJobs, OutputArrivesAndIsLoggedByteForByte)
{
    Start();
    const String job = client.Submit("printf 'a\\000b\\377\\303\\n\\r\\n\\nout\\n'; echo err >&2; "
                                     "head -c 3000000 /dev/zero | tr '\\0' '\\377'");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    const String text("a\0b\xff\xc3\n\r\n\nout\nerr\n", 17);
    const String endless(3000000, '\xff');
    EXPECT_EQ(ReadFile(client.Param(job, p_LogFile)), text + endless);
    String told;
    for (const String& line : client.lines[job])
    {
        EXPECT_LE(line.size(), 256u << 10) << "it comes in pieces";
        told += line + (told.size() < text.size() ? "\n" : "");
    }
    EXPECT_EQ(told, text + endless);
    EXPECT_EQ(client.Param(job, p_ExitCode), "0");
    EXPECT_EQ(client.Param(job, p_Progress), "100");
    EXPECT_GE(client.Param(job, p_Ended).ToInt(), client.Param(job, p_Started).ToInt(1));
}

TEST_F(MasterJobs, SuspendResumeAndKillReachTheWholeProcessGroup)
{
    Start();
    const String job = client.Submit(
        "trap '' TERM; sleep 1000 & echo $!; while :; do sleep 0.02; echo tick; done");
    const auto sleeper = static_cast<pid_t>(client.FirstNumber(job));
    ASSERT_GT(sleeper, 0);

    EXPECT_EQ(client.Does(job, "Suspend"), "");
    ASSERT_TRUE(client.WaitForState(job, state_Suspended));
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == 'T'; }));

    EXPECT_EQ(client.Does(job, "Resume"), "");
    ASSERT_TRUE(client.WaitForState(job, state_Running));
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == 'S'; }));
    const size_t before = client.lines[job].size();
    EXPECT_TRUE(client.ReadUntil([&] { return client.lines[job].size() > before + 1; }));

    client.Does(job, "Suspend");
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(client.Does(job, "Kill"), ""); // while it is stopped
    ASSERT_TRUE(client.WaitForState(job, state_Killed));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(2900))
        << "asked to end first";
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == '\0'; }));
}

TEST_F(MasterJobs, WhatAJobLeavesRunningIsEndedAndWhatHasLeftItDoesNotHoldIt)
{
    Start();
    const String job =
        client.Submit("sleep 1000 & echo $!; setsid sleep 1000 & echo $!; sleep 0.2");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    const auto sleeper = static_cast<pid_t>(client.FirstNumber(job));
    EXPECT_TRUE(WaitFor([&] { return ProcessState(sleeper) == '\0'; }));
    kill(static_cast<pid_t>(client.lines[job][1].ToInt()), SIGKILL);
}

// A job has no files and no signals of the master, and a process group of its own.
TEST_F(MasterJobs, ProgramsStartClean)
{
    Start();
    const String job = client.Submit("ls /proc/self/fd | wc -l; grep SigIgn /proc/self/status; "
                                     "grep SigBlk /proc/self/status; cut -d' ' -f5 /proc/$$/stat; "
                                     "echo $$; cat");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    const std::vector<String>& lines = client.lines[job];
    ASSERT_EQ(lines.size(), 5u);
    // The three standard ones, those that it dies with, and the folder that ls reads.
    EXPECT_LE(lines[0].ToInt(), 6);
    EXPECT_EQ(lines[1], "SigIgn:\t0000000000000000");
    EXPECT_EQ(lines[2], "SigBlk:\t0000000000000000");
    EXPECT_EQ(lines[3], lines[4]);
}

TEST_F(MasterJobs, RetryRunsFromTheStartAndKeepsTheEarlierLog)
{
    Start();
    const String job =
        client.Submit("echo FRAME 3/4; test -e mark || { touch mark; exit 7; }; echo more");
    ASSERT_TRUE(client.WaitForState(job, state_Failed));
    EXPECT_EQ(client.Param(job, p_FramesDone), "3");
    EXPECT_EQ(client.Param(job, p_FrameCount), "4");
    EXPECT_EQ(client.Param(job, p_Progress), "75");
    EXPECT_EQ(client.Param(job, p_ExitCode), "7");
    EXPECT_EQ(client.Param(job, p_Error), "The program ended with exit code 7");

    EXPECT_EQ(client.Does(job, "Retry"), "");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    EXPECT_EQ(client.Text(job), "FRAME 3/4\nFRAME 3/4\nmore\n");
    const Path folder = client.Param(job, p_Folder);
    EXPECT_EQ(ReadFile(folder / "output.log"), "FRAME 3/4\nmore\n");
    EXPECT_EQ(ReadFile(folder / "output.1.log"), "FRAME 3/4\n");
    EXPECT_EQ(client.Param(job, p_Error), "");
}

TEST_F(MasterJobs, ProgramThatCannotBeStartedFailsAloneAndSaysWhy)
{
    const struct
    {
        const char* type;
        const char* execute;
        const char* reason;
    } cases[] = {{"Missing", "no-such-program --help", "no-such-program"},
                 {"Broken", "./broken", "cannot be started: Permission denied"},
                 {"Reference", "/bin/echo %Nothing%", "%Nothing%"}};
    WriteFile(TempFile("modules/broken"), "this is no program");
    for (const auto& one : cases)
    {
        WriteFile(TempFile("modules") / (String(one.type) + ".module"),
                  "[Type]\nId = " + UID::Create().ToString() + "\nName = " + one.type +
                      "\nExecute = " + one.execute + "\n");
    }
    Start();
    const String well = client.Submit("sleep 0.2; echo well");
    for (const auto& one : cases)
    {
        const auto answer = client.Ask(Message(msg_Submit).Set(p_Type, one.type));
        ASSERT_EQ(client.Outcome(answer), "");
        const String job = answer->Get(p_Id);
        ASSERT_TRUE(client.WaitForState(job, state_Failed)) << one.type;
        ExpectRefused(client.Param(job, p_Error), one.reason);
    }
    EXPECT_TRUE(client.WaitForState(well, state_Done));
    EXPECT_EQ(client.Text(well), "well\n");
}

TEST_F(MasterJobs, AFullDiskHoldsAJobUntilThereIsRoomOrItIsKilled)
{
    Start();
    const auto limitFiles = [this](rlim_t bytes)
    {
        const rlimit limit = {bytes, RLIM_INFINITY};
        EXPECT_EQ(prlimit(master->id, RLIMIT_FSIZE, &limit, nullptr), 0);
    };
    for (const bool getsRoom : {true, false})
    {
        limitFiles(20'000);
        const String job = client.Submit("seq 1 10000");
        const auto   error = [&] { return client.Param(job, p_Error); };
        ASSERT_TRUE(client.ReadUntil([&] { return !error().empty(); }));
        EXPECT_EQ(error(), "Waits until its output can be written: File too large");
        const String held = ReadFile(client.Param(job, p_LogFile));
        EXPECT_EQ(held.size(), 20'000u);
        EXPECT_EQ(held.find(client.Text(job)), 0u) << "nobody is told more than is logged";
        if (getsRoom)
        {
            limitFiles(RLIM_INFINITY);
            ASSERT_TRUE(client.WaitForState(job, state_Done));
            EXPECT_EQ(client.lines[job].size(), 10'000u);
            EXPECT_EQ(client.Text(job), ReadFile(client.Param(job, p_LogFile)));
            EXPECT_EQ(error(), "");
            continue;
        }
        EXPECT_EQ(client.Does(job, "Kill"), "");
        ASSERT_TRUE(client.WaitForState(job, state_Killed));
        ExpectRefused(error(), "bytes or more) could not be written to ");
    }
}

TEST_F(MasterJobs, ImpossibleRequestsAreRefusedWithAReason)
{
    Start();
    const String job = client.Submit("sleep 1000");
    const String ended = client.Submit("true");
    ASSERT_TRUE(client.WaitForState(ended, state_Done));
    ExpectRefused(client.Does("no-such-job", "Kill"), "no job");
    const struct
    {
        const String& job;
        const char*   command;
        const char*   reason;
    } refused[] = {{job, "Resume", "Only a suspended job"},
                   {job, "Retry", "Only a job that has ended"},
                   {job, "Explode", "Explode"},
                   {job, "Remove", "Only a job that has ended"},
                   {ended, "Suspend", "has ended"},
                   {ended, "Kill", "has ended"}};
    for (const auto& one : refused)
    {
        ExpectRefused(client.Does(one.job, one.command), one.reason);
    }
    for (const char* const priority : {"", "-1", "101", "9x", "99999999999999999999"})
    {
        ExpectRefused(client.Does(job, "Set Priority", priority), "from 0 to 100");
    }
    const Message                         submit = Message(msg_Submit).Set(p_Type, "Script");
    const std::pair<Message, const char*> cases[] = {
        {Message(msg_Submit).Set(p_Type, "Nonsense"), "job type"},
        {Message(submit).Set(p_Priority, "high"), "from 0 to 100"},
        {Message(submit).Set("Script", String(300 << 10, 'x')), "larger than"},
        {Message("Dance"), "Dance"},
    };
    for (const auto& [question, reason] : cases)
    {
        ExpectRefused(client.Outcome(client.Ask(question)), reason);
    }
    EXPECT_EQ(client.jobs.size(), 2u);
}

TEST_F(MasterJobs, ARemovedJobIsGoneForEveryClientAndLeavesItsFiles)
{
    Start();
    const String kept = client.Submit("echo kept");
    const String job = client.Submit("echo PROGRESS 50; echo out");
    ASSERT_TRUE(client.WaitForState(job, state_Done));
    ASSERT_TRUE(client.WaitForState(kept, state_Done));
    MasterClient other;
    ASSERT_TRUE(other.Connect());
    EXPECT_EQ(client.Does(job, "Remove"), "");
    const auto isTold = [&] { return other.others.back()->Type() == msg_JobGone; };
    ASSERT_TRUE(other.ReadUntil(isTold));
    EXPECT_EQ(other.others.back()->Get(p_Id), job);
    EXPECT_EQ(ReadFile(client.Param(job, p_LogFile)), "PROGRESS 50\nout\n");
    ExpectRefused(client.Does(job, "Remove"), "no job");
    MasterClient late;
    ASSERT_TRUE(late.Connect());
    EXPECT_TRUE(late.ReadUntil([&] { return late.jobs.count(kept) > 0; }));
    EXPECT_EQ(late.others.front()->GetInt("jobs"), 1);
    const String next = client.Submit("true");
    EXPECT_TRUE(client.WaitForState(next, state_Done));
}

TEST_F(MasterJobs, JobsStartByPriorityWhenThereIsASlot)
{
    Start({"--stay", "--slots", "1"});
    const String first = client.Submit("while ! test -e ../go; do sleep 0.02; done", "first");
    const String low = client.Submit("true", "low", 10);
    const String middle = client.Submit("true", "middle", 50);
    const String raised = client.Submit("true", "raised", 20);
    const String held = client.Submit("true", "held", 99);
    EXPECT_EQ(client.Does(raised, "Set Priority", " 90 "), "");
    EXPECT_EQ(client.Does(held, "Suspend"), "");
    EXPECT_EQ(client.Param(low, p_State), state_Waiting);
    EXPECT_EQ(client.Does(first, "Suspend"), ""); // gives its slot away
    ASSERT_TRUE(client.WaitForState(low, state_Done));
    EXPECT_EQ(client.Does(first, "Resume"), "");
    WriteFile(TempFile("run-folder/go"), "");
    ASSERT_TRUE(client.WaitForState(first, state_Done));
    const auto started = [&](const String& job) { return client.Param(job, p_Started).ToInt(); };
    EXPECT_LT(started(first), started(raised));
    EXPECT_LT(started(raised), started(middle));
    EXPECT_LT(started(middle), started(low));
    EXPECT_EQ(client.Param(held, p_State), state_Suspended);
    EXPECT_EQ(client.Does(held, "Resume"), "");
    EXPECT_TRUE(client.WaitForState(held, state_Done));
}

TEST_F(MasterJobs, JobFilesRunTheDemoFarmsPrograms)
{
    const std::map<String, String> files = {
        {"1", "Type = Checksum\nName = Sums\n[Parameters]\nSource = " + TempFile("data").Text()},
        // What only the master may say is left out.
        {"2",
         "Type = Ray Tracer\n[Parameters]\nlastframe = 2\nWidth = 32\nHeight = 18\nState = Done"},
        {"3", "Name = No type"},
        {"4", "Type = Unknown"},
        {"5", "Type = Ray Tracer\n[Parameters]\nlastframe = a"}};
    for (const auto& [name, text] : files)
    {
        WriteFile(TempFile("jobs/" + name + ".job"), "[Job]\n" + text + "\n");
    }
    File::MakeFolder(TempFile("data"));
    WriteFile(TempFile("data/abc"), "abc");
    Start({"--stay", "--modules", SHARE_FOLDER "/modules"});
    ASSERT_TRUE(client.ReadUntil([&] { return client.jobs.size() == 2; }));
    for (const auto& [id, params] : std::map(client.jobs))
    {
        ASSERT_TRUE(client.WaitForState(id, state_Done));
        if (params.at(p_Name) == "Sums")
        {
            // Which may have ended, and be told of, before its lines come.
            const char* const line = "a9993e364706816aba3e25717850c26c9cd0d89d  abc";
            EXPECT_TRUE(client.ReadUntil([&, id = id]
                                         { return client.Text(id).find(line) != String::npos; }));
            continue;
        }
        const Path   folder = params.at(p_Folder);
        const String one = ReadFile(folder / "frame_0001.ppm");
        EXPECT_EQ(one.size(), String("P6 32 18 255\n").size() + 32 * 18 * 3);
        EXPECT_NE(one, ReadFile(folder / "frame_0002.ppm"));
        EXPECT_FALSE(File::Exists(folder / "frame_0003.ppm")) << "the value given for it counts";
    }
    for (const char* const problem : {"3.job", "4.job", "LastFrame must be a whole number"})
    {
        EXPECT_NE(LogText().find(problem), String::npos) << problem;
    }
}

} // namespace
