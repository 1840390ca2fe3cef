#include "tests/textviews/SearchSupport.h"
#include "textviews/search/VisibleHits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <random>

namespace
{
constexpr bool kText = false;
constexpr bool kExpression = true;

/// The hits in the line, with brackets around them.
String Marked(const String& line, const std::vector<textviews::ByteSpan>& hits)
{
    String marked;
    size_t at = 0;
    for (const textviews::ByteSpan& hit : hits)
    {
        marked += line.substr(at, hit.begin - at) + "<" +
                  line.substr(hit.begin, hit.end - hit.begin) + ">";
        at = hit.end;
    }
    return marked + line.substr(at);
}

String ProblemOf(const String& expression)
{
    textviews::QueryProblem problem;
    EXPECT_EQ(textviews::MakeFinder({expression, false, false, true}, problem), nullptr)
        << expression;
    String text = problem.text ? problem.text : "";
    if (const size_t place = text.find("%s"); place != String::npos)
    {
        text.replace(place, 2, problem.part);
    }
    return text;
}
} // namespace

TEST(HitFinderTest, FindsEveryHitInALine)
{
    const struct
    {
        bool   expression;
        bool   matchCase;
        bool   wholeWords;
        String text;
        String marked; ///< The line, its hits in angle brackets.
    } cases[] = {
        {kText, true, false, "aa", "<aa><aa>a"},
        {kText, true, false, "a.b", "axb <a.b>"},
        {kText, false, true, "frame", "<FRAME> frames my_frame <frame>-1 <frame>"},
        {kText, true, true, "a a", "ba <a a> a"}, // the first one overlaps it
        {kText, true, true, "\xc3\xa4", "\xc3\xa4h <\xc3\xa4> e\xc3\xa4 <\xc3\xa4>\xff"},
        {kExpression, true, false, "\\d+", "frame <12> of <240>"},
        {kExpression, true, false, "^a|b$", "<a>ab<b>"},
        {kExpression, false, false, "\xc3\x84+", "<\xc3\xa4\xc3\x84> \xc3\xb6"},
        {kExpression, true, false, "x*", "a<xx>b<x>"}, // what is empty is none
        {kExpression, true, false, "$", "ab"},
        {kExpression, true, true, "frame|frames", "<frames> <frame> xframe"},
        {kExpression, true, true, "[a-z ]+", "<a b>"},
        {kExpression, true, true, "\\Qa.b", "xa.b <a.b>"},
        {kExpression, true, true, "a", "<a> <a> ba <a>"},
        // A byte that is no text is a character of its own.
        {kExpression, true, false, "a.b",
         "<a\xff"
         "b> <a\xc3\xa4"
         "b> a\xe4\xe4"
         "b"},
        {kExpression, true, false, "[^a]+", "a<\xff\xc3\xa4\xc3>a"},
        {kExpression, true, false, "\\xff", "\xff <\xc3\xbf>"},
        {kExpression, true, false, "a.b", String("<a\0b> <a\nb>", 11)},
    };
    for (const auto& c : cases)
    {
        String line = c.marked;
        line.erase(
            std::remove_if(line.begin(), line.end(), [](char b) { return b == '<' || b == '>'; }),
            line.end());
        const auto finder = FinderFor(c.text, c.matchCase, c.wholeWords, c.expression);
        ASSERT_TRUE(finder) << c.text;
        for (const size_t step : {1, 1000})
        {
            EXPECT_EQ(Marked(line, HitsIn(*finder, line, step)), c.marked) << c.text;
        }
        // Among other lines, too.
        const textviews::LineStore store = StoreOf({"", "zz", line});
        const std::vector<int>     lines = finder->LinesIn(store.BlockOf(0), 0, 3, false);
        const bool                 hasHits = line != c.marked;
        EXPECT_TRUE(!hasHits || (!lines.empty() && lines.back() == 2)) << c.text;
        EXPECT_TRUE(hasHits || !finder->IsSureOfLines() || lines.empty()) << c.text;
    }
}

TEST(HitFinderTest, TellsInPlainWordsWhatIsWrong)
{
    const struct
    {
        const char* expression;
        const char* problem;
    } cases[] = {
        {"(a", "A closing parenthesis is missing"},
        {"a)", "A closing parenthesis has no opening one"},
        {"x[ab", "A closing bracket is missing after [ab"},
        {"[z-a]", "z-a names no characters"},
        {"[[:fox:]]", "[:fox:] names no characters"},
        {"a\\", "Nothing follows the last backslash"},
        {"+a", "There is nothing before + to repeat"},
        {"a{2000}", "{2000} repeats more than 1000 times, or never"},
        {"a**", "** repeats what is repeated already"},
        {"\\y", "\\y has no meaning"},
        {"(?=a)", "(?= is not supported"},
        {"(?P<n!>a)", "(?P<n!> is no name for a group"},
        {"((a{9}\\pL{9}){9}\\pL{100}){9}", "The expression is too long or repeats too much"},
        {"\xff", "This is no regular expression"},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(ProblemOf(c.expression), c.problem);
    }
}

