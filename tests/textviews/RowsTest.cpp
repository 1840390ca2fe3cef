#include "textviews/escapes/ShownLines.h"
#include "textviews/lines/LineStore.h"
#include "textviews/wrap/Wrapping.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace
{
/// The rows, each with a bar behind it, of a text of characters of one cell each.
std::string Broken(const std::string& text, const textviews::RowWidths& widths)
{
    std::string rows = text + "|";
    const auto  starts = textviews::BreakRows(text, widths);
    for (auto start = starts.rbegin(); start != starts.rend(); ++start)
    {
        rows.insert(static_cast<size_t>(*start), "|");
    }
    return rows;
}

/// Lines with so many rows each.
class Counts final : public textviews::RowCounts
{
public:
    explicit Counts(std::vector<int64_t> rows) : m_Rows(std::move(rows)) {}

    int     Lines() const override { return static_cast<int>(m_Rows.size()); }
    int64_t RowsOf(int line) const override { return m_Rows[static_cast<size_t>(line)]; }

    std::vector<textviews::RowPlace> All() const
    {
        std::vector<textviews::RowPlace> all;
        for (int line = 0; line < Lines(); ++line)
        {
            for (int64_t row = 0; row < RowsOf(line); ++row)
            {
                all.push_back({line, row});
            }
        }
        return all;
    }

private:
    std::vector<int64_t> m_Rows;
};

std::string Repeated(const std::string& unit, size_t bytes)
{
    std::string text;
    while (text.size() < bytes)
    {
        text += unit;
    }
    return text;
}

/// A view's lines, without the view.
struct Wrapped
{
    textviews::LineStore  lines;
    textviews::ShownLines shown;
    textviews::Wrapping   wrapping{lines, shown};

    explicit Wrapped(bool folded = false) { shown.Show(folded, folded); }

    void Fit(int cells, int height)
    {
        wrapping.Fit({textviews::RowWidths::For(cells), height, 10});
    }
    int64_t             CellsOf(int line) { return shown.CellCountOf(lines.Line(line)); }
    textviews::RowPlace Top(int position, bool follows = false) const
    {
        return wrapping.Top(position, follows).place;
    }
};
} // namespace

TEST(RowBreaks, ARowEndsAfterABlankInItsLastQuarter)
{
    const textviews::RowWidths widths{8, 6};
    const struct
    {
        const char* text;
        const char* rows;
    } cases[] = {
        {"", "|"},
        {"12345678", "12345678|"},
        {"123456789", "12345678|9|"},
        {"123456 89", "123456 |89|"},
        {"12345 789", "12345 78|9|"}, // too far from its end
        {"1234567 9", "1234567 |9|"},
        {"12345678 01", "12345678 |01|"}, // the blank hangs over
        {"12345678  1", "12345678 | 1|"},
        {"12345678 ", "12345678 |"}, // and makes no row of its own
        {"12345678 23456 89", "12345678 |23456 |89|"},
        {"abcdefghijklmnopqrstuvwxyz", "abcdefgh|ijklmn|opqrst|uvwxyz|"},
    };
    for (const auto& each : cases)
    {
        EXPECT_EQ(Broken(each.text, widths), each.rows);
    }
}

TEST(RowBreaks, NoCharacterIsCutNorPartedFromItsMarks)
{
    using Starts = std::vector<int64_t>;
    const textviews::RowWidths widths{8, 6};
    const std::string          wide = "\xe6\xbc\xa2";
    EXPECT_EQ(textviews::BreakRows("1234567" + wide + "12345", widths), (Starts{7, 13}));
    EXPECT_EQ(textviews::BreakRows("12345678\xcc\x81"
                                   "9",
                                   widths),
              (Starts{8}));
    EXPECT_EQ(textviews::BreakRows(Repeated(wide, 30), widths), (Starts{8, 14}));
    EXPECT_EQ(textviews::BreakRows(std::string(9, '\xff'), widths), (Starts{8}));
}

