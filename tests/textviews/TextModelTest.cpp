#include "textviews/_TextGeometry.h"
#include "textviews/_TextPalette.h"
#include "textviews/_TextSelection.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{
_TextGeometry SomeGeometry()
{
    _TextGeometry geometry;
    geometry.lineHeight = 15;
    geometry.columnWidth = 7;
    geometry.client = {100, 62};
    geometry.lineCount = 20;
    return geometry;
}
} // namespace

TEST(TextSelection, ClickAndDrag)
{
    _TextSelection selection;
    EXPECT_FALSE(selection.Contains(-1));
    selection.Click(5, 10);
    selection.Drag(2, 10);
    EXPECT_EQ(selection.Anchor(), 5);
    EXPECT_EQ(selection.End(), 2);
    for (int line = 0; line < 10; ++line)
    {
        EXPECT_EQ(selection.Contains(line), line >= 2 && line <= 5) << line;
    }
    selection.Drag(-1, 10); // below the last line
    EXPECT_EQ(selection.Last(), 9);
}

TEST(TextSelection, AClickBelowTheLinesAnchorsAtTheFirstLineEntered)
{
    _TextSelection selection;
    selection.Click(4, 10);
    selection.Click(-1, 10);
    EXPECT_TRUE(selection.IsEmpty());
    selection.Drag(-1, 10);
    EXPECT_TRUE(selection.IsEmpty());
    selection.Drag(9, 10);
    selection.Drag(7, 10);
    EXPECT_EQ(selection.Anchor(), 9);
    EXPECT_EQ(selection.End(), 7);
}

TEST(TextSelection, StaysOnItsLines)
{
    _TextSelection selection;
    selection.Click(6, 10);
    selection.Drag(4, 10);
    selection.LineInserted(2);
    EXPECT_EQ(selection.Anchor(), 7);
    selection.LineErased(0);
    selection.LineErased(9);
    EXPECT_EQ(selection.Anchor(), 6);
    EXPECT_EQ(selection.End(), 4);
    selection.LineErased(6); // the anchor's line itself
    EXPECT_EQ(selection.Anchor(), 5);
    EXPECT_EQ(selection.End(), 4);
    selection.LineErased(4);
    selection.LineErased(4);
    EXPECT_TRUE(selection.IsEmpty());
    selection.SelectAll(0);
    EXPECT_TRUE(selection.IsEmpty());
}

TEST(TextGeometry, PaintingAndMouseAgree)
{
    _TextGeometry geometry = SomeGeometry();
    geometry.scroll.y = 37; // 7 pixels of line 2 are above the edge
    EXPECT_EQ(geometry.FirstDrawnLine(), 1) << "one line above the visible ones";
    for (int y = 0; y < geometry.client.y; ++y)
    {
        EXPECT_TRUE(geometry.BandOf(geometry.LineAt(y)).Contains(0, y)) << y;
    }
    EXPECT_EQ(geometry.LineAt(-100), 0);
    EXPECT_EQ(geometry.LineAt(20 * 15 - 37 - 1), 19);
    EXPECT_EQ(geometry.LineAt(20 * 15 - 37), -1);
    geometry.scroll.y = 0;
    EXPECT_EQ(geometry.FirstDrawnLine(), 0);
    EXPECT_EQ(geometry.EndOfDrawnLines(6), 6);
    EXPECT_EQ(geometry.EndOfDrawnLines(60), 20);
}

TEST(TextGeometry, HugeContentsDoNotOverflow)
{
    _TextGeometry geometry = SomeGeometry();
    geometry.lineCount = INT_MAX;
    geometry.scroll.y = INT_MAX;
    EXPECT_EQ(geometry.LineAt(0), INT_MAX / 15);
    EXPECT_LE(geometry.TopOf(INT_MAX / 15), 0);
    EXPECT_GT(geometry.XOf(int64_t{1} << 40), geometry.client.x);
}

TEST(TextGeometry, RoundedRowsCutOnlyTheCorners)
{
    const wxRect rect(10, 20, 30, 15);
    const auto   rows = _RoundedRows(rect, 3);
    ASSERT_EQ(rows.size(), 15u);
    for (size_t i = 0; i < rows.size(); ++i)
    {
        const bool corner = i < 3 || i >= 12;
        EXPECT_EQ(rows[i].y, 20 + static_cast<int>(i));
        EXPECT_EQ(rows[i].GetLeft() - rect.GetLeft(), rect.GetRight() - rows[i].GetRight());
        EXPECT_EQ(rows[i].width, rows[rows.size() - 1 - i].width) << "the same above and below";
        EXPECT_TRUE(corner || rows[i].width == 30);
    }
    EXPECT_LT(rows[0].width, 30);
    EXPECT_EQ(_RoundedRows(wxRect(0, 0, 1, 15), 3)[0].width, 1) << "a single pixel wide stays";
}

TEST(TextGeometry, PositionThatShowsAStretch)
{
    EXPECT_EQ(_PositionShowing({100, 110}, 50, 100), 50) << "visible already";
    EXPECT_EQ(_PositionShowing({20, 30}, 50, 100), 0) << "visible at the start";
    EXPECT_EQ(_PositionShowing({1000, 1010}, 50, 100), 955) << "in the middle";
    EXPECT_EQ(_PositionShowing({1000, 1300}, 50, 100), 1000) << "as much as fits";
}

TEST(TextPalette, BandsByState)
{
    const _TextPalette palette(wxColour(92, 92, 92), wxColour(230, 163, 250),
                               wxColour(132, 153, 245));
    const struct
    {
        bool     selected;
        bool     hover;
        bool     marked;
        wxColour expected;
    } cases[] = {
        {false, false, false, wxColour(92, 92, 92)},
        {false, true, false, wxColour(102, 102, 102)},
        {false, false, true, wxColour(102, 107, 130)}, // truncated
        {true, true, false, wxColour(240, 173, 255)},  // clamped
        {true, false, true, wxColour(205, 160, 248)},
        {true, true, true, wxColour(215, 170, 255)},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(palette.Band({c.selected, c.hover, c.marked}), c.expected);
    }
}
