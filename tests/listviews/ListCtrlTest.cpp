#include "appearance/wxTolvanColors.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxtListCtrl.h"
#include "tests/listviews/ToldTest.h"
#include "tests/support/LogCapture.h"
#include "tests/support/Pictures.h"
#include "tests/support/TestApp.h"

#include <wx/dcclient.h>
#include <wx/listbase.h>

#include <climits>

namespace
{
// A list of 100 rows and three columns of 100 pixels that fills the frame, and what it tells.
class ListCtrlTest : public ToldTest
{
protected:
    ListCtrlTest() : m_List(new wxtListCtrl(Frame(), 17))
    {
        for (int i = 0; i < 3; ++i)
        {
            m_List->AddColumn(10 + i, "Title " + String::FromInt(i), -1);
        }
        for (int i = 0; i < 100; ++i)
        {
            m_List->InsertItem(i, "row " + String::FromInt(i));
        }
        const struct
        {
            const wxEventTypeTag<wxListEvent>& type;
            const char*                        name;
        } types[] = {{wxEVT_LIST_ITEM_SELECTED, "+"},
                     {wxEVT_LIST_ITEM_DESELECTED, "-"},
                     {wxEVT_LIST_ITEM_ACTIVATED, "activate"},
                     {wxEVT_LIST_ITEM_RIGHT_CLICK, "right"},
                     {wxEVT_LIST_COL_CLICK, "title"}};
        for (const auto& type : types)
        {
            Frame()->Bind(type.type,
                          [this, name = String(type.name)](wxListEvent& event)
                          {
                              EXPECT_EQ(17, event.GetId());
                              m_Told += name + String::FromInt(event.GetIndex()) + " ";
                          });
        }
        Fill(m_List);
        EXPECT_TRUE(WaitFor([this] { return m_List->GetScrollRange(wxVERTICAL) > 500; }));
    }

    wxDBListBody* Body() const { return m_List->GetBody(); }
    wxPoint       OnRow(int row, int x = 150) const
    {
        const wxRect rect = Body()->GetItemRect(row);
        return Body()->ClientToScreen(wxPoint(x, rect.y + rect.height / 2));
    }
    wxPoint OnTitle(int x) const { return m_List->GetHeader()->ClientToScreen(wxPoint(x, 8)); }

    String Click(int row, int modifiers = 0, int button = wxMOUSE_BTN_LEFT)
    {
        m_Input.MouseMove(OnRow(row));
        Hold(modifiers, true);
        m_Input.MouseClick(button);
        const String told = Told();
        Hold(modifiers, false);
        return told;
    }
    String Press(int key, int modifiers = 0)
    {
        m_Input.Char(key, modifiers);
        return Told();
    }
    void Hold(int modifiers, bool down)
    {
        for (const auto& [flag, key] :
             {std::pair(wxMOD_SHIFT, WXK_SHIFT), std::pair(wxMOD_CONTROL, WXK_CONTROL)})
        {
            if (modifiers & flag)
            {
                down ? m_Input.KeyDown(key) : m_Input.KeyUp(key);
            }
        }
        PumpEvents();
    }
    std::vector<int> Widths() const
    {
        std::vector<int> widths;
        widths.reserve(static_cast<size_t>(m_List->GetColumnCount()));
        for (int i = 0; i < m_List->GetColumnCount(); ++i)
        {
            widths.push_back(m_List->GetColumn(i).width);
        }
        return widths;
    }
    using Rows = std::vector<int>;

    wxWeakRef<wxtListCtrl> m_List;
};
} // namespace

TEST_F(ListCtrlTest, ClicksSelectAsInAnyList)
{
    EXPECT_EQ("+3 ", Click(3));
    EXPECT_EQ("-3 +5 ", Click(5));
    EXPECT_EQ("+8 ", Click(8, wxMOD_CONTROL));
    EXPECT_EQ("-5 ", Click(5, wxMOD_CONTROL));
    EXPECT_EQ("-8 +5 +6 +7 ", Click(7, wxMOD_SHIFT));
    EXPECT_EQ("-5 -6 -7 +2 +3 +4 +5 ", Click(2, wxMOD_SHIFT)) << "the anchor stays";
    EXPECT_EQ("right3 ", Click(3, 0, wxMOUSE_BTN_RIGHT));
    EXPECT_EQ("+5 +6 +7 ", Click(7, wxMOD_SHIFT | wxMOD_CONTROL)) << "added to what is selected";
    EXPECT_EQ("-2 -3 -4 -5 -6 -7 +9 right9 ", Click(9, 0, wxMOUSE_BTN_RIGHT));
    m_Input.MouseMove(OnRow(4));
    m_Input.MouseDblClick();
    EXPECT_EQ("-9 +4 activate4 ", Told());
    m_List->SetScrollPos(wxVERTICAL, 1 << 20);
    m_List->Clear();
    EXPECT_EQ("", Click(0)) << "below the last row";
}

