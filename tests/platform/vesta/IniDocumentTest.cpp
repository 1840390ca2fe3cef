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
    EXPECT_EQ("2", Parsed("[S]\nb=0\nB=1\n; c\n[T]\n[s]\nB=2\n").Get("s", "b"))
        << "the last one counts";
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
        EXPECT_EQ(Parsed(c.after).Sections(), document.Sections());
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

/// Random changes to garbage give what a plain map gives, in memory and when read again.
TEST(IniDocument, BehavesLikeAMapWhateverTheFileHolds)
{
    using Key = std::pair<String, String>;
    std::mt19937 random(20260331);
    for (int round = 0; round < 4000; ++round)
    {
        const String garbage = RandomBytes(random, 20);
        const String odd = RandomBytes(random, 6).ToLower();
        const Key keys[] = {{"", "a"}, {"", odd}, {"s", "="}, {"s", "\""}, {odd, "a"}, {odd, odd}};
        IniDocument document = Parsed(garbage);
        ASSERT_EQ(garbage, document.ToText());
        std::map<Key, String> model;
        for (const auto& [section, key] : keys)
        {
            if (document.Has(section, key))
            {
                model[{section, key}] = document.Get(section, key);
            }
        }
        for (int change = 0; change < 6; ++change)
        {
            const auto& [section, key] = keys[random() % 6];
            const String value = RandomBytes(random, 12);
            if (const auto action = random() % 16; action == 0)
            {
                document.ClearSection(section);
                model.erase(model.lower_bound({section, ""}),
                            model.lower_bound({section + '\0', ""}));
            }
            else if (action < 6)
            {
                document.Remove(section, key);
                model.erase({section, key});
            }
            else
            {
                document.Set(section.ToUpper(), key, value);
                model[{section, key}] = value;
            }
        }
        const String      text = document.ToText();
        const IniDocument read = Parsed(text);
        for (const auto& [section, key] : keys)
        {
            const auto value = model.find({section, key});
            ASSERT_EQ(document.Keys(section), read.Keys(section)) << testing::PrintToString(text);
            ASSERT_EQ(value != model.end(), document.Has(section, key));
            ASSERT_EQ(value != model.end() ? value->second : String(), document.Get(section, key));
            ASSERT_EQ(document.Get(section, key), read.Get(section, key));
        }
    }
}

} // namespace
