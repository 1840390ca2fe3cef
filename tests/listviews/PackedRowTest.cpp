#include "listviews/rows/PackedRow.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{
using listviews::PackedRow;
using Texts = std::vector<std::string>;

PackedRow RowOf(const Texts& texts)
{
    PackedRow row;
    for (size_t i = 0; i < texts.size(); ++i)
    {
        row.Set(i, texts[i]);
    }
    return row;
}

Texts TextsOf(const PackedRow& row, size_t cells)
{
    Texts texts;
    for (size_t i = 0; i < cells; ++i)
    {
        texts.emplace_back(row.Text(i));
    }
    return texts;
}

// Bytes of any kind: NUL, and such as are no text.
std::string AnyText(std::mt19937& random)
{
    constexpr size_t sizes[] = {0, 0, 1, 7, 30, 31, 200, 5000};
    std::string      text(sizes[random() % std::size(sizes)], '\0');
    for (char& byte : text)
    {
        byte = static_cast<char>(random());
    }
    return text;
}

// A row and what it has to hold.
struct Checked
{
    static constexpr size_t k_Cells = 12;

    PackedRow row;
    Texts     texts = Texts(k_Cells);

    void Set(size_t cell, const std::string& text)
    {
        row.Set(cell, text);
        texts[cell] = text;
    }
    void CopyWithin(size_t from, size_t to, size_t skip)
    {
        const std::string expected = texts[from].substr(std::min(skip, texts[from].size()));
        row.Set(to, row.Text(from).substr(texts[from].size() - expected.size()));
        texts[to] = expected;
    }
    void Insert(size_t cell)
    {
        row.Erase(k_Cells - 1);
        row.Insert(cell);
        texts.pop_back();
        texts.emplace(texts.begin() + static_cast<std::ptrdiff_t>(cell));
    }
    void Erase(size_t cell)
    {
        row.Erase(cell);
        texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(cell));
        texts.emplace_back();
    }
    void Move(size_t from, size_t to)
    {
        row.Move(from, to);
        std::string moved = std::move(texts[from]);
        texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(from));
        texts.insert(texts.begin() + static_cast<std::ptrdiff_t>(to), std::move(moved));
    }
};
} // namespace

// As a vector of strings would.
TEST(PackedRow, HoldsWhatItWasGivenWhateverIsDoneToIt)
{
    for (unsigned seed = 1; seed <= 20; ++seed)
    {
        std::mt19937 random(seed);
        Checked      checked;
        const auto   any = [&random] { return random() % Checked::k_Cells; };
        for (int i = 0; i < 1000; ++i)
        {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(i));
            switch (random() % 12)
            {
            case 0:
                checked.Insert(any());
                break;
            case 1:
                checked.Erase(any());
                break;
            case 2:
                checked.Move(any(), any());
                break;
            case 3:
                checked.CopyWithin(any(), any(), random() % 40);
                break;
            case 4:
                checked.row = PackedRow(checked.row);
                break;
            default:
                checked.Set(any(), AnyText(random));
                break;
            }
            ASSERT_TRUE(checked.texts == TextsOf(checked.row, Checked::k_Cells));
        }
    }
}

TEST(PackedRow, CellsBehindTheLastOneAreEmpty)
{
    PackedRow row;
    row.Insert(3);
    row.Erase(3);
    row.Move(3, 4);
    row.Set(7, "");
    EXPECT_EQ(Texts(9), TextsOf(row, 9));
    row.Set(1000, "far");
    row.Set(2, std::string("a\0b\xff", 4));
    EXPECT_EQ("far", row.Text(1000));
    EXPECT_EQ("", row.Text(SIZE_MAX));
    row.Move(2, 2000);
    EXPECT_EQ("far", row.Text(999));
    EXPECT_EQ(std::string("a\0b\xff", 4), row.Text(2000));
    row.Move(3000, 999);
    EXPECT_EQ("far", row.Text(1000)) << "an empty one came before it";
}

TEST(PackedRow, RowsAreCopiedMovedAndSorted)
{
    std::vector<PackedRow> rows;
    for (int i = 0; i < 500; ++i)
    {
        const std::string number = std::to_string(i * 7919 % 500 + 1000);
        rows.push_back(RowOf({number, std::string(static_cast<size_t>(i), 'x'), "of " + number}));
    }
    PackedRow copy = rows[3];
    rows[3].Set(1, "changed");
    EXPECT_EQ("xxx", copy.Text(1));
    copy = PackedRow();
    EXPECT_EQ(Texts(3), TextsOf(copy, 3));
    rows.emplace(rows.begin() + 2);
    std::sort(rows.begin(), rows.end(),
              [](const PackedRow& a, const PackedRow& b) { return a.Text(0) < b.Text(0); });
    EXPECT_EQ(Texts(3), TextsOf(rows[0], 3));
    for (int i = 0; i < 500; ++i)
    {
        const std::string number = std::to_string(i + 1000);
        EXPECT_EQ(number, rows[static_cast<size_t>(i) + 1].Text(0));
        EXPECT_EQ("of " + number, rows[static_cast<size_t>(i) + 1].Text(2));
    }
}

// What lies beside a long text must not pay for it, nor keep its memory.
TEST(PackedRow, ALongTextStaysWhereItIsUntilItGoes)
{
    const std::string text(1 << 20, 'l');
    PackedRow         row = RowOf({"state", text, "user"});
    const char*       place = row.Text(1).data();
    int               moves = 0;
    for (size_t i = 0; i < 5000; ++i)
    {
        row.Set(i % 2 * 2, std::string(i % 23, 's'));
        moves += row.Text(1).data() != place;
        place = row.Text(1).data();
    }
    EXPECT_LE(moves, 2);
    EXPECT_EQ(text, row.Text(1));

    row.Set(0, "kept");
    place = row.Text(0).data();
    row.Set(1, "");
    EXPECT_NE(place, row.Text(0).data()) << "still in the large block";
    EXPECT_EQ((Texts{"kept", "", std::string(4999 % 23, 's')}), TextsOf(row, 3));
}

TEST(PackedRow, WhatNoRowCanHoldIsRefused)
{
    PackedRow  row = RowOf({"a", "b"});
    const char byte = 'x';
    const auto isRefused = [&](const auto& change)
    {
        EXPECT_THROW(change(), std::length_error);
        EXPECT_EQ((Texts{"a", "b", ""}), TextsOf(row, 3));
    };
    for (const uint64_t size : {uint64_t{UINT32_MAX}, uint64_t{1} << 32, uint64_t{5} << 32})
    {
        isRefused([&] { row.Set(0, std::string_view(&byte, size)); });
        isRefused([&] { row.Set(5, std::string_view(&byte, size)); });
    }
    isRefused([&] { row.Set(SIZE_MAX, "x"); });
    isRefused([&] { row.Move(0, SIZE_MAX); });
}
