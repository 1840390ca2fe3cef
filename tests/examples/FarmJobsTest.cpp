#include "monitor/FarmJobs.h"
#include "monitor/FramePictures.h"
#include "monitor/HeightShare.h"
#include "monitor/JobForm.h"
#include "monitor/JobNotice.h"
#include "monitor/JobOffers.h"
#include "monitor/JobOrder.h"
#include "monitor/JobRows.h"
#include "monitor/JobSelection.h"
#include "monitor/PanelMemory.h"

#include "tests/support/UserFolderTest.h"

#include <algorithm>
#include <chrono>
#include <map>

namespace
{
Message JobMessage(const String& id, const String& state, int progress = 0, long long started = 0)
{
    Message message(msg_Job);
    message.Set(p_Id, id).Set(p_Name, "Job " + id).Set(p_Type, "T").Set(p_State, state);
    return message.Set(p_Progress, progress).Set(p_Started, started);
}

Message Line(const String& id, const String& line)
{
    return Message(msg_Output).Set(p_Id, id).Set("Line", line);
}

Message Welcome(int jobs)
{
    return Message(msg_Welcome).Set("jobs", jobs);
}

class FarmJobsTest : public testing::Test, private HasSlots
{
protected:
    FarmJobsTest()
        : m_Jobs([](const Message&) { return false; },
                 [this](const String& type)
                 {
                     ++m_NamesAsked;
                     return "Product " + type;
                 })
    {
        m_Jobs.Changed.Connect(this, [this](const FarmJobs::News& news) { m_News = news; });
    }
    void Apply(const std::vector<Message>& messages)
    {
        FarmChanges changes;
        for (const Message& message : messages)
        {
            changes.Add(message);
        }
        m_Jobs.Apply(changes);
    }

    FarmJobs       m_Jobs;
    FarmJobs::News m_News;
    int            m_NamesAsked = 0;
};
} // namespace

TEST_F(FarmJobsTest, KeepsOnlyTheLatestOfEachJobAndTellsWhatIsOther)
{
    Apply({JobMessage("a", state_Waiting), JobMessage("b", state_Waiting),
           JobMessage("a", state_Running, 7, 1000)});
    ASSERT_EQ(2u, m_Jobs.InOrder().size());
    EXPECT_EQ("a", m_Jobs.InOrder()[0]->id);
    EXPECT_EQ(7, m_Jobs.Find("a")->progress);
    EXPECT_EQ("Product T", m_Jobs.Find("b")->product);
    EXPECT_EQ(1, m_NamesAsked);
    EXPECT_TRUE(m_News.isListChanged);

    Apply({JobMessage("a", state_Running, 8, 1000)});
    EXPECT_FALSE(m_News.isListChanged);
    EXPECT_EQ(std::set<String>{"a"}, m_News.changed);
    Apply({JobMessage("a", state_Failed, 8, 1000)});
    EXPECT_TRUE(m_News.isListChanged);
    const FarmJobs::Summary& summary = m_Jobs.Summarize();
    EXPECT_EQ(2, summary.jobs);
    EXPECT_EQ(0, summary.running);
    EXPECT_EQ(1, summary.waiting);
    EXPECT_EQ(1, summary.failed);
}

TEST_F(FarmJobsTest, AfterANewConnectionJobsThatAreNotToldOfAgainAreGone)
{
    Apply({Welcome(2), JobMessage("a", state_Running), JobMessage("b", state_Done)});
    Apply({Line("a", "one")});
    Apply({Line("a", "two"), Welcome(2), JobMessage("a", state_Running), Line("a", "three")});
    EXPECT_EQ(2u, m_Jobs.InOrder().size());                 // the other may still come
    EXPECT_EQ(3u, m_Jobs.Find("a")->output.Lines().size()); // nothing of it comes again
    Apply({JobMessage("c", state_Waiting)});
    EXPECT_EQ(nullptr, m_Jobs.Find("b"));
    EXPECT_EQ(1u, m_Jobs.Find("a")->number);
    EXPECT_EQ(2, m_Jobs.Summarize().jobs);
    Apply({Welcome(0)});
    EXPECT_TRUE(m_Jobs.InOrder().empty());
}

