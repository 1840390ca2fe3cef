#include "tests/jobwidgets/JobWidgetsTest.h"
#include "tests/support/LogCapture.h"

#include "appearance/wxTolvanString.h"
#include "jobwidgets/JobCommandMenu.h"
#include "tolvan/Job.h"
#include "vesta/Exception.h"

#include <boost/make_shared.hpp>

#include <memory>

namespace
{
const char* const kCommands = "[Command Stop]\nFlags = job\nStates = Running\n"
                              "[Command Line]\nSeparator = yes\n"
                              "[Command Rank]\nFlags = job;admin\nItems = low;high\n"
                              "[Command Show]\nFlags = output\n";

/// A job that keeps what it is told to do.
class ToldJob : public Job
{
public:
    explicit ToldJob(const UID& type, const String& state = state_Running)
    {
        SetParam(p_Type, type.ToString());
        SetParam(p_State, state);
    }
    void DoCommand(const String& command, const String& item) override
    {
        told += command + "/" + item + " ";
        if (fail)
        {
            fail();
        }
    }

    String                told;
    std::function<void()> fail;
};

/// A menu whose hooks can be set.
class HookedMenu : public JobCommandMenu
{
public:
    bool PreProcessCommand(const String&, const String&) override { return !before || before(); }
    void PostProcessCommand(const String& name, const String&) override { after += name; }

    std::function<bool()> before;
    String                after;
};

// "Open|-|Stop!|Rank(low,high)": "-" is a separator, "!" marks what is disabled.
wxString Shape(const wxMenu& menu, const char* between = "|")
{
    wxString shape;
    for (const wxMenuItem* const item : menu.GetMenuItems())
    {
        shape += shape.empty() ? "" : between;
        shape += item->IsSeparator() ? wxString("-") : item->GetItemLabelText();
        shape += item->IsSubMenu() ? "(" + Shape(*item->GetSubMenu(), ",") + ")" : wxString();
        shape += item->IsSeparator() || item->IsEnabled() ? "" : "!";
        EXPECT_EQ(nullptr, item->GetAccel()) << item->GetItemLabel();
    }
    return shape;
}

class JobCommandMenuTest : public JobWidgetsTest
{
protected:
    long IdOf(const char* label) const { return menu.FindItem(label); }

    const UID                        type = AddType("a", "A", kCommands);
    const boost::shared_ptr<ToldJob> job = boost::make_shared<ToldJob>(type);
    HookedMenu                       menu;
};
} // namespace

TEST_F(JobCommandMenuTest, AFillReplacesOnlyWhatTheFormerOneAdded)
{
    const UID other = AddType("b", "B", "[Command Jump]\nFlags = job\n[Command Stop]\n");
    menu.Append(wxID_OPEN, "Open");
    menu.AppendSeparator();
    menu.Append(wxID_NEW, "New");
    const struct
    {
        boost::shared_ptr<Job> job;
        int                    mask;
        const char*            shape;
    } fills[] = {
        {job, cmd_Job, "Open|-|New|-|Stop|-|Rank(low,high)"},
        {boost::make_shared<ToldJob>(other), cmd_Job, "Open|-|New|-|Jump|Stop"},
        {nullptr, cmd_Job, "Open|-|New"},
        {boost::make_shared<ToldJob>(UID::Create()), cmd_Job, "Open|-|New|-"}, // unknown type
        {job, cmd_Output, "Open|-|New|-|-|Show"},
        {boost::make_shared<ToldJob>(type, state_Done), cmd_Job | cmd_Output,
         "Open|-|New|-|Stop!|-|Rank(low,high)|Show"},
    };
    std::map<wxString, long> ids;
    for (const auto& fill : fills)
    {
        menu.Fill(fill.job, fill.mask);
        EXPECT_EQ(fill.shape, Shape(menu));
        for (const char* const label : {"Stop", "low", "high", "Show", "Jump"})
        {
            const int id = menu.FindItem(label);
            if (id != wxNOT_FOUND)
            {
                EXPECT_EQ(id, ids.emplace(label, id).first->second) << label;
                EXPECT_EQ(wxITEM_CHECK, menu.FindItem(id)->GetKind());
            }
        }
    }
    EXPECT_EQ(5u, ids.size());
    JobCommandMenu without;
    without.Fill(job, cmd_Admin);
    EXPECT_EQ("-|Rank(low,high)", Shape(without)); // its own separator, of every kind
}

