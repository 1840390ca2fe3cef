#include "listviews/arranging/Arrangement.h"
#include "listviews/arranging/NaturalKey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <random>

namespace
{
std::string Natural(const std::string& text)
{
    std::string key;
    listviews::AppendNaturalKey(key, text);
    return key;
}

std::string Number(double number)
{
    std::string key;
    listviews::AppendNumberKey(key, number);
    return key;
}

// Of one item; the last column is hidden.
String TextOf(int type)
{
    const char* const texts[] = {"Beauty pass", "failed", "on hold", "h\xC3\xA9las"};
    return texts[type];
}
const std::vector<listviews::FilterQuery::Column> kColumns = {
    {0, "Name", "", true}, {1, "State", "st", true}, {2, "Note", "", true}, {3, "Text", "", false}};

listviews::FilterQuery Query(const String& text)
{
    return {text, kColumns};
}
} // namespace

TEST(NaturalKey, NamesSortAsPeopleSortThem)
{
    const std::string texts[] = {"",
                                 "-",
                                 "2",
                                 "10",
                                 "a",
                                 "a1",
                                 "A2",
                                 "a10",
                                 "a10b",
                                 "a10c1",
                                 "a10c0002",
                                 "a99999999999999999999",
                                 "a100000000000000000000",
                                 "ab",
                                 "shot 9",
                                 "Shot 10",
                                 "\xC3\x89t\xC3\xA9"};
    for (size_t i = 0; i + 1 < std::size(texts); ++i)
    {
        EXPECT_LT(Natural(texts[i]), Natural(texts[i + 1])) << texts[i];
    }
    EXPECT_EQ(Natural("Frame 007"), Natural("frame 7"));
    EXPECT_EQ(Natural("\xC3\x89T\xC3\x89"), Natural("\xC3\xA9t\xC3\xA9"));
    EXPECT_LT(Natural(std::string(300, '9')), Natural(std::string(301, '9')));
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double numbers[] = {-kInfinity, -1e300, -2, -1e-300, 0, 1e-300, 1, 1e300, kInfinity, NAN};
    for (size_t i = 0; i + 1 < std::size(numbers); ++i)
    {
        EXPECT_LT(Number(numbers[i]), Number(numbers[i + 1])) << numbers[i];
    }
    EXPECT_EQ(Number(0.0), Number(-0.0));
}

TEST(FilterQuery, WordsSayWhatIsShown)
{
    const struct
    {
        const char* text;
        bool        matches;
    } rows[] = {{"", true},
                {"BEAUTY", true},
                {"beauty failed", true},
                {"beauty running", false},
                {"-running", true},
                {"-failed", false},
                {"-", true},
                {"name:", true},
                {"name:pass", true},
                {"name:failed", false},
                {"st:fail", true},
                {"n:pass", false},
                {"na:pass", true},
                {"-state:failed", false},
                {"-name:failed", true},
                {"\"on hold\"", true},
                {"\"hold on\"", false},
                {"note:\"on hold", true},
                {":", false},
                {"unknown:x", false},
                {"\"name:pass\"", false},
                {"\"-failed\"", false},
                {"h\xC3\x89las", false},
                {"text:h\xC3\x89las", true}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.matches, Query(row.text).Matches(&TextOf)) << row.text;
    }
}

