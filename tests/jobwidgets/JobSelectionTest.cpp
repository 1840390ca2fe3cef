#include "jobwidgets/ClosedGroups.h"
#include "jobwidgets/marks/MarkShape.h"
#include "jobwidgets/selection/JobTreeModel.h"
#include "jobwidgets/selection/RecentJobs.h"
#include "tests/jobwidgets/JobSample.h"
#include "tests/jobwidgets/JobWidgetsTest.h"
#include "tests/support/LogCapture.h"

#include <algorithm>
#include <set>

using jobwidgets::JobGrouping;
using jobwidgets::JobTreeModel;

namespace
{
using JobSetTest = JobWidgetsTest;

// "Recently Picked: b | ann: c a | d": groups with their jobs, and jobs in none.
String ShapeOf(JobTreeModel& model)
{
    String shape;
    for (long long i = 0; i < model._ChildCount(JobTreeModel::k_Root); ++i)
    {
        const wxDBTreeNode node = model._Child(JobTreeModel::k_Root, i);
        shape += (i ? " | " : "") + model._Text(node, jobwidgets::column_Name);
        shape += model._MayHaveChildren(node) ? ":" : "";
        for (long long k = 0; k < model._ChildCount(node); ++k)
        {
            shape += " " + model._Text(model._Child(node, k), jobwidgets::column_Name);
        }
    }
    return shape;
}
} // namespace

TEST_F(JobSetTest, TellsWhatIsOther)
{
    JobSample sample;
    HasSlots  slots;
    String    told;
    sample.jobs.Changed.Connect(&slots, [&](JobSet::Change change)
                                { told += "ptj"[static_cast<int>(change)]; });
    const UID                    type = AddType("a", "Product A");
    const boost::shared_ptr<Job> job(new Job);
    const LogCapture             log;
    sample.jobs.Put(nullptr);
    sample.jobs.Put(job);
    EXPECT_TRUE(log.Has("without an identifier", log_Warning));
    job->SetParam(p_Id, JobSample::IdOf("x").ToString());
    job->SetParam(p_Name, "two\nlines " + String(1000000, 'x'));
    job->SetParam(p_Type, type.ToString());
    job->SetParam(p_Progress, "900");
    sample.jobs.Put(job);
    const JobSet::Facts facts = sample.jobs.Find(JobSample::IdOf("x"));
    EXPECT_EQ(0u, facts->name.find("two lines xxx"));
    EXPECT_GT(400u, facts->name.size());
    EXPECT_EQ("Product A", facts->product);
    EXPECT_EQ(100, facts->progress);
    sample.jobs.Put(job);
    job->SetParam(p_Progress, "-5");
    sample.jobs.Put(job);
    job->SetParam(p_State, state_Done);
    sample.jobs.Put(job);
    sample.jobs.Remove(UID::Null);
    EXPECT_EQ("jpt", told);

    for (int i = 0; i < 5000; ++i) // nothing is kept of those that have gone
    {
        sample.Put("y", "ann", state_Done);
        sample.jobs.Remove(JobSample::IdOf("y"));
    }
    sample.Put("y", "ann", state_Done);
    ASSERT_EQ(2u, sample.jobs.InOrder().size());
    EXPECT_EQ("y", sample.jobs.InOrder().back()->name);
    told.clear();
    sample.jobs.Clear();
    sample.jobs.Clear();
    EXPECT_EQ("j", told);
    EXPECT_TRUE(sample.jobs.InOrder().empty());
}

TEST(JobTreeModel, GroupsTheLatestFirst)
{
    JobSample sample;
    sample.Put("a", "ann", state_Done);
    sample.Put("b", "Bob", state_Running);
    sample.Put("c", "ann", state_Running);
    sample.Put("d", "", "Odd");
    const std::vector<UID> recent = {JobSample::IdOf("b"), UID::Create()};
    JobTreeModel           model;
    const struct
    {
        JobGrouping grouping;
        bool        hasRecent;
        const char* shape;
    } cases[] = {{JobGrouping::kUser, true, "Recently Picked: b | Unknown: d | ann: c a | Bob: b"},
                 {JobGrouping::kState, false, "Running: c b | Done: a | Odd: d"},
                 {JobGrouping::kProduct, false, "Tracer: d c b a"},
                 {JobGrouping::kNone, true, "Recently Picked: b | d | c | b | a"}};
    for (const auto& c : cases)
    {
        model.Show(sample.jobs, c.grouping, c.hasRecent ? recent : std::vector<UID>());
        EXPECT_EQ(c.shape, ShapeOf(model));
    }
    // What is not taken yet: a job that has gone stays, one that goes on is shown so.
    const wxDBTreeNode last = model._Child(JobTreeModel::k_Root, 4);
    sample.Put("a", "ann", state_Failed, 7);
    sample.jobs.Remove(JobSample::IdOf("b"));
    EXPECT_EQ("Recently Picked: b | d | c | b | a", ShapeOf(model));
    EXPECT_EQ("7 %", model._Text(last, jobwidgets::column_Progress));
    model.Show(JobSet(), JobGrouping::kUser, recent);
    EXPECT_EQ("", ShapeOf(model));
    EXPECT_EQ("", model._Text(last, jobwidgets::column_Name)) << "it has gone";
    EXPECT_EQ(JobTreeModel::k_Root, model._Child(1, 0));
}