TEST(RowBreaks, EvenRowsHaveEveryCellOnce)
{
    for (const int room : {8, 9, 80, 501})
    {
        const textviews::EvenRows rows{textviews::RowWidths::For(room)};
        EXPECT_EQ(rows.CountFor(0), 1);
        EXPECT_EQ(rows.CountFor(room), 1);
        EXPECT_EQ(rows.CountFor(room + 1), 2);
        for (int64_t row = 0; row < 50; ++row)
        {
            EXPECT_EQ(rows.RowOf(rows.StartOf(row)), row);
            EXPECT_EQ(rows.RowOf(rows.StartOf(row + 1) - 1), row);
        }
    }
}

TEST(RowWalk, GoesByRowsAndStaysWithinThem)
{
    std::mt19937 random(17);
    for (int turn = 0; turn < 30; ++turn)
    {
        std::vector<int64_t> rows(1 + random() % 12);
        std::generate(rows.begin(), rows.end(),
                      [&random] { return random() % 3 == 0 ? 1 + random() % 9 : 1; });
        const Counts counts(rows);
        const auto   all = counts.All();
        const int    count = static_cast<int>(all.size());
        for (int from = 0; from < count; ++from)
        {
            for (const int by : {0, 1, -1, 2, -5, 7, 40, -40})
            {
                EXPECT_EQ(RowsOn(counts, all[static_cast<size_t>(from)], by),
                          all[static_cast<size_t>(std::clamp(from + by, 0, count - 1))]);
            }
        }
        for (const int height : {5, 10, 14, 30, 39, 1000})
        {
            const textviews::RowsEnd end = EndOfRows(counts, height, 10);
            const auto               top = std::find(all.begin(), all.end(), end.top) - all.begin();
            const int                seen = 10 * (count - static_cast<int>(top)) - end.below;
            EXPECT_TRUE(top == 0 ? seen <= height || height < 10 : seen == std::max(height, 10))
                << height << " of " << count << " rows";
        }
    }
    EXPECT_EQ(textviews::EndOfRows(Counts({}), 100, 10).top, textviews::RowPlace());
}

TEST(RowWalk, RowsShareThePixelsOfTheirLine)
{
    for (const int64_t rows : {1, 2, 3, 7, 15, 16})
    {
        for (int64_t row = 0; row < rows; ++row)
        {
            EXPECT_EQ(textviews::RowOfPixel(textviews::PixelsOfRow(row, rows, 16), rows, 16), row);
        }
    }
    constexpr int64_t kMany = 200'000'000;
    EXPECT_EQ(textviews::RowOfPixel(0, kMany, 16), 0);
    EXPECT_LT(textviews::RowOfPixel(15, kMany, 16), kMany);
    EXPECT_EQ(textviews::PixelsOfRow(kMany - 1, kMany, 16), 15);
}

// Every cell is in one row, no row is wider than there is room, and none begins in a character.
TEST(LineWrap, RowsArePartsOfTheLineWhateverItIs)
{
    const std::string mixed = "ab \xe6\xbc\xa2\xe6\xbc\xa2 e\xcc\x81\xff"
                              "0123456789/";
    const std::string coloured = "a \x1b[31mre\xe6\xbc\xa2"
                                 "d\x1b[0m and 0123456789/0123456789 ";
    Wrapped           each(true);
    for (const std::string& unit : {std::string("word "), mixed, coloured})
    {
        for (const size_t bytes : {3, 100, 5000, 16384, 200000})
        {
            each.lines.Append(Repeated(unit, bytes));
        }
    }
    for (const int room : {8, 33, 100})
    {
        each.Fit(room, 100);
        const textviews::LineWrap& wrap = each.wrapping.Rows();
        for (int line = 0; line < each.lines.Count(); ++line)
        {
            SCOPED_TRACE(line);
            const textviews::LineWrap::Broken rows = wrap.Break(line);
            const std::string_view            text = each.lines.Line(line);
            int64_t                           next = 0;
            for (int64_t row = 0; row < rows.count; ++row)
            {
                if (row == 300 && rows.count > 700) // the first ones, and the last
                {
                    row = rows.count - 300;
                    next = wrap.StartOf(rows, row);
                }
                const textviews::ShownCells cells = wrap.CellsOf(rows, row);
                const int64_t most = room - (row > 0 ? 2 : 0) + 1; // a blank hangs over
                ASSERT_EQ(cells.first, next);
                ASSERT_LE(cells.end - cells.first, most) << row;
                ASSERT_EQ(wrap.RowOf(rows, cells.first), row);
                if (row + 1 < rows.count)
                {
                    ASSERT_LT(cells.first, cells.end);
                    ASSERT_EQ(wrap.RowOf(rows, cells.end - 1), row);
                }
                next = cells.end;
                if (!each.shown.PiecesOf(line, text))
                {
                    ASSERT_EQ(each.shown.AtCell(line, text, cells.first).cell, cells.first);
                }
            }
            EXPECT_GE(next, each.CellsOf(line));
            EXPECT_LT(wrap.StartOf(rows, rows.count - 1), std::max<int64_t>(each.CellsOf(line), 1));
        }
    }
}

