#include "listviews/keys/TypedText.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxListMenu.h"
#include "listviews/wxListRefresh.h"
#include "listviews/wxtListCtrl.h"

#include "tests/listviews/ToldTest.h"
#include <wx/listbase.h>
#include <wx/utils.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <stdexcept>
#include <utility>

namespace
{
// Known by the number that their text ends with.
class KeyedList : public wxtListCtrl
{
public:
    using wxtListCtrl::wxtListCtrl;
    String GetRowKey(int row) override
    {
        if (++asked % 64 == 0 && isSlow)
        {
            wxMilliSleep(1);
        }
        const String text = GetDisplayText(row, 0);
        return text.substr(text.find_last_of(' ') + 1);
    }
    void Fill(int first, int count)
    {
        const char* const names[] = {"alpha ", "Beta ", "b row ", "gamma "};
        for (int i = 0; i < count; ++i)
        {
            InsertItem(i, names[static_cast<unsigned>(first + i) % 4] + String::FromInt(first + i));
        }
    }

    int  asked = 0;
    bool isSlow = false; // to be asked
};

// A list of 100 rows that has the focus, and what real keys make of it.
class ListKeysTest : public ToldTest
{
protected:
    ListKeysTest() : m_List(new KeyedList(Frame(), wxID_ANY))
    {
        m_List->AddColumn(0, "Title", 2000);
        m_List->Fill(0, 100);
        Fill(m_List);
        m_List->SetFocus();
        EXPECT_TRUE(WaitFor([this] { return Body()->HasFocus(); }));
    }
    wxDBListBody* Body() const { return m_List->GetBody(); }
    void          Press(int key, int modifiers = 0)
    {
        bool       done = false;
        const auto release = [&](wxKeyEvent& event)
        {
            event.Skip();
            done = done || event.GetKeyCode() == (key < 128 ? std::toupper(key) : key);
        };
        Frame()->Bind(wxEVT_CHAR_HOOK, release);
        m_Input.Char(key, modifiers);
        EXPECT_TRUE(WaitFor([&] { return done; }));
        PumpEvents();
        Frame()->Unbind(wxEVT_CHAR_HOOK, release);
    }
    /// "first-last (how many) anchor focus"
    String State()
    {
        std::vector<int> rows = m_List->GetSelection();
        std::sort(rows.begin(), rows.end());
        return SFormat("%d-%d (%d) %d %d", rows.empty() ? -1 : rows.front(),
                       rows.empty() ? -1 : rows.back(), static_cast<int>(rows.size()),
                       m_List->GetLastSelect(), m_List->GetFocusRow());
    }
    void Begin(int row)
    {
        Body()->DeselectAll(true);
        m_List->SetLastSelect(row);
        if (row >= 0)
        {
            Body()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
        }
    }

    KeyedList* m_List;
};
} // namespace

