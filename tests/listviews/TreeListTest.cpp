#include "internal/windows/UpperFloors.h"
#include "listviews/selecting/SelectionWork.h"
#include "listviews/tree/TreeCell.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "tests/listviews/ToldTest.h"
#include "tests/listviews/TreeSample.h"
#include "tests/support/EventCounter.h"
#include "tests/support/LogCapture.h"

#include <wx/utils.h>

#include <numeric>

namespace
{
constexpr int kParents = 20; // each with as many children, of which the first has as many again
constexpr int kChildren = 5;

// A tree that fills the frame, and what it tells. A node is called by its number: 3, 301, 30101.
class TreeListTest : public ToldTest
{
protected:
    TreeListTest() : m_Tree(new wxDBTreeListCtrl(Frame(), 17, false))
    {
        for (int parent = 1; parent <= kParents; ++parent)
        {
            m_Model.Add(0, parent);
            for (int child = 1; child <= kChildren; ++child)
            {
                m_Model.Add(parent, 100 * parent + child);
                m_Model.Add(100 * parent + 1, 10000 * parent + 100 + child);
            }
        }
        m_Tree->AddColumn(0, "Name", 300);
        m_Tree->AddColumn(1, "Number", 100);
        m_Tree->SetModel(&m_Model);
        Tell(wxEVT_LIST_ITEM_SELECTED, "+");
        Tell(wxEVT_LIST_ITEM_DESELECTED, "-");
        Tell(wxEVT_LIST_ITEM_ACTIVATED, "activate");
        for (const auto& [type, name] : {std::pair(wxEVT_TREELIST_ITEM_EXPANDING, "expanding"),
                                         std::pair(wxEVT_TREELIST_ITEM_EXPANDED, "expanded")})
        {
            Frame()->Bind(type,
                          [this, name = String(name)](wxTreeListEvent& event)
                          {
                              const auto& told = dynamic_cast<const wxDBTreeListEvent&>(event);
                              EXPECT_EQ(event.GetInt(), told.GetRow());
                              m_Told += name + String::FromInt(told.GetNode()) + " ";
                              event.Skip();
                          });
        }
        Fill(m_Tree);
        EXPECT_TRUE(WaitFor([this] { return m_Tree->GetScrollThumb(wxVERTICAL) > 200; }));
    }

    ~TreeListTest() override
    {
        if (m_Tree)
        {
            m_Tree->SetModel(nullptr); // the frame outlives the model
        }
    }

    void Tell(const wxEventTypeTag<wxListEvent>& type, const String& name)
    {
        Frame()->Bind(type,
                      [this, name](wxListEvent& event)
                      {
                          const auto row = static_cast<int>(event.GetIndex());
                          m_Told += name + String::FromInt(m_Tree->NodeAt(row)) + " ";
                          event.Skip();
                      });
    }
    String Press(int key, int modifiers = 0)
    {
        m_Input.Char(key, modifiers);
        return Told();
    }
    // Presses a mouse button on the row's expander, or on its text.
    String Click(int row, bool onExpander, bool twice = false)
    {
        const wxRect                      cell = m_Tree->GetBody()->GetCellRect(row, 0);
        const listviews::TreeCellGeometry geometry(cell, m_Tree->GetLevel(row));
        const wxRect  place = onExpander ? geometry.Expander() : geometry.Text();
        const wxPoint point(place.x + 5, place.y + place.height / 2);
        m_Input.MouseMove(m_Tree->GetBody()->ClientToScreen(point));
        PumpEvents();
        twice ? m_Input.MouseDblClick() : m_Input.MouseClick();
        return Told();
    }
    String Selected()
    {
        String text;
        for (const wxDBTreeNode node : m_Tree->GetSelectedNodes())
        {
            text += String::FromInt(node) + " ";
        }
        return text;
    }
    wxDBTreeNode Anchor() const { return m_Tree->NodeAt(m_Tree->GetLastSelect()); }

    TreeSample                  m_Model;
    wxWeakRef<wxDBTreeListCtrl> m_Tree;
};
} // namespace

