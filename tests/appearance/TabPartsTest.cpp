#include "appearance/inputs/ItemDrawing.h"
#include "appearance/tabs/DropPlace.h"
#include "appearance/tabs/TabLayout.h"
#include "appearance/tabs/TabRow.h"
#include "appearance/tabs/UseOrder.h"

#include <wx/aui/framemanager.h>

#include <gtest/gtest.h>
#include <numeric>

using namespace appearance;

namespace
{
const TabRowSizes kSizes{wxSize(300, 24), 50, 20};

std::string PlacesOf(const std::vector<PanePlace>& panes)
{
    std::string text;
    for (const PanePlace& pane : panes)
    {
        text += SFormat("%c%d%d%d ", " trblc"[pane.direction], pane.layer, pane.row, pane.position);
    }
    return text;
}
} // namespace

TEST(TabRowTest, TabsShareTheRoom)
{
    using Widths = std::vector<int>;
    EXPECT_EQ((Widths{80, 90}), FitTabs({80, 90}, 300, 50));
    EXPECT_EQ((Widths{40, 130, 130}), FitTabs({40, 200, 180}, 300, 50)) << "the widest give first";
    EXPECT_EQ((Widths{50, 50, 30}), FitTabs({90, 90, 30}, 60, 50)) << "down to the least";
    EXPECT_EQ(Widths(), FitTabs({}, 60, 50));
}

TEST(TabRowTest, ARowScrollsToTheTabThatIsShown)
{
    const std::vector<int> wanted(20, 100);
    const struct
    {
        size_t first;
        int    shown;
        size_t nowFirst;
        size_t nowEnd;
    } rows[] = {{0, -1, 0, 2},    {0, 1, 0, 2},    {0, 2, 1, 3},     {10, 2, 2, 4},
                {10, 11, 10, 12}, {0, 19, 18, 20}, {19, -1, 18, 20}, {500, 500, 18, 20}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.first << " " << row.shown);
        const TabRow tabs = TabRow::Of(wanted, row.first, row.shown, kSizes);
        EXPECT_EQ(row.nowFirst, tabs.first);
        EXPECT_EQ(row.nowEnd, tabs.end);
        EXPECT_TRUE(tabs.scrolls);
        EXPECT_EQ(row.nowFirst > 0, tabs.CanGoBack());
        EXPECT_EQ(row.nowEnd < 20, tabs.CanGoForward());
        EXPECT_EQ(static_cast<int>(row.nowFirst), tabs.TabAt({1, 5}));
        EXPECT_EQ(button_List, tabs.ButtonAt({299, 5}));
        EXPECT_EQ(-1, tabs.TabAt({299, 5}));
        EXPECT_EQ(100, tabs.tabs[row.nowFirst].width) << "all that it wants";
    }
    const TabRow narrow = TabRow::Of(std::vector<int>(7, 400), 6, 6, kSizes);
    EXPECT_EQ(240, narrow.tabs[6].width) << "what there is";
    EXPECT_FALSE(narrow.CanGoForward());
    const TabRow fits = TabRow::Of({100, 100}, 1, -1, kSizes);
    EXPECT_FALSE(fits.scrolls);
    EXPECT_EQ(0, fits.TabAt({99, 5}));
    EXPECT_EQ(-1, fits.TabAt({200, 5}));
    EXPECT_EQ(-1, fits.ButtonAt({299, 5}));
    // Room for nothing, and nothing.
    EXPECT_EQ(0u, TabRow::Of(wanted, 0, 0, {wxSize(0, 24), 50, 20}).end);
    EXPECT_EQ(-1, TabRow::Of({}, 0, 0, kSizes).TabAt({0, 0}));
}

