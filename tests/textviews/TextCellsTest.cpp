#include "textviews/lines/TextCells.h"
#include "textviews/lines/TextGeometry.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

TEST(TextCells, ShowsWhatHasNoGlyph)
{
    EXPECT_EQ(textviews::CellAt(std::string(1, '\0'), 0).shown, 0x2400u);
    EXPECT_EQ(textviews::CellAt("\x1b", 0).shown, 0x241Bu);
    EXPECT_EQ(textviews::CellAt("\x7f", 0).shown, 0x2421u);
    EXPECT_EQ(textviews::CellAt("\xc2\x85", 0).shown, 0xFFFDu);
    for (const char* const invisible : {"\xe2\x80\x8b", "\xe2\x80\xae", "\xe2\x81\xa6"})
    {
        EXPECT_EQ(textviews::CellAt(invisible, 0).shown, 0xFFFDu) << "no line looks like another";
        EXPECT_EQ(textviews::CellCount(invisible), 1);
    }
    EXPECT_EQ(textviews::CellCount("\xe2\x80\x8d"), 0) << "a joiner is part of a picture";
    EXPECT_EQ(textviews::CellAt("\xe9", 0).shown, 0xE9u) << "a Latin-1 byte shows as its character";
    EXPECT_NE(textviews::CellAt("\xe9", 0).code, textviews::CellAt("\xc3\xa9", 0).code)
        << "but is not the same";
}

TEST(TextCells, ACellBelongsToTheCharacterThatCoversItHoweverLongTheLine)
{
    // Cells: 0, wide, wide, e with mark, the invalid byte; the bytes that they begin with.
    const std::string unit = "0\xe6\xbc\xa2\145\xcc\x81\xff";
    const int64_t     starts[] = {0, 1, 1, 4, 7};
    std::string       text;
    while (text.size() < 300000)
    {
        text += unit;
    }
    textviews::TextPlaces places;
    for (const int64_t repeat : {16000, 3, 777, 16000, 0, 9999})
    {
        for (int64_t cell = 0; cell < 5; ++cell)
        {
            const textviews::TextPlace place = places.AtCell(7, text, repeat * 5 + cell);
            EXPECT_EQ(place.byte, repeat * static_cast<int64_t>(unit.size()) + starts[cell]);
            EXPECT_EQ(places.AtColumn(7, text, place.column).byte, place.byte);
        }
    }
    EXPECT_EQ(places.AtCell(7, text, -3).byte, 0);
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

TEST(TextGeometry, HugeContentsDoNotOverflow)
{
    textviews::TextGeometry geometry;
    geometry.lineHeight = 15;
    geometry.columnWidth = 7;
    geometry.client = {100, 62};
    geometry.lineCount = INT_MAX;
    geometry.scroll.y = INT_MAX;
    EXPECT_EQ(geometry.LineAt(0), INT_MAX / 15);
    EXPECT_LE(geometry.TopOf(INT_MAX / 15), 0);
    EXPECT_GT(geometry.XOf(int64_t{1} << 40), geometry.client.x);
}

TEST(TextGeometry, PositionThatShowsAStretch)
{
    EXPECT_EQ(textviews::PositionShowing({100, 110}, 50, 100), 50) << "visible already";
    EXPECT_EQ(textviews::PositionShowing({20, 30}, 50, 100), 0) << "visible at the start";
    EXPECT_EQ(textviews::PositionShowing({1000, 1010}, 50, 100), 955) << "in the middle";
    EXPECT_EQ(textviews::PositionShowing({1000, 1300}, 50, 100), 1000) << "as much as fits";
}
