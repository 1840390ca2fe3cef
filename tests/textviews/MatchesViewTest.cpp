#include "appearance/Contrast.h"
#include "tests/textviews/PanesTest.h"
#include "textviews/wxTextRules.h"

#include <wx/uiaction.h>

namespace
{
/// A view with a pane for the lines that match, which is open.
class MatchesViewTest : public PanesTest
{
protected:
    MatchesViewTest()
    {
        for (int i = 0; i < 300; ++i)
        {
            m_View->Append(SFormat("line %d", i), false);
        }
    }
    wxTextLineSearchPanel& Panel() const { return *m_View->GetSearchPanel(); }
    wxTextLineCtrl&        Matches() const { return *m_Panes->GetMatches(); }
    /// Shows lines that match.
    void LookFor(const char* text) const
    {
        m_Panes->SetOnlyMatching(true);
        Panel().SetText(text);
        Settle();
    }
    void Settle() const
    {
        PumpEvents();
        EXPECT_TRUE(WaitFor([this] { return m_Panes->IsMatchingComplete(); }));
        PumpEvents();
    }
    String Shown() const
    {
        String all;
        for (int i = 0; i < Matches().GetLineCount(); ++i)
        {
            all += (i > 0 ? "|" : "") + Matches().GetLine(i);
        }
        return all;
    }
    void PointAtRow(int row) const
    {
        const int     height = m_View->LineHeight();
        const wxPoint place(100, row * height + height / 2 - Matches().GetScrollPos(wxVERTICAL));
        wxUIActionSimulator().MouseMove(Matches().ClientToScreen(place));
        PumpEvents();
    }
    void ClickRow(int row, int modifiers = wxMOD_NONE) const
    {
        PointAtRow(row);
        wxUIActionSimulator().MouseClick(modifiers == wxMOD_NONE ? wxMOUSE_BTN_LEFT
                                                                 : wxMOUSE_BTN_RIGHT);
        PumpEvents();
    }
};
} // namespace

TEST_F(MatchesViewTest, ShowsMatchesAndFollowsTheLines)
{
    LookFor("line 1?5");
    EXPECT_EQ(Shown(), "");
    Panel().SetExpression(true);
    Panel().SetText("line 1.5$");
    Settle();
    EXPECT_EQ(Shown(), "line 105|line 115|line 125|line 135|line 145|line 155|line 165|line 175|"
                       "line 185|line 195");
    m_View->Append("line 1x5", false);
    m_View->Append("a line 1y5", true);
    m_View->Erase(106);
    Settle();
    EXPECT_EQ(Shown(), "a line 1y5|line 115|line 125|line 135|line 145|line 155|line 165|line 175|"
                       "line 185|line 195|line 1x5");
    m_View->SetLineLimit(100);
    Settle();
    EXPECT_EQ(Shown(), "line 1x5");
    m_View->Clear();
    Settle();
    EXPECT_EQ(Shown(), "");
    m_View->Append("line 1_5", false);
    Settle();
    EXPECT_EQ(Shown(), "line 1_5");
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Coloured);
    m_View->Append("li\x1b[31mne 1+5", false);
    Settle();
    EXPECT_EQ(Shown(), "line 1_5|li\x1b[31mne 1+5");
    EXPECT_EQ(Matches().GetEscapes(), wxTextLineCtrl::Escapes::Coloured);
    Panel().SetText("(");
    Settle();
    EXPECT_EQ(Shown(), "");
}

TEST_F(MatchesViewTest, AClickAndEnterGoToTheLine)
{
    LookFor("line 2");
    ASSERT_EQ(Matches().GetLineCount(), 111);
    ClickRow(2);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 21; }));
    EXPECT_TRUE(Matches().HasFocus());
    for (int i = 0; i < 3; ++i)
    {
        Press(WXK_DOWN);
    }
    EXPECT_EQ(Matches().GetSelectionEnd(), 5);
    EXPECT_EQ(m_View->GetSelectionEnd(), 21) << "not before Enter";
    Press(WXK_RETURN);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 24; }));
    Press('A', wxMOD_CONTROL);
    Press('C', wxMOD_CONTROL);
    EXPECT_EQ(Matches().GetSelectionEnd(), 110);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 24; }));
    Press(WXK_F3);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetMarkedLine() == 25; })) << "goes on from there";
    // Lines that come above leave what is selected and seen as it is.
    ClickRow(4);
    const int position = Matches().GetScrollPos(wxVERTICAL);
    m_View->Append("a line 2", true);
    Settle();
    EXPECT_EQ(Matches().GetSelectionEnd(), 5);
    EXPECT_EQ(Matches().GetScrollPos(wxVERTICAL), position + m_View->LineHeight());
}