// Wherever the pointer is, a tab that has been put there stays there.
TEST(TabRowTest, ADraggedTabDoesNotJump)
{
    for (const std::vector<int>& widths :
         {std::vector<int>{50, 200, 50}, {200, 50, 50}, {60, 60, 60}})
    {
        for (size_t dragged = 0; dragged < widths.size(); ++dragged)
        {
            for (int x = -20; x < 330; x += 5)
            {
                std::vector<int> now = widths;
                const TabRow     row = TabRow::Of(now, 0, -1, kSizes);
                const size_t     place = row.PlaceFor(dragged, x);
                const int        own = now[dragged];
                now.erase(now.begin() + static_cast<std::ptrdiff_t>(dragged));
                now.insert(now.begin() + static_cast<std::ptrdiff_t>(place), own);
                EXPECT_EQ(place, TabRow::Of(now, 0, -1, kSizes).PlaceFor(place, x))
                    << dragged << " at " << x;
            }
        }
    }
    const TabRow row = TabRow::Of({100, 100}, 0, -1, kSizes);
    EXPECT_EQ(1u, row.PlaceFor(0, 150));
    EXPECT_EQ(0u, row.PlaceFor(1, 50));
    EXPECT_EQ(0u, row.PlaceAt(49));
    EXPECT_EQ(1u, row.PlaceAt(51));
    EXPECT_EQ(2u, row.PlaceAt(290));
}

TEST(TabRowTest, PartsStayWithinTheTab)
{
    const TabSizes sizes{16, 14, 8, 6, 240};
    EXPECT_EQ(2 * 8 + 50 + 22 + 20, TabWidth(50, true, true, sizes));
    EXPECT_EQ(240, TabWidth(5000, false, false, sizes));
    for (int width = 0; width < 250; width += 7)
    {
        const wxRect   tab(30, 2, width, 24);
        const TabParts parts = PartsOfTab(tab, true, true, sizes);
        EXPECT_TRUE(parts.icon.IsEmpty() || tab.Contains(parts.icon));
        EXPECT_TRUE(parts.slot.IsEmpty() || tab.Contains(parts.slot));
        EXPECT_TRUE(parts.text.IsEmpty() || tab.Contains(parts.text));
        EXPECT_FALSE(parts.text.Intersects(parts.slot) || parts.text.Intersects(parts.icon));
    }
}

TEST(UseOrderTest, TheLatestIsFirst)
{
    int               things[4];
    std::vector<int*> all = {things, things + 1, things + 2, things + 3};
    UseOrder<int>     order;
    const auto        at = [&](std::initializer_list<int> places)
    {
        std::vector<int*> expected;
        for (const int place : places)
        {
            expected.push_back(things + place);
        }
        return expected;
    };
    EXPECT_EQ(all, order.Sorted(all));
    order.Use(things + 2);
    order.Use(things + 1);
    EXPECT_EQ(at({1, 2, 0, 3}), order.Sorted(all));
    order.Use(things + 2);
    order.Forget(things + 1);
    EXPECT_EQ(at({2, 0, 1, 3}), order.Sorted(all));
}

TEST(DropPlaceTest, OthersStepAside)
{
    const PanePlace centre{wxAUI_DOCK_CENTER, 0, 0, 0, wxSize(400, 300)};
    const PanePlace left{wxAUI_DOCK_LEFT, 0, 0, 0, wxSize(200, 300)};
    const PanePlace lower{wxAUI_DOCK_LEFT, 0, 0, 1, wxSize(200, 300)};
    const struct
    {
        std::vector<PanePlace> panes;
        size_t                 target;
        DropSide               side;
        const char*            others;
        const char*            added;
        wxSize                 size;
    } rows[] = {
        {{centre}, 0, DropSide::right, "c000 ", "r000 ", wxSize(200, 300)},
        {{centre, left}, 0, DropSide::left, "c000 l000 ", "l010 ", wxSize(200, 300)},
        {{centre, left}, 0, DropSide::bottom, "c000 l100 ", "b000 ", wxSize(400, 150)},
        {{centre, left, lower}, 1, DropSide::bottom, "c000 l000 l002 ", "l001 ", wxSize(200, 150)},
        {{centre, left, lower}, 1, DropSide::top, "c000 l001 l002 ", "l000 ", wxSize(200, 150)},
        {{centre, left}, 1, DropSide::left, "c000 l010 ", "l000 ", wxSize(100, 300)},
        {{centre, left}, 1, DropSide::right, "c000 l000 ", "l010 ", wxSize(100, 300)},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.added);
        std::vector<PanePlace> panes = row.panes;
        const PanePlace        added = MakeRoom(panes, row.target, row.side);
        EXPECT_EQ(row.others, PlacesOf(panes));
        EXPECT_EQ(row.added, PlacesOf({added}));
        EXPECT_EQ(row.size, added.size);
    }
    const wxRect pane(100, 100, 200, 100);
    EXPECT_EQ(DropSide::left, SideOf(pane, {110, 150}));
    EXPECT_EQ(DropSide::bottom, SideOf(pane, {200, 195}));
    EXPECT_EQ(DropSide::middle, SideOf(pane, {200, 150}));
    EXPECT_EQ(DropSide::middle, SideOf(wxRect(), {0, 0}));
    EXPECT_EQ(wxRect(200, 100, 100, 100), HalfOf(pane, DropSide::right));
}

