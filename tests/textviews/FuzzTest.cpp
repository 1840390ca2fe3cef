#include "tests/textviews/PanesTest.h"
#include "tests/textviews/RandomLines.h"
#include "textviews/wxTextRules.h"

#include <algorithm>
#include <cstdlib>
#include <deque>
#include <functional>
#include <random>

// Any bytes in any order of what one can do to a view: nothing is lost, and nothing breaks.

namespace
{
constexpr int kLimit = 4000;
constexpr int kAtOnce = 100;

/// A view with its pane, rules, strip and search bar, and what its lines have to be.
class FuzzTest : public PanesTest
{
protected:
    FuzzTest()
    {
        m_View->SetLineLimit(kLimit);
        m_View->OfferReadingCommands(true);
        m_View->KeepArrivalTimes();
        m_View->SelectWithinLines(true);
    }

    int AnyLine()
    {
        return static_cast<int>(m_Random() % static_cast<unsigned>(m_View->GetLineCount() + 1));
    }
    bool   AnyChoice() { return m_Random() % 2 == 0; }
    void   AppendSome();
    void   EraseOne();
    void   LookForSomething();
    void   DragSomewhere();
    void   ChangeTheLook();
    void   GoSomewhere();
    void   ExpectAllThere();
    void   DoSomething();
    String Expected(int line) const
    {
        const size_t gone = m_Lines.size() - static_cast<size_t>(m_View->GetLineCount());
        return m_Lines[gone + static_cast<size_t>(line)];
    }

    std::mt19937       m_Random{20261124};
    std::deque<String> m_Lines; ///< The last of them are those of the view.
};

void FuzzTest::AppendSome()
{
    for (int i = 0; i < kAtOnce; ++i)
    {
        std::string line = RandomLine(m_Random);
        std::replace(line.begin(), line.end(), '\t', ' '); // a tab is stored as four spaces
        m_Lines.emplace_back(line);
        m_View->Append(m_Lines.back(), false);
    }
    while (m_Lines.size() > static_cast<size_t>(m_View->GetLineCount()))
    {
        m_Lines.pop_front();
    }
}

void FuzzTest::DoSomething()
{
    using Deed = void (FuzzTest::*)();
    static constexpr Deed kDeeds[] = {&FuzzTest::EraseOne,      &FuzzTest::LookForSomething,
                                      &FuzzTest::DragSomewhere, &FuzzTest::ChangeTheLook,
                                      &FuzzTest::GoSomewhere,   &FuzzTest::ExpectAllThere};
    (this->*kDeeds[m_Random() % std::size(kDeeds)])();
}

void FuzzTest::EraseOne()
{
    const int line = AnyLine();
    if (line < m_View->GetLineCount())
    {
        m_View->Erase(line);
        m_Lines.erase(m_Lines.begin() + line);
    }
}

void FuzzTest::LookForSomething()
{
    static const char* const kTexts[] = {"text", "e", "", "[0-9]+t", "\\x1b", "(", "0123", "t.*1"};
    wxTextLineSearchPanel&   panel = *m_View->GetSearchPanel();
    panel.SetExpression(AnyChoice());
    panel.SetWholeWords(AnyChoice());
    panel.SetText(kTexts[m_Random() % std::size(kTexts)]);
    panel.Find(AnyChoice());
    m_Panes->SetOnlyMatching(AnyChoice());
    m_View->FindError(AnyChoice());
}

void FuzzTest::DragSomewhere()
{
    const wxSize size = m_View->GetClientSize();
    const auto   any = [this](int limit)
    { return static_cast<int>(m_Random() % static_cast<unsigned>(limit + 40)) - 20; };
    m_View->Mouse(AnyChoice() ? wxEVT_LEFT_DOWN : wxEVT_LEFT_DCLICK, any(size.x), any(size.y));
    m_View->Mouse(wxEVT_MOTION, any(size.x), any(size.y));
    m_View->Mouse(wxEVT_LEFT_UP, any(size.x), any(size.y));
}

void FuzzTest::ChangeTheLook()
{
    m_View->SetEscapes(static_cast<wxTextLineCtrl::Escapes>(m_Random() % 3));
    m_View->SetWrap(AnyChoice());
    m_View->ShowLineNumbers(AnyChoice());
    m_View->ShowArrivalTimes(AnyChoice());
    m_View->ShowOverview(AnyChoice());
    m_View->SetRules(AnyChoice() ? wxStandardTextRules() : std::vector<wxTextRule>());
    m_View->SetTextSize(static_cast<int>(m_Random() % 30));
}

void FuzzTest::GoSomewhere()
{
    m_View->SetFollowing(AnyChoice());
    m_View->SetBookmark(AnyLine());
    m_View->GoToLine(AnyLine());
    m_View->GoToBookmark(AnyChoice());
    m_View->ScrollLines(static_cast<int>(m_Random() % 200) - 100);
}

void FuzzTest::ExpectAllThere()
{
    ASSERT_LE(m_View->GetLineCount(), kLimit);
    for (int i = 0; i < m_View->GetLineCount(); ++i)
    {
        ASSERT_EQ(Expected(i), m_View->GetLine(i)) << i;
    }
}
} // namespace

// TOLVAN_FUZZ_LINES sets how many lines.
TEST_F(FuzzTest, NothingIsLostWhateverComesAndIsDone)
{
    const char* const wanted = std::getenv("TOLVAN_FUZZ_LINES");
    const int         count = wanted ? std::atoi(wanted) : 20000;
    for (int lines = 0; lines < count; lines += kAtOnce)
    {
        AppendSome();
        DoSomething();
        PumpEvents();
        ASSERT_TRUE(m_View->Picture().IsOk());
        ASSERT_FALSE(HasFatalFailure()) << lines;
    }
    ExpectAllThere();
    const Path saved = TempFile("saved.txt");
    m_View->SaveTo(saved);
    String all;
    for (int i = 0; i < m_View->GetLineCount(); ++i)
    {
        all += Expected(i) + "\n";
    }
    EXPECT_TRUE(ReadFile(saved) == all);
}
