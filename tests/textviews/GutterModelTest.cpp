#include "textviews/gutter/Gutter.h"
#include "textviews/gutter/GutterLayout.h"

#include <gtest/gtest.h>

using namespace textviews;

TEST(GutterTest, ItIsAsWideAsTheLastNumberAndCountsWhatWasDropped)
{
    Gutter gutter;
    EXPECT_EQ(gutter.Wanted(1000), GutterColumns());
    EXPECT_EQ(GutterLayout::Of({}, 8).width, 0);
    gutter.showNumbers = true;
    EXPECT_EQ(gutter.Wanted(0).digits, gutter.Wanted(999).digits) << "a log that begins stays";
    EXPECT_EQ(gutter.Wanted(999).digits, 3);
    EXPECT_EQ(gutter.Wanted(1000).digits, 4);
    gutter.dropped = 65536;
    EXPECT_EQ(gutter.NumberOf(0), 65537);
    EXPECT_EQ(gutter.Wanted(34463).digits, 5);
    EXPECT_EQ(gutter.Wanted(34464).digits, 6);
    gutter.dropped = 9'999'999'999;
    EXPECT_EQ(gutter.Wanted(1).digits, 11);
}

TEST(GutterTest, ColumnsStandApartAndDoNotOverlap)
{
    for (const int cell : {4, 7, 8, 20})
    {
        for (const GutterColumns& columns :
             {GutterColumns{true, 0, 0}, GutterColumns{true, 0, 5}, GutterColumns{true, 8, 0},
              GutterColumns{true, 8, 5}, GutterColumns{false, 0, 3}})
        {
            const GutterLayout layout = GutterLayout::Of(columns, cell);
            const int          markEnd = layout.markLeft + (columns.marks ? cell : 0);
            EXPECT_GT(layout.width, layout.numberEnd - (columns.digits == 0));
            EXPECT_GE(layout.width, markEnd + 2);
            if (columns.timeCells > 0)
            {
                EXPECT_GE(layout.timeEnd - columns.timeCells * cell, markEnd);
            }
            if (columns.digits > 0)
            {
                const int before = columns.timeCells > 0 ? layout.timeEnd : markEnd;
                EXPECT_GE(layout.numberEnd - columns.digits * cell, before);
            }
        }
    }
}

TEST(GutterTest, ANarrowViewKeepsRoomForText)
{
    const GutterColumns all{true, 8, 7};
    EXPECT_EQ(FittingColumns(all, 7, 1000), all);
    int columns = 3;
    for (int width = 400; width > 0; --width)
    {
        const GutterColumns some = FittingColumns(all, 7, width);
        const int           left = (some.timeCells > 0) + (some.digits > 0) + some.marks;
        EXPECT_LE(left, columns);
        EXPECT_TRUE(left == 0 || width - GutterLayout::Of(some, 7).width >= 80) << width;
        columns = left;
    }
    EXPECT_EQ(columns, 0);
}

TEST(GutterTest, ARibbonStaysWithinItsCellAndIsCutIn)
{
    for (const int cell : {4, 7, 8, 31})
    {
        const wxRect room(3, 40, cell, cell * 2);
        int          pixels = 0;
        for (const wxRect& row : RibbonRows(room.x, room.y, room.width, room.height))
        {
            EXPECT_TRUE(room.Contains(row)) << cell << " " << row.x << " " << row.width;
            pixels += row.width;
        }
        EXPECT_GT(pixels, cell * cell / 2);
        EXPECT_LT(pixels, cell * (room.height - 4));
    }
    EXPECT_TRUE(RibbonRows(0, 0, 4, 3).empty()) << "no room";
}
