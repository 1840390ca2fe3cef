#include "tests/textviews/RandomLines.h"
#include "textviews/escapes/EscapeSequence.h"
#include "textviews/escapes/ShownLines.h"
#include "textviews/escapes/StyleCodes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>
#include <string>

namespace
{
using textviews::TextColour;
using textviews::TextStyle;
using namespace std::string_literals;

std::string Told(const TextColour& colour)
{
    char text[16] = "";
    switch (colour.kind)
    {
    case TextColour::Kind::Own:
        break;
    case TextColour::Kind::Table:
        return std::to_string(colour.red);
    case TextColour::Kind::Direct:
        std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.red, colour.green, colour.blue);
        break;
    }
    return text;
}

// "1/4 bui": ink, ground, and what else it is.
std::string Told(const TextStyle& style)
{
    const std::string ground = Told(style.ground);
    return Told(style.ink) + (ground.empty() ? "" : "/" + ground) + (style.bold ? " b" : "") +
           (style.underlined ? " u" : "") + (style.inverse ? " i" : "");
}

// What is shown, with "<style>" where another one begins, and "_" for empty cells.
std::string Shown(const std::string& line, bool coloured = true)
{
    textviews::LineFolder folder;
    std::string           told;
    std::string           last;
    int64_t               cell = 0;
    for (const textviews::ShownPiece& piece : folder.Fold(line, coloured))
    {
        const std::string style = Told(piece.style);
        told.append(static_cast<size_t>(piece.cell - cell), '_');
        told += style == last ? "" : "<" + style + ">";
        told += piece.In(line);
        last = style;
        cell = piece.End();
    }
    return told;
}

constexpr const char* kWide = "\xe6\xbc\xa2"; // two cells

// Nothing of the pieces lies outside the line or over another one, and what is drawn and what is
// hit agree.
void ExpectSound(const std::string& line, const textviews::ShownPieces& pieces)
{
    int64_t           cell = 0;
    std::vector<bool> used(line.size());
    for (const textviews::ShownPiece& piece : pieces)
    {
        ASSERT_GE(piece.cell, cell);
        ASSERT_LE(piece.stored + piece.bytes, line.size());
        ASSERT_EQ(piece.cells, textviews::CellCount(piece.In(line)));
        cell = piece.End();
        for (size_t byte = piece.stored; byte < piece.stored + piece.bytes; ++byte)
        {
            ASSERT_FALSE(used[byte]);
            used[byte] = true;
        }
    }
    ASSERT_LE(cell, static_cast<int64_t>(line.size())) << "a line has no more cells than bytes";
    int64_t hit = 0;
    for (const textviews::ShownCells& cells : textviews::CellsOf(line, pieces, 0, line.size()))
    {
        ASSERT_LE(cells.first, cells.end);
        hit += cells.end - cells.first;
    }
    int64_t drawn = 0;
    for (const textviews::ShownPiece& piece : pieces)
    {
        drawn += piece.cells;
    }
    ASSERT_EQ(hit, drawn);
}
} // namespace

TEST(Escapes, StyleOfCodes)
{
    const struct
    {
        const char* numbers;
        const char* style; ///< Null: they are wrong.
    } cases[] = {
        {"", ""},
        {"0", ""},
        {"31", "1"},
        {"01;34", "4 b"},
        {"97;104", "15/12"},
        {"1;4;7;35", "5 b u i"},
        {"1;4;7;22;24;27", ""},
        {"31;42;39", "/2"},
        {"31;42;49", "1"},
        {"31;", ""},
        {"38;5;208", "208"},
        {"48;5;0;1", "/0 b"},
        {"38:5:208", "208"},
        {"38;2;1;2;255", "#0102ff"},
        {"38:2:1:2:255", "#0102ff"},
        {"38:2::1:2:255;4", "#0102ff u"},
        {"38:2:7:1:2:255:0:1", "#0102ff"},
        {"48;2;16;32;48;97", "15/#102030"},
        {"58;5;9;31", "1"},
        {"58:2::1:2:3", ""},
        {"4:3", " u"},
        {"4;4:0", ""},
        {"21", " u"},
        {"2;3;5;8;9;51;1234567890123;31", "1"},
        {"38", nullptr},
        {"38;5", nullptr},
        {"38;5;256", nullptr},
        {"38:5", nullptr},
        {"38;2;1;2", nullptr},
        {"38;2;1;2;300", nullptr},
        {"38:2:1:2", nullptr},
        {"38;7;1", nullptr},
        {"38;5:1", nullptr},
        {"31;?1", nullptr},
        {"1:2:3:4:5:6:7:8:9", nullptr},
    };
    for (const auto& c : cases)
    {
        TextStyle style;
        EXPECT_EQ(textviews::ApplyStyleCodes(c.numbers, style), c.style != nullptr) << c.numbers;
        EXPECT_EQ(Told(style), c.style ? c.style : "") << c.numbers;
    }
}