// Lines are looked through many at a time: none with a hit may be left out, and none may be taken
// for one with another.
TEST(HitFinderTest, LinesHaveTheHitsThatTheyHaveAlone)
{
    std::mt19937 random(2);
    for (const char* const letters : {"ab _", "ab\n_", "ab\xff_"})
    {
        std::vector<String> lines;
        for (int i = 0; i < 2000; ++i)
        {
            String line;
            for (auto n = random() % 6; n > 0; --n)
            {
                line += letters[random() % 4];
            }
            lines.push_back(line);
        }
        const textviews::LineStore        store = StoreOf(lines);
        const textviews::LineStore::Block block = store.BlockOf(0);
        ASSERT_EQ(block.lineCount, 2000);
        for (const char* const text : {"^a", "a$", "^ab$", "\\Aa", "a\\z", "b\\b", "a\\sb", "[^a]b",
                                       "a[^b]*a", "(?s)a.b", "(?-m)^a", "(?m)^b$", "(?i)^A", "a\nb",
                                       "\\x0a", "b{3}", "(?:^|b)a(?:$|b)", "\\Ca", "x*"})
        {
            for (const bool wholeWords : {false, true})
            {
                const auto finder = FinderFor(text, true, wholeWords, true);
                ASSERT_TRUE(finder) << text;
                const std::vector<int> found = finder->LinesIn(block, 0, block.lineCount, false);
                for (int line = 0; line < block.lineCount; ++line)
                {
                    ASSERT_TRUE(HitsIn(*finder, lines[static_cast<size_t>(line)]).empty() ||
                                std::binary_search(found.begin(), found.end(), line))
                        << text << " in " << lines[static_cast<size_t>(line)];
                }
                EXPECT_TRUE(std::adjacent_find(found.begin(), found.end(),
                                               std::greater_equal<int>()) == found.end());
            }
        }
    }
}

// Lines without the texts that an expression needs are passed over, as long as that pays.
TEST(HitFinderTest, LinesWithWhatAnExpressionNeedsAreNotPassedOver)
{
    std::mt19937        random(3);
    const char* const   words[] = {"Frame", "fra", "me ", "LOST", "found", " 12", "\xc5\xbf", "-"};
    std::vector<String> lines;
    for (int i = 0; i < 9000; ++i)
    {
        // Blocks of nothing but ASCII, blocks of other texts, too.
        const auto known = i % 3000 < 1500 ? 8 : 6;
        String     line;
        for (auto n = random() % 5; n > 0; --n)
        {
            line += words[random() % known];
        }
        lines.push_back(line);
    }
    const textviews::LineStore store = StoreOf(lines);
    for (const char* const text :
         {"frame \\d+", "(?i)frame.*LOST", "(lost|FOUND|Frame)-?", "[A-Z]rame", "^found$",
          "fra.*12", "(?i)lost", "(Frame|fra|found|lost|LOST)(me | 12|-)(me | 12|-)", "."})
    {
        for (const bool matchCase : {false, true})
        {
            const auto          finder = FinderFor(text, matchCase, false, true);
            const auto          alone = FinderFor(text, matchCase, false, true);
            std::vector<String> passedOver;
            for (int first = 0; first < store.Count();)
            {
                const auto block = store.BlockOf(first);
                const auto found = finder->LinesIn(block, first % 2, block.lineCount, false);
                for (int line = first % 2; line < block.lineCount; ++line)
                {
                    const String& bytes = lines[static_cast<size_t>(first + line)];
                    if (!HitsIn(*alone, bytes).empty() &&
                        !std::binary_search(found.begin(), found.end(), line))
                    {
                        passedOver.push_back(bytes);
                    }
                }
                first += block.lineCount;
            }
            EXPECT_EQ(passedOver, std::vector<String>()) << text;
        }
    }
}

