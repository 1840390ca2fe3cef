#include "tests/textviews/SearchSupport.h"
#include "textviews/overview/StripLayout.h"
#include "textviews/rules/ErrorSearch.h"
#include "textviews/rules/RuleIndex.h"
#include "textviews/wxTextRules.h"

#include <gtest/gtest.h>

#include <random>

using namespace textviews;

namespace
{
/// The bands of lines whose marks are known to the test.
struct Known
{
    std::vector<LineMarks> lines;
    LineBands              bands;

    void Learn(int most)
    {
        const LineBands::Range  unknown = bands.NextUnknown();
        const int               end = std::min(unknown.end, unknown.first + most);
        std::vector<MarkedLine> marked;
        for (int line = unknown.first; line < end; ++line)
        {
            if (lines[static_cast<size_t>(line)] != 0)
            {
                marked.push_back({line, lines[static_cast<size_t>(line)]});
            }
        }
        bands.Learn(end, marked);
    }
    void LearnAll()
    {
        while (!bands.IsComplete())
        {
            Learn(1000);
        }
    }
    void Insert(int line, LineMarks marks)
    {
        lines.insert(lines.begin() + line, marks);
        bands.LineInserted(line);
    }
    void Erase(int line)
    {
        lines.erase(lines.begin() + line);
        bands.LineErased(line);
    }
    std::vector<LineMarks> Rows(int rows) const
    {
        std::vector<LineMarks> marks(static_cast<size_t>(rows));
        for (size_t line = 0; line < lines.size(); ++line)
        {
            marks[line * static_cast<size_t>(rows) / lines.size()] |= lines[line];
        }
        return marks;
    }
};
} // namespace

// Lines come and go anywhere while only some are known: in the end all are, and as they are.
TEST(LineBandsTest, WhateverComesAndGoesTheBandsAreRight)
{
    std::mt19937 random(3);
    for (int round = 0; round < 60; ++round)
    {
        Known known;
        known.bands.Reset(0);
        const unsigned rarity = round % 3 == 0 ? 2 : 40;
        for (int i = 0; i < 600; ++i)
        {
            const int  count = static_cast<int>(known.lines.size());
            const auto marks =
                static_cast<LineMarks>(random() % rarity == 0 ? 1 + random() % 3 : 0);
            switch (random() % 8)
            {
            case 0:
                known.Insert(static_cast<int>(random() % (count + 1u)), marks);
                break;
            case 1:
                if (count > 0)
                {
                    known.Erase(random() % 2 ? 0 : static_cast<int>(random() % count));
                }
                break;
            case 2:
                known.Learn(static_cast<int>(random() % 50));
                break;
            default:
                known.Insert(count, marks);
            }
            ASSERT_EQ(known.bands.Lines(), static_cast<int>(known.lines.size()));
        }
        known.LearnAll();
        const int count = known.bands.Lines();
        ASSERT_EQ(known.bands.Rows(count, count), known.lines) << round;
        ASSERT_EQ(known.bands.Rows(37, count), known.Rows(37));
        for (int line = 0; line < count; ++line)
        {
            const auto at = known.lines.begin() + line;
            const auto down = std::find(at, known.lines.end(), 2) - known.lines.begin();
            const auto found = known.bands.NextMarked(line, true, 2);
            // Two marks may be one line's.
            if (found >= 0)
            {
                ASSERT_LE(found, down);
                ASSERT_TRUE(known.lines[static_cast<size_t>(found)] & 2);
            }
            const int up = known.bands.NextMarked(line, false, 2);
            ASSERT_TRUE(up < 0 || (known.lines[static_cast<size_t>(up)] & 2));
        }
    }
}