TEST_F(FarmJobsTest, OutputKeepsItsEndAndCountsWhatIsMissing)
{
    Apply({JobMessage("a", state_Running, 0, 1000)});
    Apply(std::vector<Message>(150, Line("a", "x")));
    const JobOutput& output = m_Jobs.Find("a")->output;
    EXPECT_EQ(150, output.End());
    EXPECT_EQ(50, output.Begin());
    Apply({Line("a", "lost"), Message(msg_Skipped).Set(p_Id, "a").Set("Count", 5), Line("a", "z")});
    EXPECT_EQ(157, output.End());
    EXPECT_EQ(156, output.Begin());
    EXPECT_EQ("z", output.Lines().back().text);
    Apply({JobMessage("a", state_Waiting)}); // runs anew
    EXPECT_TRUE(output.Lines().empty());
    EXPECT_EQ(157, m_Jobs.Summarize().outputLines);
}

TEST_F(FarmJobsTest, TenThousandJobsAreFast)
{
    std::vector<Message> messages;
    for (int i = 0; i < 10000; ++i)
    {
        messages.push_back(JobMessage(String::FromInt(i), i % 100 ? state_Done : state_Running));
    }
    const auto begin = std::chrono::steady_clock::now();
    Apply(messages);
    Apply(messages);
    const auto shown =
        SelectJobs(m_Jobs.InOrder(), 150, [](const FarmJob& job) { return job.id == "4711"; });
    // Some 60 ms; a model that looks through all jobs for each of them takes minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    ASSERT_EQ(150u, shown.size());
    EXPECT_EQ("9999", shown[0]->id); // of the others the latest, and all that run
    EXPECT_EQ("0", shown[149]->id);
    EXPECT_EQ(1, std::count(shown.begin(), shown.end(), m_Jobs.Find("4711")));
}

TEST_F(FarmJobsTest, RowsAreGroupsAndJobsAndFramesThatKeepTheirNumbers)
{
    Apply({JobMessage("a", state_Running, 40).Set(p_User, "Mei"), JobMessage("b", state_Failed, 10),
           JobMessage("c", state_Done, 100).Set(p_User, "mei").Set(p_FrameCount, 2)});
    JobRows                                        rows;
    const std::function<String(JobRows::Row, int)> shown = [&](JobRows::Row row, int column)
    {
        String text = rows.Text(row, column, Time());
        for (long long i = 0; i < rows.ChildCount(row); ++i)
        {
            const JobRows::Row child = rows.Child(row, i);
            EXPECT_EQ(i + 1 < rows.ChildCount(row), rows.Child(row, i + 1) != 0);
            text += "<" + shown(child, column) + ">";
        }
        return text;
    };
    const struct
    {
        JobGrouping grouping;
        bool        frames;
        const char* names;
    } cases[] = {{JobGrouping::kNone, false, "<Job c><Job b><Job a>"},
                 {JobGrouping::kNone, true, "<Job c<Frame 1><Frame 2>><Job b><Job a>"},
                 {JobGrouping::kUser, false, "<(none)<Job b>><Mei<Job a>><mei<Job c>>"},
                 {JobGrouping::kProduct, false, "<Product T<Job c><Job b><Job a>>"},
                 {JobGrouping::kState, true,
                  "<Failed<Job b>><Running<Job a>><Done<Job c<Frame 1><Frame 2>>>"}};
    for (const auto& one : cases)
    {
        rows.Arrange(m_Jobs.InOrder(), one.grouping, one.frames);
        EXPECT_EQ(one.names, shown(0, column_Name));
        EXPECT_EQ(rows.PathTo(JobRows::RowOf(*m_Jobs.Find("a"))).size(),
                  one.grouping == JobGrouping::kNone ? 1u : 2u);
    }
    EXPECT_EQ("<10 %<10 %>><40 %<40 %>><100 %<100 %<><>>>", shown(0, column_Progress));

    const JobRows::Row running = rows.Child(0, 1);
    const JobRows::Row frame = JobRows::RowOf(*m_Jobs.Find("c"), 2);
    EXPECT_EQ("2", rows.KeyOf(frame));
    Apply({Line("c", "FRAME 2/2 /pictures/two.png took 1 s")});
    EXPECT_EQ("Frame 2   two.png", rows.Text(frame, column_Name, Time()));
    EXPECT_EQ("c", rows.KeyOf(JobRows::RowOf(*m_Jobs.Find("c"))));
    EXPECT_LT(*rows.SortNumber(rows.Child(running, 0), column_State, Time()),
              *rows.SortNumber(JobRows::RowOf(*m_Jobs.Find("c")), column_State, Time()));
    EXPECT_FALSE(rows.SortNumber(running, column_Name, Time()));
    Apply({JobMessage("d", state_Waiting), JobMessage("b", state_Running),
           Message(msg_JobGone).Set(p_Id, "c")});
    EXPECT_TRUE(m_News.isAnyGone);
    EXPECT_EQ(3u, rows.PathTo(frame).size()) << "as it was when the rows were arranged";
    EXPECT_NE(running, rows.PathTo(JobRows::RowOf(*m_Jobs.Find("b")))[0]);
    rows.Arrange(m_Jobs.InOrder(), JobGrouping::kState, true);
    EXPECT_EQ("<Running<Job b><Job a>><Waiting<Job d>>", shown(0, column_Name));
    EXPECT_EQ(running, rows.Child(0, 0));
    EXPECT_EQ("", rows.Text(frame, column_Name, Time())) << "it has gone";
    EXPECT_EQ(0, rows.ChildCount(frame));
    EXPECT_TRUE(rows.PathTo(frame).empty());
}