TEST_F(ListKeysTest, KeysGoToRowsAndSelect)
{
    constexpr int control = wxMOD_CONTROL, shift = wxMOD_SHIFT, both = wxMOD_CONTROL | wxMOD_SHIFT;
    const int     page = m_List->GetScrollThumb(wxVERTICAL) / m_List->GetRowHeight() - 1;
    struct
    {
        int    from, key, modifiers;
        String after;
    } const rows[] = {{50, WXK_HOME, 0, "0-0 (1) 0 0"},
                      {50, WXK_END, 0, "99-99 (1) 99 99"},
                      {50, WXK_HOME, shift, "0-50 (51) 50 0"},
                      {50, WXK_END, control, "50-50 (1) 50 99"},
                      {99, WXK_PAGEDOWN, 0, "99-99 (1) 99 99"},
                      {0, WXK_PAGEDOWN, 0, SFormat("%d-%d (1) %d %d", page, page, page, page)},
                      {3, WXK_PAGEUP, shift, "0-3 (4) 3 0"},
                      {50, 'A', control, "0-99 (100) 50 50"},
                      {50, WXK_SPACE, control, "-1--1 (0) 50 50"},
                      {50, WXK_UP, shift, "49-50 (2) 49 49"},
                      {50, WXK_DOWN, 0, "51-51 (1) 51 51"},
                      {99, WXK_DOWN, 0, "99-99 (1) 99 99"},
                      {50, WXK_DOWN, wxMOD_ALT, "50-50 (1) 50 50"}, // a menu's
                      {50, WXK_END, both, "50-99 (50) 50 99"}};
    for (const auto& row : rows)
    {
        Begin(row.from);
        Press(row.key, row.modifiers);
        EXPECT_EQ(row.after, State()) << row.from << ' ' << row.key << ' ' << row.modifiers;
    }
    // The row that the keys are on and the anchor, apart.
    const struct
    {
        int         key, modifiers;
        const char* after;
    } walk[] = {{WXK_HOME, control, "50-99 (50) 50 0"}, {WXK_SPACE, control, "0-99 (51) 0 0"},
                {WXK_END, shift, "0-99 (100) 0 99"},    {WXK_HOME, shift, "0-0 (1) 0 0"},
                {WXK_END, control, "0-0 (1) 0 99"},     {WXK_UP, 0, "98-98 (1) 98 98"},
                {WXK_HOME, control, "98-98 (1) 98 0"},  {WXK_SPACE, shift, "0-98 (99) 98 0"},
                {WXK_SPACE, 0, "0-0 (1) 0 0"},          {WXK_UP, 0, "0-0 (1) 0 0"},
                {WXK_END, control, "0-0 (1) 0 99"},     {WXK_SPACE, 0, "99-99 (1) 99 99"}};
    for (const auto& step : walk)
    {
        Press(step.key, step.modifiers);
        EXPECT_EQ(step.after, State()) << step.key << ' ' << step.modifiers;
    }
    m_List->EnsureVisible(0);
    Begin(page);
    Press(WXK_DOWN);
    EXPECT_EQ(m_List->GetRowHeight(), m_List->GetScrollPos(wxVERTICAL)) << "the view goes along";
    Begin(-1);
    m_List->EnsureVisible(0);
    Press(WXK_DOWN);
    EXPECT_EQ("-1--1 (0) -1 0", State()) << "a row to begin from";
    Press(WXK_DOWN, shift);
    EXPECT_EQ("0-1 (2) 1 1", State()) << "with the row that has the frame";
    Begin(-1);
    EXPECT_EQ(0, m_List->GetScrollPos(wxHORIZONTAL));
    Press(WXK_RIGHT);
    EXPECT_LT(0, m_List->GetScrollPos(wxHORIZONTAL));
    m_List->Clear();
    for (const int key : {WXK_HOME, WXK_PAGEDOWN, WXK_DOWN, WXK_SPACE, WXK_RETURN})
    {
        Press(key, shift);
    }
    EXPECT_EQ("-1--1 (0) -1 -1", State());
}

TEST_F(ListKeysTest, EnterAndTheMenuKeyAreForTheRowOfTheKeys)
{
    int     activated = -1;
    wxPoint menu(-1, -1);
    Frame()->Bind(wxEVT_LIST_ITEM_ACTIVATED,
                  [&](wxListEvent& event) { activated = static_cast<int>(event.GetIndex()); });
    wxAddListMenu(*m_List, [&](const wxPoint& where) { menu = Body()->ScreenToClient(where); });
    Begin(2);
    Press(WXK_END, wxMOD_CONTROL);
    Press(WXK_RETURN);
    EXPECT_EQ(99, activated);
    Press(WXK_F10, wxMOD_SHIFT);
    EXPECT_EQ("99-99 (1) 99 99", State());
    EXPECT_EQ(Body()->GetItemRect(99).GetBottomLeft(), menu);
}

TEST_F(ListKeysTest, TypedTextLeadsToARow)
{
    const struct
    {
        const char* typed;
        int         row;
    } rows[] = {{"b", 1},   {"bb", 2},   {"be", 1}, {"b r", 2},
                {"zb", 50}, {"aaa", 12}, {"B", 1},  {"alpha 9", 92}};
    for (const auto& row : rows)
    {
        m_List->SetFocus();
        Begin(row.row == 50 ? 50 : 0);
        Body()->ProcessWindowEvent(*std::make_unique<wxFocusEvent>(wxEVT_KILL_FOCUS)); // forgets
        for (const char* key = row.typed; *key; ++key)
        {
            Press(*key, *key >= 'A' && *key <= 'Z' ? wxMOD_SHIFT : 0);
        }
        EXPECT_EQ(row.row, m_List->GetFocusRow()) << row.typed;
        EXPECT_EQ(std::vector{row.row}, m_List->GetSelection()) << row.typed;
    }
    using listviews::TypedText;
    const auto now = TypedText::Clock::now();
    TypedText  typed;
    typed.Add(L'\u00C9', now);
    EXPECT_TRUE(typed.IsStartOf("\xC3\xA9mile"));
    EXPECT_TRUE(typed.IsStartOf("\xE9mile")) << "in a Latin-1 text";
    typed.Add(L'm', now);
    EXPECT_TRUE(typed.IsStartOf("\xC3\x89MILE"));
    EXPECT_FALSE(typed.IsStartOf("\xC3\xA9"));
    typed.Add(L'x', now + TypedText::k_Memory);
    EXPECT_TRUE(typed.IsStartOf("x")) << "the earlier ones are forgotten";
}

