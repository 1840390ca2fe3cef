#include "tests/textviews/TextViewTest.h"

#include <wx/stopwatch.h>
#include <wx/uiaction.h>

#include <algorithm>

namespace
{
/// A view with its bar open.
class SearchPanelTest : public TextViewTest
{
protected:
    SearchPanelTest() { m_View->ToggleSearch(); }

    void ExpectHits(int hits) const
    {
        EXPECT_TRUE(WaitFor([this] { return !Panel().IsCounting(); }));
        EXPECT_EQ(Panel().GetHits(), hits);
    }
    /// Looks on; which line it finds, or keeps, and what it says.
    void ExpectFind(bool forward, int line, const String& message) const
    {
        Panel().Find(forward);
        EXPECT_EQ(m_View->GetMarkedLine(), line);
        EXPECT_EQ(Panel().GetMessage(), message);
    }
    /// The control of the bar whose label ends with that.
    wxWindow* Labelled(const char* label) const
    {
        const auto& children = Panel().GetChildren();
        const auto  found =
            std::find_if(children.begin(), children.end(),
                         [label](wxWindow* child) { return child->GetLabel().EndsWith(label); });
        return found == children.end() ? nullptr : *found;
    }
};
} // namespace

TEST_F(SearchPanelTest, TheBarFindsAndTells)
{
    AppendNumbered(30);
    Panel().SetText("LINE 2");
    ExpectHits(11);
    ExpectFind(true, 2, "");
    ExpectFind(false, 29, "Went on from the bottom");
    ExpectFind(true, 2, "Went on from the top");
    m_View->Append(String(200'000, 'a') + " line 2", true); // counted in steps
    ExpectHits(12);
    m_View->Erase(0);
    ExpectHits(11);
    Panel().SetMatchCase(true);
    ExpectHits(0);
    ExpectFind(true, 2, "'LINE 2' not found in that direction");
    Panel().SetText("");
    ExpectFind(true, 2, "");
}

TEST_F(SearchPanelTest, TheOutcomeShowsAtEveryWidth)
{
    AppendNumbered(3);
    Panel().SetText("a text that is not in any of the lines");
    ExpectHits(0);
    Panel().Find(true);
    for (const int width : {1200, 760, 600, 500, 420, 1200})
    {
        Frame()->SetClientSize(width, 400);
        EXPECT_TRUE(WaitFor([&] { return Panel().GetSize().x == width; }));
        const wxWindow* const message = Labelled("' not found in that direction");
        ASSERT_TRUE(message) << width;
        EXPECT_LE(message->GetTextExtent(message->GetLabel()).x, message->GetSize().x) << width;
        for (const wxWindow* const child : Panel().GetChildren())
        {
            const bool inside = Panel().GetClientRect().Contains(child->GetRect());
            EXPECT_TRUE(inside || !child->IsShown()) << width << ' ' << child->GetLabel();
        }
        EXPECT_LE(Panel().GetRect().GetBottom(), Frame()->GetClientSize().y) << width;
        EXPECT_EQ(m_View->GetRect().GetBottom() + 1, Panel().GetPosition().y) << width;
    }
}

// A search through much text runs in slices: the window lives meanwhile, and it can be stopped.
TEST_F(SearchPanelTest, ALongSearchRunsInSlices)
{
    const String filler(90, '.');
    for (int i = 0; i < 600'000; ++i)
    {
        // Characters beyond ASCII are the slow case.
        m_View->Append(i % 2 ? filler : String("\xc3\x84" + filler), false);
    }
    m_View->Append("the needle", false);
    Panel().SetText("Needle");
    Panel().Find(true);
    EXPECT_TRUE(Panel().IsSearching());
    long        longest = 0;
    wxStopWatch between;
    const auto  hasEnded = [&]
    {
        longest = std::max(longest, between.Time());
        between.Start();
        return !Panel().IsSearching();
    };
    EXPECT_TRUE(WaitFor(hasEnded, 60'000));
    EXPECT_EQ(m_View->GetMarkedLine(), 600'000);
    EXPECT_LT(longest, 500) << "the slices are of 5 ms; the rest is what a busy machine adds";

    Panel().SetText("Nowhere");
    const std::function<void()> endings[] = {
        [] { wxUIActionSimulator().Char(WXK_SPACE); }, // on the button
        [this] { m_View->ToggleSearch(); },            // closing stops it too
        [this] { m_View->Clear(); },                   // the lines may go
    };
    for (const auto& end : endings)
    {
        if (!Panel().IsShown())
        {
            m_View->ToggleSearch();
        }
        Panel().Find(true);
        EXPECT_TRUE(Panel().IsSearching());
        Labelled("Stop")->SetFocus();
        PumpEvents();
        end();
        EXPECT_TRUE(WaitFor([this] { return !Panel().IsSearching(); }));
        EXPECT_TRUE(WaitFor(
            [] { return wxWindow::FindFocus() && wxWindow::FindFocus()->IsShownOnScreen(); }));
    }
}

TEST_F(SearchPanelTest, ViewAndBarMayGoInEitherOrder)
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
    Panel().SetText("x");
    m_View->Destroy();
    EXPECT_TRUE(WaitFor([&] { return !bar; })) << "the bar goes with its view";
}
