#include "internal/windows/UpperFloors.h"
#include "tests/support/LogCapture.h"
#include "tests/textviews/TextViewTest.h"

#include <wx/menu.h>
#include <wx/uiaction.h>

namespace
{
/// Answers every question for a line of text, in the place of the dialog.
class TextAnswer
{
public:
    explicit TextAnswer(const wxString& answer) : m_Before(internal::g_UpperFloors.askText)
    {
        s_Text = answer;
        s_Problem.clear();
        internal::g_UpperFloors.askText =
            [](wxWindow*, const wxString&, const wxString&, wxString& text, const String&,
               const std::function<wxString(const wxString&)>& problem)
        {
            text = s_Text;
            if (s_Meanwhile)
            {
                s_Meanwhile();
            }
            s_Problem = problem(text);
            return s_Problem.empty();
        };
    }
    ~TextAnswer()
    {
        internal::g_UpperFloors.askText = m_Before;
        s_Meanwhile = nullptr;
    }
    /// What becomes of the view while the user thinks.
    static void            Meanwhile(const std::function<void()>& act) { s_Meanwhile = act; }
    static const wxString& Problem() { return s_Problem; }

private:
    decltype(internal::UpperFloors::askText) m_Before;
    static inline wxString                   s_Text;
    static inline wxString                   s_Problem;
    static inline std::function<void()>      s_Meanwhile;
};

using Indices = std::vector<int>;
} // namespace

TEST_F(TextViewTest, ALineIsShownInTheMiddleSelectedAndNoLongerLeft)
{
    const LogCapture log;
    AppendNumbered(1000);
    m_View->SetFollowing(true);
    m_View->GoToLine(500);
    EXPECT_TRUE(IsSelected(500, 500));
    EXPECT_NEAR(2 * m_View->MiddleOf(500), m_View->GetClientSize().y, 2);
    m_View->GoToLine(999);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    EXPECT_FALSE(m_View->IsFollowing()) << "the next line would push it out of sight";
    m_View->GoToLine(0);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
    m_View->GoToLine(1000);
    m_View->GoToLine(-1);
    EXPECT_TRUE(IsSelected(0, 0));
    EXPECT_EQ(log.Count("there is no line"), 2) << log.All();
}

TEST_F(TextViewTest, TheUserIsAskedForTheNumberThatTheGutterShows)
{
    m_View->SetLineLimit(160);
    AppendNumbered(200);
    ASSERT_EQ(m_View->GetLine(0), "line 44");
    const auto answer = [this](const wxString& text)
    {
        const TextAnswer given(text);
        m_View->Menu(wxTextLineCtrl::id_GoToLine);
        PumpEvents();
        return m_View->GetSelectionEnd() < 0 ? String()
                                             : m_View->GetLine(m_View->GetSelectionEnd());
    };
    EXPECT_EQ(answer("101"), "line 100");
    EXPECT_EQ(answer("+10"), "line 110");
    EXPECT_EQ(answer("-20"), "line 90");
    EXPECT_EQ(answer("0%"), "line 44");
    EXPECT_EQ(answer("44"), "line 44");
    EXPECT_TRUE(TextAnswer::Problem().Contains("45 to 200")) << TextAnswer::Problem();
    EXPECT_EQ(answer("far away"), "line 44");
    EXPECT_FALSE(TextAnswer::Problem().empty());
    m_View->Clear();
    EXPECT_EQ(answer("1"), "") << "nobody is asked where there is no line";
}

TEST_F(TextViewTest, LinesAndTheViewMayGoWhileTheUserIsAsked)
{
    AppendNumbered(100);
    m_View->OfferReadingCommands(true);
    Focus(m_View);
    wxUIActionSimulator input;
    bool                isAsked = false;
    const TextAnswer    given("50");
    TextAnswer::Meanwhile(
        [&]
        {
            isAsked = true;
            m_View->Clear();
        });
    input.Char('G', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([&] { return isAsked; }));
    EXPECT_TRUE(IsSelected(-1, -1));
    EXPECT_FALSE(TextAnswer::Problem().empty());
    AppendNumbered(100);
    isAsked = false;
    TextAnswer::Meanwhile(
        [&]
        {
            isAsked = true;
            m_View->Destroy();
        });
    input.Char('G', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([&] { return isAsked; }));
}