// The same hits wherever one begins, over the pieces' edges and through characters that lie on
// them.
TEST(HitFinderTest, LongLinesHaveTheSameHitsAsShortOnes)
{
    std::mt19937 random(7);
    const char*  parts[] = {"a", "b", " ", "\xc3\xa4", "\xe6\xbc\xa2", "\xff"};
    for (int round = 0; round < 8; ++round)
    {
        String line;
        while (line.size() < 4 * textviews::kPieceBytes)
        {
            line += parts[random() % 6];
        }
        for (const bool expression : {false, true})
        {
            for (const bool wholeWords : {false, true})
            {
                const auto finder = FinderFor(expression ? "a.\xc3\xa4" : "a\xc3\xa4", true,
                                              wholeWords, expression);
                const std::vector<textviews::ByteSpan> hits = HitsIn(*finder, line);
                ASSERT_GT(hits.size(), 100u);
                EXPECT_EQ(HitsIn(*finder, line, 1 + random() % 50'000), hits);
                // None is missed: they are those that the parts alone have.
                size_t alone = 0;
                for (const textviews::ByteSpan& hit : hits)
                {
                    const size_t begin = textviews::CharacterBefore(line, hit.begin);
                    const size_t end = std::min(hit.end + 4, line.size());
                    alone += HitsIn(*finder, line.substr(begin, end - begin)).empty() ? 0 : 1;
                }
                EXPECT_EQ(alone, hits.size());
            }
        }
    }
    const String edge = String(textviews::kPieceBytes - 2, '.') + "needle";
    EXPECT_EQ(HitsIn(*FinderFor("needle", true), edge).size(), 1u);
    EXPECT_EQ(HitsIn(*FinderFor("n\\w+$", true, false, true), edge).size(), 1u);
    EXPECT_EQ(HitsIn(*FinderFor("^needle", true, false, true), edge).size(), 0u);
}

// Expressions that take other ways of looking an endless time, and lines with as many hits as can
// be.
TEST(HitFinderTest, NoExpressionTakesLong)
{
    const struct
    {
        const char* expression;
        String      line;
    } cases[] = {
        {"(a+)+$", String(30'000, 'a') + "!"},
        {"(a|aa)*b", String(30'000, 'a')},
        {"(x+x+)+y", String(30'000, 'x')},
        {"(.*)(.*)(.*)(.*)(.*)[^a]", String(30'000, 'a')},
        {"a?a?a?a?a?a?a?a?a?a?a?a?aaaaaaaaaaaa", String(30'000, 'a')},
        {"a", String(60'000, 'a')},
        {"x*", String(60'000, 'a')},
    };
    for (const auto& c : cases)
    {
        const auto finder = FinderFor(c.expression, true, false, true);
        ASSERT_TRUE(finder);
        const auto start = std::clock();
        HitsIn(*finder, c.line);
        EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC) << c.expression;
    }
    // What takes a time that grows with its square goes in steps.
    const auto                       finder = FinderFor("a(.*b)?", true, false, true);
    const String                     line(60'000, 'a');
    size_t                           from = 0;
    size_t                           budget = 128 * 1024;
    const auto                       start = std::clock();
    std::vector<textviews::ByteSpan> hits;
    finder->HitsIn(line, textviews::PieceAt(line, 0, finder->Reach()), from, budget, hits);
    EXPECT_GT(from, 0u);
    EXPECT_LT(from, line.size());
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 20);
}

TEST(VisibleHitsTest, LooksOnlyAtWhatIsSeen)
{
    textviews::VisibleHits visible;
    const String           line(100'000'000, 'a');
    const size_t           middle = 50'000'000;
    visible.BeginPicture();
    EXPECT_TRUE(visible.In(0, "a", {0, 1}).empty()) << "nothing is looked for";
    visible.SetFinder(FinderFor("aaaa", true));
    const auto start = std::clock();
    const auto hits = visible.In(0, line, {middle, middle + 10});
    EXPECT_LT(std::clock() - start, CLOCKS_PER_SEC / 20);
    ASSERT_GE(hits.size(), 3u);
    EXPECT_LE(hits.size(), 5u);
    EXPECT_LE(hits.front().begin, middle);
    EXPECT_GE(hits.back().end, middle + 10);
    EXPECT_FALSE(visible.IsIncomplete());
    EXPECT_EQ(visible.In(0, line, {middle, middle + 10}), hits);

    // What a picture may not cost is left to the next ones.
    int pictures = 0;
    do
    {
        visible.BeginPicture();
        for (int i = 1; i < 50; ++i)
        {
            visible.In(i, line, {0, 100});
        }
        ++pictures;
    } while (visible.IsIncomplete() && pictures < 100);
    EXPECT_GT(pictures, 1);
    EXPECT_LT(pictures, 20);
    EXPECT_EQ(visible.In(49, line, {0, 100}).size(), 25u);
    // A line that the disk had not given yet.
    EXPECT_TRUE(visible.In(50, "it is on its way", {0, 100}).empty());
    EXPECT_EQ(visible.In(50, "aaaa, and then some more", {0, 100}).size(), 1u);
    visible.Forget();
    visible.BeginPicture();
    EXPECT_EQ(visible.In(49, "b aaaa", {0, 6}).size(), 1u);
}
