#include "tests/support/EventCounter.h"
#include "tests/textviews/TextViewTest.h"

#include <wx/stopwatch.h>
#include <wx/uiaction.h>

namespace
{
/// A view of lines of one to five rows, wrapped.
class WrapTest : public TextViewTest
{
protected:
    WrapTest()
    {
        m_View->SelectWithinLines(true);
        m_View->OfferReadingCommands(true);
        m_View->SetWrap(true);
        m_View->SetFocus();
        PumpEvents();
    }
    // Words whose numbers go through all lines, so that no two rows are alike.
    void Fill(int lines)
    {
        for (int line = 0; line < lines; ++line)
        {
            String text = SFormat("%d:", line);
            for (int word = 0; word < line * 7 % 41; ++word)
            {
                text += SFormat(" %d.%d", line, word);
            }
            m_View->Append(text, false);
        }
        Settle();
    }
    void Settle() const
    {
        for (int i = 0; i < 3; ++i)
        {
            m_View->PaintNow();
            PumpEvents();
        }
    }
    int PageRows() const { return m_View->GetClientSize().y / m_View->LineHeight(); }
    // Without the edges, where the focus is shown.
    wxImage Rows(int first, int count)
    {
        Settle();
        const wxImage picture = m_View->Picture();
        const int     height = m_View->LineHeight();
        return picture.GetSubImage(
            wxRect(4, first * height + 3, picture.GetWidth() - 30, count * height - 6));
    }
    void Key(int code, int modifiers = wxMOD_NONE) const
    {
        wxKeyEvent event(wxEVT_KEY_DOWN);
        event.m_keyCode = code;
        event.SetShiftDown((modifiers & wxMOD_SHIFT) != 0);
        event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
        event.SetAltDown((modifiers & wxMOD_ALT) != 0);
        event.SetEventObject(m_View);
        m_View->ProcessWindowEvent(event);
        Settle();
    }
    int FirstLine() const { return m_View->GetScrollPos(wxVERTICAL) / m_View->LineHeight(); }
};
} // namespace

TEST_F(WrapTest, NoRowIsLeftOutAndNoneIsShownTwice)
{
    Fill(200);
    const int page = PageRows();
    ASSERT_GT(page, 5);
    for (int step = 0; step < 60; ++step)
    {
        const wxImage before = Rows(1, page - 1);
        Key(WXK_DOWN);
        const wxImage after = Rows(0, page - 1);
        ASSERT_TRUE(SamePixels(after, before))
            << step << Kept(before, "before") << Kept(after, "after");
    }
    const wxImage there = Rows(0, page);
    Key(WXK_PAGEDOWN);
    const wxImage next = Rows(0, page);
    Key(WXK_PAGEUP);
    EXPECT_TRUE(SamePixels(Rows(0, page), there));
    m_View->ScrollLines(page);
    EXPECT_TRUE(SamePixels(Rows(0, page), next)) << "a page is as many rows as are seen";
    m_View->ScrollPages(-1);
    EXPECT_TRUE(SamePixels(Rows(0, page), there));
    m_View->ScrollLines(-60);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
    m_View->ScrollLines(-1);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
    // Nothing is beside the view.
    EXPECT_EQ(m_View->VirtualWidth(), 0);
}

TEST_F(WrapTest, TheEndIsOneHoweverItIsReached)
{
    Fill(200);
    m_View->Append("the last line", false);
    Settle();
    m_View->ScrollToBottom();
    Settle();
    const wxImage end = m_View->Picture();
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    // The last row stands at the bottom.
    Drag(0, 0);
    m_View->Mouse(wxEVT_LEFT_DOWN, 20, m_View->GetClientSize().y - 3);
    m_View->Mouse(wxEVT_LEFT_UP, 20, m_View->GetClientSize().y - 3);
    EXPECT_TRUE(IsSelected(200, 200));
    m_View->Mouse(wxEVT_LEFT_DOWN, 20, m_View->GetClientSize().y - m_View->LineHeight() - 3);
    m_View->Mouse(wxEVT_LEFT_UP, 20, m_View->GetClientSize().y - m_View->LineHeight() - 3);
    EXPECT_TRUE(IsSelected(199, 199));
    m_View->SelectNone();
    m_View->Mouse(wxEVT_LEAVE_WINDOW, 0, 0);
    m_View->ScrollToTop();
    m_View->SetScrollPos(wxVERTICAL, Bottom());
    Settle();
    EXPECT_TRUE(SamePixels(m_View->Picture(), end));
    m_View->ScrollToTop();
    for (int i = 0; i < 1000; ++i)
    {
        m_View->ScrollLines(1);
    }
    Settle();
    EXPECT_TRUE(SamePixels(m_View->Picture(), end)) << Kept(end, "end");
    // And from there back.
    for (int i = 0; i < 1000; ++i)
    {
        m_View->ScrollLines(-1);
    }
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
    // Lines that leave room in the view.
    m_View->Clear();
    Fill(3);
    m_View->ScrollToBottom();
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
}