TEST_F(JobCommandMenuTest, ShowsAnyNameAsItStands)
{
    const struct
    {
        String      name, items;
        const char* shape;
    } commands[] = {
        {"DISABLED:Retry", "", "Retry!"},
        {"DISABLED:", "", " !"},
        {"Rank", "low;DISABLED:high;", "Rank(low,high!,Rank)"},
        {"Rank", "\"a;b\";c\\;d", "Rank(a;b,c;d)"},
        {"Cut & &Paste\tCtrl+V\nnow", "", "Cut & &Paste Ctrl+V now"},
        {"caf\xe9", "x\x01y", "caf\xc3\xa9(x y)"},
    };
    for (const auto& row : commands)
    {
        JobCommandMenu one;
        CommandInfo    command;
        command.name = row.name;
        command.items = row.items;
        one.InsertCommand(command);
        EXPECT_EQ(wxString::FromUTF8(row.shape), Shape(one));
    }
    CommandInfo huge;
    huge.name = String(10240, 'x');
    menu.InsertCommand(huge);
    EXPECT_GT(120u, menu.GetMenuItems().front()->GetItemLabelText().length());
    EXPECT_TRUE(menu.TryCommand(menu.GetMenuItems().front()->GetId()));
    EXPECT_EQ(huge.name, menu.after); // what is run is the whole name
}

TEST_F(JobCommandMenuTest, RunsWhatAnIdHasEverStoodFor)
{
    menu.Append(wxID_OPEN, "Open");
    menu.Fill(job, ~0);
    const long stop = IdOf("Stop");
    EXPECT_TRUE(menu.TryCommand(IdOf("high")));
    EXPECT_FALSE(menu.TryCommand(wxID_OPEN));
    EXPECT_EQ("Rank/high ", job->told);
    EXPECT_EQ("Rank", menu.after);

    const auto next = boost::make_shared<ToldJob>(UID::Create());
    menu.Fill(next, ~0);
    EXPECT_TRUE(menu.TryCommand(stop)); // it is not shown any more
    EXPECT_EQ("Stop/ ", next->told);

    menu.before = [] { return false; };
    EXPECT_TRUE(menu.TryCommand(stop));
    EXPECT_EQ("Stop/ ", next->told);
    EXPECT_EQ("RankStop", menu.after);

    menu.before = nullptr;
    menu.Fill(nullptr, ~0);
    const LogCapture log;
    EXPECT_TRUE(menu.TryCommand(stop));
    EXPECT_TRUE(log.Has("No job", log_Warning));
    EXPECT_EQ("Rank/high ", job->told);
}

TEST_F(JobCommandMenuTest, AFailureIsToldAndOthersPass)
{
    DialogCatcher box;
    menu.Fill(job, ~0);
    job->fail = [] { Exception::Throw("Job", "DoCommand", 7, "The farm is shut", "Till Monday"); };
    EXPECT_TRUE(menu.TryCommand(IdOf("Stop")));
    EXPECT_EQ("Unable to execute Job command: 'Stop'\nThe farm is shut\nTill Monday", box.text);
    EXPECT_EQ("TolvanGui Error", box.caption);
    job->fail = [] { Exception::Throw("Job", "DoCommand", 7, "No"); };
    EXPECT_TRUE(menu.TryCommand(IdOf("Stop")));
    EXPECT_EQ("Unable to execute Job command: 'Stop'\nNo", box.text);
    EXPECT_EQ(2, box.count);
    EXPECT_EQ("StopStop", menu.after);
    job->fail = [] { throw 1; };
    EXPECT_THROW(menu.TryCommand(IdOf("Stop")), int);
    EXPECT_EQ(2, box.count);
}

TEST_F(JobCommandMenuTest, AQuestionMayFillTheMenuAnewOrTakeItAway)
{
    const auto other = boost::make_shared<ToldJob>(type);
    menu.Fill(job, ~0);
    menu.before = [&]
    {
        menu.Fill(other, ~0);
        menu.before = nullptr;
        return menu.TryCommand(IdOf("Show")); // chosen meanwhile, of the other job
    };
    EXPECT_TRUE(menu.TryCommand(IdOf("Stop")));
    EXPECT_EQ("Stop/ ", job->told) << "the job that the question was about";
    EXPECT_EQ("Show/ ", other->told);
    EXPECT_TRUE(menu.TryCommand(IdOf("Stop")));
    EXPECT_EQ("Show/ Stop/ ", other->told);
    job->told.clear();

    auto brief = std::make_unique<HookedMenu>();
    brief->Fill(job, ~0);
    brief->before = [&]
    {
        brief.reset();
        return true;
    };
    EXPECT_TRUE(brief->TryCommand(brief->FindItem("Stop")));
    EXPECT_EQ("", job->told);
}
