#include "textviews/lines/TextCells.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
const struct
{
    const char* name;
    std::string text;
    int         columns; // characters
    int         cells;
} kCases[] = {
    {"empty", "", 0, 0},
    {"ascii", "plain text", 10, 10},
    {"two and three bytes", "\xc3\xa4\xe2\x82\xac", 2, 2},
    {"wide", "\xe6\xbc\xa2\xe5\xad\x97!", 3, 5},
    {"picture beyond the basic plane", "\xf0\x9f\x98\x80!", 2, 3},
    {"combining mark", "e\xcc\x81x", 3, 2},
    {"combining mark at the start", "\xcc\x81x", 2, 1},
    {"controls", std::string("\0\x01\x1b\x7f", 4), 4, 4},
    {"bytes that are no text", "\xff\xc3(\x80\xe2\x82", 6, 6},
    {"overlong and surrogate forms", "\xc0\xaf\xed\xa0\x80", 5, 5},
};

textviews::TextPlace AtCell(const std::string& text, int64_t cell)
{
    return textviews::TextPlaces().AtCell(0, text, cell);
}
} // namespace

TEST(TextCells, CountsCharactersAndCells)
{
    for (const auto& c : kCases)
    {
        EXPECT_EQ(textviews::CellCount(c.text), c.cells) << c.name;
        const textviews::TextPlace end = AtCell(c.text, 1000);
        EXPECT_EQ(end.byte, static_cast<int64_t>(c.text.size())) << c.name;
        EXPECT_EQ(end.cell, c.cells) << c.name;
        EXPECT_EQ(textviews::TextPlaces().AtColumn(0, c.text, 1000).column, c.columns) << c.name;
    }
}

TEST(TextCells, ShowsWhatHasNoGlyph)
{
    EXPECT_EQ(textviews::CellAt(std::string(1, '\0'), 0).shown, 0x2400u);
    EXPECT_EQ(textviews::CellAt("\x1b", 0).shown, 0x241Bu);
    EXPECT_EQ(textviews::CellAt("\x7f", 0).shown, 0x2421u);
    EXPECT_EQ(textviews::CellAt("\xc2\x85", 0).shown, 0xFFFDu);
    EXPECT_EQ(textviews::CellAt("\xe9", 0).shown, 0xE9u) << "a Latin-1 byte shows as its character";
    EXPECT_NE(textviews::CellAt("\xe9", 0).code, textviews::CellAt("\xc3\xa9", 0).code)
        << "but is not the same";
}

TEST(TextCells, ACellBelongsToTheCharacterThatCoversIt)
{
    const std::string text = "a\xe6\xbc\xa2"
                             "e\xcc\x81z"; // cells: a, wide, wide, e with mark, z
    const int64_t     starts[] = {0, 1, 1, 4, 7, 8};
    for (int cell = 0; cell < 6; ++cell)
    {
        EXPECT_EQ(AtCell(text, cell).byte, starts[cell]) << "cell " << cell;
    }
    EXPECT_EQ(AtCell(text, -3).byte, 0);
}

TEST(TextCells, FindsPlacesInLongLinesAsInShortOnes)
{
    std::string unit = "0123456789\xe6\xbc\xa2 e\xcc\x81\xff";
    std::string text;
    while (text.size() < 300000)
    {
        text += unit;
    }
    const int64_t         cellsOfUnit = textviews::CellCount(unit);
    textviews::TextPlaces places;
    for (const int64_t repeat : {16000, 3, 777, 16000, 0, 9999})
    {
        const textviews::TextPlace place = places.AtCell(7, text, repeat * cellsOfUnit + 5);
        EXPECT_EQ(place.byte, repeat * static_cast<int64_t>(unit.size()) + 5);
        EXPECT_EQ(places.AtColumn(7, text, place.column).byte, place.byte);
    }
    const std::string plain(300000, 'x');
    EXPECT_EQ(places.AtCell(8, plain, 299999).byte, 299999);
    EXPECT_EQ(places.AtCell(8, plain, 400000).byte, 300000);
    places.Forget();
    EXPECT_EQ(places.AtCell(7, plain, 250000).byte, 250000);
}

TEST(TextCells, TellsAscii)
{
    EXPECT_TRUE(textviews::IsAscii(std::string(1000, 'a')));
    for (const size_t at : {0, 31, 32, 998, 999})
    {
        std::string text(1000, 'a');
        text[at] = '\x80';
        EXPECT_FALSE(textviews::IsAscii(text)) << at;
    }
}
