#include "internal/port/PopUps.h"
#include "listviews/columns/ColumnFit.h"
#include "listviews/columns/ColumnLayout.h"
#include "listviews/copying/TableText.h"
#include "listviews/model/ListModel.h"
#include "listviews/slices/RowsAtRest.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxtListCtrl.h"
#include "tests/listviews/ToldTest.h"
#include "tests/support/TestApp.h"

#include <wx/clipbrd.h>
#include <wx/listbase.h>

#include <algorithm>
#include <thread>

namespace
{
// A list of four columns, 100 pixels wide each, that fills the frame.
class ListColumnsTest : public ToldTest
{
protected:
    ListColumnsTest() : m_List(new wxtListCtrl(Frame(), 17))
    {
        for (int i = 0; i < 4; ++i)
        {
            m_List->AddColumn(i, String(1, static_cast<char>('A' + i)), 100);
        }
        for (int row = 0; row < 3; ++row)
        {
            m_List->InsertItem(row, "a" + String::FromInt(row));
            m_List->SetItem(row, 1, "b" + String::FromInt(row));
        }
        for (const auto& [type, name] :
             {std::pair(wxEVT_LIST_COL_CLICK, "click"), std::pair(wxtEVT_LIST_COLUMNS, "columns"),
              std::pair(wxEVT_LIST_COL_RIGHT_CLICK, "right")})
        {
            Frame()->Bind(type,
                          [this, name = String(name)](wxListEvent& event)
                          {
                              event.Skip(name != "right" || !m_TakesRight);
                              m_Told += name + String::FromInt(event.GetColumn()) + " ";
                          });
        }
        Fill(m_List);
        m_List->SetFocus();
        EXPECT_TRUE(WaitFor([this] { return m_List->GetBody()->HasFocus(); }));
    }

    wxDBListHeader* Header() const { return m_List->GetHeader(); }
    /// The titles that are shown, with widths that are not 100.
    String After() const override
    {
        String text;
        for (int i = 0; i < m_List->GetColumnCount(); ++i)
        {
            const int width = m_List->GetColumn(i).width;
            text += m_List->IsColumnShown(i) ? m_List->GetColumnName(i) : "";
            text += m_List->IsColumnShown(i) && width != 100 ? String::FromInt(width) : "";
        }
        return text;
    }
    void MoveTo(int x) { m_Input.MouseMove(Header()->ClientToScreen(wxPoint(x, 8))); }
    void Drag(int from, int to, const String& expected)
    {
        MoveTo(from);
        m_Input.MouseDown();
        PumpEvents();
        MoveTo((from + to) / 2);
        Told();
        MoveTo(to);
        Told();
        m_Input.MouseUp();
        EXPECT_EQ(expected, Told(expected)) << from;
    }
    /// Presses the first title and takes it some way. Like a hand's, the pointer goes on moving:
    /// what it does while the window manager still has the press comes to no window.
    void Hold()
    {
        MoveTo(50);
        m_Input.MouseDown();
        int x = 220;
        EXPECT_TRUE(WaitFor(
            [&]
            {
                MoveTo(x ^= 1);
                return Header()->IsMovingTitle();
            }));
    }

    /// What another program would get; the clipboard is open.
    static String Held(const char* format)
    {
        wxCustomDataObject data{wxDataFormat(format)};
        return wxTheClipboard->GetData(data)
                   ? String(static_cast<const char*>(data.GetData()), data.GetSize())
                   : String();
    }

    wxWeakRef<wxtListCtrl> m_List;
    bool                   m_TakesRight = true;
};
} // namespace

// The event comes wherever the mouse is let go; the handler is told where.
TEST_F(ListColumnsTest, AHandlerKnowsOfATitleThatWasLetGoElsewhere)
{
    std::string where;
    m_List->Bind(wxEVT_LIST_COL_CLICK,
                 [&](wxListEvent& event) { where += m_List->IsOnTitles(event) ? "on " : "off "; });
    for (const int down : {0, 60, -40})
    {
        MoveTo(50);
        m_Input.MouseDown();
        PumpEvents();
        m_Input.MouseMove(Header()->ClientToScreen(wxPoint(50, 8 + down)));
        m_Input.MouseUp();
        Told();
    }
    for (const int modifiers : {+wxMOD_CONTROL, wxMOD_CONTROL | wxMOD_SHIFT})
    {
        m_List->SetFocus();
        Press(WXK_RIGHT, wxMOD_CONTROL);
        Press(WXK_RETURN, modifiers);
    }
    EXPECT_TRUE(WaitFor([&] { return where == "on off off on on "; })) << where;
}

