#include "master/farm/Commands.h"
#include "master/farm/Scheduler.h"
#include "master/jobs/JobCommand.h"
#include "master/jobs/LineSplitter.h"
#include "master/jobs/NewJob.h"
#include "master/jobs/ProgressParser.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"
#include "tolvan/Job.h"

#include <sys/stat.h>

namespace
{

using MasterFiles = UserFolderTest;

std::vector<std::string> Split(const std::string& bytes, size_t limit, size_t step)
{
    std::vector<std::string> lines;
    const auto               take = [&](std::string_view line) { lines.emplace_back(line); };
    master::LineSplitter     splitter(limit);
    for (size_t at = 0; at < bytes.size(); at += step)
    {
        splitter.Add(std::string_view(bytes).substr(at, step), take);
    }
    splitter.Finish(take);
    return lines;
}

TEST(LineSplitter, CutsAtLineEndsAndAtTheLimitHoweverTheBytesCome)
{
    using Lines = std::vector<std::string>;
    struct
    {
        std::string bytes;
        Lines       lines;
    } const cases[] = {
        {"", {}},
        {"\n", {""}},
        {"a", {"a"}},
        {"a\r\n\nb\n", {"a\r", "", "b"}},
        {std::string("\0\xff\n\0", 4), {std::string("\0\xff", 2), std::string(1, 0)}},
        {"abcd\ne", {"abcd", "e"}}, // exactly the limit: one line
        {"abcde\nf", {"abcd", "e", "f"}},
        {"abcdefghi", {"abcd", "efgh", "i"}},
        {"abcdefgh\n", {"abcd", "efgh"}}};
    for (const auto& one : cases)
    {
        for (const size_t step : {1, 2, 3, 5, 100})
        {
            EXPECT_EQ(Split(one.bytes, 4, step), one.lines) << one.bytes << " by " << step;
        }
    }
}

TEST(ProgressParser, ReadsBothFormsAndNothingElse)
{
    const struct
    {
        const char* line;
        int         percent;
        long long   done;
        long long   count;
    } cases[] = {{"PROGRESS 37", 37, 0, 0},     {"PROGRESS 37.9% of it", 37, 0, 0},
                 {"PROGRESS 100\r", 100, 0, 0}, {"FRAME 3/40 took 0.1 s", 7, 3, 40},
                 {"FRAME 40/40", 100, 40, 40},  {"FRAME 0/1", 0, 0, 1}};
    for (const auto& one : cases)
    {
        master::Progress progress;
        EXPECT_TRUE(ReadProgress(one.line, progress)) << one.line;
        EXPECT_EQ(progress.percent, one.percent) << one.line;
        EXPECT_EQ(progress.framesDone, one.done) << one.line;
        EXPECT_EQ(progress.frameCount, one.count) << one.line;
    }
    for (const char* const line :
         {"PROGRESS 101", "PROGRESS -1", "PROGRESS 5x", "PROGRESS ", "PROGRESS", " PROGRESS 5",
          "FRAME 5/4", "FRAME 0/0", "FRAME 3", "FRAME 3/", "FRAME 99999999999999999999/1",
          "FRAME 1/9223372036854775807"})
    {
        master::Progress progress;
        EXPECT_FALSE(ReadProgress(line, progress)) << line;
        EXPECT_EQ(progress.percent, 0) << line;
    }
}

TEST(Scheduler, TakesTheHighestPriorityThenTheFirstWhileThereIsASlot)
{
    master::JobTable table;
    EXPECT_EQ(NextToStart(table, 1), nullptr);
    table.Add("low").SetPriority(10);
    master::JobRecord& first = table.Add("first");
    master::JobRecord& second = table.Add("second");
    EXPECT_EQ(NextToStart(table, 1), &first);
    first.SetState(master::JobState::kRunning);
    EXPECT_EQ(NextToStart(table, 1), nullptr);
    EXPECT_EQ(NextToStart(table, 2), &second);
    first.SetState(master::JobState::kSuspended); // gives its slot away
    EXPECT_EQ(NextToStart(table, 1), &second);
    second.SetState(master::JobState::kRunning);
    first.SetState(master::JobState::kRunning); // goes on beside it
    EXPECT_EQ(NextToStart(table, 2), nullptr);
}

TEST(Commands, DependOnTheStateAndOnWhetherThereIsAProcess)
{
    using State = master::JobState;
    struct
    {
        State          state;
        bool           hasProcess;
        const char*    command;
        master::Action action;
    } const cases[] = {{State::kWaiting, false, "Suspend", master::Action::kHold},
                       {State::kRunning, true, "Suspend", master::Action::kStop},
                       {State::kSuspended, true, "Suspend", master::Action::kRefuse},
                       {State::kDone, false, "Suspend", master::Action::kRefuse},
                       {State::kSuspended, true, "Resume", master::Action::kContinue},
                       {State::kSuspended, false, "Resume", master::Action::kRelease},
                       {State::kRunning, true, "Resume", master::Action::kRefuse},
                       {State::kWaiting, false, "Kill", master::Action::kCancel},
                       {State::kSuspended, false, "Kill", master::Action::kCancel},
                       {State::kSuspended, true, "Kill", master::Action::kKill},
                       {State::kRunning, true, "Kill", master::Action::kKill},
                       {State::kKilled, false, "Kill", master::Action::kRefuse},
                       {State::kFailed, false, "retry", master::Action::kRetry},
                       {State::kKilled, false, "Retry", master::Action::kRetry},
                       {State::kSuspended, false, "Retry", master::Action::kRefuse},
                       {State::kRunning, true, "Explode", master::Action::kRefuse}};
    for (const auto& one : cases)
    {
        master::JobRecord job("id", 0);
        job.SetState(one.state);
        job.SetHasProcess(one.hasProcess);
        const master::Decision decision = Decide(job, one.command, String());
        EXPECT_EQ(decision.action, one.action) << one.command << " in " << NameOf(one.state);
        EXPECT_EQ(decision.reason.empty(), one.action != master::Action::kRefuse);
    }
    const master::JobRecord job("id", 0);
    EXPECT_EQ(Decide(job, "Set Priority", " 90 ").priority, 90);
    for (const char* const item : {"", "-1", "101", "9x", "1e1", "99999999999999999999"})
    {
        EXPECT_EQ(Decide(job, "Set Priority", item).action, master::Action::kRefuse) << item;
    }
}

TEST(JobCommand, ValuesStayOneWordWhateverTheyHold)
{
    const auto lookup = [](const String& name, String& value)
    {
        value = name == "Name" ? String("a \"b\" %Name% \\c;") : String();
        return name == "Name" || name == "Empty";
    };
    EXPECT_EQ(master::CommandWords("run  --x=%Name%\t\"two words\" %Empty% 100%%", lookup),
              (std::vector<String>{"run", "--x=a \"b\" %Name% \\c;", "two words", "", "100%"}));
    for (const char* const wrong : {"", "   ", "%Empty% x", "run %Unknown%", "run 50%"})
    {
        EXPECT_NE(TextThrown([&] { master::CommandWords(wrong, lookup); }), "") << wrong;
    }
    const auto nul = [](const String&, String& value)
    {
        value = String(std::string(1, '\0'));
        return true;
    };
    EXPECT_NE(TextThrown([&] { master::CommandWords("run %X%", nul); }), "");
}

TEST_F(MasterFiles, ProgramIsLookedForInTheOwnFolderFirst)
{
    for (const char* const folder : {"own", "other"})
    {
        File::MakeFolder(TempFile(folder));
        WriteFile(TempFile(folder) / "tool", "");
        chmod((TempFile(folder) / "tool").Text().c_str(), 0700);
    }
    File::MakeFolder(TempFile("own/folder"));
    const Path own = TempFile("own");
    const auto find = [&](const String& name)
    { return master::FindProgram(name, own, own, ":" + TempFile("other").Text()).Text(); };
    EXPECT_EQ(find("tool"), TempFile("own/tool").Text());
    File::Remove(TempFile("own/tool"));
    EXPECT_EQ(find("tool"), TempFile("other/tool").Text());
    EXPECT_EQ(find("../other/tool"), TempFile("own/../other/tool").Text());
    EXPECT_NE(TextThrown([&] { find("folder"); }), "");
    EXPECT_NE(TextThrown([&] { find("./tool"); }).find((own / "./tool").Text()), String::npos);
}

TEST_F(MasterFiles, JobFileGivesTheSameJobEveryTime)
{
    WriteFile(TempFile("a.job"), "[Job]\nType = Some Type\nName = A\nPriority = 70\n"
                                 "[Parameters]\nFrames = 1 to 5\nState = Done\nid = x\n");
    WriteFile(TempFile("b.job"), "[Job]\nName = B\n");
    WriteFile(TempFile("c.txt"), "");
    const std::vector<Path> files = master::FindJobFiles(TempFile(""));
    ASSERT_EQ(files.size(), 2u);
    const master::NewJob job = master::NewJob::FromFile(files[0]);
    EXPECT_EQ(job.type, "Some Type");
    EXPECT_EQ(job.name, "A");
    EXPECT_EQ(job.priority, "70");
    // What only the master may say is left out.
    EXPECT_EQ(job.params, (std::map<String, String>{{"Frames", "1 to 5"}}));
    EXPECT_EQ(job.id, master::NewJob::FromFile(files[0]).id);
    EXPECT_EQ(job.id.size(), 36u);
    EXPECT_NE(TextThrown([&] { master::NewJob::FromFile(files[1]); }).find("b.job"), String::npos);
    EXPECT_NE(TextThrown([&] { master::NewJob::FromFile(TempFile("missing.job")); }), "");
}

} // namespace
