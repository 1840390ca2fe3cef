#include "textviews/search/LineSearch.h"
#include "tests/textviews/SearchSupport.h"
#include "textviews/search/ByteFinder.h"

#include "textviews/search/HitNumbers.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <tuple>

namespace
{
/// Runs the search in steps of that many bytes; what it finds: line, column, length, wrapped.
using Outcome = std::tuple<int, int, int, bool>;

Outcome Search(const textviews::LineStore& store, const String& text, bool forward, bool matchCase,
               int start, size_t budget = 1000)
{
    textviews::LineSearch search;
    search.Begin(FinderFor(text, matchCase), forward,
                 {start, forward ? 0 : textviews::SearchPlace::k_End},
                 textviews::LineSearch::Unit::Line);
    while (search.Step(store, budget) == textviews::LineSearch::State::Running)
    {
    }
    if (search.GetState() != textviews::LineSearch::State::Found)
    {
        return {-1, -1, 0, search.HasWrapped()};
    }
    const textviews::LineMatch& match = search.Match();
    return {match.line, match.column, match.length, search.HasWrapped()};
}

/// The line of the first hit of a search forward from the top.
int LineOf(const textviews::LineStore& store, const String& text, bool matchCase)
{
    return std::get<0>(Search(store, text, true, matchCase, 0));
}

} // namespace

TEST(LineSearchTest, ColumnsCountCharacters)
{
    EXPECT_EQ(Search(StoreOf({"\xc3\xa4\xff NEEDLE \xe6\xbc\xa2"}), "needle \xe6\xbc\xa2", true,
                     false, 0),
              (Outcome{0, 3, 8, false}));
    EXPECT_EQ(LineOf(StoreOf({"one", "two"}), "", true), -1);
    EXPECT_EQ(std::get<0>(Search(textviews::LineStore(), "two", false, true, -1)), -1);
}

TEST(LineSearchTest, ComparesCharactersWhateverTheLocale)
{
    const textviews::LineStore store =
        StoreOf({"\xc3\x84RGER \xce\xa9", "plain Text", "300 \xe2\x84\xaa", "caf\xc3\xa9",
                 "caf\xe9", String("a\0b", 3)});
    const struct
    {
        String text;
        bool   matchCase;
        int    line;
    } cases[] = {
        {"\xc3\xa4rger \xcf\x89", false, 0},
        {"\xc3\xa4rger", true, -1},
        {"PLAIN tEXT", false, 1},
        {"plain text", true, -1},
        {"300 k", false, 2},  // A sign whose lower case is an ASCII letter: the Kelvin sign.
        {"caf\xe9", true, 4}, // Invalid bytes equal only themselves.
        {"CAF\xe9", false, 4},
        {"\xa9", true, -1}, // Half a character.
        {String("\0b", 2), true, 5},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(LineOf(store, c.text, c.matchCase), c.line) << c.text;
    }
}

// The quick ways and the steps must find what a plain look at every line finds.
TEST(LineSearchTest, AgreesWithAPlainSearch)
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
    const textviews::LineStore store = StoreOf(lines);
    for (const String text : {"aab", "abAB", "a a ab",
                              "\xc3"
                              "a\xc3",
                              "bbbbbbb"})
    {
        for (int start = 0; start < 3000; start += 271)
        {
            for (const bool forward : {true, false})
            {
                Outcome expected{-1, -1, 0, true};
                for (int i = 0; i < 3000 && std::get<0>(expected) == -1; ++i)
                {
                    const int  line = (start + (forward ? i : 3000 - i)) % 3000;
                    const auto place = lines[line].find(text);
                    if (place != String::npos)
                    {
                        expected = {line, static_cast<int>(place), static_cast<int>(text.size()),
                                    forward ? line < start : line > start};
                    }
                }
                ASSERT_EQ(Search(store, text, forward, true, start, 1 + random() % 50000),
                          expected);
            }
        }
    }
}

