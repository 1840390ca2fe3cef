#include "internal/drawing/ColorMix.h"
#include "tests/textviews/SlowText.h"
#include "tests/textviews/TextViewTest.h"
#include "textviews/follow/FollowButton.h"
#include "textviews/search/SearchField.h"

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
    /// Looks on; the hit and its number among all.
    void ExpectHit(bool forward, int line, int column, int number) const
    {
        Panel().Find(forward);
        EXPECT_TRUE(WaitFor([&] { return Panel().GetCurrent() == number; })) << number;
        EXPECT_EQ(m_View->GetMarkedLine(), line);
        EXPECT_EQ(m_View->GetMatchColumn(), column);
    }
    template <class Control> Control* Part() const
    {
        for (wxWindow* const child : Panel().GetChildren())
        {
            if (auto* const part = dynamic_cast<Control*>(child))
            {
                return part;
            }
        }
        return nullptr;
    }
    textviews::SearchField* Field() const { return Part<textviews::SearchField>(); }
    /// By real keys.
    void Type(const char* text) const
    {
        for (; *text; ++text)
        {
            Press(*text);
        }
        PumpEvents();
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

TEST_F(SearchPanelTest, GoesFromHitToHitAndTellsTheirNumbers)
{
    Append({"ab \xc3\xa4 ab", "x", "z AB"});
    Panel().SetText("ab");
    ExpectHits(3);
    EXPECT_EQ(Panel().GetCurrent(), 0);
    EXPECT_TRUE(Labelled("3 hits"));
    ExpectHit(true, 0, 0, 1);
    ExpectHit(true, 0, 5, 2);
    EXPECT_TRUE(WaitFor([this] { return Labelled("2 of 3"); }));
    ExpectHit(true, 2, 2, 3);
    ExpectHit(false, 0, 5, 2);
    ExpectHit(false, 0, 0, 1);
    ExpectHit(false, 2, 2, 3);
    EXPECT_EQ(Panel().GetMessage(), "Went on from the bottom");
    m_View->Append("an ab before", true);
    ExpectHits(4);
    EXPECT_TRUE(WaitFor([this] { return Panel().GetCurrent() == 4; }));
    ASSERT_TRUE(m_View->Search("x", true, true)); // it is a hit of something else
    EXPECT_TRUE(WaitFor([this] { return Panel().GetCurrent() == 0; }));
    EXPECT_TRUE(WaitFor([this] { return Labelled("4 hits"); }));
    Panel().SetWholeWords(true);
    Panel().SetMatchCase(true);
    Append({"abab", "ab_"});
    ExpectHits(3);
    Panel().SetExpression(true);
    Panel().SetText("[a\xc3\xa4]b?");
    ExpectHits(4);
}

TEST_F(SearchPanelTest, FindsWhatIsShown)
{
    Append({"an er\x1b[31mror", "Loading\rDone\x1b[K", "\x1b[1merr\x1b[0mor error", "plain error"});
    Panel().SetText("error");
    Panel().SetMarkAll(true);
    ExpectHits(2);
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Coloured);
    ExpectHits(4);
    ExpectHit(true, 0, 3, 1);
    ExpectHit(true, 2, 0, 2);
    ExpectHit(true, 2, 6, 3);
    ExpectHit(false, 2, 0, 2);
    EXPECT_EQ(m_View->GetMatchLength(), 5);
    // The picture shows the hit as it does where nothing is hidden.
    auto* const plain = new TestView(Frame());
    plain->SetSize(m_View->GetSize());
    for (const char* const line : {"an error", "Done", "error error", "plain error"})
    {
        plain->Append(line, false);
    }
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Plain);
    plain->GetSearchPanel()->Show();
    plain->GetSearchPanel()->SetText("error");
    plain->GetSearchPanel()->SetMarkAll(true);
    plain->GetSearchPanel()->Find(true);
    plain->GetSearchPanel()->Find(true);
    EXPECT_TRUE(SamePixels(plain->Picture(), m_View->Picture()));
    Panel().SetText("Doneing");
    ExpectHits(0);
    // A hit keeps its characters when they are shown another way.
    Panel().SetText("error");
    ExpectHit(true, 2, 6, 3);
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Raw);
    EXPECT_EQ(m_View->GetMatchColumn(), 14);
    ExpectHit(true, 3, 6, 2);
    ASSERT_TRUE(m_View->Search("[31m", true, true)) << "by bytes";
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Coloured);
    EXPECT_EQ(m_View->GetMatchColumn(), 6);
    ExpectHit(true, 2, 0, 2);
    ASSERT_TRUE(m_View->Search("or err", false, true));
    EXPECT_TRUE(WaitFor([this] { return Panel().GetCurrent() == 0; }));
    ExpectHit(true, 3, 6, 4);
}

