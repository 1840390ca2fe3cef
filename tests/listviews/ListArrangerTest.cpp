#include "appearance/wxtSearchField.h"
#include "internal/windows/UpperFloors.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListCtrl.h"
#include "listviews/wxListArranger.h"
#include "listviews/wxListRefresh.h"
#include "tests/support/FrameTest.h"
#include "tests/support/LogCapture.h"
#include "vesta/Exception.h"

#include <wx/dialog.h>
#include <wx/listbase.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <algorithm>
#include <set>

namespace
{
// Its items are numbers from 0 on, whose texts run the other way, and that are even or odd.
class ArrangedList : public wxDBListCtrl
{
public:
    ArrangedList(wxWindow* parent, int count)
        : wxDBListCtrl(parent, wxID_ANY, false), m_Count(count)
    {
        AddColumn(5, "Name", 150);
        AddColumn(7, "Kind", 100);
        Bind(wxEVT_LIST_ITEM_SELECTED,
             [this](wxListEvent& event) { m_Selected.insert(ItemOf(event)); });
        Bind(wxEVT_LIST_ITEM_DESELECTED,
             [this](wxListEvent& event)
             {
                 m_Selected.erase(ItemOf(event));
                 m_Gone.push_back(ItemOf(event));
                 event.Skip();
             });
        MakeArranger();
    }
    void MakeArranger()
    {
        m_Arranger = std::make_unique<wxListArranger>(
            *this, wxListArranger::Items{[this] { return m_Count; },
                                         [this](int item, int type) { return TextOf(item, type); },
                                         nullptr});
    }

    bool IsRowSelected(int row) override { return m_Selected.count(m_Arranger->ItemAt(row)) > 0; }
    std::vector<int> GetSelection() override
    {
        std::vector<int> rows;
        for (int row = 0; row < GetItemCount(); ++row)
        {
            if (IsRowSelected(row))
            {
                rows.push_back(row);
            }
        }
        return rows;
    }
    String GetDisplayText(int row, int column) override
    {
        const int item = m_Arranger ? m_Arranger->ItemAt(row) : -1;
        return item < 0 ? String() : TextOf(item, GetColumn(column).type);
    }
    String TextOf(int item, int type)
    {
        if (m_OnText)
        {
            m_OnText(item);
        }
        return type == 5 ? "n" + String::FromInt(m_First - item) : item % 2 ? "odd" : "even";
    }
    String GetRowKey(int row) override { return TextOf(m_Arranger->ItemAt(row), 5); }
    int    ItemOf(const wxListEvent& event) const
    {
        return m_Arranger->ItemAt(static_cast<int>(event.GetIndex()));
    }

    int                             m_First = 1000;
    int                             m_Count;
    std::set<int>                   m_Selected;
    std::vector<int>                m_Gone;
    std::function<void(int)>        m_OnText;
    std::unique_ptr<wxListArranger> m_Arranger;
};

class ListArrangerTest : public FrameTest
{
protected:
    ListArrangerTest()
        : m_Field(new wxtSearchField(Frame())), m_List(new ArrangedList(Frame(), 100))
    {
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(m_Field, 0, wxEXPAND);
        sizer->Add(m_List, 1, wxEXPAND);
        Frame()->SetSizer(sizer);
        Frame()->Layout();
        EXPECT_TRUE(WaitFor([this] { return m_List->GetScrollRange(wxVERTICAL) > 500; }));
    }
    wxListArranger& Arranger() const { return *m_List->m_Arranger; }
    void            Send(const wxEventTypeTag<wxListEvent>& type, int row) const
    {
        m_List->GetBody()->SendListEvent(type, wxPoint(0, 0), 0, row);
    }
    // The items of the first rows.
    std::vector<int> Top() const
    {
        std::vector<int> items;
        for (int row = 0; row < 4; ++row)
        {
            items.push_back(Arranger().ItemAt(row));
        }
        return items;
    }
    bool Arranged() const
    {
        return WaitFor([this] { return !m_List || !Arranger().IsArranging(); }, 20000);
    }
    using Items = std::vector<int>;

