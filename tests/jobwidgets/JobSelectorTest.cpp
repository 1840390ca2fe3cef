#include "tests/jobwidgets/JobSample.h"
#include "tests/jobwidgets/JobWidgetsTest.h"
#include "tests/support/EventCounter.h"
#include "tests/support/TestApp.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtSearchField.h"
#include "jobwidgets/JobSelector.h"
#include "jobwidgets/JobSelectorDlg.h"
#include "listviews/wxDBTreeListCtrl.h"

#include <wx/sizer.h>
#include <wx/textctrl.h>

using jobwidgets::JobGrouping;

namespace
{
template <class Control> Control* In(wxWindow* window)
{
    for (wxWindow* const child : window->GetChildren())
    {
        if (auto* const control = dynamic_cast<Control*>(child))
        {
            return control;
        }
    }
    return nullptr;
}

class JobSelectorTest : public JobWidgetsTest
{
protected:
    JobSelectorTest()
    {
        m_Farm.Put("a", "ann", state_Running);
        m_Farm.Put("b", "bob", state_Running);
        m_Farm.Put("c", "ann", state_Done);
    }
    ~JobSelectorTest() override { Close(); }

    void Open(bool single = false)
    {
        Close();
        m_Selector = new JobSelector(Frame(), wxID_ANY, m_Farm.jobs, single);
        m_Tree = In<wxDBTreeListCtrl>(m_Selector);
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(m_Selector, 1, wxEXPAND);
        Frame()->SetSizer(sizer);
        Frame()->Layout();
        PumpEvents();
    }
    void Close()
    {
        delete m_Selector;
        m_Selector = nullptr;
    }
    // "ann(2)* c a bob(1)": what is selected has a star.
    String Rows() const
    {
        String rows;
        for (int row = 0; row < m_Tree->GetItemCount(); ++row)
        {
            String text = m_Tree->GetDisplayText(row, 0);
            text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
            rows += (row ? " " : "") + text + (m_Tree->IsRowSelected(row) ? "*" : "");
        }
        return rows;
    }
    String Selected() const
    {
        String names;
        for (const UID& id : m_Selector->GetSelection())
        {
            names += m_Farm.NameOf(id);
        }
        return names;
    }
    void Select(const char* names)
    {
        std::vector<UID> ids;
        for (const char* name = names; *name; ++name)
        {
            ids.push_back(JobSample::IdOf(String(1, *name)));
        }
        m_Selector->SetSelection(ids);
    }
    bool Becomes(const String& rows) const
    {
        const bool is = WaitFor([&] { return Rows() == rows; });
        EXPECT_EQ(rows, Rows());
        return is;
    }

    JobSample         m_Farm;
    JobSelector*      m_Selector = nullptr;
    wxDBTreeListCtrl* m_Tree = nullptr;
};
} // namespace

TEST_F(JobSelectorTest, SelectsWhatIsThere)
{
    const struct
    {
        bool        single;
        const char* wanted;
        const char* selected;
    } cases[] = {{false, "b", "b"}, {false, "bca", "cab"}, {false, "bxb", "b"}, {false, "x", ""},
                 {true, "bc", "b"}, {true, "xc", "c"},     {true, "", ""}};
    for (const auto& c : cases)
    {
        Open(c.single);
        EventCounter events(Frame(), wxtEVT_JOB_SELECTION);
        Select(c.wanted);
        EXPECT_EQ(c.selected, Selected()) << c.wanted;
        PumpEvents();
        EXPECT_EQ(*c.selected ? 1 : 0, events.Count()) << c.wanted;
        Select(c.wanted);
        PumpEvents();
        EXPECT_EQ(*c.selected ? 1 : 0, events.Count()) << "the same once more";
    }
}

TEST_F(JobSelectorTest, AFilterThatHidesWhatIsSelectedIsCleared)
{
    Open();
    wxtSearchField& field = *m_Selector->GetField();
    field.SetValue("user:ann");
    EXPECT_EQ("ann(2) c a", Rows());
    Select("a");
    EXPECT_EQ("ann(2) c a*", Rows());
    Select("ab");
    EXPECT_EQ("ann(2) c a* bob(1) b*", Rows());
    EXPECT_EQ("", field.GetValue());
    field.SetValue("-running");
    EXPECT_EQ("ann(1of2) c", Rows());
    EXPECT_EQ("", Selected());
    m_Selector->SetGrouping(JobGrouping::kState);
    EXPECT_EQ("Done(1) c", Rows());
    field.GetField()->Clear();
    EXPECT_EQ("Running(2) b a Done(1) c", Rows());
}