TEST(Wrapping, StaysAtItsTextWhenRowsBecomeOthers)
{
    Wrapped view;
    for (int i = 0; i < 40; ++i)
    {
        view.lines.Append(std::string(200, 'x'));
    }
    view.Fit(50, 100);
    const int position = view.wrapping.MoveTo({{20, 2}, 0});
    EXPECT_EQ(position, 20 * 10 + 2 * 10 / 5);
    const textviews::TextAnchor anchor = view.wrapping.AnchorOf(view.wrapping.Top(position, false));
    EXPECT_EQ(anchor.cell, 50 + 48);
    view.Fit(150, 100);
    EXPECT_EQ(view.Top(position), (textviews::RowPlace{20, 0}));
    view.Fit(30, 100);
    EXPECT_EQ(view.Top(position), (textviews::RowPlace{20, 3}));
    view.Fit(50, 100);
    EXPECT_EQ(view.Top(position), (textviews::RowPlace{20, 2})) << "it has not crept away";

    view.lines.Insert(20, "before");
    view.wrapping.LineInserted(20);
    EXPECT_EQ(view.Top(position), (textviews::RowPlace{21, 2}));
    view.lines.Erase(3);
    view.wrapping.LineErased(3);
    EXPECT_EQ(view.Top(position), (textviews::RowPlace{20, 2}));
    view.lines.Erase(20);
    view.wrapping.LineErased(20);
    EXPECT_EQ(view.Top(position), (textviews::RowPlace{20, 0})) << "the next one";
}

TEST(Wrapping, AViewThatFollowsHasItsEnd)
{
    Wrapped view;
    for (int i = 0; i < 40; ++i)
    {
        view.lines.Append(std::string(200, 'x'));
    }
    view.Fit(50, 95);
    const int position = view.wrapping.MoveTo(view.wrapping.End());
    EXPECT_EQ(view.Top(position), (textviews::RowPlace{38, 0}));
    EXPECT_EQ(view.wrapping.Top(position, true).below, 5) << "the last row is seen as a whole";
    view.lines.Append("one more");
    EXPECT_EQ(view.Top(position, false), (textviews::RowPlace{38, 0}));
    EXPECT_EQ(view.Top(position, true), (textviews::RowPlace{38, 1}));
    EXPECT_EQ(view.wrapping.Top(100000, false).place, (textviews::RowPlace{38, 1}))
        << "no place of the scrollbar is behind it";
    // Up from there the first row comes that is seen in part only, as a whole.
    const textviews::ViewTop up = view.wrapping.Moved(view.wrapping.End(), -1);
    EXPECT_EQ(up.place, (textviews::RowPlace{38, 1}));
    EXPECT_EQ(up.below, 0);
}

// Each row of it can be stood at, though the scrollbar has the same place for many.
TEST(Wrapping, EveryRowOfALongLineCanBeStoodAt)
{
    Wrapped view;
    view.lines.Append(std::string(1'000'000, 'x'));
    view.Fit(80, 100);
    int position = view.wrapping.MoveTo({});
    for (int64_t row = 1; row < 100; ++row)
    {
        position = view.wrapping.MoveTo(view.wrapping.Moved(view.wrapping.Top(position, false), 1));
        EXPECT_EQ(view.Top(position), (textviews::RowPlace{0, row}));
    }
    const auto rows = view.wrapping.RowsFrom(view.wrapping.End());
    EXPECT_TRUE(rows.back().isLast);
    EXPECT_EQ(rows.back().top + 10, 100);
    EXPECT_GE(rows.back().end, 1'000'000);
    EXPECT_LT(rows.back().first, 1'000'000);
}