TEST(LineBandsTest, AnyNumberOfLinesTakesFewBands)
{
    Known known;
    known.lines.resize(2'000'000);
    for (size_t line = 0; line < known.lines.size(); line += 3)
    {
        known.lines[line] = 1;
    }
    known.lines[1'500'001] = 2;
    known.bands.Reset(2'000'000);
    known.LearnAll();
    EXPECT_LE(known.bands.Bands(), LineBands::k_MostBands);
    const std::vector<LineMarks> rows = known.bands.Rows(1000, 2'000'000);
    EXPECT_EQ(rows[750], 3);
    EXPECT_LE(std::count(rows.begin(), rows.end(), 3), 2) << "a band may reach into two rows";
    EXPECT_EQ(std::count(rows.begin(), rows.end(), 0), 0);
    // A stream with a limit.
    for (int i = 0; i < 3'000'000; ++i)
    {
        known.bands.LineInserted(2'000'000);
        known.bands.LineErased(0);
        if (i % 100'000 == 0)
        {
            known.bands.Learn(2'000'000, {});
        }
    }
    EXPECT_LE(known.bands.Bands(), LineBands::k_MostBands + 2);
    EXPECT_EQ(known.bands.Lines(), 2'000'000);
    while (!known.bands.IsComplete())
    {
        known.bands.Learn(2'000'000, {});
    }
    EXPECT_EQ(known.bands.Bands(), 1u) << "what went has taken its marks along";
}

TEST(LineBandsTest, SortedLinesAreNotForgotten)
{
    std::mt19937 random(5);
    Known        known;
    known.bands.Reset(0);
    for (int i = 0; i < 30'000; ++i)
    {
        known.Insert(static_cast<int>(random() % (known.lines.size() + 1)), i % 2 ? 1 : 0);
        if (i % 7 == 0)
        {
            known.Learn(1000);
        }
    }
    EXPECT_LE(known.bands.Bands(), LineBands::k_MostBands);
    known.LearnAll();
    EXPECT_EQ(known.bands.Rows(10, 30'000), known.Rows(10));
}

namespace
{
class ErrorSearchTest : public ::testing::Test
{
protected:
    int Next(int from, bool forward, bool withBands)
    {
        RuleJudge judge(m_Rules, false);
        LineBands bands;
        bands.Reset(m_Store.Count());
        while (withBands && !bands.IsComplete())
        {
            const LineBands::Range  unknown = bands.NextUnknown();
            const LineStore::Block  block = m_Store.BlockOf(unknown.first);
            std::vector<MarkedLine> marked;
            int                     line = unknown.first - block.firstLine;
            size_t                  budget = 1'000'000;
            judge.Judge(block, line, block.lineCount, budget, marked);
            bands.Learn(block.firstLine + line, marked);
        }
        m_Search.Begin(from, forward, m_Store.Count());
        while (m_Search.Step(m_Store, withBands ? &bands : nullptr, judge, 50) ==
               ErrorSearch::State::Running)
        {
        }
        return m_Search.GetState() == ErrorSearch::State::Found ? m_Search.Line() : -1;
    }

    std::shared_ptr<const RuleSet> m_Rules = std::make_shared<const RuleSet>(wxStandardTextRules());
    LineStore                      m_Store;
    ErrorSearch                    m_Search;
};
} // namespace

TEST_F(ErrorSearchTest, GoesOnceRoundAllLines)
{
    for (int i = 0; i < 5000; ++i)
    {
        m_Store.Append(i == 2000 ? "warning" : i % 1000 == 500 ? "an error" : "frame done");
    }
    for (const bool withBands : {false, true})
    {
        EXPECT_EQ(Next(0, true, withBands), 500);
        EXPECT_FALSE(m_Search.HasWrapped());
        EXPECT_EQ(Next(500, true, withBands), 500);
        EXPECT_EQ(Next(501, true, withBands), 1500);
        EXPECT_EQ(Next(4501, true, withBands), 500);
        EXPECT_TRUE(m_Search.HasWrapped());
        EXPECT_EQ(Next(5000, true, withBands), 500);
        EXPECT_TRUE(m_Search.HasWrapped());
        EXPECT_EQ(Next(3499, false, withBands), 2500);
        EXPECT_FALSE(m_Search.HasWrapped());
        EXPECT_EQ(Next(499, false, withBands), 4500);
        EXPECT_TRUE(m_Search.HasWrapped());
        EXPECT_EQ(Next(-1, false, withBands), 4500);
        EXPECT_TRUE(m_Search.HasWrapped());
    }
}

TEST_F(ErrorSearchTest, WithoutErrorsAWarningWillDo)
{
    EXPECT_EQ(Next(0, true, false), -1);
    for (int i = 0; i < 3000; ++i)
    {
        m_Store.Append(i % 1000 == 700 ? "a warning" : "frame done");
    }
    for (const bool withBands : {false, true})
    {
        EXPECT_EQ(Next(800, true, withBands), 1700);
        EXPECT_EQ(m_Search.Marks(), k_WarningMark);
        EXPECT_FALSE(m_Search.HasWrapped());
        EXPECT_EQ(Next(600, false, withBands), 2700);
        EXPECT_TRUE(m_Search.HasWrapped());
    }
}

// What is found is what a look at all lines finds, whatever came and went on the way.
TEST_F(ErrorSearchTest, LinesComeAndGoMeanwhile)
{
    std::mt19937 random(17);
    for (int round = 0; round < 300; ++round)
    {
        m_Store.Clear();
        for (int i = 0; i < 400; ++i)
        {
            m_Store.Append("frame done " + std::to_string(i));
        }
        const bool forward = random() % 2 == 0;
        RuleJudge  judge(m_Rules, false);
        m_Search.Begin(static_cast<int>(random() % 400), forward, 400);
        for (int i = 0; i < 200; ++i)
        {
            m_Search.Step(m_Store, nullptr, judge, 1 + random() % 3000);
            const int line = static_cast<int>(random() % static_cast<unsigned>(m_Store.Count()));
            if (random() % 2)
            {
                m_Store.Insert(line, "frame done");
                m_Search.LineInserted(line);
            }
            else
            {
                m_Search.LineErased(line);
                m_Store.Erase(line);
            }
            judge.Forget();
        }
        while (m_Search.Step(m_Store, nullptr, judge, 1000) == ErrorSearch::State::Running)
        {
        }
        ASSERT_EQ(m_Search.GetState(), ErrorSearch::State::NotFound);
    }
}

TEST(StripLayoutTest, RowsAndLinesAgree)
{
    for (const int height : {1, 7, 300, 1000})
    {
        for (const int lines : {1, 5, 299, 12'345, 10'000'000})
        {
            const StripScale scale{height, lines, 13};
            int              row = 0;
            for (int i = 0; i < 200; ++i)
            {
                const int line = static_cast<int>(static_cast<int64_t>(lines - 1) * i / 199);
                ASSERT_GE(scale.RowOf(line), row);
                row = scale.RowOf(line);
                ASSERT_LT(row, height);
                ASSERT_LE(scale.LineAt(row), line);
                ASSERT_EQ(scale.RowOf(scale.LineAt(row)), row);
            }
            EXPECT_EQ(scale.LineAt(-5), 0);
            EXPECT_EQ(scale.LineAt(height + 5), scale.LineAt(height - 1));
        }
    }
    EXPECT_EQ((StripScale{300, 0, 13}.LineAt(20)), -1);
    // Lines that fit into the view are beside themselves.
    EXPECT_EQ((StripScale{1300, 10, 13}.RowOf(7)), 7 * 13);
}

TEST(StripLayoutTest, TheFrameIsAlwaysSeenAndMovesAlong)
{
    const StripScale scale{500, 10'000'000, 14};
    int              before = -1;
    for (int64_t top = 0; top < 140'000'000 - 500; top += 9'999'937)
    {
        const StripSpan frame = scale.FrameOf(top, top + 500);
        EXPECT_GE(frame.end - frame.first, 8);
        EXPECT_GE(frame.first, 0);
        EXPECT_LE(frame.end, 500);
        EXPECT_GE(frame.first, before);
        before = frame.first;
        // To press on the middle of what is seen leaves it there, as nearly as rows can tell.
        const int64_t again = scale.TopFor((frame.first + frame.end) / 2, 500);
        EXPECT_NEAR(static_cast<double>(again), static_cast<double>(top), 5 * 280'000.);
    }
    EXPECT_EQ(before > 400, true);
    EXPECT_EQ(scale.TopFor(-3, 500), 0);
}

TEST(StripLayoutTest, AMarkIsSeenAndTouchingOnesAreOne)
{
    std::vector<uint8_t> rows(10);
    rows[0] = 1;
    rows[1] = 1;
    rows[5] = 3;
    rows[9] = 1;
    EXPECT_EQ(MarkedRows(rows, 1), (std::vector<StripSpan>{{0, 3}, {5, 7}, {8, 10}}));
    EXPECT_EQ(MarkedRows(rows, 2), (std::vector<StripSpan>{{5, 7}}));
    EXPECT_TRUE(MarkedRows(rows, 4).empty());
    EXPECT_TRUE(MarkedRows({}, 1).empty());
    for (const int width : {11, 12, 24})
    {
        const StripLanes lanes = LanesOf(width);
        EXPECT_EQ(lanes.rules.end, lanes.hits.first);
        EXPECT_EQ(lanes.hits.end, lanes.bookmarks.first);
        EXPECT_EQ(lanes.bookmarks.end, width);
        EXPECT_GE(lanes.bookmarks.end - lanes.bookmarks.first, 2);
        EXPECT_GE(lanes.hits.end - lanes.hits.first, 3);
    }
}

TEST(RuleIndexTest, HitsAreThoseOfWhatIsSearched)
{
    const LineStore store = StoreOf({"er\x1b[31mror", "none", "error\rnone!", "an error"});
    const auto      hitLines = [&](bool asShown)
    {
        RuleIndex index(store, [] {});
        index.KeepBands(true);
        index.SetFinder(FinderFor("error", true), asShown);
        while (index.HasWork())
        {
            index.Work();
        }
        std::vector<int> lines;
        for (int line = 0; (line = index.HitBands().NextMarked(line, true, k_HitMark)) >= 0; ++line)
        {
            lines.push_back(line);
        }
        return lines;
    };
    EXPECT_EQ(hitLines(true), (std::vector<int>{0, 3}));
    EXPECT_EQ(hitLines(false), (std::vector<int>{2, 3}));
}