TEST_F(TreeListTest, PointerAndKeysOpenAndClose)
{
    EXPECT_EQ("expanding2 expanded2 ", Click(1, true)) << "and selects nothing";
    EXPECT_EQ(kParents + kChildren, m_Tree->GetItemCount());
    EXPECT_EQ("+201 expanding201 expanded201 ", Click(2, false, true));
    EXPECT_EQ("-201 +20102 activate20102 ", Click(4, false, true)) << "a leaf is activated";
    const struct
    {
        int         key;
        const char* told;
        int         anchor;
    } keys[] = {
        {WXK_LEFT, "-20102 +201 ", 201},
        {WXK_LEFT, "", 201},
        {WXK_RIGHT, "expanding201 expanded201 ", 201},
        {WXK_RIGHT, "-201 +20101 ", 20101},
        {WXK_BACK, "-20101 +201 ", 201},
        {'-', "", 201},
        {WXK_NUMPAD_ADD, "expanding201 expanded201 ", 201},
        {WXK_NUMPAD_SUBTRACT, "", 201},
        {WXK_LEFT, "-201 +2 ", 2},
        {WXK_DOWN, "-2 +201 ", 201},
        {WXK_UP, "-201 +2 ", 2},
        {WXK_LEFT, "", 2},
        {WXK_BACK, "", 2},
        {WXK_NUMPAD_MULTIPLY, "expanding2 expanded2 ", 2},
    };
    for (const auto& key : keys)
    {
        EXPECT_EQ(key.told, Press(key.key)) << key.key;
        EXPECT_EQ(key.anchor, Anchor()) << key.key;
    }
    EXPECT_TRUE(m_Tree->IsOpen(2)) << "all of it";
    EXPECT_EQ("", Click(1, true));
    EXPECT_EQ(kParents, m_Tree->GetItemCount());
    for (int i = 0; i < 10; ++i)
    {
        m_Input.MouseClick();
        m_Input.MouseDblClick();
    }
    PumpEvents();
    EXPECT_FALSE(m_Tree->IsOpen(1)) << "pressed 30 times";
}

TEST_F(TreeListTest, ClosingAndOpeningKeepTheSelectionWithItsNodes)
{
    m_Tree->OpenAll();
    EXPECT_EQ(kParents * (1 + 2 * kChildren), m_Tree->GetItemCount());
    EXPECT_EQ(-1, m_Tree->RowOf({3, 302, 30101}));
    for (const std::vector<wxDBTreeNode>& path :
         {std::vector<wxDBTreeNode>{3, 301, 30102}, {3, 305}, {4}})
    {
        const int row = m_Tree->Reveal(path);
        EXPECT_EQ(path.back(), m_Tree->NodeAt(row));
        m_Tree->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
        m_Tree->SetLastSelect(row);
    }
    m_Tree->SetLastSelect(m_Tree->RowOf({3, 301, 30102}));
    m_Told.clear();
    m_Tree->Close(m_Tree->RowOf({1}));
    EXPECT_EQ("30102 305 4 ", Selected());
    EXPECT_EQ(30102, Anchor());
    m_Tree->Close(m_Tree->RowOf({3}));
    EXPECT_EQ("-305 -30102 ", Told()) << "from the last";
    EXPECT_EQ("4 ", Selected());
    EXPECT_EQ(3, Anchor());
    m_Tree->Open(m_Tree->RowOf({3}));
    EXPECT_TRUE(m_Tree->IsOpen(m_Tree->RowOf({3, 301}))) << "as it was";

    // Rows that are being selected are the same ones when nodes open and close above them.
    m_Model.claimed[5] = 3 * listviews::SelectionWork::k_MostAtOnce;
    m_Tree->Close(m_Tree->RowOf({5}));
    m_Tree->ModelChanged();
    EXPECT_TRUE(WaitFor([this] { return !m_Tree->IsArranging(); }, 20000));
    m_Tree->Open(m_Tree->RowOf({5}));
    wxKeyEvent key(wxEVT_KEY_DOWN);
    key.m_keyCode = 'A';
    key.SetControlDown(true);
    m_Tree->GetBody()->ProcessWindowEvent(key);
    ASSERT_TRUE(m_Tree->IsSelecting());
    m_Tree->Close(m_Tree->RowOf({3}));
    m_Tree->Open(m_Tree->RowOf({1}));
    EXPECT_TRUE(m_Tree->IsSelecting());
    EXPECT_TRUE(m_Tree->FinishSelecting());
    EXPECT_EQ(m_Tree->GetItemCount() - 2 * kChildren, // which had been told of already
              static_cast<int>(m_Tree->GetSelection().size()));
    m_Model.claimed.clear();
    m_Tree->GetBody()->DeselectAll(true);
    m_Tree->ModelChanged();
    EXPECT_TRUE(WaitFor([this] { return !m_Tree->IsArranging(); }, 20000));
    m_Tree->Open(m_Tree->RowOf({3}));

    m_Tree->SaveOpenNodes("Tree", "Open"); // none has a key
    m_Model.keys = {{3, "three"}, {301, "first"}};
    m_Tree->SaveOpenNodes("Tree", "Open");
    m_Tree->CloseAll();
    EXPECT_EQ(kParents, m_Tree->GetItemCount());
    m_Tree->RestoreOpenNodes("Tree", "Open");
    EXPECT_EQ(kParents + 2 * kChildren, m_Tree->GetItemCount());
    m_Tree->Clear();
    EXPECT_EQ(0, m_Tree->GetItemCount());
}