TEST_F(JobSelectorTest, FollowsTheJobs)
{
    m_Farm.jobs.Clear();
    Open();
    EventCounter told(Frame(), wxtEVT_JOB_SELECTION);
    m_Selector->SetGrouping(JobGrouping::kState);
    m_Farm.Put("a", "ann", state_Running);
    m_Farm.Put("b", "bob", state_Running);
    ASSERT_TRUE(Becomes("Running(2) b a"));
    Select("b");
    PumpEvents();
    EXPECT_EQ("Running(2) b* a", Rows());
    m_Farm.Put("b", "bob", state_Done);
    ASSERT_TRUE(Becomes("Running(1) a Done(1) b*")) << "it is followed to where it has gone";
    m_Farm.Put("c", "ann", state_Running);
    ASSERT_TRUE(Becomes("Running(2) c a Done(1) b*"));
    EXPECT_EQ(1, told.Count());
    m_Farm.jobs.Remove(JobSample::IdOf("b"));
    EXPECT_EQ("", Selected());
    EXPECT_TRUE(WaitFor([&] { return told.Count() == 2; }));
    ASSERT_TRUE(Becomes("Running(2) c a"));

    const EventCounter made(m_Tree, wxEVT_DBTREELIST_ARRANGED);
    for (int i = 0; i < 5000; ++i)
    {
        m_Farm.Put("d" + String::FromInt(i), "cleo", state_Waiting);
    }
    ASSERT_TRUE(WaitFor([&] { return m_Tree->GetItemCount() == 5004; }));
    EXPECT_EQ(1, made.Count()) << "all at once";
    m_Selector->SetGrouping(JobGrouping::kUser);
    Select("a");
    m_Selector->SetGrouping(JobGrouping::kNone);
    EXPECT_EQ("a", Selected());
    EXPECT_EQ(5002, m_Tree->GetItemCount());
}

TEST_F(JobSelectorTest, AGroupThatComesBackIsClosedAsItWas)
{
    Open();
    for (const String filter : {"", "user:ann"})
    {
        ASSERT_TRUE(Becomes("ann(2) c a bob(1) b"));
        m_Tree->Close(3);
        m_Selector->GetField()->SetValue(wxtToWx(filter));
        m_Farm.jobs.Remove(JobSample::IdOf("b"));
        ASSERT_TRUE(Becomes("ann(2) c a"));
        m_Selector->GetField()->SetValue(wxString());
        m_Farm.Put("b", "bob", state_Running);
        ASSERT_TRUE(Becomes("ann(2) c a bob(1)"));
        m_Tree->Open(3);
    }
    m_Farm.jobs.Remove(JobSample::IdOf("b"));
    ASSERT_TRUE(Becomes("ann(2) c a"));
    m_Farm.Put("b", "bob", state_Running);
    EXPECT_TRUE(Becomes("ann(2) c a bob(1) b")) << "it was open last";
}

TEST_F(JobSelectorTest, RemembersHowItWasUsed)
{
    Open();
    m_Tree->Close(0);
    Select("b");
    m_Selector->RememberPicked();
    ASSERT_TRUE(Becomes("RecentlyPicked(1) b ann(2) bob(1) b*"));
    Open();
    EXPECT_EQ("RecentlyPicked(1) b ann(2) bob(1) b", Rows());
    m_Selector->GetField()->SetValue("bob");
    EXPECT_TRUE(WaitFor([this] { return m_Tree->IsFiltered(); }));
    EXPECT_EQ(1, m_Tree->GetMatchCount()) << "a job that stands there twice is one";
    m_Selector->GetField()->SetValue("");
    EXPECT_TRUE(WaitFor([this] { return !m_Tree->IsFiltered(); }));
    m_Tree->Close(0);
    m_Selector->SetGrouping(JobGrouping::kNone);
    m_Tree->SetColumnWidth(1, 123);
    Open(true);
    EXPECT_EQ("RecentlyPicked(1) c b a", Rows());
    EXPECT_EQ(123, m_Tree->GetColumn(1).width);
    EXPECT_EQ(JobGrouping::kNone, m_Selector->GetGrouping());
    m_Selector->SetGrouping(JobGrouping::kUser);
    EXPECT_EQ("RecentlyPicked(1) ann(2) bob(1) b", Rows());
    Select("ab");
    EXPECT_EQ("a", Selected());
}

TEST_F(JobSelectorTest, ADialogNeedsASelection)
{
    auto* const dialog = new JobSelectorDlg(Frame(), "Jobs", m_Farm.jobs, false, false);
    dialog->Show();
    wxWindow* const ok = dialog->FindWindow(wxID_OK);
    EXPECT_FALSE(ok->IsEnabled());
    EXPECT_FALSE(dialog->Validate());
    dialog->SetSelection({JobSample::IdOf("a")});
    EXPECT_TRUE(WaitFor([&] { return ok->IsEnabled(); }));
    m_Farm.jobs.Remove(JobSample::IdOf("a"));
    EXPECT_FALSE(dialog->Validate());
    EXPECT_TRUE(WaitFor([&] { return !ok->IsEnabled(); }));
    const wxWeakRef<wxDialog> weak(dialog);
    dialog->Close();
    EXPECT_TRUE(WaitFor([&] { return !weak; }));
}
