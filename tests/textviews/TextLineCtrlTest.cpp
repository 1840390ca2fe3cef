#include "tests/support/LogCapture.h"
#include "tests/textviews/TextViewTest.h"
#include "textviews/wxTextFinder.h"

#include <wx/clipbrd.h>

#include <fcntl.h>

TEST_F(TextViewTest, AppendReplacesTabsAndWidens)
{
    EXPECT_EQ(m_View->Append("a\tb", false), 0);
    EXPECT_EQ(m_View->GetLine(0), "a    b");
    EXPECT_EQ(m_View->Append("abc", false), 1);
    EXPECT_EQ(m_View->VirtualWidth(), 7 * m_View->ColumnWidth());
    EXPECT_EQ(m_View->GetScrollRange(wxVERTICAL), 2 * m_View->LineHeight());
    m_View->Append("\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4\xc3\xa4", false);
    EXPECT_EQ(m_View->VirtualWidth(), 8 * m_View->ColumnWidth()) << "characters, not bytes";
}

// They are lines as all others.
TEST_F(TextViewTest, LinesMayStayInAFile)
{
    const Path file = TempFile("stored.log");
    String     text = "\ta line that is wide\n";
    for (int i = 1; i < 5000; ++i)
    {
        text += "line " + String::FromInt(i) + "\n";
    }
    WriteFile(file, text);
    const auto source = std::make_shared<wxTextFile>(Descriptor::Open(file.Text(), O_RDONLY));
    std::vector<wxTextStretch> found;
    ASSERT_EQ(text.size(), wxFindTextLines(text, 0, found));
    m_View->Append("in memory", false);
    m_View->SetFollowing(true);
    EXPECT_EQ(5000, m_View->AppendStored(source, found));
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    EXPECT_EQ(m_View->VirtualWidth(), 24 * m_View->ColumnWidth());
    m_View->Append("in memory", false);
    EXPECT_EQ(5002, m_View->GetLineCount());
    EXPECT_EQ(5002, m_View->GetReachableLines());
    EXPECT_EQ("    a line that is wide", m_View->GetLine(1));
    EXPECT_TRUE(m_View->Search("line 4321", true, true));
    EXPECT_EQ(4322, m_View->GetMarkedLine());
    m_View->Erase(10);
    EXPECT_EQ(4321, m_View->GetMarkedLine());
    EXPECT_EQ("line 10", m_View->GetLine(10));
    m_View->SelectAll();
    m_View->SetLineLimit(1600);
    EXPECT_EQ("in memory", m_View->GetLine(m_View->GetLineCount() - 1));
    EXPECT_TRUE(IsSelected(0, 1499));
    EXPECT_EQ("line 4321", m_View->GetLine(m_View->GetMarkedLine()));
    m_View->SaveTo(file); // what it reads from is still open
    EXPECT_EQ(text.substr(text.size() - 20) + "in memory\n",
              ReadFile(file).substr(ReadFile(file).size() - 30));
}

TEST_F(TextViewTest, AppendSorted)
{
    Append({"b", "d"});
    EXPECT_EQ(m_View->Append("c", true), 1);
    EXPECT_EQ(m_View->Append("d", true), 2);
    EXPECT_EQ(m_View->Append("a", true), 0);
    EXPECT_EQ(m_View->Append("z\t", true), 5);
    EXPECT_EQ(Lines(), "a|b|c|d|d|z    ");
}

TEST_F(TextViewTest, EraseMovesTheRestUp)
{
    const LogCapture log;
    AppendNumbered(6);
    Drag(4, 3);
    EXPECT_TRUE(m_View->Search("line 5", true, true));
    m_View->Erase(1);
    EXPECT_EQ(Lines(), "line 0|line 2|line 3|line 4|line 5");
    EXPECT_EQ(m_View->GetScrollRange(wxVERTICAL), 5 * m_View->LineHeight());
    EXPECT_TRUE(IsSelected(3, 2)) << "the selection stays on its lines";
    EXPECT_EQ(m_View->GetMarkedLine(), 4) << "and so does the mark";
    m_View->Append("a line before", true);
    EXPECT_TRUE(IsSelected(4, 3));
    m_View->Erase(4); // the anchor's
    EXPECT_TRUE(IsSelected(3, 3));
    m_View->Erase(3);
    EXPECT_TRUE(IsSelected(-1, -1));
    m_View->Erase(3);
    EXPECT_EQ(m_View->GetMarkedLine(), -1);
    m_View->Erase(3);
    m_View->Erase(-1);
    EXPECT_EQ(Lines(), "a line before|line 0|line 2");
    EXPECT_EQ(log.Count("there is no line"), 2) << log.All();
}

TEST_F(TextViewTest, ALimitDropsTheOldestAndLeavesViewSelectionAndMarkOnTheirLines)
{
    m_View->SetLineLimit(320);
    AppendNumbered(320);
    m_View->SetScrollPos(wxVERTICAL, 100 * m_View->LineHeight() + 3);
    Drag(102, 103);
    EXPECT_TRUE(m_View->Search("line 104", true, true));
    const int position = m_View->GetScrollPos(wxVERTICAL);
    EXPECT_EQ(m_View->Append("more", false), 299) << "a sixteenth goes at a time";
    EXPECT_EQ(m_View->GetLine(0), "line 21");
    EXPECT_TRUE(IsSelected(81, 82));
    EXPECT_EQ(m_View->GetMarkedLine(), 83);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), position - 21 * m_View->LineHeight());
    m_View->SetLineLimit(160);
    EXPECT_EQ(m_View->GetLineCount(), 150);
    EXPECT_TRUE(IsSelected(-1, -1)) << "its lines are gone";
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
    m_View->SetFollowEnd(true);
    m_View->ScrollToBottom();
    for (int i = 0; i < 1000; ++i)
    {
        const int index = m_View->Append("end", false);
        EXPECT_EQ(index, m_View->GetLineCount() - 1);
    }
    EXPECT_LE(m_View->GetLineCount(), 160);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    m_View->SetLineLimit(0);
    AppendNumbered(200);
    EXPECT_GT(m_View->GetLineCount(), 200);
}