TEST_F(FarmJobsTest, TellsOfOwnJobsThatHaveEnded)
{
    const auto said = [this](const std::vector<Message>& messages)
    {
        Apply(messages);
        std::vector<const FarmJob*> ended;
        for (const String& id : m_News.ended)
        {
            ended.push_back(m_Jobs.Find(id));
        }
        const auto notice = NoticeOf(ended, "Mei");
        return notice ? notice->title + "|" + notice->text + (notice->isFailure ? "!" : "")
                      : String();
    };
    const auto job = [](const String& id, const String& state)
    { return JobMessage(id, state, 0, 1).Set(p_User, "Mei").Set(p_Ended, 5000001); };
    std::vector<Message> waiting, done;
    for (int i = 0; i < 8; ++i)
    {
        waiting.push_back(job(String::FromInt(i), state_Waiting));
        done.push_back(job(String::FromInt(i), i == 6 ? state_Failed : state_Done));
    }
    EXPECT_EQ("", said({job("a", state_Done)})) << "it had ended before it was told of";
    EXPECT_EQ("", said({job("a", state_Waiting), job("b", state_Running)}));
    EXPECT_EQ("Job a is done|After 5s", said({job("a", state_Done)}));
    EXPECT_EQ("", said({job("a", state_Done)})) << "once";
    EXPECT_EQ("Job b has failed|no disk!", said({job("b", state_Failed).Set(p_Error, "no\ndisk")}));
    EXPECT_EQ("", said({job("c", state_Running).Set(p_User, "Jo"), job("d", state_Running)}));
    EXPECT_EQ("", said({job("c", state_Done).Set(p_User, "Jo"), job("d", state_Killed)}));
    EXPECT_EQ("", said(waiting));
    EXPECT_EQ("7 jobs are done, 1 failed|Job 6, Job 0, Job 1, Job 2, Job 3 and 3 more!",
              said(done));
}

TEST(JobOrder, FollowsTheClicksAndComesBack)
{
    const struct
    {
        const char* before;
        int         column;
        bool        add;
        const char* after;
    } clicks[] = {{"", 3, false, "3+"},        {"3+", 3, false, "3-"},
                  {"3-", 3, false, "3+"},      {"3+", 0, true, "3+ 0+"},
                  {"3+ 0+", 0, true, "3+ 0-"}, {"3+ 0+", 3, true, "3- 0+"},
                  {"3+ 0+", 0, false, "0+"},   {"3- 0-", 5, false, "5+"}};
    for (const auto& click : clicks)
    {
        EXPECT_EQ(click.after, TextOf(Clicked(OrderFrom(click.before, 8), click.column, click.add)))
            << click.before;
    }
    EXPECT_EQ("7-", TextOf(OrderFrom("8+ -1+ 7- 7+ x+ 3 + 99999999999+", 8)));
}

TEST(HeightShare, GivesWhatIsWantedAsFarAsThereIs)
{
    const std::vector<HeightWish> wishes = {{150, 100}, {200, 200}, {240, 140}};
    const struct
    {
        int              total;
        std::vector<int> heights;
    } cases[] = {{1000, {150, 200, 650}},
                 {590, {150, 200, 240}},
                 {480, {120, 200, 160}},
                 {0, {100, 200, 140}}};
    for (const auto& one : cases)
    {
        EXPECT_EQ(one.heights, ShareHeight(one.total, wishes)) << one.total;
    }
}