TEST_F(ListColumnsTest, TitlesAreDraggedToTheirPlaces)
{
    const struct
    {
        int         from, to;
        const char* told;
    } drags[] = {{50, 160, "columns1 BACD"},
                 {350, 10, "columns0 DBAC"},
                 {150, 151, "click1 DBAC"},
                 {150, 170, "DBAC"},
                 {150, 700, "columns3 DACB"}};
    for (const auto& drag : drags)
    {
        Drag(drag.from, drag.to, drag.told);
    }
    EXPECT_EQ("a0", m_List->GetDisplayText(0, 1)) << "the cells go with their columns";
    EXPECT_EQ("b0", m_List->GetDisplayText(0, 3));

    // Given up by Escape, taken away, not allowed.
    Hold();
    m_Input.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([this] { return !Header()->IsMovingTitle(); }));
    m_Input.MouseUp();
    EXPECT_EQ("DACB", Told());
    Hold();
    m_List->RemoveColumn(3);
    m_Input.MouseUp();
    EXPECT_EQ("DAC", Told());
    m_List->AllowColumnMoves(false);
    Drag(50, 250, "click2 DAC");
    m_List->AllowColumnMoves(true);
    Frame()->Bind(wxtEVT_LIST_COLUMNS, [this](wxListEvent&) { delete m_List.get(); });
    Hold();
    m_Input.MouseUp();
    EXPECT_TRUE(WaitFor([this] { return !m_List; }));
}

TEST_F(ListColumnsTest, ColumnsHideFitAndComeBack)
{
    m_List->ShowColumn(1, false);
    EXPECT_EQ("ACD", After());
    EXPECT_EQ(300, m_List->GetScrollRange(wxHORIZONTAL));
    Drag(150, 150, "click2 ACD");
    m_List->FitColumn(1);
    EXPECT_EQ(100, m_List->GetColumn(1).width) << "a hidden one keeps its width";
    m_List->SetItem(2, 2, "a text that is wider than a hundred pixels are");
    MoveTo(200);
    m_Input.MouseDblClick();
    const String fitted = Told();
    const int    width = m_List->GetColumn(2).width;
    EXPECT_EQ("columns2 AC" + String::FromInt(width) + "D", fitted);
    EXPECT_GT(width, 200);
    EXPECT_LT(width, 400);
    m_List->SetItem(2, 2, String(1 << 20, 'W'));
    m_List->FitAllColumns();
    EXPECT_EQ(m_List->GetBody()->GetClientSize().x, m_List->GetColumn(2).width)
        << "no wider than the view";
    EXPECT_EQ(listviews::ListGeometry::k_LeastWidth, m_List->GetColumn(3).width);
    m_List->SetItem(2, 2, String(40, 'W'));
    m_List->FitColumn(2);
    const int whole = m_List->GetColumn(2).width;
    m_List->Hide();
    m_List->SetSize(80, 80);
    m_List->FitColumn(2);
    EXPECT_EQ(whole, m_List->GetColumn(2).width) << "what has no size yet limits nothing";
    m_List->Show();
    for (int i = 0; i < 4; ++i)
    {
        m_List->ShowColumn(i, false);
    }
    EXPECT_EQ("D20", After()) << "the last one stays";
    m_List->MoveColumn(0, 2);
    m_List->ResetColumns();
    EXPECT_EQ("ABCD", After());
}

TEST_F(ListColumnsTest, KeysDoWhatHandsDo)
{
    constexpr int control = wxMOD_CONTROL, both = wxMOD_CONTROL | wxMOD_SHIFT;
    m_List->ShowColumn(2, false);
    const struct
    {
        int         key, modifiers;
        const char* told;
    } keys[] = {{WXK_RETURN, control, "ABD"}, // no title yet
                {WXK_RIGHT, control, "ABD"},
                {WXK_RETURN, control, "click0 ABD"},
                {WXK_RIGHT, control, "ABD"},
                {WXK_RIGHT, both, "columns3 ADB"},
                {WXK_RETURN, control, "click3 ADB"},
                {WXK_RIGHT, both, "ADB"},
                {WXK_LEFT, control, "ADB"},
                {WXK_F10, both, "right2 ADB"},
                {WXK_ESCAPE, 0, "ADB"},
                {WXK_RETURN, control, "ADB"}};
    for (const auto& key : keys)
    {
        m_Input.Char(key.key, key.modifiers);
        EXPECT_EQ(key.told, Told(key.told)) << key.key;
    }
}

