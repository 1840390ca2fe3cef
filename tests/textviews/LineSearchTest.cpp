#include "textviews/_LineSearch.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <random>

namespace
{
_LineStore StoreOf(const std::vector<String>& lines)
{
    _LineStore store;
    for (const String& line : lines)
    {
        store.Append(line);
    }
    return store;
}

struct Outcome
{
    int  line = -1;
    int  column = -1;
    int  length = 0;
    bool wrapped = false;

    bool operator==(const Outcome& o) const
    {
        return line == o.line && column == o.column && length == o.length && wrapped == o.wrapped;
    }
};

std::ostream& operator<<(std::ostream& out, const Outcome& o)
{
    return out << "line " << o.line << " column " << o.column << " length " << o.length
               << (o.wrapped ? " wrapped" : "");
}

/// Runs the search in steps of that many bytes.
Outcome Search(const _LineStore& store, const String& text, bool forward, bool matchCase, int start,
               size_t budget = 1000)
{
    _LineSearch search;
    search.Begin(text, forward, matchCase, start);
    while (search.Step(store, budget) == _LineSearch::State::Running)
    {
    }
    if (search.GetState() != _LineSearch::State::Found)
    {
        return {-1, -1, 0, search.HasWrapped()};
    }
    const _LineMatch& match = search.Match();
    return {match.line, match.column, match.length, search.HasWrapped()};
}

class LineSearchTest : public testing::Test
{
protected:
    LineSearchTest() { EXPECT_TRUE(std::setlocale(LC_CTYPE, "C.UTF-8")); }
    ~LineSearchTest() override { std::setlocale(LC_CTYPE, "C"); }
};
} // namespace

TEST_F(LineSearchTest, GoesRoundAllLinesOnce)
{
    const _LineStore store = StoreOf({"one", "two", "one two", "three"});
    EXPECT_EQ(Search(store, "two", true, true, 0), (Outcome{1, 0, 3, false}));
    EXPECT_EQ(Search(store, "two", true, true, 2), (Outcome{2, 4, 3, false}));
    EXPECT_EQ(Search(store, "two", true, true, 3), (Outcome{1, 0, 3, true}));
    EXPECT_EQ(Search(store, "two", true, true, 4), (Outcome{1, 0, 3, true}));
    EXPECT_EQ(Search(store, "two", false, true, 3), (Outcome{2, 4, 3, false}));
    EXPECT_EQ(Search(store, "two", false, true, 0), (Outcome{2, 4, 3, true}));
    EXPECT_EQ(Search(store, "two", false, true, -1), (Outcome{2, 4, 3, true}));
    EXPECT_EQ(Search(store, "three", true, true, 4), (Outcome{3, 0, 5, true})) << "the only hit";
    EXPECT_EQ(Search(store, "four", true, true, 1).line, -1);
    EXPECT_EQ(Search(store, "four", false, true, 1).line, -1);
    EXPECT_EQ(Search(store, "", true, true, 0).line, -1);
    EXPECT_EQ(Search(_LineStore(), "two", true, true, 0).line, -1);
    EXPECT_EQ(Search(_LineStore(), "two", false, true, -1).line, -1);
}

TEST_F(LineSearchTest, FindsNothingAcrossLines)
{
    EXPECT_EQ(Search(StoreOf({"ab", "cd", "bc"}), "bc", true, true, 0).line, 2);
    EXPECT_EQ(Search(StoreOf({"ab", "cd"}), "bc", true, false, 0).line, -1);
}

TEST_F(LineSearchTest, ColumnsCountCharacters)
{
    const _LineStore store = StoreOf({"\xc3\xa4\xe6\xbc\xa2\xff needle \xe6\xbc\xa2"});
    EXPECT_EQ(Search(store, "needle \xe6\xbc\xa2", true, true, 0), (Outcome{0, 4, 8, false}));
    EXPECT_EQ(Search(store, "NEEDLE", true, false, 0), (Outcome{0, 4, 6, false}));
}

TEST_F(LineSearchTest, CaseFoldsByTheLocalesCharacters)
{
    const _LineStore store = StoreOf({"\xc3\x84RGER \xce\xa9", "plain Text"});
    EXPECT_EQ(Search(store, "\xc3\xa4rger \xcf\x89", true, false, 0).line, 0);
    EXPECT_EQ(Search(store, "\xc3\xa4rger", true, true, 0).line, -1);
    EXPECT_EQ(Search(store, "PLAIN tEXT", true, false, 0).line, 1);
    EXPECT_EQ(Search(store, "plain text", true, true, 0).line, -1);
    // A sign whose lower case is an ASCII letter: the Kelvin sign.
    EXPECT_EQ(Search(StoreOf({"300 \xe2\x84\xaa"}), "300 k", true, false, 0).line, 0);
}