// A model of many nodes changes while it is shown: the old rows are, until the new ones are there.
TEST_F(TreeListTest, SortsAndFiltersInIdleTime)
{
    // More than are sorted at once.
    for (int i = 200000; i > 1000; --i)
    {
        m_Model.Add(1, 1000000 + i);
    }
    m_Tree->Open(0);
    const int    all = m_Tree->GetItemCount();
    EventCounter arranged(m_Tree, wxEVT_DBTREELIST_ARRANGED);
    const int    row = m_Tree->Reveal({1, 1005000});
    m_Tree->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
    m_Tree->SetLastSelect(row);
    const auto isDone = [&] { return !m_Tree->IsArranging(); };
    const int  y = m_Tree->GetBody()->GetItemRect(row).y;

    m_Tree->SortChildren({{0, false}});
    EXPECT_TRUE(m_Tree->IsArranging());
    EXPECT_EQ(1005000, m_Tree->NodeAt(row)) << "the old order";
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ(1005000, Anchor());
    EXPECT_EQ(y, m_Tree->GetBody()->GetItemRect(m_Tree->GetLastSelect()).y);
    EXPECT_LT(m_Tree->GetLastSelect(), row);
    EXPECT_EQ("1005000 ", Selected());

    m_Tree->SetFilter([](wxDBTreeNode node) { return node == 1005000; }); // is cancelled
    m_Tree->SetFilter([](wxDBTreeNode node)
                      { return (node % 10000 == 5000 && node < 1030000) || node == 502; });
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ(6, m_Tree->GetItemCount()) << "1 and three in it, 5 and 502";
    EXPECT_EQ(4, m_Tree->GetMatchCount());
    EXPECT_EQ("1005000 ", Selected());
    m_Tree->Close(0);
    m_Tree->Open(0);
    EXPECT_EQ(6, m_Tree->GetItemCount()) << "those only, still";
    for (const int again : {m_Tree->RowOf({1, 1005000}), 5})
    {
        m_Tree->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, again);
    }
    m_Told.clear();
    m_Tree->SetFilter([](wxDBTreeNode node) { return node == 1005000 || node == 502; });
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ("", Told());
    m_Tree->SetFilter([](wxDBTreeNode node) { return node == 502; });
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ("502 ", Selected());
    m_Told.clear();
    m_Tree->SetFilter({});
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ(all + kChildren, m_Tree->GetItemCount()) << "as it was; 5 is open for its selection";
    EXPECT_EQ("+1005000 ", Told());
    EXPECT_EQ("1005000 502 ", Selected());

    m_Tree->SetFilter([](wxDBTreeNode node) { return node == 502; });
    ASSERT_TRUE(WaitFor(isDone));
    for (const auto& type : {wxEVT_LIST_ITEM_DESELECTED, wxEVT_LIST_ITEM_SELECTED})
    {
        m_Tree->GetBody()->SendListEvent(type, wxPoint(0, 0), 0, 1);
    }
    m_Tree->SetFilter({});
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ("502 ", Selected()) << "another selection than the one that was hidden";

    m_Model.children[5].pop_back();
    m_Model.children[5].insert(m_Model.children[5].begin(), 599);
    m_Tree->ChildrenChanged(5);
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ("502 ", Selected());
    m_Model.children[5].clear();
    m_Told.clear();
    m_Tree->ModelChanged();
    ASSERT_TRUE(WaitFor(isDone));
    EXPECT_EQ("", Selected());
    EXPECT_GE(arranged.Count(), 7);
}