TEST(ByteFinderTest, FindsWhatAStringFinds)
{
    std::mt19937      random(5);
    const std::string letters("e\0N\xff", 4);
    const auto        any = [&](size_t length, size_t kinds)
    {
        std::string text;
        while (text.size() < length)
        {
            text += letters[random() % kinds];
        }
        return text;
    };
    for (int i = 0; i < 20'000; ++i)
    {
        const size_t                kinds = 1 + random() % letters.size();
        const std::string           in = any(random() % 300, kinds);
        const textviews::ByteFinder finder(
            i % 2 ? any(random() % 8, kinds) : in.substr(in.size() - random() % (in.size() + 1)));
        ASSERT_EQ(finder.Find(in), in.find(finder.Text())) << i;
    }
}

// In either direction, and however they come and go.
TEST(LineSearchTest, LongLinesAreSearchedInSteps)
{
    for (const bool forward : {true, false})
    {
        const textviews::LineStore store =
            StoreOf({"short", String(5'000'000, 'a') + "b" + String(5'000'000, 'a'), "B"});
        textviews::LineSearch search;
        search.Begin(FinderFor("AAAB", false), forward, {forward ? 0 : 2, 0},
                     textviews::LineSearch::Unit::Hit);
        int steps = 0;
        while (search.Step(store, 100'000) == textviews::LineSearch::State::Running)
        {
            ++steps;
        }
        EXPECT_GE(steps, 50) << "no step may be long";
        EXPECT_EQ(search.Match().line, 1);
        EXPECT_EQ(search.Match().column, 4'999'997);
        EXPECT_EQ(search.Match().length, 4);
    }
}

// From hit to hit in both directions, once round, as they stand in all lines.
TEST(LineSearchTest, GoesFromHitToHit)
{
    std::mt19937        random(3);
    std::vector<String> lines;
    for (int i = 0; i < 300; ++i)
    {
        String line(random() % 5 == 0 ? 70'000 * (random() % 3) : 0, '.');
        for (auto n = random() % 30; n > 0; --n)
        {
            line += "ab. "[random() % 4];
        }
        lines.push_back(line);
    }
    const textviews::LineStore store = StoreOf(lines);
    for (const bool expression : {false, true})
    {
        const auto finder = FinderFor(expression ? "a[ab]" : "ab", true, false, expression);
        std::vector<std::pair<int, size_t>> all;
        for (int line = 0; line < 300; ++line)
        {
            for (const textviews::ByteSpan& hit : HitsIn(*finder, lines[line]))
            {
                all.emplace_back(line, hit.begin);
            }
        }
        const size_t count = all.size();
        ASSERT_GT(count, 100u);
        for (const bool forward : {true, false})
        {
            textviews::SearchPlace start{150, 0};
            const auto             next = static_cast<size_t>(
                std::lower_bound(all.begin(), all.end(), std::pair<int, size_t>(150, 0)) -
                all.begin());
            for (size_t i = 0; i < count; ++i)
            {
                textviews::LineSearch search;
                search.Begin(finder, forward, start, textviews::LineSearch::Unit::Hit);
                while (search.Step(store, 1 + random() % 100'000) ==
                       textviews::LineSearch::State::Running)
                {
                }
                const auto& expected = all[(forward ? next + i : next + 2 * count - 1 - i) % count];
                const textviews::LineMatch& match = search.Match();
                ASSERT_EQ(std::make_pair(match.line, match.bytes.begin), expected) << i;
                start = {match.line, forward ? match.bytes.end : match.bytes.begin};
            }
        }
    }
}

// Every place of the text's characters is a near miss here: rows across lines, halves of
// characters.
TEST(LineSearchTest, NearMissesCostNoMoreThanOthers)
{
    String halves;
    while (halves.size() < 2000)
    {
        halves += "\xc3\xa9";
    }
    const struct
    {
        String line;
        String text;
        bool   matchCase;
    } cases[] = {
        {String(80, '-'), String(100, '-'), true},
        {String(80, '-'), String(10'000, '-'), true},
        {String(80, '-'), String(10'000, '-'), false},
        {String(2000, '-'), String(2001, '-'), true},
        {halves, "\xa9", true},
    };
    for (const auto& c : cases)
    {
        const textviews::LineStore store =
            StoreOf(std::vector<String>(3'000'000 / c.line.size(), c.line));
        const auto start = std::clock(); // the time that it takes itself, on a busy machine too
        EXPECT_EQ(LineOf(store, c.text, c.matchCase), -1);
        EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC)
            << c.line.size() << ' ' << c.text.size();
    }
}

// Whatever else comes and goes between the steps, the search finds the line that stays.
TEST(LineSearchTest, LinesMayComeAndGoMeanwhile)
{
    const String others[] = {"hit", String(20'000, 'x'), String(70'000, 'x'),
                             "HIT" + String(70'000, 'x')};
    std::mt19937 random(5);
    const auto   below = [&random](int end) { return static_cast<int>(random() % end); };
    for (int round = 0; round < 200; ++round)
    {
        textviews::LineStore store = StoreOf({"the needle"});
        int                  needle = 0;
        const auto           insert = [&](int at)
        {
            store.Insert(at, others[below(4)]);
            needle += at <= needle ? 1 : 0;
        };
        while (store.Count() < 8)
        {
            insert(below(store.Count() + 1));
        }
        textviews::LineSearch search;
        // From within a line, too.
        search.Begin(FinderFor("needle", true), below(2) == 0,
                     {below(10) - 1, static_cast<size_t>(below(6)) * 20'000},
                     round % 2 ? textviews::LineSearch::Unit::Hit
                               : textviews::LineSearch::Unit::Line);
        for (int i = 0; i < 16; ++i)
        {
            search.Step(store, 40'000);
            const int at = below(store.Count());
            if (below(2) == 0)
            {
                insert(at);
                search.LineInserted(at);
            }
            else if (at != needle)
            {
                search.LineErased(at);
                store.Erase(at);
                needle -= at < needle ? 1 : 0;
            }
        }
        ASSERT_EQ(search.Step(store, 10'000'000), textviews::LineSearch::State::Found) << round;
    }
}

// A search through lines as they are shown is one through lines that are stored so.
TEST(LineSearchTest, LooksAtWhatIsShown)
{
    const std::string_view parts[] = {"hit",     "hi",    "\x1b[31m",   "t\x1b[K",
                                      "\r",      "a hit", "\x1b[m",     "\xc3\xa4",
                                      "\x1b[1K", "T",     "h\x1b[1mit", " "};
    std::mt19937           random(4);
    const auto             below = [&random](size_t end) { return random() % end; };
    for (int round = 0; round < 40; ++round)
    {
        textviews::LineFolder folder;
        textviews::LineStore  stored;
        textviews::LineStore  shown;
        for (auto i = 1 + below(3000); i > 0; --i)
        {
            std::string line(below(400) == 0 ? 70'000 : 0, '.');
            for (auto n = below(5); n > 0 && (round % 2 == 0 || i % 997 == 0); --n)
            {
                line += parts[below(std::size(parts))];
            }
            line += i % 5 == 0 ? "plain hit\r" : "plain";
            std::string text;
            folder.AppendText(line, text);
            stored.Append(line);
            shown.Append(text);
        }
        textviews::SearchedLines lines(stored);
        lines.ReadAsShown(true);
        const auto finder = FinderFor(round % 3 ? "hit" : "h[iI]t", false, false, round % 3 == 0);
        textviews::HitNumbers numbers[2];
        for (auto& each : numbers)
        {
            each.Begin(finder, stored.Count());
        }
        while (!numbers[0].Step(lines, 1 + below(60'000)))
        {
        }
        while (!numbers[1].Step(shown, 100'000))
        {
        }
        ASSERT_EQ(numbers[0].Hits(), numbers[1].Hits());
        for (int i = 0; i < 30; ++i)
        {
            const textviews::SearchPlace start{
                static_cast<int>(below(static_cast<size_t>(stored.Count()))), below(20)};
            textviews::LineSearch searches[2];
            for (auto& each : searches)
            {
                each.Begin(finder, i % 2 == 0, start, textviews::LineSearch::Unit::Hit);
            }
            while (searches[0].Step(lines, 1 + below(60'000)) ==
                   textviews::LineSearch::State::Running)
            {
            }
            while (searches[1].Step(shown, 100'000) == textviews::LineSearch::State::Running)
            {
            }
            ASSERT_EQ(searches[0].GetState(), searches[1].GetState());
            ASSERT_EQ(searches[0].Match().line, searches[1].Match().line);
            ASSERT_EQ(searches[0].Match().column, searches[1].Match().column);
            ASSERT_TRUE(searches[0].Match().bytes == searches[1].Match().bytes);
        }
    }
    // Lines that join others that were looked at.
    textviews::LineStore     store = StoreOf({"plain", "text\r"});
    textviews::SearchedLines lines(store);
    lines.ReadAsShown(true);
    EXPECT_EQ(lines.BlockOf(0)->bytes, "plaintext\r");
    EXPECT_EQ(store.BlockOf(0).finding, textviews::LineStore::Finding::Plain);
    store.Insert(1, "a\x1b[mb");
    EXPECT_EQ(lines.BlockOf(0)->bytes, "plainabtext\r");
    store.Append("c\x1b[md");
    EXPECT_EQ(lines.LineOf(3), "cd");
    lines.ReadAsShown(false);
    EXPECT_EQ(lines.LineOf(3), "c\x1b[md");
}