TEST_F(SearchPanelTest, TellsWhatIsWrongWithAnExpression)
{
    Append({"a(b", "c"});
    Panel().SetText("a(b");
    ExpectHits(1);
    EXPECT_FALSE(Field()->ShowsNoHit());
    Panel().SetExpression(true);
    EXPECT_EQ(Panel().GetMessage(), "A closing parenthesis is missing");
    EXPECT_EQ(Panel().GetHits(), 0);
    for (const int scheme : {scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker})
    {
        UseColors(scheme, Frame());
        PumpEvents();
        const wxColour ground = Field()->GetBackgroundColour();
        EXPECT_GE(internal::ContrastOf(Field()->GetForegroundColour(), ground),
                  internal::k_TextContrast)
            << scheme;
        EXPECT_NE(ground, wxtGetColor(color_WindowBGLighter)) << scheme;
    }
    m_View->ToggleSearch();
    Panel().Find(true); // by F3 in the text
    EXPECT_TRUE(Panel().IsShown());
    EXPECT_EQ(Panel().GetMessage(), "A closing parenthesis is missing");
    EXPECT_EQ(m_View->GetMarkedLine(), -1);
    Panel().SetText("a.b");
    ExpectHits(1);
    EXPECT_FALSE(Field()->ShowsNoHit());
    EXPECT_EQ(Panel().GetMessage(), "");
    EXPECT_EQ(Field()->GetBackgroundColour(), wxtGetColor(color_WindowBGLighter));
}

TEST_F(SearchPanelTest, LooksWhileTypingFromWhereTheViewStood)
{
    AppendNumbered(2000);
    Panel().SetAsYouType(true);
    m_View->SetScrollPos(wxVERTICAL, 1000 * m_View->LineHeight());
    Focus(Field());
    Type("line 11");
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 1100; }));
    Type("7");
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 1170; }));
    Press(WXK_BACK);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 1100; }))
        << "from the same place again";
    Type("x");
    EXPECT_TRUE(WaitFor([this] { return Field()->ShowsNoHit(); }));
    EXPECT_TRUE(WaitFor(
        [this] { return m_View->GetScrollPos(wxVERTICAL) == 1000 * m_View->LineHeight(); }));
    Press(WXK_BACK);
    EXPECT_TRUE(WaitFor([this] { return !Field()->ShowsNoHit(); }));
    EXPECT_TRUE(
        WaitFor([this] { return m_View->GetScrollPos(wxVERTICAL) > 1000 * m_View->LineHeight(); }));
    Press(WXK_RETURN);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 1101; }));
    // From now on the place is that one.
    Press('a', wxMOD_CONTROL);
    Type("line 9");
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 9; }));
    EXPECT_EQ(Panel().GetMessage(), "Went on from the top");
}

TEST_F(SearchPanelTest, SwitchesWhetherTheViewFollows)
{
    AppendNumbered(200);
    auto* const button = Part<textviews::FollowButton>();
    EXPECT_FALSE(button->IsShown());
    m_View->SetFollowing(true);
    m_View->ShowFollowButton(true);
    EXPECT_TRUE(WaitFor([&] { return button->IsShownOnScreen() && button->GetSize().x > 0; }));
    const auto is = [this](bool following)
    { return WaitFor([=] { return m_View->IsFollowing() == following; }); };
    const auto tells = [&](bool following)
    {
        return button->GetToolTipText() ==
               (following ? "Stay here when lines come" : "Follow the end");
    };
    Focus(Field());
    wxUIActionSimulator pointer;
    for (const bool following : {false, true})
    {
        pointer.MouseMove(button->GetScreenRect().GetPosition() + button->GetSize() / 2);
        PumpEvents();
        pointer.MouseClick();
        EXPECT_TRUE(is(following));
        EXPECT_TRUE(tells(following));
        EXPECT_TRUE(Field()->HasFocus());
    }
    Focus(button);
    for (const int key : {WXK_SPACE, WXK_RETURN})
    {
        Press(key);
        EXPECT_TRUE(is(key == WXK_RETURN)) << key;
    }
    m_View->ScrollToTop();
    EXPECT_TRUE(tells(false));
    Focus(button);
    m_View->ShowFollowButton(false);
    EXPECT_FALSE(button->IsShown());
    EXPECT_TRUE(WaitFor([this] { return Field()->HasFocus(); }));
}