// Asked for its cells, a list of millions of rows keeps nobody waiting.
TEST_F(ListKeysTest, ALongSearchGoesOnBesideEverythingElse)
{
    class HugeList : public KeyedList
    {
    public:
        using KeyedList::KeyedList;
        String GetDisplayText(int row, int) override { return row == 2999999 ? "z" : "x"; }
    };
    auto* const list = new HugeList(Frame(), wxID_ANY);
    m_List->Hide();
    Frame()->GetSizer()->Add(m_List = list, 1, wxEXPAND);
    Frame()->Layout();
    list->AddColumn(0, "Title", 100);
    list->Insert(0, 3000000, true);
    list->SetFocus();
    EXPECT_TRUE(WaitFor([&] { return Body()->HasFocus(); }));
    Press('q');
    Press(WXK_ESCAPE); // drops the search for that
    Press('z');
    EXPECT_TRUE(WaitFor([&] { return list->GetFocusRow() == 2999999; }, 20000));
    EXPECT_EQ(std::vector{2999999}, list->GetSelection());
}

// Told in order and once each, whatever comes meanwhile.
TEST_F(ListKeysTest, VeryManyRowsAreSelectedBesideEverythingElse)
{
    constexpr int many = 1000000; // in no slice
    const auto    selectAll = [this](int rows)
    {
        m_List->Clear();
        m_List->Insert(0, static_cast<unsigned long>(rows), true);
        wxKeyEvent key(wxEVT_KEY_DOWN);
        key.m_keyCode = 'A';
        key.SetControlDown(true);
        Body()->ProcessWindowEvent(key);
        return m_List->IsSelecting();
    };
    std::vector<int>      told;
    std::function<void()> then;
    Frame()->Bind(wxEVT_LIST_ITEM_SELECTED,
                  [&](wxListEvent& event)
                  {
                      told.push_back(static_cast<int>(event.GetIndex()));
                      if (const auto once = std::exchange(then, nullptr))
                      {
                          once();
                      }
                  });
    EXPECT_FALSE(selectAll(listviews::SelectionWork::k_MostAtOnce));
    EXPECT_EQ(listviews::SelectionWork::k_MostAtOnce, told.size());
    m_List->Insert(0, many, true);
    m_List->SelectAllRows();
    EXPECT_TRUE(m_List->IsSelecting()) << "a menu's command does as the key";
    told.clear();
    ASSERT_TRUE(selectAll(many));
    EXPECT_GT(many, static_cast<int>(told.size()));
    m_List->Insert(0, 10, true);
    EXPECT_TRUE(WaitFor([this] { return !m_List->IsSelecting(); }, 20000));
    EXPECT_EQ(many, static_cast<int>(told.size()));
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(many + 9, told.back()) << "the rows of the wish, wherever they are by now";

    // What a hand does then is about the whole of it.
    Begin(-1);
    ASSERT_TRUE(selectAll(many));
    wxMouseEvent press(wxEVT_LEFT_DOWN);
    press.SetY(2 * m_List->GetRowHeight());
    press.SetControlDown(true);
    Body()->ProcessWindowEvent(press);
    EXPECT_EQ(many - 1, static_cast<int>(m_List->GetSelection().size()));
    press.SetControlDown(false);
    Body()->ProcessWindowEvent(press);
    EXPECT_TRUE(m_List->IsSelecting());
    EXPECT_EQ(2, m_List->GetLastSelect());
    Body()->ProcessWindowEvent(*std::make_unique<wxMouseEvent>(wxEVT_LEFT_UP));
    EXPECT_TRUE(m_List->FinishSelecting());
    EXPECT_EQ(std::vector{2}, m_List->GetSelection());

    ASSERT_TRUE(selectAll(many));
    m_List->Clear();
    EXPECT_FALSE(m_List->IsSelecting());
    ASSERT_TRUE(selectAll(many));
    then = [] { throw std::runtime_error("enough"); };
    EXPECT_THROW(m_List->FinishSelecting(), std::runtime_error);
    EXPECT_FALSE(m_List->IsSelecting());
    ASSERT_TRUE(selectAll(many));
    then = [this] { m_List->Destroy(); };
    EXPECT_FALSE(m_List->FinishSelecting());
}