    wxtSearchField*         m_Field;
    wxWeakRef<ArrangedList> m_List;
};
} // namespace

TEST_F(ListArrangerTest, TitlesSortAndTheRestStaysWithItsItems)
{
    Send(wxEVT_LIST_ITEM_SELECTED, 40);
    m_List->SetLastSelect(40);
    m_List->SetScrollPos(wxVERTICAL, 37 * m_List->GetRowHeight());
    wxUIActionSimulator input;
    const auto          click = [&](int x)
    {
        input.MouseMove(m_List->ClientToScreen(wxPoint(x, 8)));
        input.MouseClick();
        PumpEvents();
        EXPECT_TRUE(WaitFor([] { return !wxGetMouseState().LeftIsDown(); }));
        EXPECT_TRUE(Arranged());
    };
    click(75);
    EXPECT_TRUE(WaitFor([this] { return Arranger().ItemAt(0) == 99; })) << "n901 before n1000";
    EXPECT_EQ(59, m_List->GetLastSelect());
    EXPECT_EQ(Items{59}, m_List->GetSelection());
    EXPECT_EQ(3 * m_List->GetRowHeight(), m_List->GetBody()->GetItemRect(m_List->GetFocusRow()).y)
        << "its place on the screen";
    EXPECT_EQ(wxDBListCtrl::image_Ascending, m_List->GetColumn(0).image);
    click(75);
    EXPECT_TRUE(WaitFor([this] { return Arranger().ItemAt(0) == 0; }));
    EXPECT_EQ(wxDBListCtrl::image_Descending, m_List->GetColumn(0).image);
    input.KeyDown(WXK_SHIFT);
    click(200);
    input.KeyUp(WXK_SHIFT);
    click(200);
    EXPECT_TRUE(WaitFor([this] { return Top() == Items{0, 2, 4, 6}; }));
    Arranger().ClickTitle(5, true);
    EXPECT_EQ((Items{98, 96, 94, 92}), Top());
    EXPECT_EQ(1, m_List->GetColumn(1).rank);
    EXPECT_EQ(2, m_List->GetColumn(0).rank);
    EXPECT_EQ(1, m_List->GetHighlightColumn()) << "where typed text is looked for";
    Arranger().SaveSorting("Lists", "Sorting");
    Arranger().StopSorting();
    EXPECT_EQ(-1, m_List->GetHighlightColumn());
    EXPECT_EQ((Items{0, 1, 2, 3}), Top());
    EXPECT_EQ(wxDBListCtrl::image_None, m_List->GetColumn(0).image);
    Arranger().RestoreSorting("Lists", "Sorting");
    EXPECT_EQ((Items{98, 96, 94, 92}), Top());
}