TEST_F(SearchPanelTest, RemembersWhatWasLookedForAndHow)
{
    Append({"one", "two"});
    Focus(Field());
    for (const char* const text : {"one", " t", "two"})
    {
        Press('a', wxMOD_CONTROL);
        Type(text);
        Press(text[0] == ' ' ? WXK_F3 : WXK_RETURN);
        PumpEvents();
    }
    Press('a', wxMOD_CONTROL);
    Type("dra");
    for (const char* const text : {"two", " t", "one", "one"})
    {
        Press(WXK_UP);
        EXPECT_TRUE(WaitFor([&] { return Panel().GetText() == text; })) << text;
    }
    for (const char* const text : {" t", "two", "dra", "dra"})
    {
        Press(WXK_DOWN);
        EXPECT_TRUE(WaitFor([&] { return Panel().GetText() == text; })) << text;
    }
    // Another view of the program, or the next run.
    Labelled("Mark All")->SetFocus();
    Press(WXK_SPACE);
    EXPECT_TRUE(WaitFor([this] { return Panel().GetMarkAll(); }));
    auto* const other = new TestView(Frame());
    other->ToggleSearch();
    EXPECT_TRUE(other->GetSearchPanel()->GetMarkAll());
    EXPECT_FALSE(other->GetSearchPanel()->GetAsYouType());
    Press(WXK_UP);
    EXPECT_TRUE(WaitFor([&] { return other->GetSearchPanel()->GetText() == "two"; }));
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
        [] { wxUIActionSimulator().Char(WXK_ESCAPE); },
        [this] { m_View->Clear(); }, // the lines may go
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

// The keyboard and the place in the text are somebody else's.
TEST_F(SearchPanelTest, ComesBackAsItWas)
{
    AppendNumbered(3000);
    Panel().SetAsYouType(true);
    Panel().Expand();
    m_View->SetScrollPos(wxVERTICAL, 1000);
    m_View->SetFocus();
    Panel().SetState({"line 2.*", true, false, true, true, true});
    EXPECT_TRUE(WaitFor([this] { return Panel().IsShown() && !Panel().IsCounting(); }));
    EXPECT_EQ(Panel().GetHits(), 1111);
    wxStopWatch time;
    EXPECT_TRUE(WaitFor([&time] { return time.Time() > 400; })); // longer than a pause in typing
    EXPECT_TRUE(m_View->HasFocus());
    EXPECT_EQ(m_View->GetMarkedLine(), -1);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 1000);
    wxTextSearchState state = Panel().GetState();
    EXPECT_EQ(state.text, "line 2.*");
    EXPECT_TRUE(state.matchCase && state.expression && state.isOpen);
    EXPECT_FALSE(state.wholeWords || state.onlyMatching) << "nobody offers that pane";
    state.isOpen = false;
    state.wholeWords = true;
    Panel().SetState(state);
    EXPECT_FALSE(Panel().IsShown());
    EXPECT_FALSE(Panel().IsCounting());
    EXPECT_TRUE(Panel().GetWholeWords());
    Panel().Find(true);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 200; }));
}

TEST_F(SearchPanelTest, TheKeysOfReadingCommandsActOnTheViewFromTheField)
{
    AppendNumbered(50);
    m_View->GoToLine(20);
    Focus(Field());
    Press(WXK_F2, wxMOD_CONTROL);
    EXPECT_TRUE(m_View->GetBookmarks().empty()) << "not offered";
    m_View->OfferReadingCommands(true);
    Press(WXK_F2, wxMOD_CONTROL);
    EXPECT_EQ(m_View->GetBookmarks(), std::vector<int>{20});
    m_View->GoToLine(0);
    Press(WXK_F2);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 20; }));
    EXPECT_TRUE(Field()->HasFocus());
}

// Neither search nor count nor the pane of matches waits for a disk while the window does.
TEST_F(SearchPanelTest, AClickIsAnsweredWhileASlowDiskIsSearched)
{
    constexpr int kLines = 4000;
    AppendSlowly(*m_View, kLines);
    EXPECT_TRUE(WaitFor([this] { return !m_View->RedrawPending(); }));
    Panel().SetText("line 3999");
    Panel().Find(true);
    EXPECT_TRUE(Panel().IsSearching());
    Answers answers;
    int     line = 0;
    // By the real pointer, again and again.
    const auto click = [&]
    {
        line = line % 5 + 1;
        wxUIActionSimulator pointer;
        const wxStopWatch   time;
        pointer.MouseMove(m_View->ClientToScreen(wxPoint(20, m_View->MiddleOf(line))));
        pointer.MouseClick();
        EXPECT_TRUE(WaitFor( // the hit may scroll the line away that the pointer is at
            [&] { return m_View->GetSelectionEnd() == line || !Panel().IsSearching(); }));
        answers.Add(time.Time());
        return !Panel().IsSearching();
    };
    EXPECT_TRUE(WaitFor(click));
    EXPECT_EQ(m_View->GetMarkedLine(), kLines - 1);
    EXPECT_TRUE(answers.AreQuick());
    ExpectHits(1);
    EXPECT_TRUE(WaitFor([this] { return Panel().GetCurrent() == 1; }));
}