TEST_F(TreeListTest, ARowThatAFilterHidHasTheKeysAgainWhenItIsBack)
{
    const auto filter = [this](const std::function<bool(wxDBTreeNode)>& matches)
    {
        m_Tree->SetFilter(matches);
        ASSERT_TRUE(WaitFor([this] { return !m_Tree->IsArranging(); }));
    };
    const auto click = [this](int row)
    {
        for (const int selected : m_Tree->GetSelection())
        {
            m_Tree->GetBody()->SendListEvent(wxEVT_LIST_ITEM_DESELECTED, wxPoint(0, 0), 0,
                                             selected);
        }
        m_Tree->GetBody()->SendListEvent(wxEVT_LIST_ITEM_SELECTED, wxPoint(0, 0), 0, row);
        m_Tree->SetLastSelect(row);
    };
    const auto isSeen = [this](int row)
    {
        const wxDBListBody* const body = m_Tree->GetBody();
        return body->GetClientRect().Contains(body->GetItemRect(row));
    };
    for (int parent = kParents; parent > 0; --parent)
    {
        m_Tree->Open(parent - 1);
    }
    click(m_Tree->RowOf({20, 2004}));
    filter([](wxDBTreeNode node) { return node == 502; });
    EXPECT_EQ(-1, m_Tree->GetLastSelect());
    filter([](wxDBTreeNode) { return false; });
    m_Tree->SetScrollPos(wxVERTICAL, 0);
    filter({});
    EXPECT_EQ(2004, Anchor());
    EXPECT_EQ(m_Tree->GetLastSelect(), m_Tree->GetFocusRow());
    EXPECT_EQ("2004 ", Selected());
    EXPECT_TRUE(isSeen(m_Tree->GetLastSelect()));

    filter([](wxDBTreeNode node) { return node == 502; });
    click(1);
    filter({});
    EXPECT_EQ(502, Anchor()) << "the user has gone on from another row";

    click(m_Tree->RowOf({10, 1004}));
    m_Tree->SetScrollPos(wxVERTICAL, m_Tree->GetLastSelect() * m_Tree->GetRowHeight());
    filter([](wxDBTreeNode node) { return node > 1000 && node < 10000 && node != 1004; });
    EXPECT_TRUE(isSeen(m_Tree->RowOf({10, 1005}))) << "the neighbour, not what stands there now";

    filter({});
    click(m_Tree->RowOf({1, 104}));
    m_Tree->EnsureVisible(0);
    filter([](wxDBTreeNode node) { return node > 200 && node < 10000; });
    m_Tree->SetScrollPos(wxVERTICAL, m_Tree->GetScrollRange(wxVERTICAL));
    filter({});
    EXPECT_EQ(104, Anchor());
    EXPECT_TRUE(isSeen(m_Tree->GetLastSelect())) << "from wherever the view was scrolled to";
}

// Of very many selected rows some at a time.
TEST_F(TreeListTest, WhatGoesFromSightAndComesBackKeepsNobodyWaiting)
{
    for (int i = 0; i < 3000; ++i)
    {
        m_Model.Add(0, 2000000 + i);
    }
    const auto ends = [this] { return WaitFor([this] { return !m_Tree->IsArranging(); }); };
    m_Tree->ModelChanged();
    EXPECT_TRUE(ends());
    std::vector<int> all(static_cast<size_t>(m_Tree->GetItemCount()));
    std::iota(all.begin(), all.end(), 0);
    size_t     told = 0;
    const auto listen = [&told](wxListEvent& event)
    {
        event.Skip();
        wxMilliSleep(++told % 64 == 0 ? 1 : 0);
    };
    Frame()->Bind(wxEVT_LIST_ITEM_SELECTED, listen);
    Frame()->Bind(wxEVT_LIST_ITEM_DESELECTED, listen);
    m_Tree->ChangeSelection(all, false);
    EXPECT_EQ(0u, told);
    EXPECT_EQ(all, m_Tree->GetSelection());
    const auto hide = [&]
    {
        told = 0;
        m_Tree->SetFilter([](wxDBTreeNode) { return false; });
        EXPECT_TRUE(WaitFor([&] { return m_Tree->IsReselecting(); }));
        EXPECT_LT(told, all.size());
        EXPECT_EQ(static_cast<int>(all.size()), m_Tree->GetItemCount());
    };
    hide();
    EXPECT_TRUE(ends());
    EXPECT_EQ(all.size(), told);
    EXPECT_EQ(0, m_Tree->GetItemCount());
    m_Tree->SetFilter({});
    EXPECT_TRUE(m_Tree->IsReselecting());
    EXPECT_TRUE(ends());
    EXPECT_EQ(2 * all.size(), told);
    EXPECT_EQ(all, m_Tree->GetSelection());
    hide();
    m_Tree->GetBody()->SelectOnly(1, wxPoint(0, 0));
    EXPECT_TRUE(ends());
    EXPECT_EQ("", Selected());
    m_Tree->SetFilter({});
    EXPECT_TRUE(ends());
    EXPECT_EQ("2 ", Selected()) << "what was selected meanwhile, and nothing else";
    m_Tree->ChangeSelection(all, false);
    hide();
    m_Tree->SetModel(nullptr);
    EXPECT_FALSE(m_Tree->IsReselecting());
}

