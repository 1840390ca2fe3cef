#include "textviews/lines/LineStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace
{
using namespace std::string_literals;
using Lines = std::vector<std::string>;

textviews::LineStore StoreOf(const Lines& lines)
{
    textviews::LineStore store;
    for (const std::string& line : lines)
    {
        store.Append(line);
    }
    return store;
}

/// What the store holds must be the same line by line, by blocks, and in sum.
void ExpectSame(const textviews::LineStore& store, const Lines& lines)
{
    ASSERT_EQ(store.Count(), static_cast<int>(lines.size()));
    uint64_t bytes = 0;
    for (int i = 0; i < store.Count(); ++i)
    {
        ASSERT_EQ(store.Line(i), lines[static_cast<size_t>(i)]) << "line " << i;
        bytes += store.Line(i).size();
    }
    EXPECT_EQ(store.Bytes(), bytes);
    for (int i = 0; i < store.Count();)
    {
        const textviews::LineStore::Block block = store.BlockOf(i);
        ASSERT_EQ(block.firstLine, i);
        for (int n = 0; n < block.lineCount; ++n, ++i)
        {
            ASSERT_EQ(block.Line(n), lines[static_cast<size_t>(i)]) << "line " << i;
        }
    }
}

std::string RandomLine(std::mt19937& random, bool empty)
{
    // Mostly short, some empty, a few longer than the blocks that lines are kept in.
    const auto   kind = random() % 100;
    const size_t size = empty || kind < 10 ? 0 : kind < 98 ? random() % 200 : random() % 100000;
    std::string  line(size, '\0');
    std::generate(line.begin(), line.end(), [&] { return static_cast<char>(random()); });
    return line;
}
} // namespace

// Any mixture of changes gives what a plain vector gives.
TEST(LineStore, AgreesWithAVector)
{
    for (unsigned seed = 1; seed <= 6; ++seed)
    {
        std::mt19937   random(seed);
        const unsigned erasing = 10 + seed * 8; // per cent; the first run has many empty lines
        textviews::LineStore store;
        Lines                lines;
        for (int step = 0; step < (seed == 1 ? 40000 : 4000); ++step)
        {
            const auto at = static_cast<int>(random() % (lines.size() + 1));
            if (random() % 100 < erasing && !lines.empty())
            {
                const int index = random() % 3 == 0 ? 0 : std::min(at, store.Count() - 1);
                store.Erase(index);
                lines.erase(lines.begin() + index);
            }
            else if (random() % 2)
            {
                lines.push_back(RandomLine(random, seed == 1));
                store.Append(lines.back());
            }
            else
            {
                lines.insert(lines.begin() + at, RandomLine(random, seed == 1));
                store.Insert(at, lines[static_cast<size_t>(at)]);
            }
        }
        ExpectSame(store, lines);
    }
}

// As long as it is followed by its rest.
TEST(LineStore, ALineThatGoesOnStaysSoWhateverComesAndGoes)
{
    textviews::LineStore store = StoreOf({"before", "a1", "a2", "a3", "b"});
    const auto           goingOn = [&store]
    {
        std::string all;
        for (int line = 0; line < store.Count(); ++line)
        {
            all += std::string(store.Line(line)) + (store.GoesOn(line) ? "" : "|");
        }
        return all;
    };
    store.SetGoesOn(1);
    store.SetGoesOn(2);
    store.SetGoesOn(5);
    EXPECT_EQ(goingOn(), "before|a1a2a3|b|");
    store.Erase(0);
    store.Insert(0, "x");
    store.Insert(1, "y");
    EXPECT_EQ(goingOn(), "x|y|a1a2a3|b|");
    store.Erase(3);
    EXPECT_EQ(goingOn(), "x|y|a1a3|b|") << "the middle has gone";
    store.Erase(3);
    EXPECT_EQ(goingOn(), "x|y|a1|b|") << "so has its end";
    store.SetGoesOn(2);
    store.Insert(3, "z");
    EXPECT_EQ(goingOn(), "x|y|a1|z|b|") << "that is no rest of it";
    store.SetGoesOn(3);
    store.Erase(4);
    store.Append("grown");
    EXPECT_EQ(goingOn(), "x|y|a1|zgrown|") << "an unfinished line comes anew";
    store.Clear();
    store.Append("c");
    store.Append("c");
    store.Append("c");
    store.Append("c");
    EXPECT_EQ(goingOn(), "c|c|c|c|");
}

TEST(LineStore, ALineThatDoesNotExistDoesNoHarm)
{
    textviews::LineStore store = StoreOf({"one"});
    store.Erase(0);
    store.Erase(0);
    store.Erase(-1);
    store.Insert(5, "beyond the end");
    store.Insert(-5, "before the start");
    ExpectSame(store, {"before the start", "beyond the end"});
    EXPECT_EQ(store.Line(-1), "");
    EXPECT_EQ(store.Line(2), "");
}

TEST(LineStore, LowerBoundComparesBytes)
{
    Lines lines = {"", "a", "a", "a\0"s, "ab", "b", "b", "\x7f", "\x80", "\xff"};
    for (int i = 0; i < 3000; ++i)
    {
        lines.push_back("n" + std::to_string(i));
    }
    std::sort(lines.begin(), lines.end());
    const textviews::LineStore store = StoreOf(lines);
    for (const std::string& text :
         Lines{"", "a", "aa", "a\0"s, "n15", "n15x", "zzz", "\x80", "\xff\xff", "A"})
    {
        const auto expected = std::lower_bound(lines.begin(), lines.end(), text) - lines.begin();
        ASSERT_EQ(store.LowerBound(text), expected) << text;
    }
}