// Lines are found from the top on: what was seen and selected comes later.
TEST_F(MatchesViewTest, AnotherSearchKeepsThePlace)
{
    for (int i = 300; i < 200'000; ++i)
    {
        m_View->Append(SFormat("line %d of very many ", i) + String(100, '.'), false);
    }
    LookFor("9 of");
    const int rows = Matches().GetLineCount();
    ASSERT_GT(rows, 10'000);
    Matches().GoToLine(rows - 500);
    const String line = Matches().GetLine(rows - 500);
    const auto   top = [this]
    { return Matches().GetLine(Matches().GetScrollPos(wxVERTICAL) / m_View->LineHeight()); };
    const String seen = top();
    m_Panes->SetLinesAround(0, 3);
    Settle();
    EXPECT_GT(Matches().GetLineCount(), 2 * rows);
    EXPECT_EQ(Matches().GetLine(Matches().GetSelectionEnd()), line);
    EXPECT_EQ(top(), seen);
    Panel().SetText("no such line");
    Settle();
    EXPECT_EQ(Matches().GetLineCount(), 0);
    EXPECT_EQ(Matches().GetSelectionEnd(), -1);
}

TEST_F(MatchesViewTest, TheChoicesAreRememberedAndThePaneKeepsItsHeight)
{
    Focus(m_View);
    Press('F', wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([this] { return m_Panes->GetMatches() && Panel().IsShown(); }))
        << "and the bar, as there is nothing to look for";
    Panel().SetText("line 15");
    m_Panes->SetMatchesHeight(130);
    Settle();
    EXPECT_EQ(Matches().GetSize().y, 130);
    const wxSize size = Frame()->GetClientSize();
    Frame()->SetClientSize(size.x, size.y + 90);
    EXPECT_TRUE(WaitFor([&] { return m_Panes->GetSize().y == size.y + 90; }));
    EXPECT_EQ(Matches().GetSize().y, 130);
    const int lines = 3 * m_View->GetCharHeight();
    const int low = Panel().GetSize().y + lines + m_Panes->GetMinimumPaneSize() + 10;
    Frame()->SetClientSize(size.x, low);
    EXPECT_TRUE(WaitFor([&] { return m_Panes->GetSize().y == low; }));
    EXPECT_GE(m_View->GetSize().y, lines);
    Frame()->SetClientSize(size.x, size.y + 90);
    EXPECT_TRUE(WaitFor([&] { return m_Panes->GetSize().y == size.y + 90; }));
    EXPECT_EQ(Matches().GetSize().y, 130);
    m_Panes->SetLinesAround(1, 0);
    Settle();
    EXPECT_EQ(Shown(), "line 14|line 15|line 149|line 150|line 151|line 152|line 153|line 154|"
                       "line 155|line 156|line 157|line 158|line 159");
    // By the hand: the sash, then the menu.
    wxUIActionSimulator pointer;
    const wxPoint sash = m_Panes->ClientToScreen(wxPoint(200, m_Panes->GetSashPosition() + 2));
    const int     sashBefore = m_Panes->GetSashPosition();
    pointer.MouseMove(sash);
    EXPECT_TRUE(WaitFor([&] { return wxGetMousePosition() == sash; }));
    PumpEvents();
    pointer.MouseDown();
    EXPECT_TRUE(WaitFor([this] { return m_Panes->HasCapture(); }));
    for (const int moved : {20, 40})
    {
        pointer.MouseMove(sash - wxPoint(0, moved));
        EXPECT_TRUE(WaitFor([&] { return m_Panes->GetSashPosition() == sashBefore - moved; }));
    }
    pointer.MouseUp();
    EXPECT_TRUE(WaitFor([this] { return !m_Panes->HasCapture(); }));
    EXPECT_EQ(m_Panes->GetMatchesHeight(), 170);
    // Another view of the program.
    auto* const other = new wxTextLinePanes(Frame());
    auto* const view = new TestView(other->GetViewParent());
    other->ShowView(view);
    EXPECT_FALSE(other->GetOnlyMatching());
    view->ToggleSearch();
    EXPECT_TRUE(other->GetOnlyMatching());
    EXPECT_EQ(other->GetMatchesHeight(), 170);
    view->ToggleSearch();
    EXPECT_TRUE(other->GetOnlyMatching()) << "also without the bar";
    other->Destroy();
    Focus(&Matches());
    Press('F', wxMOD_CONTROL | wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([this] { return !m_Panes->GetMatches() && m_View->HasFocus(); }));
}

TEST_F(MatchesViewTest, LooksAsTheViewDoes)
{
    m_View->SetTextSize(14);
    LookFor("line 29");
    EXPECT_EQ(Matches().GetTextSize(), 14);
    Focus(&Matches());
    Press('-', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetTextSize() == 13; }));
    m_View->SetReadableSelection(true);
    EXPECT_TRUE(Matches().HasReadableSelection());
    const Path file = TempFile("matches");
    m_View->Append("line 29 \xff\x1b[1m", false);
    Settle();
    Matches().SaveTo(file);
    EXPECT_EQ(ReadFile(file.Text()).substr(0, 16), "line 29\nline 290");
    EXPECT_EQ(ReadFile(file.Text()).substr(7 + 1 + 10 * 9), "line 29 \xff\x1b[1m\n");
}