TEST_F(ListArrangerTest, AFieldFiltersAsItIsTypedInto)
{
    Arranger().Follow(*m_Field);
    Send(wxEVT_LIST_ITEM_SELECTED, 3);
    Send(wxEVT_LIST_ITEM_SELECTED, 10);
    wxUIActionSimulator input;
    m_Field->SetFocus();
    PumpEvents();
    input.Text("n9 -odd");
    EXPECT_TRUE(WaitFor([this] { return Arranger().GetFilter() == "n9 -odd"; }));
    EXPECT_TRUE(WaitFor([this] { return m_List->GetItemCount() == 49; }));
    EXPECT_EQ("49 of 100 shown", m_Field->GetNote());
    EXPECT_EQ((Items{2, 4, 6, 8}), Top());
    EXPECT_EQ(Items{3}, m_List->m_Gone);
    EXPECT_EQ(Items{4}, m_List->GetSelection()) << "item 10";
    const auto has = [this](int rows)
    { return WaitFor([&] { return m_List->GetItemCount() == rows; }); };
    const auto erase = [&] // "odd"
    {
        for (int i = 0; i < 3; ++i)
        {
            input.Char(WXK_BACK);
        }
        EXPECT_TRUE(has(99));
    };
    erase();
    EXPECT_EQ((Items{2, 9}), m_List->GetSelection()) << "what is shown again is selected again";
    input.Text("odd");
    EXPECT_TRUE(has(49));
    m_List->ShowColumn(1, false);
    EXPECT_TRUE(has(99)) << "nothing that is shown is odd";
    m_List->ShowColumn(1, true);
    EXPECT_TRUE(has(49));
    // Another item comes before all others: those that were odd are even now.
    m_List->m_Count = ++m_List->m_First - 900;
    m_List->m_Selected = {11};
    Arranger().ItemsChanged();
    EXPECT_TRUE(has(50));
    EXPECT_EQ(Items{1}, m_List->GetSelection()) << "item 4, once 3";
    erase();
    EXPECT_EQ((Items{2, 9}), m_List->GetSelection());
    input.Text("odd");
    EXPECT_TRUE(has(50));
    Send(wxEVT_LIST_ITEM_SELECTED, 0);
    erase();
    EXPECT_EQ((Items{0, 2}), m_List->GetSelection()) << "the user has changed it meanwhile";
    m_List->m_Count = 1000000;
    m_List->m_First = 2000000;
    Arranger().ItemsChanged();
    Arranger().ItemsChanged();
    Arranger().SortBy(5, true);
    EXPECT_TRUE(Arranged());
    EXPECT_EQ("0 of 1,000,000 shown", m_Field->GetNote());
    input.Char(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([this] { return Arranger().GetFilter().empty(); }));
    EXPECT_TRUE(Arranged());
    EXPECT_EQ(999999, Arranger().ItemAt(0));
    EXPECT_EQ(1000000, m_List->GetItemCount());
    EXPECT_EQ("", m_Field->GetNote());
    input.Char(WXK_DOWN);
    EXPECT_TRUE(WaitFor([this] { return m_List->GetBody()->HasFocus(); }));
}

// Also when the items of the host change all the time.
TEST_F(ListArrangerTest, ARowThatAFilterHidHasTheKeysAgainWhenItIsBack)
{
    const auto filter = [this](const String& words)
    {
        Arranger().SetFilter(words);
        EXPECT_TRUE(Arranged());
    };
    Send(wxEVT_LIST_ITEM_SELECTED, 3);
    m_List->SetLastSelect(3);
    filter("-odd");
    EXPECT_EQ(-1, m_List->GetLastSelect());
    Arranger().ItemsChanged();
    filter("");
    EXPECT_EQ(3, m_List->GetLastSelect());
    EXPECT_EQ(3, m_List->GetFocusRow());
    filter("-odd");
    m_List->m_Count = ++m_List->m_First - 900; // one before all others
    Arranger().ItemsChanged();
    filter("");
    EXPECT_EQ(-1, m_List->GetLastSelect()) << "its number is that of another item";
}

// While the new rows are being sorted the list shows others, or some of them not at all.
TEST_F(ListArrangerTest, ARefreshWaitsForItsRows)
{
    m_List->m_Count = m_List->m_First = 200000;
    Arranger().ItemsChanged();
    Arranger().SortBy(5, true);
    EXPECT_TRUE(Arranged());
    m_List->m_Selected = {5, 199999};
    m_List->SetLastSelect(Arranger().RowOf(199999));
    for (const int refreshes : {1, 2}) // the second one before the first one is done
    {
        for (int i = 0; i < refreshes; ++i)
        {
            const wxListRefresh keep(*m_List);
            m_List->m_Selected.clear();
            m_List->m_Count = ++m_List->m_First;
            Arranger().ItemsChanged();
        }
        EXPECT_TRUE(Arranger().IsArranging());
        EXPECT_TRUE(Arranged());
        const int more = m_List->m_First - 200000;
        EXPECT_EQ((std::set{5 + more, 199999 + more}), m_List->m_Selected);
        EXPECT_TRUE(refreshes > 1 || Arranger().ItemAt(m_List->GetLastSelect()) == 200000);
    }
}