TEST_F(ListKeysTest, ARefreshKeepsWhatTheUserHasMadeOfTheList)
{
    const auto refill = [this](int first, int count)
    {
        const wxListRefresh keep(*m_List);
        m_List->Clear();
        m_List->Fill(first, count);
    };
    Begin(40);
    Body()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, 38);
    m_List->SetFocusRow(45);
    m_List->SetScrollPos(wxVERTICAL, 36 * m_List->GetRowHeight() + 7);
    refill(-10, 110);
    EXPECT_EQ("48-50 (2) 50 55", State());
    EXPECT_EQ((std::vector{50, 48}), m_List->GetSelection()) << "in the order of selection";
    EXPECT_EQ(46 * m_List->GetRowHeight() + 7, m_List->GetScrollPos(wxVERTICAL));
    refill(39, 60);
    EXPECT_EQ("1-1 (1) 1 6", State()) << "row 38 has gone";
    refill(500, 3);
    EXPECT_EQ("-1--1 (0) 1 1", State()) << "near where it was";
    refill(500, 0);
    EXPECT_EQ("-1--1 (0) -1 -1", State());

    // Not all are asked because rows that were seen have gone.
    refill(0, 10000);
    Begin(40);
    m_List->SetScrollPos(wxVERTICAL, 38 * m_List->GetRowHeight());
    m_List->asked = 0;
    refill(39, 9000);
    EXPECT_EQ("1-1 (1) 1 1", State());
    EXPECT_LT(m_List->asked, 1000);
    refill(0, 0);

    // Told of what changes, and of nothing else; the list may go.
    refill(0, 50);
    Begin(7);
    int told = 0;
    Frame()->Bind(wxEVT_LIST_ITEM_SELECTED, [&](wxListEvent&) { told += 1; });
    {
        const wxListRefresh keep(*m_List);
    }
    EXPECT_EQ(0, told);
    refill(3, 47);
    EXPECT_EQ(1, told);
    Frame()->Bind(wxEVT_LIST_ITEM_SELECTED, [&](wxListEvent&) { m_List->Destroy(); });
    refill(2, 48);
}

// Where all have to be asked because a selected one has gone.
TEST_F(ListKeysTest, ARefreshOfVeryManyRowsKeepsNobodyWaiting)
{
    constexpr int many = 20000;
    m_List->isSlow = true;
    const auto refill = [this](int first)
    {
        const wxListRefresh keep(*m_List);
        m_List->Clear();
        m_List->Fill(first, many);
        m_List->asked = 0;
    };
    const auto begin = [&]
    {
        refill(0);
        EXPECT_TRUE(m_List->FinishSelecting());
        Begin(7);
        Body()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, many - 1);
        refill(100);
        EXPECT_LT(m_List->asked, many / 2);
        EXPECT_TRUE(m_List->IsSelecting());
    };
    const auto   ends = [this] { return WaitFor([this] { return !m_List->IsSelecting(); }); };
    const String found = SFormat("%d-%d (1) 7 7", many - 101, many - 101);
    begin();
    EXPECT_EQ("-1--1 (0) 7 7", State());
    EXPECT_TRUE(ends());
    EXPECT_EQ(found, State());
    begin();
    EXPECT_TRUE(m_List->FinishSelecting());
    EXPECT_EQ(found, State()) << "at once for who needs it";
    begin();
    refill(100);
    m_List->InsertItem(0, "new");
    EXPECT_TRUE(ends());
    EXPECT_EQ(SFormat("%d-%d (1) 8 8", many - 100, many - 100), State()) << "where it is by then";
    begin();
    Body()->SelectOnly(3, wxPoint(0, 0));
    EXPECT_FALSE(m_List->IsSelecting()) << "what the user selects meanwhile counts";
    EXPECT_EQ("3-3 (1) 7 7", State());
    begin();
    m_List->Clear();
    EXPECT_FALSE(m_List->IsSelecting());
    begin();
    Frame()->Bind(wxEVT_LIST_ITEM_SELECTED, [&](wxListEvent&) { m_List->Destroy(); });
    EXPECT_FALSE(m_List->FinishSelecting());
}