TEST_F(TextViewTest, BookmarksStayWithTheirLinesAndShowAGutter)
{
    const LogCapture log;
    AppendNumbered(100);
    const int range = m_View->VirtualWidth();
    m_View->SetBookmark(10);
    m_View->SetBookmark(50);
    m_View->SetBookmark(70);
    m_View->SetBookmark(70, false);
    m_View->SetBookmark(100);
    EXPECT_EQ(log.Count("there is no line 100"), 1);
    EXPECT_EQ(m_View->GetBookmarks(), (Indices{10, 50}));
    EXPECT_GT(m_View->VirtualWidth(), range);
    m_View->Erase(3);
    m_View->Append("before all", true);
    m_View->Append("a further one before", true);
    EXPECT_EQ(m_View->GetBookmarks(), (Indices{11, 51}));
    m_View->SetLineLimit(64);
    EXPECT_EQ(m_View->GetBookmarks(), (Indices{51 - (101 - m_View->GetLineCount())}));
    EXPECT_EQ(m_View->GetLine(m_View->GetBookmarks().front()), "line 50");
    m_View->RemoveBookmarks();
    EXPECT_TRUE(m_View->GetBookmarks().empty());
    EXPECT_EQ(m_View->VirtualWidth(), 21 * m_View->ColumnWidth()) << "the gutter has gone";
    m_View->SetBookmark(1);
    m_View->Clear();
    EXPECT_TRUE(m_View->GetBookmarks().empty());
}

TEST_F(TextViewTest, ABookmarkIsSeenInItsRowAlone)
{
    AppendNumbered(30);
    m_View->ShowLineNumbers(true);
    EXPECT_TRUE(WaitFor([this] { return !m_View->RedrawPending(); }));
    const wxImage before = m_View->Picture();
    m_View->SetBookmark(4);
    const wxImage after = m_View->Picture();
    const int     height = m_View->LineHeight();
    for (int line = 0; line < 10; ++line)
    {
        const wxRect band(0, line * height, before.GetWidth(), height);
        EXPECT_EQ(SamePixels(before.GetSubImage(band), after.GetSubImage(band)), line != 4) << line;
    }
    m_View->SetBookmark(4, false);
    EXPECT_TRUE(SamePixels(m_View->Picture(), before));
}

TEST_F(TextViewTest, KeysAndMenuAreThereForWhoeverWantsThem)
{
    AppendNumbered(300);
    Focus(m_View);
    wxUIActionSimulator input;
    input.Char(WXK_F2, wxMOD_CONTROL);
    input.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetScrollPos(wxVERTICAL) > 0; }));
    EXPECT_TRUE(m_View->GetBookmarks().empty()) << "nobody has asked for it";
    m_View->OfferReadingCommands(true);
    m_View->GoToLine(100);
    input.Char(WXK_F2, wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([this] { return m_View->HasBookmark(100); }));
    m_View->GoToLine(200);
    input.Char(WXK_F2, wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([this] { return m_View->HasBookmark(200); }));
    input.Char(WXK_F2);
    EXPECT_TRUE(WaitFor([this] { return IsSelected(100, 100); }));
    input.Char(WXK_F2, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([this] { return IsSelected(200, 200); }));
    input.Char(WXK_F2, wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetBookmarks() == Indices{100}; }));
}

TEST_F(TextViewTest, ArrivalTimesAreAColumnOnceTheyAreKept)
{
    AppendNumbered(10);
    const int range = m_View->VirtualWidth();
    m_View->ShowArrivalTimes(true);
    EXPECT_EQ(m_View->VirtualWidth(), range) << "nobody knows any";
    m_View->KeepArrivalTimes();
    EXPECT_GT(m_View->VirtualWidth(), range + 8 * m_View->ColumnWidth());
    AppendNumbered(5);
    const wxImage picture = m_View->Picture();
    const auto    timeOf = [&](int line)
    {
        return picture.GetSubImage(wxRect(2 * m_View->ColumnWidth(),
                                          line * m_View->LineHeight() + 3,
                                          8 * m_View->ColumnWidth(), m_View->LineHeight() - 6));
    };
    EXPECT_TRUE(SamePixels(timeOf(3), timeOf(4)));
    EXPECT_FALSE(SamePixels(timeOf(9), timeOf(10))) << Kept(picture, "times");
    m_View->ShowArrivalTimes(false);
    EXPECT_EQ(m_View->VirtualWidth(), range);
}