TEST_F(LineSearchTest, InvalidBytesEqualOnlyThemselves)
{
    const _LineStore store = StoreOf({"caf\xc3\xa9", "caf\xe9", String("a\0b", 3)});
    EXPECT_EQ(Search(store, "caf\xe9", true, true, 0).line, 1);
    EXPECT_EQ(Search(store, "CAF\xe9", true, false, 0).line, 1);
    EXPECT_EQ(Search(store, "\xa9", true, true, 0).line, -1) << "half a character";
    EXPECT_EQ(Search(store, String("\0b", 2), true, true, 0), (Outcome{2, 1, 2, false}));
}

// The quick ways and the steps must find what a plain look at every line finds.
TEST_F(LineSearchTest, AgreesWithAPlainSearch)
{
    std::mt19937        random(11);
    std::vector<String> lines;
    for (int i = 0; i < 3000; ++i)
    {
        String line;
        for (auto n = random() % 60; n > 0; --n)
        {
            line += "abAB \xc3"[random() % 6];
        }
        lines.push_back(line);
    }
    const _LineStore store = StoreOf(lines);
    for (const char* text : {"aab", "abAB", "a a ab",
                             "\xc3"
                             "a\xc3",
                             "bbbbbbb"})
    {
        for (int start = 0; start < 3000; start += 271)
        {
            int expected = -1;
            for (int i = start; i < start + 3000 && expected == -1; ++i)
            {
                expected = lines[i % 3000].find(text) != String::npos ? i % 3000 : -1;
            }
            ASSERT_EQ(Search(store, text, true, true, start, 1 + random() % 50000).line, expected);
            expected = -1;
            for (int i = start + 3000; i > start && expected == -1; --i)
            {
                expected = lines[i % 3000].find(text) != String::npos ? i % 3000 : -1;
            }
            ASSERT_EQ(Search(store, text, false, true, start, 1 + random() % 50000).line, expected);
        }
    }
}

TEST_F(LineSearchTest, LooksThroughLongLinesInPieces)
{
    String line(10'000'000, 'a');
    line += "b";
    const _LineStore store = StoreOf({"short", line, "short"});
    _LineSearch      search;
    search.Begin("AAAB", true, false, 0);
    int steps = 0;
    while (search.Step(store, 100'000) == _LineSearch::State::Running)
    {
        ++steps;
    }
    EXPECT_GE(steps, 99) << "no step may be long";
    EXPECT_EQ(search.GetState(), _LineSearch::State::Found);
    EXPECT_EQ(search.Match().line, 1);
    EXPECT_EQ(search.Match().column, 9'999'997);
}

TEST_F(LineSearchTest, LinesMayComeAndGoMeanwhile)
{
    _LineStore store;
    for (int i = 0; i < 2000; ++i)
    {
        store.Append(SFormat("%060d", i));
    }
    store.Append("the needle");
    _LineSearch search;
    search.Begin("needle", true, true, 0);
    search.Step(store, 1); // one block
    for (int i = 0; i < 100; ++i)
    {
        store.Erase(0);
        search.LineErased(0);
        store.Insert(1500, "new");
        search.LineInserted(1500);
        store.Append("more");
    }
    while (search.Step(store, 1000) == _LineSearch::State::Running)
    {
    }
    EXPECT_EQ(search.GetState(), _LineSearch::State::Found);
    EXPECT_EQ(store.Line(search.Match().line), "the needle");
    EXPECT_FALSE(search.HasWrapped());
    search.Begin("needle", true, true, 0);
    search.Stop();
    EXPECT_EQ(search.Step(store, 1000), _LineSearch::State::Idle);
}

TEST_F(LineSearchTest, TheCountFollowsTheLines)
{
    _LineStore store;
    for (int i = 0; i < 3000; ++i)
    {
        store.Append(i % 3 == 0 ? "Hit and hit                    "
                                : "miss                           ");
    }
    _HitCounter counter;
    EXPECT_TRUE(counter.Step(store, 10)) << "nothing to count";
    counter.Begin("hit", false);
    EXPECT_FALSE(counter.Step(store, 10));
    const int partial = counter.Hits();
    EXPECT_GT(partial, 0);
    EXPECT_LT(partial, 1000);

    counter.LineErased(store, 0); // a hit that is counted already
    store.Erase(0);
    store.Insert(5, "another HIT");
    counter.LineInserted(store, 5);
    store.Insert(2900, "a hit that is still to come");
    counter.LineInserted(store, 2900);
    while (!counter.Step(store, 10))
    {
    }
    EXPECT_EQ(counter.Hits(), 1001);
    store.Append("appended hit");
    store.Append(String(200'000, 'x') + "hit");
    while (!counter.Step(store, 1000))
    {
    }
    EXPECT_EQ(counter.Hits(), 1003);
    store.Clear();
    counter.LinesCleared();
    EXPECT_TRUE(counter.Step(store, 10));
    EXPECT_EQ(counter.Hits(), 0);
}
