#include "textviews/lines/TextGeometry.h"
#include "textviews/lines/TextSelection.h"

#include <gtest/gtest.h>

#include <climits>

namespace
{
textviews::TextGeometry SomeGeometry()
{
    textviews::TextGeometry geometry;
    geometry.lineHeight = 15;
    geometry.columnWidth = 7;
    geometry.client = {100, 62};
    geometry.lineCount = 20;
    return geometry;
}
} // namespace

TEST(TextSelection, StaysOnItsLines)
{
    textviews::TextSelection selection;
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
    textviews::TextGeometry geometry = SomeGeometry();
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
    geometry.lineCount = 0;
    EXPECT_EQ(geometry.LineAt(-100), -1);
}

TEST(TextGeometry, HugeContentsDoNotOverflow)
{
    textviews::TextGeometry geometry = SomeGeometry();
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