TEST_F(TextViewTest, ClearLeavesTheScrollbars)
{
    AppendNumbered(100);
    m_View->ScrollToBottom();
    m_View->SelectAll();
    m_View->Search("line 99", true, true);
    const int position = m_View->GetScrollPos(wxVERTICAL);
    EXPECT_GT(position, 0);
    m_View->Clear();
    EXPECT_TRUE(IsSelected(-1, -1));
    EXPECT_EQ(m_View->GetMarkedLine(), -1);
    EXPECT_EQ(m_View->GetScrollRange(wxVERTICAL), 100 * m_View->LineHeight());
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), position);
    m_View->Picture(); // drawing nothing at a position that has no lines
    m_View->Append("again", false);
    EXPECT_EQ(m_View->GetScrollRange(wxVERTICAL), m_View->LineHeight());
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
}

TEST_F(TextViewTest, AClickBelowTheLinesSelectsNothingButStartsSelecting)
{
    AppendNumbered(5);
    m_View->SelectAll();
    m_View->Mouse(wxEVT_LEFT_DOWN, 5, m_View->MiddleOf(8));
    EXPECT_TRUE(IsSelected(-1, -1));
    m_View->Mouse(wxEVT_MOTION, 5, m_View->MiddleOf(4));
    m_View->Mouse(wxEVT_MOTION, 5, m_View->MiddleOf(3));
    EXPECT_TRUE(IsSelected(4, 3));
}

TEST_F(TextViewTest, TheMenuHasFixedIds)
{
    AppendNumbered(100);
    m_View->Menu(7301);
    EXPECT_TRUE(IsSelected(0, 99));
    m_View->Menu(7302);
    EXPECT_TRUE(IsSelected(-1, -1));
    m_View->Menu(7305);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    m_View->Menu(7304);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
    m_View->Menu(7307);
    EXPECT_TRUE(Panel().IsShown());
}

TEST_F(TextViewTest, CopiesTheSelectedLinesWithAnyBytes)
{
    using namespace std::string_literals;
    const String odd = "nul \0 bell \x07 latin \xe9"s;
    Append({"one", odd, "t\xc3\xa4o"});
    Drag(2, 1);
    m_View->Menu(7303);
    EXPECT_EQ(PastedElsewhere("application/octet-stream"), odd + "\nt\xc3\xa4o\n");
    EXPECT_EQ(PastedElsewhere("UTF8_STRING"), "nul \0 bell \x07 latin \xc3\xa9\nt\xc3\xa4o\n"s);
    // What another part of the program does with the clipboard stays as it is.
    EXPECT_TRUE(wxTheClipboard->Open());
    m_View->SelectNone();
    m_View->Menu(7303);
    EXPECT_TRUE(wxTheClipboard->IsOpened());
    wxTheClipboard->Close();
    EXPECT_EQ(PastedElsewhere("application/octet-stream"), odd + "\nt\xc3\xa4o\n");
    m_View->Menu(7303);
    EXPECT_EQ(PastedElsewhere("UTF8_STRING"), "") << "nothing selected places an empty text";
}

TEST_F(TextViewTest, SearchRecordsAndScrolls)
{
    AppendNumbered(1000);
    m_View->Append(String(400, ' ') + "far right Needle", false);
    EXPECT_TRUE(m_View->Search("needle", true, false));
    EXPECT_EQ(m_View->GetMarkedLine(), 1000);
    EXPECT_EQ(m_View->GetMatchColumn(), 410);
    EXPECT_EQ(m_View->GetMatchLength(), 6);
    const wxRect hit(410 * m_View->ColumnWidth() - m_View->GetScrollPos(wxHORIZONTAL),
                     1000 * m_View->LineHeight() - m_View->GetScrollPos(wxVERTICAL),
                     7 * m_View->ColumnWidth(), m_View->LineHeight());
    EXPECT_TRUE(m_View->GetClientRect().Contains(hit));
    EXPECT_FALSE(m_View->Search("needle", true, true));
    EXPECT_EQ(m_View->GetMarkedLine(), 1000) << "without a hit the last one stays";
    EXPECT_TRUE(m_View->Search("line 9", true, true)); // it goes on from the top
    EXPECT_EQ(m_View->GetMarkedLine(), 9);
    EXPECT_EQ(m_View->GetScrollPos(wxHORIZONTAL), 0);

    // Without a mark it starts in the visible lines.
    const int line = m_View->LineHeight();
    for (const bool forward : {true, false})
    {
        m_View->Clear();
        AppendNumbered(1000);
        m_View->SetScrollPos(wxVERTICAL, 500 * line);
        EXPECT_TRUE(m_View->Search("line", forward, true));
        EXPECT_EQ(m_View->GetMarkedLine(),
                  forward ? 500 : (500 * line + m_View->GetClientSize().y - 1) / line);
    }
}