// Not under a hand, nor while the window asks something.
TEST_F(ListArrangerTest, RowsStayWhereSomebodyPointsAtOne)
{
    wxUIActionSimulator input;
    input.MouseMove(m_List->GetBody()->ClientToScreen(wxPoint(400, 50)));
    const auto dialog = std::make_unique<wxDialog>(Frame(), wxID_ANY, "Question");
    const auto isMenuOpen = internal::g_UpperFloors.isMenuOpen;
    bool       ascending = false;
    const auto stays = [&](const char* what)
    {
        const Items before = Top();
        Arranger().SortBy(5, ascending = !ascending);
        const wxStopWatch watch;
        EXPECT_TRUE(WaitFor([&] { return watch.Time() > 150; }));
        EXPECT_EQ(before, Top()) << what;
        EXPECT_TRUE(Arranger().IsArranging()) << what;
    };
    input.MouseDown();
    EXPECT_TRUE(WaitFor([] { return wxGetMouseState().LeftIsDown(); }));
    stays("pressed");
    input.MouseUp();
    EXPECT_TRUE(Arranged());
    internal::g_UpperFloors.isMenuOpen = [] { return true; };
    stays("menu");
    internal::g_UpperFloors.isMenuOpen = isMenuOpen;
    EXPECT_TRUE(Arranged());
    dialog->CallAfter(
        [&]
        {
            stays("dialog");
            dialog->EndModal(wxID_OK);
        });
    dialog->ShowModal();
    EXPECT_TRUE(Arranged());
    EXPECT_EQ(99, Arranger().ItemAt(0)) << "n901";
}

TEST_F(ListArrangerTest, SurvivesItsHost)
{
    LogCapture log;
    m_List->m_OnText = [](int item)
    {
        if (item == 50)
        {
            throw new Exception("Host", "TextOf", 7, "no such item");
        }
    };
    Arranger().SortBy(5, true);
    EXPECT_TRUE(Arranged());
    EXPECT_EQ((Items{0, 1, 2, 3}), Top()) << "as it was";
    EXPECT_EQ(1, log.Count("no such item"));
    m_List->m_OnText = [this](int) { Arranger().ItemsChanged(); };
    m_List->m_Count = 5;
    Arranger().SortBy(5, false);
    m_List->m_OnText = nullptr;
    EXPECT_TRUE(WaitFor([this] { return m_List->GetItemCount() == 5; }));
    m_List->m_Count = 2;
    EXPECT_EQ((Items{0, 1, -1, -1}), Top()) << "those that have gone meanwhile";
    m_List->m_Count = 5;
    Send(wxEVT_LIST_ITEM_SELECTED, 1);
    m_List->Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent&) { m_List->MakeArranger(); });
    Arranger().SetFilter("even");
    EXPECT_TRUE(WaitFor([this] { return Arranger().GetFilter().empty(); }));
    Arranger().m_OnArranged = [this] { m_List->MakeArranger(); };
    Arranger().SortBy(5, false);
    EXPECT_TRUE(WaitFor([this] { return !Arranger().IsSorted(); }));
    m_List->Bind(wxEVT_LIST_ITEM_DESELECTED, [](wxListEvent& event) { event.Skip(false); });
    Send(wxEVT_LIST_ITEM_SELECTED, 1);
    Arranger().SetFilter("even");
    EXPECT_TRUE(WaitFor([this] { return m_List->GetItemCount() == 3; }));
    m_List->m_Selected.clear();
    m_List->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { m_List->Destroy(); });
    Arranger().SetFilter(String());
    EXPECT_TRUE(WaitFor([this] { return !m_List; }));
}