// By real keys; the last time the list goes while its menu is open.
TEST_F(ListColumnsTest, AMenuOfTheColumnsOpensWhenNobodyHasAnother)
{
    m_TakesRight = false;
    const struct
    {
        int         downs;
        const char* told;
    } picks[] = {
        {2, "right0 columns1 ACD"}, {3, "right0 columns2 AD"}, {6, "right0 columns-1 ABCD"}};
    int     downs = 0;
    wxTimer keys;
    keys.Bind(wxEVT_TIMER,
              [&](wxTimerEvent&)
              {
                  if (!internal::IsShutOut(*Frame()))
                  {
                      return;
                  }
                  keys.Stop();
                  for (int i = 0; i < downs; ++i)
                  {
                      m_Input.Char(WXK_DOWN);
                  }
                  if (downs == 0)
                  {
                      delete m_List.get();
                  }
                  m_Input.Char(downs == 0 ? WXK_ESCAPE : WXK_RETURN);
              });
    const auto open = [&]
    {
        keys.Start(20);
        m_Input.Char(WXK_F10, wxMOD_CONTROL | wxMOD_SHIFT);
        EXPECT_TRUE(WaitFor([&] { return !keys.IsRunning() && !internal::IsShutOut(*Frame()); }));
    };
    for (const auto& pick : picks)
    {
        downs = pick.downs;
        open();
        EXPECT_EQ(pick.told, Told(pick.told));
    }
    downs = 0;
    open();
    EXPECT_FALSE(m_List);
}

TEST_F(ListColumnsTest, AnArrangementIsRemembered)
{
    OptionsFile& options = TestApp::Get().Options();
    m_List->InsertColumn(4, 9, "E", "a key, with = and %", 70);
    m_List->MoveColumn(0, 2);
    m_List->ShowColumn(1, false);
    m_List->SetColumnWidth(0, 120);
    m_List->SaveColumnLayout("Lists", "jobs");
    EXPECT_EQ("120, 100, 100, 100, 70", options.GetValue("Lists", "jobs")) << "for older versions";
    m_List->ResetColumns();
    EXPECT_EQ("ABCDE70", After());
    m_List->RestoreColumnLayout("Lists", "jobs");
    EXPECT_EQ("B120ADE70", After());
    m_List->RestoreColumnLayout("Lists", "nothing");
    options.SetValue("Lists", "old", "50, 60");
    m_List->RestoreColumnLayout("Lists", "old");
    EXPECT_EQ("B50ADE70", After()) << "the second one is hidden";
}

TEST(ColumnLayout, TakesWhatItCan)
{
    std::vector<wxDBListColumn> columns(3);
    for (int i = 0; i < 3; ++i)
    {
        columns[static_cast<size_t>(i)].type = i;
    }
    columns[2].key = "k";
    String many;
    for (int i = 0; i < 100000; ++i)
    {
        many += "#" + String::FromInt(i + 5) + "=50, ";
    }
    const struct
    {
        String      layout;
        const char* plan; // index, width and - for hidden
    } cases[] = {{"k=30, #1=40, #0=50", "2:30 1:40 0:50 "},
                 {"k=-30", "0:-1? 1:-1? 2:30- "},
                 {"#1=-40, #9=5, junk, =, #0", "0:-1? 1:40- 2:-1? "},
                 {"#0=5, #0=7, #1=99999999999", "0:20 1:16777216 2:-1? "},
                 {"#0=-30, #1=-30, k=-30", "0:30 1:30- 2:30- "},
                 {"\"#0=3", "none"},
                 {"", "none"},
                 {many, "none"},
                 {many + "#1=60", "0:-1? 1:60 2:-1? "}};
    for (const auto& c : cases)
    {
        const auto plan = listviews::PlanLayout(columns, c.layout);
        String     text = plan ? "" : "none";
        for (const auto& place : plan ? plan->places : std::vector<listviews::ColumnPlan::Place>())
        {
            text += SFormat("%d:%d%s ", place.index, place.width,
                            !place.visible   ? "?"
                            : *place.visible ? ""
                                             : "-");
        }
        EXPECT_EQ(c.plan, text) << c.layout.substr(0, 40);
    }
}