TEST(Escapes, WhatIsShownOfALine)
{
    const std::string longLink(4200, 'x');
    const std::string wide = kWide;
    const struct
    {
        const char* name;
        std::string line;
        std::string shown;
    } cases[] = {
        {"no sequence", "plain text", "plain text"},
        {"a colour", "a \x1b[31mred\x1b[0m b", "a <1>red<> b"},
        {"styles add up", "\x1b[1mx\x1b[4;32my\x1b[mz", "< b>x<2 b u>y<>z"},
        {"erasing what is empty", "\x1b[01;31m\x1b[Kint\x1b[m\x1b[K main", "<1 b>int<> main"},
        {"other sequences", "a\x1b[?25lb\x1b[2Jc\x1b[10;4Hd\x1b[>4;1me\x1b[ qf\x1b(Bg\x1b="s + "h",
         "abcdefgh"},
        {"a title", "\x1b]0;a title\x07text", "text"},
        {"a link", "\x1b]8;;http://a.b/\xc3\xa4\x1b\\link\x1b]8;;\x1b\\ text", "link text"},
        // What is wrong, or cut off.
        {"an escape at the end", "a\x1b", "a\x1b"},
        {"cut off", "a\x1b[31", "a\x1b[31"},
        {"cut off within a text", "a\x1b]0;title", "a\x1b]0;title"},
        {"cut off at the end of a text", "a\x1b]0;title\x1b", "a\x1b]0;title\x1b"},
        {"without an end", "a\x1b[" + std::string(200, '1') + "m",
         "a\x1b[" + std::string(200, '1') + "m"},
        {"a text without an end", "\x1b]8;;" + longLink + "\a", "\x1b]8;;" + longLink + "\a"},
        {"a control character within", "a\x1b[3\n1mb\x1b]0;\tx\a", "a\x1b[3\n1mb\x1b]0;\tx\a"},
        {"a wrong colour", "\x1b[38;5;999mx", "\x1b[38;5;999mx"},
        {"a sequence within another", "\x1b[3\x1b[31mx", "\x1b[3<1>x"},
        {"unknown", "\x1b%\x1bZ\x1bPq\x1b\\", "\x1b%\x1bZ\x1bPq\x1b\\"},
        // Carriage returns.
        {"the end of the line", "text\r", "text\r"},
        {"of a coloured one", "\x1b[31mtext\r", "<1>text<>\r"},
        {"two at the end", "text\r\r", "text\r"},
        {"progress", " 10%\r 20%\r100%\r", "100%\r"},
        {"shorter than before", "Loading\rDone", "Doneing"},
        {"in colours", "\x1b[31mLoading\r\x1b[32mDo\x1b[0mne", "<2>Do<>ne<1>ing"},
        {"in between", "abcdef\rxyz\rQ", "Qyzdef"},
        {"erased to the end", "Loading\r\x1b[KDone", "Done"},
        {"erased from where it is", "Loading\rDo\x1b[K\rN", "No"},
        {"erased as a whole", "Loading\x1b[2K\rDone", "Done"},
        {"erased, and going on", "Loading\x1b[2KDone", "_______Done"},
        {"erased to the start", "Loading\rab\x1b[1Kc", "__cding"},
        {"back by a sequence", "old text\x1b[2K\x1b[1Gnew", "new"},
        {"half of a wide one", "a" + wide + "b" + wide + "\r12", "12_b" + wide},
        {"a wide one over others", "abc\r" + wide, wide + "c"},
        {"marks go with theirs", "ae\xcc\x81z\r12", "12z"},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(Shown(c.line), c.shown) << c.name;
    }
    EXPECT_EQ(Shown("a\x1b[31mred\x1b[38;5;999m", false), "ared\x1b[38;5;999m");
}