// Whatever is done to the list in one of its events.
TEST_F(ListCtrlTest, ItsHandlersMayTakeItApart)
{
    Frame()->Bind(wxEVT_LIST_ITEM_SELECTED,
                  [this](wxListEvent& event)
                  {
                      event.Skip();
                      if (event.GetIndex() == 4)
                      {
                          m_List->Clear();
                      }
                      else if (event.GetIndex() == 30)
                      {
                          delete m_List.get();
                      }
                  });
    Click(1);
    EXPECT_EQ("-1 +1 +2 +3 +4 ", Click(9, wxMOD_SHIFT)) << "nothing is left after row 4";
    for (int i = 0; i < 40; ++i)
    {
        m_List->InsertItem(i, "x");
    }
    m_Input.MouseMove(OnTitle(150));
    m_Input.MouseDown();
    Told();
    m_List->RemoveAllColumns(); // under a pressed title
    m_Input.MouseUp();
    EXPECT_EQ("", Told());
    m_List->SetLastSelect(29);
    m_List->SetFocus();
    Press(WXK_DOWN);
    EXPECT_FALSE(m_List);
}

TEST_F(ListCtrlTest, CellsMoveWithTheirColumns)
{
    const auto row = [this]
    {
        String texts;
        for (int i = 0; i < m_List->GetColumnCount(); ++i)
        {
            texts += m_List->GetDisplayText(0, i) + "|";
        }
        return texts;
    };
    m_List->SetItem(0, 1, "b");
    m_List->SetItem(0, 2, "c");
    m_List->MoveColumn(0, 10);
    EXPECT_EQ("b|c|row 0|", row());
    m_List->MoveColumn(2, -1);
    EXPECT_EQ("b|row 0|c|", row());
    m_List->InsertColumn(1, 99, "", "", 50);
    EXPECT_EQ("b||row 0|c|", row());
    m_List->RemoveColumn(2);
    EXPECT_EQ("b||c|", row());
    m_List->RemoveAllColumns();
    m_List->AddColumn(10, "", 50);
    EXPECT_EQ("|", row()) << "gone with its column";
}

// As its header says: nothing happens.
TEST_F(ListCtrlTest, WhatIsNotThereIsLeftAlone)
{
    m_List->RemoveColumn(1);
    const int rows = m_List->GetItemCount();
    for (const int bad : {INT_MIN, -1, 101, INT_MAX})
    {
        m_List->RemoveColumn(bad);
        m_List->InsertColumn(bad, 1, "x", "", 50);
        m_List->MoveColumn(bad, 1);
        m_List->MoveColumn(bad, -1);
        m_List->SetColumnLabel(bad, "x");
        m_List->SetColumnImage(bad, 0);
        m_List->SetColumnWidth(bad, 50);
        m_List->RedrawColumns(bad, 0);
        m_List->RedrawCells(bad, 0, bad, 0);
        EXPECT_EQ("", m_List->GetColumnName(bad));
        m_List->Insert(bad, true);
        m_List->Insert(bad, 10, true);
        m_List->Remove(bad);
        m_List->Remove(bad, 10);
        m_List->SetItem(bad, bad, "x");
        m_List->SetItemTextColour(bad, *wxRED);
        m_List->SetItemFont(bad, wxFont());
        m_List->DeleteItem(bad);
        m_List->RedrawItems(bad, 0);
        m_List->EnsureVisible(bad);
        m_List->SetLastSelect(bad);
        EXPECT_EQ("", m_List->GetDisplayText(bad, bad));
        EXPECT_FALSE(m_List->IsRowSelected(bad));
        Body()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(), 0, bad);
        m_List->SetHighlightColumn(bad);
    }
    EXPECT_EQ((Rows{100, 100}), Widths());
    EXPECT_EQ(rows, m_List->GetItemCount());
    EXPECT_EQ(0, m_List->GetScrollPos(wxVERTICAL));
    EXPECT_EQ("row 0", m_List->GetDisplayText(0, 0));
    EXPECT_EQ("Title 2", m_List->GetColumnName(1));
    m_List->SetFocus();
    Press(WXK_UP); // from the last one of those anchors
    EXPECT_EQ(99, m_List->GetLastSelect());
    m_List->Remove(98, ULONG_MAX);
    EXPECT_EQ(98, m_List->GetItemCount());
}

