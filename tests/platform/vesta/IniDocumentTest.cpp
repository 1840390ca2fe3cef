#include "vesta/IniDocument.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>

namespace
{

IniDocument Parsed(const String& text)
{
    IniDocument document;
    document.Parse(text);
    return document;
}

TEST(IniDocument, PlainValuesStandAsTheyAre)
{
    const struct
    {
        const char* line;
        const char* key;
        const char* value;
    } cases[] = {
        {"a = x ; y # z", "a", "x ; y # z"},
        {"b=\"one\",\"two\"", "b", "\"one\",\"two\""},
        {"c=\"C:\\dir\\quit\"", "c", "C:\\dir\\quit"},
        {"d = \"open", "d", "\"open"},
        {"e=a=b", "e", "a=b"},
        {"f=", "f", ""},
        {"\"quoted = key\" = g", "quoted = key", "g"},
        {"\"h=i", "\"h", "i"},
    };
    for (const auto& c : cases)
    {
        const IniDocument document = Parsed(c.line);
        EXPECT_TRUE(document.Has("", c.key)) << c.line;
        EXPECT_EQ(c.value, document.Get("", c.key)) << c.line;
    }
}

TEST(IniDocument, ChangesOnlyTheLinesOfAKey)
{
    const auto setUnnamed = [](IniDocument& document) { document.Set("", "k", "v"); };
    const struct
    {
        const char*                       before;
        std::function<void(IniDocument&)> change;
        const char*                       after;
    } cases[] = {
        // The first unnamed value goes above the sections, and above the comment of the first.
        {"", setUnnamed, "k = v\n"},
        {"[A]\n", setUnnamed, "k = v\n[A]\n"},
        {"\xEF\xBB\xBF[A]\n", setUnnamed, "\xEF\xBB\xBFk = v\n[A]\n"},
        {"; head\n[A]\n", setUnnamed, "; head\nk = v\n[A]\n"},
        {"; head\n\n; of A\n[A]\n", setUnnamed, "; head\n\nk = v\n; of A\n[A]\n"},
        {"; only a comment", setUnnamed, "; only a comment\nk = v\n"},
        {"[A]\r\nx=1", setUnnamed, "k = v\r\n[A]\r\nx=1"},
        // The last line of a key is the one that counts, however it is quoted or commented on.
        {"[ A ] ; a\r\nX = \"1\"\r\nrubbish\r\n[a]\r\n  x=2",
         [](IniDocument& document) { document.Set("A", "x", "3"); },
         "[ A ] ; a\r\nX = \"1\"\r\nrubbish\r\n[a]\r\n  x=3"},
        // Every line of a removed key goes.
        {"[A]\nx=1\n;c\nx=2\n[B]\nx=3\n[a]\nX=4\ny=5\n",
         [](IniDocument& document) { document.Remove("A", "x"); }, "[A]\n;c\n[B]\nx=3\n[a]\ny=5\n"},
        {"[A]\nx=1\n", [](IniDocument& document) { document.Remove("absent", "x"); }, "[A]\nx=1\n"},
        // Comments stay in a section that is cleared, and it stays itself.
        {"u=0\n[A]\n; first\nx=1\nx=2\n; second\ny=3\n\n[B]\nx=3\n",
         [](IniDocument& document)
         {
             document.ClearSection("a");
             document.Set("A", "k", "v");
         },
         "u=0\n[A]\nk = v\n; first\n; second\n\n[B]\nx=3\n"},
    };
    for (const auto& c : cases)
    {
        IniDocument document = Parsed(c.before);
        c.change(document);
        EXPECT_EQ(c.after, document.ToText());
    }
}

/// Bytes that meet every rule of quoting much more often than chance would have it.
String RandomBytes(std::mt19937& random, size_t maxLength)
{
    static const String special("\"\\=[];# \t\r\n\0\xEF\xBB\xBF\xFF\x7Fxn4", 21);
    String              text(random() % (maxLength + 1), '\0');
    for (char& c : text)
    {
        c = random() % 4 == 0 ? static_cast<char>(random()) : special[random() % special.size()];
    }
    return text;
}

TEST(IniDocument, RoundTripsAnyBytesIntoAnyGarbage)
{
    std::mt19937 random(20260331);
    for (int round = 0; round < 3000; ++round)
    {
        const String section = RandomBytes(random, 6);
        const String key = RandomBytes(random, 6);
        const String value = RandomBytes(random, 12);
        const String garbage = RandomBytes(random, 20);
        IniDocument  document = Parsed(garbage);
        ASSERT_EQ(garbage, document.ToText());
        document.Set(section, key, value);
        const String      text = document.ToText();
        const IniDocument read = Parsed(text);
        ASSERT_TRUE(read.Has(section, key)) << testing::PrintToString(text);
        ASSERT_EQ(value, read.Get(section, key)) << testing::PrintToString(text);
        ASSERT_EQ(document.Sections(), read.Sections()) << testing::PrintToString(text);
    }
}

/// A random series of changes gives what a plain map gives, in memory and when read again.
TEST(IniDocument, BehavesLikeAMap)
{
    using Key = std::pair<String, String>;
    std::mt19937          random(7);
    IniDocument           document = Parsed("a=1\nA=2\n[S]\nb=3\n; c\n[T]\n[s]\nB=4\n");
    std::map<Key, String> model{{{"", "a"}, "2"}, {{"s", "b"}, "4"}};
    const String          sections[] = {"", "s", "t", "u"};
    const String          keys[] = {"a", "b", "c", "\"", "="};
    for (int round = 0; round < 5000; ++round)
    {
        const Key    key{sections[random() % 4], keys[random() % 5]};
        const String value = RandomBytes(random, 4);
        if (const auto action = random() % 16; action == 0)
        {
            document.ClearSection(key.first);
            model.erase(model.lower_bound({key.first, ""}),
                        model.lower_bound({key.first + '\0', ""}));
        }
        else if (action < 6)
        {
            document.Remove(key.first, key.second);
            model.erase(key);
        }
        else
        {
            document.Set(key.first.ToUpper(), key.second, value);
            model[key] = value;
        }
        const IniDocument read = Parsed(document.ToText());
        for (const String& s : sections)
        {
            ASSERT_EQ(document.Keys(s), read.Keys(s));
            for (const String& k : keys)
            {
                const bool isThere = model.count({s, k}) > 0;
                ASSERT_EQ(isThere, document.Has(s, k));
                ASSERT_EQ(isThere ? model[Key(s, k)] : String(), document.Get(s, k));
                ASSERT_EQ(document.Get(s, k), read.Get(s, k));
            }
        }
    }
}

} // namespace
