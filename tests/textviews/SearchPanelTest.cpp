#include "tests/textviews/TextViewTest.h"

#include <wx/stopwatch.h>

namespace
{
const String kFiller(90, '.');
} // namespace

TEST_F(TextViewTest, TheBarOpensUnderTheTextAndCloses)
{
    const int height = m_View->GetSize().y;
    m_View->ToggleSearch();
    EXPECT_TRUE(Panel().IsShown());
    EXPECT_LT(m_View->GetSize().y, height);
    EXPECT_GE(Panel().GetPosition().y, m_View->GetSize().y);
    EXPECT_TRUE(WaitFor([this] { return Panel().FindFocus() && !m_View->HasFocus(); }));
    m_View->ToggleSearch();
    EXPECT_FALSE(Panel().IsShown());
    EXPECT_EQ(m_View->GetSize().y, height);
    EXPECT_TRUE(WaitFor([this] { return m_View->HasFocus(); }));
}

TEST_F(TextViewTest, TheBarFindsAndTells)
{
    AppendNumbered(30);
    m_View->ToggleSearch();
    Panel().SetText("LINE 2");
    EXPECT_TRUE(WaitFor([this] { return !Panel().IsCounting(); }));
    EXPECT_EQ(Panel().GetHits(), 11);
    Panel().Find(true);
    EXPECT_EQ(m_View->GetMarkedLine(), 2);
    EXPECT_EQ(Panel().GetMessage(), "");
    Panel().Find(false);
    EXPECT_EQ(m_View->GetMarkedLine(), 29);
    EXPECT_EQ(Panel().GetMessage(), "Went on from the bottom");
    Panel().Find(true);
    EXPECT_EQ(m_View->GetMarkedLine(), 2);
    EXPECT_EQ(Panel().GetMessage(), "Went on from the top");

    Panel().SetMatchCase(true);
    EXPECT_TRUE(WaitFor([this] { return !Panel().IsCounting(); }));
    EXPECT_EQ(Panel().GetHits(), 0);
    Panel().Find(true);
    EXPECT_EQ(Panel().GetMessage(), "'LINE 2' not found in that direction");
    EXPECT_EQ(m_View->GetMarkedLine(), 2);
    Panel().SetText("");
    EXPECT_EQ(Panel().GetMessage(), "");
    Panel().Find(true);
    EXPECT_EQ(Panel().GetMessage(), "") << "nothing to look for";
}

TEST_F(TextViewTest, TheCountGoesOnAsLinesCome)
{
    AppendNumbered(10);
    m_View->ToggleSearch();
    Panel().SetText("line");
    EXPECT_TRUE(WaitFor([this] { return !Panel().IsCounting(); }));
    EXPECT_EQ(Panel().GetHits(), 10);
    AppendNumbered(5);
    m_View->Append("a line in between", true);
    EXPECT_TRUE(WaitFor([this] { return !Panel().IsCounting(); }));
    EXPECT_EQ(Panel().GetHits(), 16);
    m_View->Erase(0);
    EXPECT_EQ(Panel().GetHits(), 15);
    m_View->Clear();
    EXPECT_TRUE(WaitFor([this] { return !Panel().IsCounting(); }));
    EXPECT_EQ(Panel().GetHits(), 0);
}

// A search through much text runs in slices: the window lives meanwhile, and it can be stopped.
TEST_F(TextViewTest, ALongSearchRunsInSlices)
{
    for (int i = 0; i < 600'000; ++i)
    {
        // Characters beyond ASCII are the slow case.
        m_View->Append(i % 2 ? kFiller : String("\xc3\x84" + kFiller), false);
    }
    m_View->Append("the needle", false);
    m_View->ToggleSearch();
    Panel().SetText("Needle");
    long       longest = 0;
    const auto pumpUntil = [&](const std::function<bool()>& condition)
    {
        wxStopWatch between;
        return WaitFor(
            [&]
            {
                longest = std::max(longest, between.Time());
                between.Start();
                return condition();
            },
            60'000);
    };
    Panel().Find(true);
    EXPECT_TRUE(Panel().IsSearching());
    EXPECT_TRUE(pumpUntil([this] { return !Panel().IsSearching(); }));
    EXPECT_EQ(m_View->GetMarkedLine(), 600'000);
    EXPECT_LT(longest, 500) << "the slices are of 10 ms; the rest is what a busy machine adds";

    Panel().SetText("Nowhere");
    Panel().Find(true);
    EXPECT_TRUE(Panel().IsSearching());
    PumpEvents();
    Panel().StopSearch();
    EXPECT_FALSE(Panel().IsSearching());
    EXPECT_EQ(m_View->GetMarkedLine(), 600'000);
    Panel().Find(true);
    m_View->ToggleSearch(); // closing stops it too
    EXPECT_FALSE(Panel().IsSearching());
}

TEST_F(TextViewTest, TheLinesMayGoDuringASearch)
{
    for (int i = 0; i < 400'000; ++i)
    {
        m_View->Append("\xc3\x84" + kFiller, false);
    }
    m_View->ToggleSearch();
    Panel().SetText("nowhere");
    Panel().Find(true);
    EXPECT_TRUE(Panel().IsSearching());
    PumpEvents();
    m_View->Clear();
    EXPECT_FALSE(Panel().IsSearching());
    PumpEvents();
    EXPECT_EQ(Panel().GetHits(), 0);
}

TEST_F(TextViewTest, ViewAndBarMayGoInEitherOrder)
{
    auto* const other = new TestView(Frame());
    other->Append("text", false);
    other->ToggleSearch();
    other->GetSearchPanel()->SetText("text");
    wxWindowRef bar(other->GetSearchPanel());
    bar->Destroy();
    EXPECT_TRUE(WaitFor([&] { return !bar; }));
    EXPECT_EQ(other->GetSearchPanel(), nullptr);
    other->ToggleSearch();
    other->Append("more", false);

    bar = m_View->GetSearchPanel();
    m_View->ToggleSearch();
    Panel().SetText("x");
    m_View->Destroy();
    EXPECT_TRUE(WaitFor([&] { return !bar; })) << "the bar goes with its view";
}

TEST_F(TextViewTest, TheBarFollowsTheScheme)
{
    m_View->ToggleSearch();
    for (const int scheme : {scheme_Lighter, scheme_Darker})
    {
        SetColors(scheme);
        wxSysColourChangedEvent changed;
        Panel().ProcessWindowEvent(changed);
        EXPECT_EQ(Panel().GetBackgroundColour(), wxtGetColor(color_WindowBG));
        for (const wxWindow* child : Panel().GetChildren())
        {
            const wxColour text = child->GetForegroundColour();
            const wxColour ground =
                child->UseBgCol() ? child->GetBackgroundColour() : Panel().GetBackgroundColour();
            EXPECT_GT(std::abs(text.Green() - ground.Green()), 80) << "readable";
        }
    }
}