TEST_F(ListCtrlTest, WidthsAreStoredAndRestored)
{
    OptionsFile& options = TestApp::Get().Options();
    m_List->SetColumnWidth(1, 80);
    m_List->SaveColumnSizes("Lists", "jobs");
    EXPECT_EQ("100, 80, 100", options.GetValue("Lists", "jobs"));
    struct
    {
        const char* stored;
        Rows        widths;
    } const cases[] = {{"50, 5, abc", {50, 20, 20}},
                       {"70", {70, 20, 20}},
                       {"", {70, 20, 20}},
                       {"1,,33x,9,9", {20, 20, 33}},
                       {"-5, 99999999999", {20, 16777216, 33}},
                       {"100, 80, 100", {100, 80, 100}}};
    for (const auto& c : cases)
    {
        options.SetValue("Lists", "jobs", c.stored);
        m_List->RestoreColumnSizes("Lists", "jobs");
        EXPECT_EQ(c.widths, Widths()) << c.stored;
    }
    EXPECT_EQ(280, m_List->GetScrollRange(wxHORIZONTAL));
    const auto isShown = [&]
    { return PixelAt(PictureOf(m_List->GetHeader()), 99, 8) == wxtGetColor(color_3DDark); };
    EXPECT_TRUE(WaitFor(isShown)) << "the title ends there";
}

TEST_F(ListCtrlTest, RowsComeAndGo)
{
    for (const int row : {5, 2, 9})
    {
        Click(row, wxMOD_CONTROL);
    }
    EXPECT_EQ(5, m_List->GetNextItem(3)) << "in order of selection";
    m_List->InsertItem(3, "new");
    EXPECT_EQ(10, m_List->GetLastSelect()) << "the anchor goes with its row";
    m_List->DeleteItem(2);
    EXPECT_EQ((Rows{5, 9}), m_List->GetSelection());
    EXPECT_EQ(101, m_List->GetItemCount()) << "an empty row is left for it";
    EXPECT_EQ("", m_List->GetDisplayText(100, 0));
    Told();

    // What a derived class does when it has removed rows of its own.
    m_List->Remove(8, 3);
    EXPECT_EQ("-9 ", Told());
    EXPECT_EQ(98, m_List->GetItemCount());
    EXPECT_EQ(7, m_List->GetLastSelect());
    m_List->Remove(0, 3);
    EXPECT_EQ(7, m_List->GetLastSelect()) << "the same place, not the same row";

    LogCapture log;
    m_List->Insert(0, 4000000000ul, true);
    EXPECT_EQ(INT_MAX / m_List->GetRowHeight(), m_List->GetItemCount());
    m_List->Insert(0, true);
    EXPECT_EQ(1, log.Count("higher than can be scrolled")) << "one row more is no news";
    m_List->EnsureVisible(m_List->GetItemCount() - 1);
    const wxRect last = Body()->GetItemRect(m_List->GetItemCount() - 1);
    EXPECT_EQ(Body()->GetClientSize().y, last.GetBottom() + 1) << "the last row can be reached";
}

// Most rows have none of their own.
TEST_F(ListCtrlTest, FontAndColourGoWithTheirRow)
{
    const wxColour scheme = wxtGetColor(color_Text);
    const wxColour own(12, 200, 45, 128);
    wxClientDC     dc(Body());
    dc.SetFont(Body()->GetFont());
    const int width = m_List->GetCellWidth(dc, 6, 0);
    m_List->SetItemTextColour(5, own);
    m_List->SetItemFont(6, Body()->GetFont().Scaled(3));
    m_List->InsertItem(2, "new");
    m_List->DeleteItem(0);
    m_List->InsertItem(6, "between");
    m_List->MoveColumn(0, 1);
    EXPECT_EQ(own, m_List->GetRowColor(5));
    EXPECT_EQ("row 5", m_List->GetDisplayText(5, 1));
    for (const int other : {-1, 0, 4, 6, 7, 1000})
    {
        EXPECT_EQ(scheme, m_List->GetRowColor(other)) << other;
    }
    EXPECT_EQ("row 6", m_List->GetDisplayText(7, 1));
    EXPECT_GT(m_List->GetCellWidth(dc, 7, 1), 2 * width);
    EXPECT_EQ(width, m_List->GetCellWidth(dc, 5, 1));

    m_List->SetItemTextColour(5, wxColour());
    m_List->SetItemFont(7, wxFont());
    EXPECT_EQ(scheme, m_List->GetRowColor(5));
    EXPECT_EQ(width, m_List->GetCellWidth(dc, 7, 1));
}

TEST_F(ListCtrlTest, ColumnsThatComeLaterHaveCells)
{
    m_List->AddColumn(20, "late", 50);
    m_List->AddColumn(21, "later", 50);
    EXPECT_EQ("", m_List->GetDisplayText(0, 4));
    m_List->SetItem(0, 4, "last");
    m_List->SetItem(0, 3, "");
    m_List->RemoveColumn(3);
    EXPECT_EQ("last", m_List->GetDisplayText(0, 3));
    EXPECT_EQ("row 0", m_List->GetDisplayText(0, 0));
    m_List->RemoveAllColumns();
    EXPECT_EQ(0, m_List->InsertItem(0, "lost")) << "no column to keep it in";
    m_List->AddColumn(10, "", 50);
    EXPECT_EQ("", m_List->GetDisplayText(0, 0));
}