TEST(JobText, IsOneLineHoweverOddTheJobIs)
{
    FarmJob job;
    job.job = boost::shared_ptr<Job>(new Job);
    Message message = JobMessage("a", state_Running, 34, 5000000);
    message.Set(p_Name, "two\nlines").Set("Text", String(10240, 'x') + "\n").Set(p_FrameCount, 150);
    job.Update(message.Set(p_FramesDone, 51));
    EXPECT_EQ("two lines: Running, 34 %", JobCaption(job));
    std::map<String, String> values;
    for (const DetailRow& row : JobDetailRows(job, Time::Seconds(70)))
    {
        values[row.name] = row.value;
    }
    EXPECT_EQ("34 % (51 of 150 frames)", values["Progress"]);
    EXPECT_EQ("1m 05s", values["Elapsed"]);
    ASSERT_EQ(1u, JobParameterRows(job, nullptr).size());
    EXPECT_EQ(303u, JobParameterRows(job, nullptr)[0].value.size()); // 300 and the ellipsis
    EXPECT_EQ("\xc3\xa4\xe2\x80\xa6", OneLine("\xc3\xa4\xc3\xa4", 1));
}

class JobOffersTest : public UserFolderTest
{
protected:
    JobOffersTest()
    {
        const String id = "[Type]\nId=11111111-2222-3333-4444-555555555555\n";
        WriteFile(TempFile("a"), id + "Name=A\n[Command Kill]\nStates=Running;Suspended\n"
                                      "[Command Show]\nFlags=output\n");
        WriteFile(TempFile("b"), id + "Name=B\n[Command Kill]\nStates=Running\n"
                                      "[Command Resume]\nStates=Suspended\n");
    }
    void Add(const String& type, const String& state)
    {
        auto& job = m_All.emplace_back(std::make_unique<FarmJob>());
        job->job = boost::shared_ptr<Job>(new Job);
        job->type = type;
        job->Update(JobMessage("x", state));
        m_Jobs.push_back(job.get());
    }
    TypeLookup Types() const
    {
        return [this](const String& type)
        { return type == "c" ? nullptr : JobTypeInfo::Load(TempFile(type)); };
    }
    // "Kill 2, ..." of the commands of all kinds.
    String Offered(int mask) const
    {
        String text;
        for (const JobOffer& offer : OfferCommands(m_Jobs, mask, Types()))
        {
            text += offer.command.name + SFormat(" %zu, ", offer.takers);
        }
        return text;
    }

    std::vector<std::unique_ptr<FarmJob>> m_All;
    std::vector<const FarmJob*>           m_Jobs;
};

TEST_F(JobOffersTest, EveryJobThatCanTakesACommand)
{
    EXPECT_EQ("", Offered(cmd_Job));
    Add("a", state_Running);
    Add("c", state_Running);
    Add("a", state_Done);
    EXPECT_EQ("Kill 1, Show 2, ", Offered(cmd_Job | cmd_Output));
    Add("b", state_Running);
    Add("a", state_Suspended);
    Add("b", state_Waiting);
    EXPECT_EQ("Kill 3, Resume 0, ", Offered(cmd_Job));
    EXPECT_EQ((std::vector<const FarmJob*>{m_Jobs[0], m_Jobs[3], m_Jobs[4]}),
              TakersOf(m_Jobs, "Kill", Types()));
    EXPECT_TRUE(TakersOf(m_Jobs, "Nothing", Types()).empty());
}

TEST(FramePictures, SayWhyThereIsNone)
{
    FarmJob job;
    job.job = boost::shared_ptr<Job>(new Job);
    job.Update(JobMessage("a", state_Running)
                   .Set(p_FramesDone, 3)
                   .Set(p_FrameCount, 4)
                   .Set(p_Folder, "/no/such"));
    for (const char* const line :
         {"FRAME 2/4 two.png took 0.63 s", "FRAME 3/4 /bin/sh", "FRAME 5/4 x", "FRAME x/4 y",
          "frame 1/4 z", "FRAME 99999999999/999999999999"})
    {
        job.frames.Add(line);
    }
    EXPECT_EQ("/no/such/two.png", PictureOf(job, 2).Text());
    EXPECT_EQ("0.63 s", job.frames.Find(2)->took);
    const char* const problems[] = {"/no/such", "not there", "", "Frame 4 is not done yet."};
    for (int frame = 1; frame <= 4; ++frame)
    {
        const String problem = PictureProblem(job, frame);
        EXPECT_NE(String::npos, problem.find(problems[frame - 1])) << problem;
        EXPECT_EQ(frame == 3, problem.empty());
    }
}