TEST_F(WrapTest, TheFirstVisibleTextStays)
{
    Fill(300);
    m_View->SetScrollPos(wxVERTICAL, 117 * m_View->LineHeight());
    m_View->ScrollLines(2); // into the line
    ASSERT_EQ(FirstLine(), 117);
    const wxImage there = Rows(0, PageRows());
    const wxSize  size = m_View->GetSize();
    const int     beside = size.x - m_View->GetClientSize().x;
    for (const int width : {300, 500, size.x})
    {
        m_View->SetSize(width, size.y);
        EXPECT_TRUE(WaitFor([&] { return m_View->GetClientSize().x == width - beside; }));
        Settle();
        EXPECT_EQ(FirstLine(), 117) << width;
    }
    EXPECT_TRUE(SamePixels(Rows(0, PageRows()), there)) << Kept(there, "there");
    m_View->SetTextSize(20);
    Settle();
    EXPECT_EQ(FirstLine(), 117);
    m_View->SetTextSize(9);
    EXPECT_TRUE(SamePixels(Rows(0, PageRows()), there));
    m_View->ShowLineNumbers(true);
    Settle();
    EXPECT_EQ(FirstLine(), 117);
    m_View->ShowLineNumbers(false);
    EXPECT_TRUE(SamePixels(Rows(0, PageRows()), there));
    // Lines that come before, go, and come behind.
    m_View->Append("!", true);
    EXPECT_TRUE(SamePixels(Rows(0, PageRows()), there));
    EXPECT_EQ(FirstLine(), 118);
    m_View->Erase(7);
    m_View->Erase(7);
    m_View->Append("behind", false);
    EXPECT_TRUE(SamePixels(Rows(0, PageRows()), there));
    EXPECT_EQ(FirstLine(), 116);
    m_View->SetLineLimit(250);
    EXPECT_TRUE(SamePixels(Rows(0, PageRows()), there));
    EXPECT_LT(FirstLine(), 116);
    const int line = FirstLine();
    m_View->SetWrap(false);
    EXPECT_EQ(FirstLine(), line);
    m_View->SetWrap(true);
    EXPECT_EQ(FirstLine(), line);
}

TEST_F(WrapTest, AViewThatFollowsStaysAtTheLastRow)
{
    m_View->SetFollowEnd(true);
    Fill(100);
    m_View->ScrollToBottom();
    const auto showsEnd = [this]
    {
        Settle();
        return m_View->IsFollowing() && m_View->GetScrollPos(wxVERTICAL) == Bottom();
    };
    EXPECT_TRUE(showsEnd());
    m_View->Append(String(2000, 'x'), false);
    EXPECT_TRUE(showsEnd());
    m_View->SetSize(400, 300);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetClientSize().y == 300; }));
    EXPECT_TRUE(showsEnd());
    m_View->ScrollLines(-1);
    EXPECT_FALSE(m_View->IsFollowing()) << "in a line that the scrollbar has few pixels for";
    const wxImage there = Rows(0, PageRows());
    m_View->Append("one more", false);
    EXPECT_TRUE(SamePixels(Rows(0, PageRows()), there));
    m_View->ScrollLines(100);
    EXPECT_TRUE(m_View->IsFollowing());
    m_View->SetWrap(false);
    EXPECT_TRUE(showsEnd());
    m_View->SetWrap(true);
    EXPECT_TRUE(showsEnd());
}

TEST_F(WrapTest, AViewAtItsEndThatDoesNotFollowDoesNotBeginTo)
{
    for (int line = 0; line < 60; ++line)
    {
        m_View->Append("a row", false);
    }
    // Whole rows, so that the end stays at the edge however the view gets there.
    m_View->SetSize(400, 12 * m_View->LineHeight());
    ASSERT_TRUE(WaitFor([this] { return PageRows() == 12; }));
    m_View->SetFollowing(true);
    m_View->SetFollowing(false);
    PumpEvents();
    const EventCounter told(m_View, wxtEVT_TEXT_FOLLOW);
    const auto         stays = [&]
    {
        Settle();
        return m_View->GetScrollPos(wxVERTICAL) == Bottom() && !m_View->IsFollowing();
    };
    EXPECT_TRUE(stays());
    m_View->SetWrap(false);
    EXPECT_TRUE(stays());
    m_View->SetWrap(true);
    EXPECT_TRUE(stays());
    m_View->SetSize(400, 24 * m_View->LineHeight());
    ASSERT_TRUE(WaitFor([this] { return PageRows() == 24; }));
    EXPECT_TRUE(stays());
    m_View->SetTextSize(m_View->GetTextSize() - 1); // more of them are seen: the end is
    EXPECT_TRUE(stays());
    m_View->SetLineLimit(50);
    EXPECT_TRUE(stays());
    EXPECT_EQ(0, told.Count());
    m_View->ScrollLines(-1);
    m_View->ScrollLines(2);
    EXPECT_TRUE(m_View->IsFollowing()) << "by the user";
}