// No row moves under an open menu or a question, but what a row shows may be what is decided by.
TEST_F(TreeListTest, RowsThatStayShowWhatTheyAreNow)
{
    const auto isMenuOpen = internal::g_UpperFloors.isMenuOpen;
    internal::g_UpperFloors.isMenuOpen = [] { return true; };
    for (const char* const when : {"first", "while the first waits"})
    {
        SCOPED_TRACE(when);
        ASSERT_TRUE(WaitFor([this] { return !m_Tree->GetBody()->IsWholeRedrawPending(); }));
        m_Tree->ModelChanged();
        EXPECT_TRUE(m_Tree->IsArranging());
        EXPECT_TRUE(m_Tree->GetBody()->IsWholeRedrawPending());
    }
    internal::g_UpperFloors.isMenuOpen = isMenuOpen;
    EXPECT_TRUE(WaitFor([this] { return !m_Tree->IsArranging(); }));
}

TEST_F(TreeListTest, BadModelsDoNoHarm)
{
    const LogCapture log;
    m_Model.claimed[1] = 1LL << 31;
    m_Model.children[2] = {2};
    m_Tree->Open(0);
    EXPECT_GT(m_Tree->GetItemCount(), 50000000);
    EXPECT_TRUE(log.Has("higher than can be scrolled", log_Error));
    PumpEvents();
    m_Tree->OpenAll();
    EXPECT_TRUE(log.Has("opened at once", log_Warning));
    m_Tree->CloseAll();
    EXPECT_EQ(kParents, m_Tree->GetItemCount());
    int level = 0;
    while (m_Tree->Open(1 + level)) // a node that is its own child
    {
        ++level;
    }
    EXPECT_EQ(999, level);
    m_Tree->CloseAll();
    m_Model.throws = true;
    m_Tree->Open(3);
    m_Tree->SetFilter([](wxDBTreeNode) { return true; });
    m_Tree->SortChildren({{0, false}});
    EXPECT_FALSE(m_Tree->IsArranging());
    EXPECT_FALSE(m_Tree->IsOpen(3));
    EXPECT_EQ(kParents, m_Tree->GetItemCount());
    m_Model.throws = false;
    EXPECT_TRUE(log.Has("Arranging a tree"));
}

// Whatever is done to the tree in one of its events.
TEST_F(TreeListTest, HandlersMayTakeItApart)
{
    int what = 0;
    Frame()->Bind(wxEVT_TREELIST_ITEM_EXPANDING,
                  [&](wxTreeListEvent& event)
                  {
                      event.Skip();
                      switch (what)
                      {
                      case 0:
                          event.Veto();
                          break;
                      case 1: // children that come only now
                          m_Model.children[2] = {777};
                          m_Tree->ChildrenChanged(2);
                          break;
                      case 2:
                          m_Tree->SetModel(nullptr);
                          break;
                      default:
                          delete m_Tree.get();
                      }
                  });
    EXPECT_EQ("expanding2 ", Click(1, true));
    what = 1;
    EXPECT_EQ("expanding2 expanded2 ", Click(1, true));
    EXPECT_EQ(777, m_Tree->NodeAt(2));
    what = 2;
    EXPECT_EQ("expanding1 ", Click(0, true));
    EXPECT_EQ(0, m_Tree->GetItemCount());
    m_Tree->SetModel(&m_Model);
    m_Tree->Open(2);
    Click(3, false);
    const auto closing = [&](wxListEvent& event)
    {
        event.Skip();
        m_Tree->Close(2);
    };
    Frame()->Bind(wxEVT_LIST_ITEM_DESELECTED, closing);
    m_Tree->Close(2); // asks itself in the middle of it
    EXPECT_EQ(kParents, m_Tree->GetItemCount());
    Frame()->Unbind(wxEVT_LIST_ITEM_DESELECTED, closing);
    what = 3;
    Click(1, true);
    EXPECT_FALSE(m_Tree);
}