TEST(ClosedGroups, TheLastOnesAreKeptWhateverTheyAreCalled)
{
    using jobwidgets::GroupKey;
    jobwidgets::ClosedGroups closed;
    const auto key = [](int i) { return GroupKey(JobGrouping::kUser, String::FromInt(i)); };
    for (int i = 1000; i > 0; --i)
    {
        closed.Put(key(i), true);
    }
    const String odd = GroupKey(JobGrouping::kState, "a,\"b\\\nc" + String(10240, 'x'));
    closed.Put(odd, true);
    closed.Put(key(7), false);
    jobwidgets::ClosedGroups again;
    again.Read(closed.ToText());
    EXPECT_TRUE(again.Has(odd) && again.Has(key(1)) && again.Has(key(299)));
    EXPECT_FALSE(again.Has(key(7)) || again.Has(key(300)) || again.Has("b"));
    EXPECT_EQ(closed.ToText(), again.ToText());
}

TEST(JobGrouping, IsKnownByItsName)
{
    for (const JobGrouping grouping : {JobGrouping::kNone, JobGrouping::kState})
    {
        EXPECT_EQ(grouping, jobwidgets::GroupingNamed(NameOf(grouping), JobGrouping::kUser));
    }
    EXPECT_EQ(JobGrouping::kUser, jobwidgets::GroupingNamed("nonsense", JobGrouping::kUser));
}

TEST(RecentJobs, TheLatestAreOnTop)
{
    std::vector<UID> ids(12);
    std::generate(ids.begin(), ids.end(), &UID::Create);
    jobwidgets::RecentJobs recent(" " + ids[0].ToString() + " ,nonsense,," + ids[1].ToString() +
                                  "," + ids[0].ToString());
    EXPECT_EQ((std::vector{ids[0], ids[1]}), recent.InOrder());
    recent.Add({ids[1], ids[2]});
    EXPECT_EQ((std::vector{ids[1], ids[2], ids[0]}), recent.InOrder());
    EXPECT_EQ(recent.InOrder(), jobwidgets::RecentJobs(recent.ToText()).InOrder());
    recent.Add(ids);
    ids.resize(jobwidgets::RecentJobs::k_Most);
    EXPECT_EQ(ids, recent.InOrder());
}

// Each state is told by its form alone, at both scales, and no mark leaves its square.
TEST(JobMarksTest, EveryStateHasAFormOfItsOwn)
{
    for (const int scale : {1, 2})
    {
        const int             side = 11 * scale;
        std::set<std::string> forms;
        for (const String& state : {state_Waiting, state_Running, state_Suspended, state_Done,
                                    state_Failed, state_Killed, String("Other")})
        {
            const auto& mark = jobwidgets::PixelsOf(jobwidgets::ShapeOf(state), side, scale);
            std::string form(static_cast<size_t>(side * side), '.');
            for (const auto& [rects, sign] : {std::pair(&mark.whole, 'o'), {&mark.inside, 'x'}})
            {
                for (const wxRect& rect : *rects)
                {
                    ASSERT_TRUE(wxRect(0, 0, side, side).Contains(rect)) << state;
                    for (int i = 0; i < rect.width * rect.height; ++i)
                    {
                        const int x = rect.x + i % rect.width;
                        const int y = rect.y + i / rect.width;
                        char&     pixel = form[static_cast<size_t>(y * side + x)];
                        EXPECT_EQ(sign == 'o' ? '.' : 'o', pixel) << state << " filled twice";
                        pixel = sign;
                    }
                }
            }
            EXPECT_GE(std::count(form.begin(), form.end(), 'x'), 5 * scale * scale) << state;
            for (const std::string& other : forms)
            {
                int differing = 0;
                for (size_t i = 0; i < form.size(); ++i)
                {
                    differing += (form[i] == '.') != (other[i] == '.');
                }
                EXPECT_GE(differing, side * side / 8) << state << form;
            }
            forms.insert(form);
        }
    }
}
