#include "tests/textviews/SearchSupport.h"
#include "textviews/matching/MatchSearch.h"
#include "textviews/matching/PickedLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace
{
using textviews::LinesAround;
using textviews::LineSet;
using textviews::MatchingLines;

void LookThrough(MatchingLines& matching, const textviews::LineStore& store, size_t step = 100'000)
{
    while (!matching.Step(store, step))
    {
    }
}

/// "-3 4 5| 9": the lines that are shown, those that match without a sign, and the gaps.
std::string RowsOf(const MatchingLines& matching)
{
    std::string text;
    for (int row = 0; row < matching.Rows(); ++row)
    {
        text += matching.HasGapBefore(row) ? "|" : "";
        text += row > 0 ? " " : "";
        text += matching.IsMatch(row) ? "" : "-";
        text += std::to_string(matching.LineOf(row));
    }
    return text;
}

/// The same of lines with "hit" in them.
std::string RowsFor(const textviews::LineStore& store, const LinesAround& around)
{
    const auto isHit = [&](int line)
    {
        return line >= 0 && line < store.Count() &&
               store.Line(line).find("hit") != std::string_view::npos;
    };
    std::string text;
    int         last = -1;
    for (int line = 0; line < store.Count(); ++line)
    {
        bool isShown = false;
        for (int other = line - around.after; other <= line + around.before; ++other)
        {
            isShown = isShown || isHit(other);
        }
        if (isShown)
        {
            const bool hasContext = around.before > 0 || around.after > 0;
            text += hasContext && last >= 0 && line != last + 1 ? "|" : "";
            text += last >= 0 ? " " : "";
            text += (isHit(line) ? "" : "-") + std::to_string(line);
            last = line;
        }
    }
    return text;
}
} // namespace

// Against a row of flags, whatever is done to either.
TEST(LineSetTest, FollowsItsLines)
{
    std::mt19937 random(11);
    const auto   below = [&random](size_t end) { return static_cast<int>(random() % end); };
    for (int round = 0; round < 30; ++round)
    {
        std::vector<bool> flags(static_cast<size_t>(below(20'000)), round % 2 != 0);
        LineSet           set;
        set.Reset(static_cast<int>(flags.size()), round % 2 != 0);
        for (int i = 0; i < 300; ++i)
        {
            const int  at = below(flags.size() + 1);
            const auto place = flags.begin() + at;
            const bool on = below(2) != 0;
            const int  end =
                std::min(at + below(i % 7 == 0 ? 9000 : 70), static_cast<int>(flags.size()));
            switch (below(4))
            {
            case 0:
                flags.insert(place, on);
                set.Insert(at, on);
                break;
            case 1:
                if (place != flags.end())
                {
                    flags.erase(place);
                }
                set.Erase(at);
                break;
            case 2:
                std::fill(place, flags.begin() + end, on);
                set.SetRange(at, end, on);
                break;
            default:
                const int many = i % 50 == 0 ? 5000 : 3;
                for (int n = 0; n < many; ++n)
                {
                    flags.push_back(on);
                    set.Insert(set.Lines(), on);
                }
            }
        }
        ASSERT_EQ(set.Lines(), static_cast<int>(flags.size()));
        int number = 0;
        for (int line = 0; line < set.Lines(); ++line)
        {
            ASSERT_EQ(set.Has(line), flags[static_cast<size_t>(line)]) << round << ' ' << line;
            ASSERT_EQ(set.Before(line), number);
            if (set.Has(line))
            {
                ASSERT_EQ(set.At(number), line);
                ++number;
            }
        }
        ASSERT_EQ(set.Size(), number);
        EXPECT_EQ(set.At(number), set.Lines());
        for (int i = 0; i < 100; ++i)
        {
            const int  line = below(flags.size() + 1);
            const auto next = std::find(flags.begin() + line, flags.end(), true);
            ASSERT_EQ(set.Next(line), static_cast<int>(next - flags.begin()));
        }
    }
    LineSet none;
    EXPECT_FALSE(none.Has(0));
    EXPECT_EQ(none.Next(0), 0);
    none.Erase(0);
    none.SetRange(-5, 5, true);
    EXPECT_EQ(none.Before(7), 0);
}

TEST(LineSetTest, TakesABitALineAtMost)
{
    constexpr int kLines = 10'000'000;
    LineSet       set;
    set.Reset(kLines, true);
    EXPECT_LT(set.Bytes(), kLines / 64) << "all of them";
    for (int line = 0; line < kLines; line += 2)
    {
        set.Set(line, false);
    }
    EXPECT_EQ(set.Size(), kLines / 2);
    EXPECT_LT(set.Bytes(), kLines / 8 * 12 / 10);
}

TEST(MatchingLinesTest, ShowsMatchesWithLinesAround)
{
    const auto store =
        StoreOf({"a", "b", "hit", "c", "d", "e", "f", "hit hit", "hit", "", "g", "h", "HIT"});
    const auto rows = [&](const LinesAround& around, bool matchCase)
    {
        MatchingLines matching;
        matching.Begin(FinderFor("hit", matchCase), store.Count(), around);
        LookThrough(matching, store);
        return RowsOf(matching);
    };
    EXPECT_EQ(rows({}, true), "2 7 8");
    EXPECT_EQ(rows({}, false), "2 7 8 12");
    EXPECT_EQ(rows({1, 0}, true), "-1 2| -6 7 8");
    EXPECT_EQ(rows({0, 2}, false), "2 -3 -4| 7 8 -9 -10| 12");
    EXPECT_EQ(rows({2, 2}, true), "-0 -1 2 -3 -4 -5 -6 7 8 -9 -10");
    EXPECT_EQ(rows({-5, 100'000}, true), "2 -3 -4 -5 -6 7 8 -9 -10 -11 -12");
}

// However lines come and go, and however far the steps go, the rows are those of the lines at the
// end.
TEST(MatchingLinesTest, FollowTheLines)
{
    const String kinds[] = {"hit", "", "no", "a hit", "no", "nothing", String(70'000, '.') + "hit"};
    std::mt19937 random(3);
    const auto   below = [&random](int end) { return static_cast<int>(random() % end); };
    for (int round = 0; round < 60; ++round)
    {
        const LinesAround    around{round % 3, round % 4};
        textviews::LineStore store;
        MatchingLines        matching;
        for (int i = below(3000); i > 0; --i)
        {
            store.Append(kinds[below(100) < 98 ? below(6) : below(7)]);
        }
        const auto finder = FinderFor(round % 2 ? "h.t" : "hit", true, round % 5 == 0, round % 2);
        matching.Begin(finder, store.Count(), around);
        for (int i = 0; i < 400; ++i)
        {
            const int at = below(3) ? below(store.Count() + 1) : (below(2) ? 0 : store.Count());
            if (below(2) == 0)
            {
                store.Insert(at, kinds[below(6)]);
                matching.LineInserted(at);
            }
            else if (at < store.Count())
            {
                matching.LineErased(at);
                store.Erase(at);
            }
            matching.Step(store, static_cast<size_t>(1 + below(round % 2 ? 3000 : 100)));
            ASSERT_LE(matching.Rows(), store.Count());
        }
        LookThrough(matching, store, static_cast<size_t>(1 + below(60'000)));
        ASSERT_TRUE(RowsOf(matching) == RowsFor(store, around)) << round;
        for (int row = 0; row < matching.Rows(); ++row)
        {
            ASSERT_EQ(matching.RowOf(matching.LineOf(row)), row);
        }
        matching.LinesCleared();
        EXPECT_EQ(matching.Rows(), 0);
    }
}

TEST(MatchingLinesTest, KeepTheOldOnesUntilThereAreOthers)
{
    textviews::LineStore store;
    for (int i = 0; i < 600'000; ++i)
    {
        store.Append(i == 3 ? "one" : i == 599'999 ? "two" : std::string(100, '.'));
    }
    textviews::PickedLines picked(store);
    const auto             work = [&]
    {
        while (picked.Search().HasWork())
        {
            picked.Search().Work();
        }
    };
    EXPECT_FALSE(picked.Search().HasWork());
    picked.Search().SetFinder(FinderFor("one", true));
    EXPECT_EQ(picked.Count(), 0);
    work();
    ASSERT_EQ(picked.Count(), 1);
    EXPECT_EQ(picked.LineNow(0), "one");
    picked.Search().SetFinder(FinderFor("two", true));
    EXPECT_EQ(picked.LineNow(0), "one") << "the old one";
    store.Insert(0, "zero");
    picked.Search().LineInserted(0);
    EXPECT_EQ(picked.LineNow(0), "one") << "as its lines move";
    work();
    ASSERT_EQ(picked.Count(), 1);
    EXPECT_EQ(picked.LineNow(0), "two");
    picked.Search().SetFinder(FinderFor("three", true));
    EXPECT_EQ(picked.Count(), 1);
    work();
    EXPECT_EQ(picked.Count(), 0) << "nothing was found";
    picked.Search().SetFinder(FinderFor(".", true));
    work();
    EXPECT_EQ(picked.Count(), 599'998);
    EXPECT_EQ(picked.BlockOf(1000).firstLine, 1000);
    EXPECT_EQ(picked.BlockOf(1000).Line(7), std::string(100, '.'));
    EXPECT_EQ(picked.RoughBytes(0, 9), 1000u);
    EXPECT_EQ(picked.LineNow(599'998), "");
    EXPECT_EQ(picked.Line(-1), "");
    picked.Search().SetFinder(nullptr);
    EXPECT_EQ(picked.Count(), 0);
}