TEST(Escapes, OnlyLinesThatNeedItAreFolded)
{
    for (const std::string& line : {""s, "text"s, "\r"s, "text\r"s, "\0\t\f\a"s})
    {
        EXPECT_FALSE(textviews::LineFolder::Folds(line)) << line;
    }
    for (const std::string& line : {"\x1b"s, "text\x1b[m"s, "a\rb"s, "\r\r"s})
    {
        EXPECT_TRUE(textviews::LineFolder::Folds(line)) << line;
    }
    EXPECT_EQ(textviews::LineFolder::MostCells("\x1b[1;32mtext\x1b[0m \x1b[38;5;9mx\x1b[38;5m"),
              13);
}

TEST(Escapes, AHitIsWhereItsCharactersAreShown)
{
    const std::string     line = "\xc3\xa4\x1b[31mre\x1b[1md\x1b[0m " + std::string(kWide) + "x";
    textviews::ShownLines shown;
    const auto            told = [&](int column, int length)
    {
        std::string text;
        for (const auto& cells : shown.CellsOfHit(0, line, column, length))
        {
            text += std::to_string(cells.first) + "-" + std::to_string(cells.end) + " ";
        }
        return text;
    };
    EXPECT_EQ(told(6, 2), "6-8 ") << "raw";
    shown.Show(true, true);
    EXPECT_EQ(told(6, 2), "1-3 ") << "re";
    EXPECT_EQ(told(6, 7), "1-4 ") << "red, across a sequence";
    EXPECT_EQ(told(2, 3), "") << "in a sequence";
    EXPECT_EQ(told(0, 1), "0-1 ");
    EXPECT_EQ(told(18, 1), "5-7 ") << "the wide one";
    EXPECT_EQ(shown.AtColumn(0, line, 2).cell, 1) << "what is not shown: the next that is";
    EXPECT_EQ(shown.CellCountOf(line), 8);
    EXPECT_EQ(shown.PlainTextOf(line), "\xc3\xa4red " + std::string(kWide) + "x");

    const std::string progress = "Loading\x1b[2K\r  Done\r";
    const auto*       pieces = shown.PiecesOf(1, progress);
    ASSERT_TRUE(pieces);
    EXPECT_TRUE(textviews::CellsOf(progress, *pieces, 0, 7).empty()) << "it is covered";
    EXPECT_EQ(shown.PlainTextOf(progress), "  Done");
    EXPECT_EQ(shown.PlainTextOf("a\x1b[2Kb"), " b");
}