TEST_F(MatchesViewTest, HasTheRulesAndCommandsOfTheView)
{
    m_View->OfferReadingCommands(true);
    m_View->SelectWithinLines(true);
    m_View->SetRules(wxStandardTextRules());
    m_View->Append("an error in line 29", false);
    LookFor("line 29");
    ASSERT_EQ(Matches().GetLineCount(), 12);
    Matches().ScrollToBottom();
    const wxColour red =
        wxtReadableColor(wxtGetColor(color_TextRed), wxtGetColor(color_WindowBGLighter));
    const auto countRed = [&] {
        return CountPixels(PictureOf(&Matches()),
                           [&](const wxColour& each) { return each == red; });
    };
    EXPECT_TRUE(WaitFor([&] { return countRed() > 5; }));
    m_View->SetRules({});
    EXPECT_TRUE(WaitFor([&] { return countRed() == 0; }));
    m_View->SetRules(wxStandardTextRules());

    Matches().ScrollToTop();
    ClickRow(1);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 290; }));
    Press(WXK_F2, wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetBookmarks() == std::vector<int>{290}; }));
    ClickRow(3);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 292; }));
    Press(WXK_F2);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 290; }));
    Press(WXK_F8);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetSelectionEnd() == 300; }));

    // A part of a line stays on it when others come before.
    PointAtRow(5);
    wxUIActionSimulator().MouseDblClick();
    EXPECT_TRUE(WaitFor([this] { return !Matches().GetSelectedPart().empty(); }));
    const String part = Matches().GetSelectedPart();
    EXPECT_TRUE(part == "line" || part == "294") << part.c_str();
    m_View->Append("a line 29", true);
    Settle();
    EXPECT_EQ(Matches().GetSelectedPart(), part);
}

TEST_F(MatchesViewTest, ViewBarAndPaneMayGoInAnyOrder)
{
    LookFor("line");
    m_View->Destroy();
    EXPECT_TRUE(WaitFor([this] { return !m_Panes->GetMatches(); }));
    for (int i = 0; i < 3; ++i)
    {
        auto* const panes = new wxTextLinePanes(Frame());
        auto* const view = new TestView(panes->GetViewParent());
        panes->ShowView(view);
        panes->SetOnlyMatching(true);
        view->GetSearchPanel()->SetText("x");
        view->Append("x", false);
        wxWindow* const   windows[] = {view->GetSearchPanel(), panes->GetMatches(), panes};
        const wxWindowRef gone(windows[i]);
        windows[i]->Destroy();
        EXPECT_TRUE(WaitFor([&] { return !gone; }));
        if (i < 2)
        {
            view->Append("xx", false);
            PumpEvents();
            panes->Destroy();
        }
        PumpEvents();
    }
}

TEST_F(MatchesViewTest, TheViewMayBeDeletedWhileThePaneIsOpen)
{
    LookFor("line");
    EXPECT_EQ(Matches().GetLineCount(), 300);
    delete m_View;
    EXPECT_FALSE(m_Panes->GetMatches());
    PumpEvents();
}

TEST_F(MatchesViewTest, MatchesWrapAsTheViewDoes)
{
    for (int i = 0; i < 300; ++i)
    {
        m_View->Append(SFormat("long %d ", i) + String(300, '-') + " end", false);
    }
    m_View->SetWrap(true);
    LookFor("long");
    EXPECT_TRUE(Matches().IsWrapped());
    Matches().ScrollLines(100);
    const int top = Matches().GetScrollPos(wxVERTICAL) / m_View->LineHeight();
    EXPECT_GT(top, 10);
    EXPECT_LT(top, 100) << "of rows";
    m_View->Append("another", false);
    m_View->Append("a long one", false);
    Settle();
    EXPECT_EQ(Matches().GetScrollPos(wxVERTICAL) / m_View->LineHeight(), top);
    m_View->SetWrap(false);
    EXPECT_FALSE(Matches().IsWrapped());
    EXPECT_EQ(Matches().GetScrollPos(wxVERTICAL) / m_View->LineHeight(), top);
}

// As in the view, for the lines that are there.
TEST_F(MatchesViewTest, RowsTellWhereTheirLinesComeFrom)
{
    m_View->ShowOrigins({"a", "b"}, [](int line) { return line / 100 % 2; });
    LookFor("line 99");
    Panel().SetText("line .99");
    Panel().SetExpression(true);
    Settle();
    ASSERT_EQ(Shown(), "line 199|line 299");
    EXPECT_EQ(Matches().GetOrigins(), m_View->GetOrigins());
    const auto barOf = [](const wxImage& picture, int top)
    {
        std::vector<wxColour> colours;
        for (int x = 0; x < 120; ++x)
        {
            colours.push_back(PixelAt(picture, x, top));
        }
        return colours;
    };
    const int height = m_View->LineHeight();
    EXPECT_TRUE(WaitFor(
        [&]
        {
            const wxImage picture = PictureOf(&Matches());
            return barOf(picture, 1) != barOf(picture, height + 1);
        }))
        << Kept(PictureOf(&Matches()), "rows");
    m_View->ShowOrigins({}, nullptr);
    EXPECT_TRUE(Matches().GetOrigins().empty());
}