TEST(FilterQuery, KnowsWhatNeedNotBeLookedAtAgain)
{
    const struct
    {
        const char *narrow, *wide;
        bool        within;
    } rows[] = {{"beauty", "beau", true},          {"beau", "beauty", false},
                {"beauty x", "eau", true},         {"x", "", true},
                {"-bea", "-beauty", true},         {"-beauty", "-bea", false},
                {"name:beauty", "beauty", false},  {"name:beauty", "name:b", true},
                {"name:beauty", "state:b", false}, {"-a", "a", false}};
    for (const auto& row : rows)
    {
        EXPECT_EQ(row.within, Query(row.narrow).IsWithin(Query(row.wide)))
            << row.narrow << " in " << row.wide;
    }
    String many;
    for (int i = 0; i < 200000; ++i)
    {
        many += "name:" + String::FromInt(i) + " ";
    }
    EXPECT_TRUE(Query(many + "x").IsWithin(Query(many))) << "and does not take for ever";
    EXPECT_FALSE(Query("beauty").IsWithin(listviews::FilterQuery("beau", {kColumns[0]})));
    String words;
    for (size_t i = 0; i <= listviews::FilterQuery::k_MostTerms; ++i)
    {
        EXPECT_FALSE(Query(words).IsCutOff()) << i;
        words += "a ";
    }
    EXPECT_TRUE(Query(words).IsCutOff());
}

TEST(KeySort, SortsAsTheLibraryDoesAndKeepsWhatIsEqualInOrder)
{
    std::minstd_rand random(7);
    const struct
    {
        size_t count, prefix;
        int    letters, longest;
    } rows[] = {{0, 0, 2, 3},      {1, 0, 2, 3},       {5000, 0, 1, 20},   {30000, 0, 2, 12},
                {30000, 20, 3, 9}, {30000, 7, 256, 2}, {30000, 0, 256, 30}};
    for (const auto& row : rows)
    {
        SCOPED_TRACE(::testing::Message() << row.count << ' ' << row.prefix << ' ' << row.letters);
        std::vector<std::string> keys(row.count);
        listviews::KeySort       sort(row.count);
        for (size_t i = 0; i < keys.size(); ++i)
        {
            keys[i] = std::string(i % 9973 == 9972 ? row.prefix / 2 : row.prefix, 'p');
            for (int left = static_cast<int>(random() % 97) % (row.longest + 1); left > 0; --left)
            {
                keys[i] += static_cast<char>(static_cast<int>(random() / 7 % 256) % row.letters);
            }
            sort.Add(static_cast<int>(i), keys[i]);
        }
        std::vector<int> expected(row.count);
        std::iota(expected.begin(), expected.end(), 0);
        std::stable_sort(
            expected.begin(), expected.end(),
            [&keys](int left, int right)
            { return keys[static_cast<size_t>(left)] < keys[static_cast<size_t>(right)]; });
        while (sort.Step())
        {
        }
        EXPECT_TRUE(expected == sort.Items());
    }
}

TEST(SortRules, FollowClicksAndComeBack)
{
    std::vector<wxDBListColumn> columns(3);
    for (int i = 0; i < 3; ++i)
    {
        columns[static_cast<size_t>(i)].type = 10 + i;
    }
    columns[1].key = "a, \"key\\";
    listviews::SortRules rules;
    const struct
    {
        int         type;
        bool        add;
        const char* after;
    } clicks[] = {{10, false, "#10 +"},
                  {10, false, "#10 -"},
                  {11, true, "#10 -, a%2C %22key%5C +"},
                  {12, true, "#10 -, a%2C %22key%5C +, #12 +"},
                  {11, true, "#10 -, a%2C %22key%5C -, #12 +"},
                  {12, false, "#12 +"},
                  {10, false, "#10 +"}};
    for (const auto& click : clicks)
    {
        rules = listviews::Clicked(rules, click.type, click.add);
        EXPECT_EQ(click.after, listviews::RulesText(rules, columns));
        EXPECT_TRUE(rules == listviews::RulesFrom(click.after, columns));
    }
    EXPECT_EQ(
        "a%2C %22key%5C +, #10 -",
        listviews::RulesText(listviews::RulesFrom("a\\, \\\"key\\\\ +, 10 -", columns), columns))
        << "as it was written once";
    String much = "nonsense, 10, +, 10 *, ,99 +, 12 -";
    for (int i = 0; i < 100000; ++i)
    {
        much += ", 12 +, c" + String::FromInt(i) + " -";
    }
    EXPECT_EQ("#12 -", listviews::RulesText(listviews::RulesFrom(much, columns), columns));
}
