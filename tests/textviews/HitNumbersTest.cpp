#include "textviews/search/HitNumbers.h"
#include "tests/textviews/SearchSupport.h"
#include "textviews/search/BarRows.h"
#include "textviews/search/SearchHistory.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>

namespace
{
void CountAll(textviews::HitNumbers& numbers, const textviews::LineStore& store, size_t budget)
{
    for (int steps = 0; !numbers.Step(store, budget) && steps < 10'000'000; ++steps)
    {
    }
}

int64_t HitsOf(textviews::HitFinder& finder, const textviews::LineStore& store, int end)
{
    int64_t hits = 0;
    for (int line = 0; line < end; ++line)
    {
        hits += static_cast<int64_t>(HitsIn(finder, store.Line(line)).size());
    }
    return hits;
}
} // namespace

// However lines come and go, the numbers come out as if they had been counted at the end.
TEST(HitNumbersTest, FollowTheLines)
{
    const String kinds[] = {"hit",
                            "",
                            "no",
                            "a hit and a HIT",
                            String(70'000, 'x') + "hit",
                            String(2000, '.') + "hit hit"};
    std::mt19937 random(9);
    const auto   below = [&random](int end) { return static_cast<int>(random() % end); };
    for (int round = 0; round < 60; ++round)
    {
        const auto           finder = FinderFor(round % 2 ? "h.t" : "hit", false, false, round % 2);
        textviews::LineStore store;
        textviews::HitNumbers  numbers;
        textviews::SearchPlace current{-1, 0};
        for (int i = below(3000); i > 0; --i)
        {
            store.Append(kinds[below(100) < 98 ? below(4) : below(6)]);
        }
        numbers.Begin(finder, store.Count());
        for (int i = 0; i < 400; ++i)
        {
            const int at = below(store.Count() + 1);
            if (below(3) > 0 || store.Count() == 0)
            {
                store.Insert(at, kinds[below(4)]);
                numbers.LineInserted(at);
                current.line += at <= current.line ? 1 : 0;
            }
            else if (at < store.Count())
            {
                numbers.LineErased(at);
                store.Erase(at);
                current.line = at == current.line ? -1 : current.line - (at < current.line ? 1 : 0);
            }
            if (below(8) == 0)
            {
                numbers.Step(store, static_cast<size_t>(1 + below(60'000)));
            }
            if (below(40) == 0 && store.Count() > 0)
            {
                const int  line = below(store.Count());
                const auto hits = HitsIn(*finder, store.Line(line));
                current = hits.empty() ? textviews::SearchPlace{-1, 0}
                                       : textviews::SearchPlace{line, hits.back().begin};
                numbers.SetCurrent(current);
            }
        }
        CountAll(numbers, store, static_cast<size_t>(1 + below(60'000)));
        ASSERT_EQ(numbers.Hits(), HitsOf(*finder, store, store.Count())) << round;
        const int64_t number = current.line < 0 ? 0 : HitsOf(*finder, store, current.line + 1);
        ASSERT_EQ(numbers.Current(), number) << round;
        numbers.SetCurrent({0, 123'456});
        CountAll(numbers, store, 100'000);
        EXPECT_EQ(numbers.Current(), 0) << "it is none of them";
        numbers.LinesCleared();
        EXPECT_EQ(numbers.Hits(), 0);
    }
}

// A long line is counted in steps and never again; many lines may come and go.
TEST(HitNumbersTest, ChangesCostNoMoreThanTheyAre)
{
    textviews::LineStore  store = StoreOf({"b", String(10'000'000, 'a') + "b", "B"});
    textviews::HitNumbers numbers;
    EXPECT_TRUE(numbers.Step(store, 10)) << "nothing to count";
    numbers.Begin(FinderFor("b", false), 3);
    int steps = 0;
    while (!numbers.Step(store, 100'000))
    {
        ++steps;
    }
    EXPECT_GE(steps, 70);
    EXPECT_EQ(numbers.Hits(), 3);
    store.Insert(1, String(100'000'000, 'x') + "b");
    const auto start = std::clock();
    numbers.LineInserted(1);
    EXPECT_FALSE(numbers.Step(store, 1000));
    numbers.LineErased(1);
    store.Erase(1);
    EXPECT_TRUE(numbers.Step(store, 100'000));
    EXPECT_EQ(numbers.Hits(), 3);
    for (int i = 0; i < 30'000; ++i)
    {
        store.Insert(0, "b");
        numbers.LineInserted(0);
    }
    CountAll(numbers, store, 100'000);
    EXPECT_EQ(numbers.Hits(), 30'003);
    for (int i = 0; i < 30'000; ++i)
    {
        numbers.LineErased(0);
        store.Erase(0);
    }
    CountAll(numbers, store, 100'000);
    EXPECT_EQ(numbers.Hits(), 3);
    EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
}

TEST(SearchHistoryTest, GoesThroughTheLatestTexts)
{
    textviews::SearchHistory history;
    EXPECT_EQ(history.Older("typed"), "typed");
    EXPECT_EQ(history.Newer("typed"), "typed");
    for (int i = 0; i < 30; ++i)
    {
        history.Add(String::FromInt(i));
    }
    history.Add("");
    history.Add("25");
    ASSERT_EQ(history.Texts().size(), textviews::SearchHistory::k_Most);
    EXPECT_EQ(history.Texts()[0], "25");
    EXPECT_EQ(history.Texts()[1], "29");
    EXPECT_EQ(history.Texts().back(), "10");

    EXPECT_EQ(history.Older("typed"), "25");
    EXPECT_EQ(history.Older("25"), "29");
    EXPECT_EQ(history.Newer("29"), "25");
    EXPECT_EQ(history.Newer("25"), "typed");
    EXPECT_EQ(history.Newer("typed"), "typed");
    EXPECT_EQ(history.Older("25"), "29") << "the latest one is shown already";
    EXPECT_EQ(history.Newer("29"), "25");
    EXPECT_EQ(history.Older("29 changed"), "25") << "begins anew with what is typed";
    EXPECT_EQ(history.Newer("25"), "29 changed");
    for (int i = 0; i < 30; ++i)
    {
        history.Older(i == 0 ? "" : history.Texts()[std::min(i, 20) - 1]);
    }
    EXPECT_EQ(history.Older("10"), "10") << "there is none before the last";
}

TEST(BarRowsTest, PutsAsManyInARowAsThereIsRoomFor)
{
    using Rows = std::vector<int>;
    EXPECT_EQ(textviews::RowsFor({100, 50, 50}, 10, 220), (Rows{0, 0, 0}));
    EXPECT_EQ(textviews::RowsFor({100, 50, 50}, 10, 219), (Rows{0, 0, 1}));
    EXPECT_EQ(textviews::RowsFor({100, 50, 50}, 10, 90), (Rows{0, 1, 2}));
    EXPECT_EQ(textviews::RowsFor({100, 20, 20}, 10, 50), (Rows{0, 1, 1}));
    EXPECT_EQ(textviews::RowsFor({100, 20}, 10, 0), (Rows{0, 1}));
}