TEST(ColumnFit, LooksAtAllRowsOfAFewAndAtASampleOfMany)
{
    using namespace std::chrono_literals;
    std::vector<int> seen;
    const auto       look = [&](int row)
    {
        seen.push_back(row);
        return row;
    };
    EXPECT_EQ(999, listviews::WidestRow({0, 0}, 1000, 10s, look));
    std::sort(seen.begin(), seen.end());
    EXPECT_EQ(1000, std::unique(seen.begin(), seen.end()) - seen.begin()) << "each of them";
    seen.clear();
    EXPECT_LT(999000000, listviews::WidestRow({5, 8}, 1000000000, 10s, look));
    EXPECT_EQ((std::vector{5, 6, 7}), std::vector(seen.begin(), seen.begin() + 3));
    EXPECT_EQ(10003U, seen.size());
    EXPECT_EQ(0, listviews::WidestRow({0, 0}, 0, 10s, look));
    EXPECT_EQ(0, listviews::WidestRow({0, 9}, 9, 0s, look)) << "no time";
    const auto slowly = [&](int row)
    {
        std::this_thread::sleep_for(row == 0 ? listviews::k_FitTime : 0s);
        return row;
    };
    EXPECT_EQ(26, listviews::WidestRow({0, 1}, 27, listviews::k_FitTime, slowly));
}

TEST_F(ListColumnsTest, SelectedRowsAreCopied)
{
    m_List->SetItem(2, 1, "x\ty \"z\"\n<&>");
    m_List->SetItem(2, 3, "\xFF\xE9");
    for (const int row : {2, 0})
    {
        m_List->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
    }
    m_List->ShowColumn(2, false);
    m_List->MoveColumn(0, 1);
    m_Input.Char('C', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([] { return wxTheClipboard->IsSupported(wxDF_HTML); }));
    const String text = "B\tA\tD\nb0\ta0\t\n\"x\ty \"\"z\"\"\n<&>\"\ta2\t";
    ASSERT_TRUE(wxTheClipboard->Open());
    m_List->CopySelection(); // somebody else has it open
    EXPECT_TRUE(wxTheClipboard->IsOpened());
    EXPECT_EQ(text + "\xFF\xE9\n", Held("application/octet-stream"));
    EXPECT_EQ(text + "\xC3\xBF\xC3\xA9\n", Held("text/plain;charset=utf-8"));
    const String html = Held("text/html");
    EXPECT_NE(String::npos, html.find("<tr><th>B</th><th>A</th><th>D</th></tr>\n"
                                      "<tr><td>b0</td><td>a0</td><td></td></tr>\n"
                                      "<tr><td>x\ty \"z\"<br>&lt;&amp;&gt;</td><td>a2</td><td>"
                                      "\xC3\xBF\xC3\xA9</td></tr>\n</table>"))
        << html;
    wxTheClipboard->Close();
}

// Rows that come and go meanwhile are no others than those that were selected.
TEST_F(ListColumnsTest, ManyRowsAreCopiedBesideTheWindowsLife)
{
    constexpr int many = 400000; // more than a slice
    for (int row = 3; row < many; ++row)
    {
        m_List->InsertItem(row, "a" + String::FromInt(row));
    }
    m_Input.Char('A', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([this] { return m_List->GetSelection().size() == many; }));
    m_List->CopySelection();
    EXPECT_TRUE(m_List->IsCopying());
    EXPECT_FALSE(listviews::MayReplaceRows(*m_List));
    m_List->InsertItem(0, "new");
    m_List->Remove(many, 1);
    EXPECT_TRUE(m_List->IsCopying());
    ASSERT_TRUE(wxTheClipboard->Open());
    const String text = Held("text/plain;charset=utf-8");
    EXPECT_EQ(many, std::count(text.begin(), text.end(), '\n')) << "the titles, and one has gone";
    EXPECT_EQ(0U, text.find("A\tB\tC\tD\na0\tb0\t\t\n"));
    EXPECT_EQ("\na399998\t\t\t\n", text.substr(text.size() - 12));
    wxTheClipboard->Close();
    for (const bool isShorter : {true, false})
    {
        EXPECT_TRUE(WaitFor([this] { return !m_List->IsCopying(); }));
        m_List->CopySelection();
        EXPECT_TRUE(m_List->IsCopying());
        isShorter ? m_List->DeleteItem(7) : delete m_List.get();
        ASSERT_TRUE(wxTheClipboard->Open());
        EXPECT_EQ(isShorter, wxTheClipboard->IsSupported(wxDF_UNICODETEXT));
        EXPECT_TRUE(!isShorter || Held("application/octet-stream").find("\na6\t") != String::npos);
        wxTheClipboard->Close();
    }
}