TEST(Escapes, PlacesInTheTextThatIsShown)
{
    textviews::LineFolder folder;
    const auto            textOf = [&folder](const std::string& line)
    {
        std::string text = "before|";
        folder.AppendText(line, text);
        return text.substr(7);
    };
    EXPECT_EQ(textOf("er\x1b[31mror\x1b[K\r"), "error\r");
    EXPECT_EQ(textOf("Loading\rab\x1b[1Kc"), "  cding");
    EXPECT_EQ(textOf("x\x1b[38;5;999m\x1b[2"), "x\x1b[38;5;999m\x1b[2");

    const std::string line = "abcdef\rX\x1b[1m" + std::string(kWide) + "\x1b[1K";
    const auto&       pieces = folder.Fold(line, false);
    EXPECT_EQ(textviews::ShownText(line, pieces), "    ef") << "the cursor's cell is erased, too";
    EXPECT_EQ(textviews::TextByteOf(pieces, 5), 5u);
    EXPECT_EQ(textviews::TextByteOf(pieces, 0), 4u) << "what is not shown: the next that is";
    EXPECT_EQ(textviews::TextByteOf(pieces, 8), 6u) << "there is none";
    EXPECT_EQ(textviews::StoredByteOf(pieces, 1), 4u);
    EXPECT_EQ(textviews::StoredByteOf(pieces, 5), 5u);
    EXPECT_EQ(textviews::StoredByteOf(pieces, 6), 6u);

    // Whatever the line is, the quick way and the pieces agree, and each byte has its cells.
    const std::string_view parts[] = {"ab",      "\x1b[31m", "\r",       "\x1b[K", kWide,
                                      "\x1b[1K", "\x1b[G",   "\xcc\x81", "\x1b",   "\x1b[38;9m",
                                      "\xe6",    "\xa2",     "xyz"};
    std::mt19937           random(5);
    for (int round = 0; round < 20'000; ++round)
    {
        std::string stored;
        for (auto i = random() % 9; i > 0; --i)
        {
            stored += parts[random() % std::size(parts)];
        }
        const auto&       shown = folder.Fold(stored, false);
        const std::string text = textviews::ShownText(stored, shown);
        const auto        cells = textviews::CellsOfText(stored, shown, 0, text.size());
        ASSERT_EQ(cells.empty() ? 0 : cells.back().end, textviews::EndOf(shown)) << stored;
        ASSERT_LE(cells.size(), 1u) << stored;
        for (size_t byte = 0; byte < text.size(); ++byte)
        {
            const size_t from = textviews::StoredByteOf(shown, byte);
            const size_t back = textviews::TextByteOf(shown, from);
            if (text[byte] != ' ') // which stands for an empty cell here
            {
                ASSERT_EQ(back, byte) << stored;
                ASSERT_EQ(text[byte], stored[from]) << stored;
            }
        }
        const auto [begin, end] =
            textviews::TextIn(shown, {0, std::max<int64_t>(textviews::EndOf(shown), 1)});
        ASSERT_TRUE(begin == 0 || shown.front().cells == 0) << stored;
        ASSERT_TRUE(end == text.size() || shown.back().cells == 0) << stored;
        ASSERT_EQ(textOf(stored), text) << stored;
    }
}

TEST(Escapes, LongLinesAreCutIntoPieces)
{
    std::string line = "\x1b[31m";
    while (line.size() < 1'000'000)
    {
        line += "0123456789 \xc3\xa4\xe6\xbc\xa2 e\xcc\x81";
    }
    textviews::ShownLines shown;
    shown.Show(true, true);
    const auto* const pieces = shown.PiecesOf(0, line);
    EXPECT_EQ(pieces, shown.PiecesOf(0, line)) << "it is remembered";
    EXPECT_EQ(textviews::EndOf(*pieces), textviews::CellCount(line) - 5);
    for (const textviews::ShownPiece& piece : *pieces)
    {
        EXPECT_LT(piece.bytes, 9000u);
        EXPECT_NE(line.substr(piece.stored, 2), "\xcc\x81") << "a mark stays with its character";
    }
    ExpectSound(line, *pieces);
}

// A file without line ends whose every line is told over the last one, or which is all escapes.
TEST(Escapes, ManyReturnsAndEscapesTakeLinearTime)
{
    std::string progress(20000, '-');
    std::string wide;
    std::string escapes;
    for (int i = 0; i < 100000; ++i)
    {
        progress += "\r" + std::to_string(i) + "%";
        wide += kWide;
        escapes += i % 2 ? "\x1b[" : "\x1b]";
    }
    const std::string     descent = wide + "\r" + wide.substr(0, wide.size() / 2) + "\rx\ryz\r";
    textviews::LineFolder folder;
    const auto            start = std::chrono::steady_clock::now();
    for (const std::string& line : {progress, descent, escapes})
    {
        ExpectSound(line, folder.Fold(line, true));
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_EQ(textviews::EndOf(folder.Fold(progress, true)), 20000);
    EXPECT_EQ(textviews::EndOf(folder.Fold(escapes, true)), 200000) << "nothing is swallowed";
}

// TOLVAN_FUZZ_LINES sets how many.
TEST(Escapes, AnyBytesAreFoldedSoundly)
{
    const char* const     wanted = std::getenv("TOLVAN_FUZZ_LINES");
    const int             count = wanted ? std::atoi(wanted) : 50000;
    std::mt19937          random(20261123);
    textviews::LineFolder folder;
    for (int i = 0; i < count; ++i)
    {
        const std::string line = RandomLine(random);
        ExpectSound(line, folder.Fold(line, true));
        ASSERT_GE(textviews::LineFolder::MostCells(line),
                  textviews::EndOf(folder.Fold(line, true)));
        if (!textviews::LineFolder::Folds(line))
        {
            ASSERT_EQ(textviews::EndOf(folder.Fold(line, false)), textviews::CellCount(line));
        }
        ASSERT_FALSE(HasFatalFailure()) << i << ": " << testing::PrintToString(line);
    }
}