TEST_F(WrapTest, APointerMeansTheRowThatItIsOn)
{
    m_View->ShowLineNumbers(true);
    const String word = "needle ";
    String       text = "0:";
    for (int i = 0; i < 60; ++i)
    {
        text += SFormat(" %02d", i);
    }
    Append({text, "second", text, "last"});
    Settle();
    const int height = m_View->LineHeight();
    int       rows = 0; // of the first line
    while (rows < 20)
    {
        m_View->Mouse(wxEVT_MOTION, 200, rows * height + 2);
        if (m_View->GetHighlightLine() != 0)
        {
            break;
        }
        ++rows;
    }
    ASSERT_GE(rows, 2);
    EXPECT_EQ(m_View->GetHighlightLine(), 1) << "it has one row";
    m_View->Mouse(wxEVT_MOTION, 200, (rows + 1) * height + 2);
    EXPECT_EQ(m_View->GetHighlightLine(), 2);
    m_View->Mouse(wxEVT_MOTION, 200, (2 * rows + 1) * height + 2);
    EXPECT_EQ(m_View->GetHighlightLine(), 3);
    m_View->Mouse(wxEVT_MOTION, 200, (2 * rows + 2) * height + 2);
    EXPECT_EQ(m_View->GetHighlightLine(), -1);
    // A double click in the second row, and a drag into it from the first.
    m_View->Mouse(wxEVT_LEFT_DCLICK, 120, height + 3);
    const String second = m_View->GetSelectedPart();
    ASSERT_EQ(second.size(), 2u);
    EXPECT_GT(second.ToInt(0), 10) << "of the first row are smaller ones";
    m_View->Mouse(wxEVT_MOTION, 120, 3);
    m_View->Mouse(wxEVT_LEFT_UP, 120, 3);
    const String part = m_View->GetSelectedPart();
    EXPECT_EQ(part.substr(part.size() - 2), second);
    EXPECT_GT(part.size(), 30u);
    EXPECT_TRUE(String(text).find(part) != String::npos);
    // Behind the end of a row is its last character, not the next row's first one.
    m_View->Mouse(wxEVT_LEFT_DCLICK, m_View->GetClientSize().x - 2, 3);
    m_View->Mouse(wxEVT_LEFT_UP, m_View->GetClientSize().x - 2, 3);
    const size_t end = text.find(m_View->GetSelectedPart());
    m_View->Mouse(wxEVT_LEFT_DCLICK, 70, height + 3);
    m_View->Mouse(wxEVT_LEFT_UP, 70, height + 3);
    EXPECT_LE(end, text.find(m_View->GetSelectedPart()));
}

// By a real pointer, row by row, out of a long line too.
TEST_F(WrapTest, DraggingPastAnEdgeScrollsByRows)
{
    Fill(60);
    m_View->Append(String(8000, '='), false);
    Fill(60);
    m_View->GoToLine(55);
    m_View->SelectNone();
    Settle();
    wxUIActionSimulator pointer;
    const auto          moveTo = [&](int x, int y)
    {
        pointer.MouseMove(m_View->ClientToScreen(wxPoint(x, y)));
        PumpEvents();
    };
    const int middle = m_View->GetClientSize().y / 2;
    moveTo(60, middle);
    EXPECT_TRUE(WaitFor([this] { return m_View->GetHighlightLine() > 0; }));
    const int from = m_View->GetHighlightLine();
    pointer.MouseDown();
    EXPECT_TRUE(WaitFor([&] { return m_View->GetSelectionAnchor() == from; }));
    // Of motions that come faster than pictures one port hands on the last one.
    constexpr int kMost = 1000;
    int           last = m_View->GetScrollPos(wxVERTICAL);
    for (int i = 0; i < kMost && FirstLine() < 61; ++i)
    {
        moveTo(60 + i % 7, m_View->GetClientSize().y + 10);
        EXPECT_GE(m_View->GetScrollPos(wxVERTICAL), last) << i;
        EXPECT_LE(m_View->GetScrollPos(wxVERTICAL), last + m_View->LineHeight()) << i;
        last = m_View->GetScrollPos(wxVERTICAL);
    }
    EXPECT_GE(FirstLine(), 61) << "beyond the long line";
    EXPECT_GT(m_View->GetSelectionEnd(), 61);
    for (int i = 0; i < kMost && FirstLine() >= 40; ++i)
    {
        moveTo(60 + i % 7, -10);
    }
    EXPECT_LT(FirstLine(), 40);
    EXPECT_TRUE(WaitFor([&] { return m_View->GetSelectionEnd() < from; }));
    EXPECT_EQ(m_View->GetSelectionAnchor(), from);
    pointer.MouseUp();
    EXPECT_TRUE(WaitFor([this] { return !m_View->IsSelecting(); }));
}