using JobFormTest = UserFolderTest;

TEST_F(JobFormTest, SendsWhatWasEnteredOrSaysWhatIsWrongAndWhere)
{
    WriteFile(TempFile("t.module"), "[Type]\nId=11111111-2222-3333-4444-555555555555\nName=T\n"
                                    "[Parameter Text]\nDefault=d\n"
                                    "[Parameter Kind]\nChoices=x;y\n"
                                    "[Parameter Priority]\nDefault=p\n"
                                    "[Parameter Frame]\nType=integer\nMinimum=1\n"
                                    "Description=First frame\nDefault=7\n");
    JobForm form(JobTypeInfo::Load(TempFile("t.module")));
    int     field = JobForm::kNone;
    EXPECT_EQ("", form.FindProblem(field)) << "it begins with the defaults";
    const struct
    {
        String name, priority, text, kind, frame;
        int    field = JobForm::kNone;
    } cases[] = {
        {" Sky ", " 70 ", "a\nb", "y", " 12 "},
        {"two\nlines", "50", "", "x", "1", JobForm::kName},
        {String(201, 'n'), "50", "", "x", "1", JobForm::kName},
        {"", "5o", "", "x", "1", JobForm::kPriority},
        {"", "0", String("a\0b", 3), "x", "1", 0},
        {"", "100", String(101 << 10, 'v'), "x", "1", 0},
        {"", "7", "", "z", "1", 1},
        {"", "7", "", "x", "abc", 3},
    };
    for (const auto& one : cases)
    {
        form.name = one.name;
        form.priority = one.priority;
        form.values = {one.text, one.kind, "p", one.frame};
        field = JobForm::kNone;
        const String  problem = form.FindProblem(field);
        const Message message = form.ToMessage("r");
        EXPECT_EQ(one.field, field) << one.name << one.priority << one.frame;
        EXPECT_EQ(one.field == JobForm::kNone, problem.empty()) << problem;
        if (problem.empty())
        {
            EXPECT_EQ(one.name.Trim(), message.Get(p_Name));
            EXPECT_EQ(one.priority.Trim(), message.Get(p_Priority));
            EXPECT_EQ(one.text, message.Get("Text"));
            EXPECT_EQ(one.frame.Trim(), message.Get("Frame"));
        }
    }

    Job job;
    job.Update(Message(msg_Job)
                   .Set(p_Name, "Sky")
                   .Set(p_Priority, "70")
                   .Set("Kind", "gone")
                   .Set("Text", String("a\nb\xff")));
    const JobForm again(JobTypeInfo::Load(TempFile("t.module")), job);
    EXPECT_EQ("Sky", again.name);
    EXPECT_EQ("70", again.priority);
    EXPECT_EQ((std::vector<String>{"a\nb\xff", "gone", "p", "7"}), again.values);
    EXPECT_NE("", again.FindProblem(field));
    EXPECT_EQ(1, field) << "what the type no longer offers has to be chosen anew";
}

TEST(PanelMemory, StaysSmallWhateverTheJobsAreCalled)
{
    IniFile options;
    EXPECT_EQ(PanelKey("a=b\n[x]"), PanelKey("a_b__x_"));
    EXPECT_LT(PanelKey(String(10240, 'x')).size(), 100u);
    for (int i = 0; i < 500; ++i)
    {
        options.SetValue(k_PanelSection, PanelKey(String::FromInt(i)), i % 2 ? "1" : "0");
    }
    PrunePanelMemory(options);
    EXPECT_EQ(200u, options.Keys(k_PanelSection).size());
    EXPECT_TRUE(options.GetBool(k_PanelSection, PanelKey("499"), false));
    EXPECT_FALSE(options.HasValue(k_PanelSection, PanelKey("498")));
}