TEST(TabLayoutTest, ALayoutComesBack)
{
    TabLayout layout;
    layout.panes = {{{wxAUI_DOCK_CENTER, 0, 0, 0, wxSize(600, 400)}, {"log", "", "a b/%;#"}, 1},
                    {{wxAUI_DOCK_LEFT, 1, 2, 3, wxSize(200, 400)}, {"\xC3\xA4"}, 0}};
    layout.windows = {"chart"};
    layout.current = "a b/%;#";
    const auto back = TabLayout::OfText(layout.Text());
    ASSERT_TRUE(back);
    EXPECT_EQ(layout.Text(), back->Text());
    EXPECT_EQ(layout.panes[0].keys, back->panes[0].keys);
    EXPECT_EQ(layout.current, back->current);

    // Of another time: pages have gone, others have come, one key is there twice.
    const TabPlan plan = back->PlanFor({"new", "chart", "\xC3\xA4", "a b/%;#", "a b/%;#"});
    ASSERT_EQ(2u, plan.panes.size());
    EXPECT_EQ((std::vector<size_t>{3, 0, 4, 1}), plan.panes[0].pages);
    EXPECT_EQ(3u, plan.panes[0].active);
    EXPECT_EQ((std::vector<size_t>{2}), plan.panes[1].pages);
    EXPECT_EQ((std::vector<size_t>{1}), plan.windows);
    EXPECT_EQ(3u, plan.current);
    // Nothing is left in the middle: another pane takes its place.
    const TabPlan moved = back->PlanFor({"\xC3\xA4"});
    ASSERT_EQ(1u, moved.panes.size());
    EXPECT_EQ(wxAUI_DOCK_CENTER, moved.panes[0].place.direction);
    EXPECT_EQ((std::vector<size_t>{0}), TabLayout().PlanFor({"x"}).panes[0].pages);
}

TEST(TabLayoutTest, NoOtherTextIsOne)
{
    for (const char* const text :
         {"", "tabs2 / 5 0 0 0 6 4 0 a", "tabs1 / 5 0 0 0 6 4 1 a", "tabs1 / 5 0 0 0 6 4 0",
          "tabs1 / 9 0 0 0 6 4 0 a", "tabs1 / 5 -1 0 0 6 4 0 a", "tabs1 / 5 0 0 0 6 99999 0 a",
          "tabs1 / 5 0 0 0 6 x 0 a", "tabs1 / 4 0 0 0 6 4 0 a", "tabs1 / nonsense",
          "tabs1 / 5 0 0 0 6 4 0 a / 5 0 0 0 6 4 0 b",
          "tabs1 / 4 99999999999999999999 0 0 6 4 0 a"})
    {
        EXPECT_FALSE(TabLayout::OfText(text)) << text;
    }
    EXPECT_TRUE(TabLayout::OfText("tabs1"));
    EXPECT_TRUE(TabLayout::OfText("tabs1 / 5 0 0 0 6 4 0 %4 %zz"));
}

TEST(PageListTest, TypingFindsABeginningBeforeAnythingInside)
{
    const std::vector<wxString> names = {"0011.log", "0012 error.log", L"\u00c4rger.log", "errors"};
    const auto                  found = [&](const wxString& typed, int start)
    {
        return appearance::FindByTyping(typed, start, 4,
                                        [&](int row) { return names[static_cast<size_t>(row)]; });
    };
    EXPECT_EQ(3, found("Err", 0));
    EXPECT_EQ(1, found("error.", 0));
    EXPECT_EQ(1, found("001", 1));
    EXPECT_EQ(0, found("1.log", 3)); // goes round
    EXPECT_EQ(2, found(L"\u00e4", 0));
    EXPECT_EQ(-1, found("nothing", 0));
    EXPECT_EQ(-1, appearance::FindByTyping("x", 1, 0, [](int) { return wxString(); }));
}