TEST_F(WrapTest, AHitIsShownInItsRow)
{
    Fill(100);
    m_View->Append(String(20000, '-') + "needle" + String(30000, '-'), false);
    m_View->Append(String(700, '=') + " haystack", false);
    Fill(100);
    m_View->ScrollToTop();
    for (const char* const text : {"needle", "haystack"})
    {
        ASSERT_TRUE(m_View->Search(text, true, true));
        Settle();
        const wxImage with = m_View->Picture();
        m_View->SetHighlightLine(-1);
        // The hit's box is the inverse of the band, somewhere in the middle of the view, or a row
        // higher.
        const wxColour band = PixelAt(with, 3, (with.GetHeight() - m_View->LineHeight()) / 2);
        const wxColour box(255 - band.Red(), 255 - band.Green(), 255 - band.Blue());
        int            found = 0;
        for (int x = 0; x < with.GetWidth(); ++x)
        {
            for (int y = 0; y < with.GetHeight(); ++y)
            {
                found += PixelAt(with, x, y) == box ? 1 : 0;
            }
        }
        EXPECT_GT(found, 100) << text << Kept(with, "hit");
    }
    const int position = m_View->GetScrollPos(wxVERTICAL);
    m_View->Search("haystack", true, true);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), position) << "it is seen already";
}

TEST_F(WrapTest, SelectingByKeysGoesByLinesAndShowsThem)
{
    Fill(200);
    Key(WXK_DOWN, wxMOD_SHIFT);
    const int first = m_View->GetSelectionAnchor();
    EXPECT_EQ(first, 0);
    Key(WXK_PAGEDOWN, wxMOD_SHIFT);
    const int page = m_View->GetSelectionEnd();
    EXPECT_GT(page, 0);
    EXPECT_LT(page, PageRows()) << "of rows";
    for (int i = 0; i < 5; ++i)
    {
        Key(WXK_DOWN, wxMOD_SHIFT);
    }
    EXPECT_EQ(m_View->GetSelectionEnd(), page + 5);
    EXPECT_LE(FirstLine(), page + 5);
    Key(WXK_END, wxMOD_SHIFT | wxMOD_CONTROL);
    EXPECT_EQ(m_View->GetSelectionEnd(), 199);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    Key(WXK_HOME, wxMOD_SHIFT | wxMOD_CONTROL);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
}

// Once in a position of the scrollbar and once after it, whatever is shown of the line.
TEST_F(WrapTest, VeryLongLinesStayAlive)
{
    String mixed;
    while (mixed.size() < 5'000'000)
    {
        mixed += "0123456789 \xc3\xa4\xe6\xbc\xa2 ";
    }
    Append({String(20'000'000, 'x') + " error", mixed});
    m_View->ScrollToBottom();
    Settle();
    const auto quick = [this](const char* what)
    {
        const wxStopWatch watch;
        m_View->Mouse(wxEVT_LEFT_DOWN, 60, 40);
        m_View->Mouse(wxEVT_LEFT_UP, 60, 40);
        m_View->Redraw();
        m_View->PaintNow();
        EXPECT_LT(watch.Time(), 1000) << what; // some ten of a machine that is not busy
    };
    quick("the end");
    m_View->ScrollLines(-3);
    quick("near the end");
    const wxImage before = Rows(1, PageRows() - 1);
    m_View->ScrollLines(1);
    EXPECT_TRUE(SamePixels(Rows(0, PageRows() - 1), before));
    m_View->SetScrollPos(wxVERTICAL, m_View->LineHeight() / 2);
    quick("in the middle of the first one");
    EXPECT_TRUE(IsSelected(0, 0));
    ASSERT_TRUE(m_View->Search("error", true, true));
    quick("the hit at its end");
}

TEST_F(WrapTest, AltZWrapsAndTellsTheHost)
{
    int heard = -1;
    m_View->Bind(wxtEVT_TEXT_WRAP, [&heard](wxCommandEvent& event) { heard = event.GetInt(); });
    Key('Z', wxMOD_ALT);
    PumpEvents();
    EXPECT_EQ(heard, 0);
    EXPECT_FALSE(m_View->IsWrapped());
    m_View->Menu(wxTextLineCtrl::id_WrapLines);
    PumpEvents();
    EXPECT_EQ(heard, 1);
    EXPECT_TRUE(m_View->IsWrapped());
    m_View->OfferReadingCommands(false);
    Key('Z', wxMOD_ALT);
    EXPECT_TRUE(m_View->IsWrapped()) << "only what was offered";
}
