#include "internal/scrolling/ScrollModel.h"

#include <gtest/gtest.h>

#include <climits>

TEST(ScrollModel, RangesSaturate)
{
    EXPECT_EQ(internal::ScrollRange(10'000'000, 15), 150'000'000);
    EXPECT_EQ(internal::ScrollRange(INT_MAX, 15), INT_MAX);
    EXPECT_EQ(internal::ScrollRange(-5, 15), 0);
}

TEST(ScrollModel, VisibleUnits)
{
    EXPECT_EQ(internal::VisibleUnits(100, 10), 12);
    EXPECT_EQ(internal::VisibleUnits(109, 10), 12);
    EXPECT_EQ(internal::VisibleUnits(0, 10), 2);
    EXPECT_EQ(internal::VisibleUnits(100, 0), 102) << "a unit of nothing counts as a pixel";
}

TEST(ScrollModel, AVerticalPageIsWhatFitsAHorizontalOneOverlaps)
{
    EXPECT_EQ(internal::PageSize(wxVERTICAL, {10, 7, 12, 99}), 100);
    EXPECT_EQ(internal::PageSize(wxHORIZONTAL, {15, 10, 99, 12}), 70);
    EXPECT_EQ(internal::PageSize(wxVERTICAL, {10, 7, 2, 2}), 10) << "at least a unit";
    EXPECT_EQ(internal::PageSize(wxHORIZONTAL, {10, 7, 2, 2}), 7);
}

TEST(ScrollModel, Targets)
{
    // Range 1000, thumb 100, line 10, page 70.
    const struct
    {
        const char* name;
        wxEventType type;
        int         position;
        int         eventPosition;
        int         target;
    } cases[] = {
        {"top", wxEVT_SCROLLWIN_TOP, 500, 77, 0},
        {"bottom", wxEVT_SCROLLWIN_BOTTOM, 500, 77, 900},
        {"line up", wxEVT_SCROLLWIN_LINEUP, 500, 77, 490},
        {"line up at the top", wxEVT_SCROLLWIN_LINEUP, 5, 77, 0},
        {"line down", wxEVT_SCROLLWIN_LINEDOWN, 500, 77, 510},
        {"line down at the bottom", wxEVT_SCROLLWIN_LINEDOWN, 895, 77, 900},
        {"page up", wxEVT_SCROLLWIN_PAGEUP, 500, 77, 430},
        {"page down", wxEVT_SCROLLWIN_PAGEDOWN, 500, 77, 570},
        {"thumb", wxEVT_SCROLLWIN_THUMBTRACK, 500, 77, 77},
        {"thumb beyond the end", wxEVT_SCROLLWIN_THUMBRELEASE, 500, 990, 900},
        {"thumb before the start", wxEVT_SCROLLWIN_THUMBRELEASE, 500, -5, 0},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(internal::ScrollTarget(c.type, {c.position, 100, 1000}, 10, 70, c.eventPosition),
                  c.target)
            << c.name;
    }
    EXPECT_EQ(internal::ScrollTarget(wxEVT_SCROLLWIN_BOTTOM, {0, 100, 30}, 10, 70, 0), 0)
        << "everything is visible";
    EXPECT_EQ(
        internal::ScrollTarget(wxEVT_SCROLLWIN_LINEDOWN, {INT_MAX - 100, 100, INT_MAX}, 10, 70, 0),
        INT_MAX - 100)
        << "no overflow at the end";
}

TEST(ScrollModel, FollowsTheEndOnlyFromTheEnd)
{
    EXPECT_EQ(internal::Adjusted({900, 100, 1000}, 100, 1500, true).position, 1400);
    EXPECT_EQ(internal::Adjusted({899, 100, 1000}, 100, 1500, true).position, 899);
    EXPECT_EQ(internal::Adjusted({900, 100, 1000}, 100, 1500, false).position, 900);
    EXPECT_EQ(internal::Adjusted({0, 0, 0}, 100, 1500, true).position, 1400)
        << "empty is at the end";
    EXPECT_EQ(internal::Adjusted({900, 100, 1000}, 100, 500, false).position, 400)
        << "shrunk content";
    EXPECT_EQ(internal::Adjusted({900, 100, 1000}, 300, 1000, true).position, 700)
        << "grown window";
    EXPECT_EQ(internal::Adjusted({50, 100, 1000}, 300, 200, true).position, 0);
}

TEST(ScrollModel, TheWheelKeepsPartsOfANotch)
{
    int accumulator = 0;
    EXPECT_EQ(internal::WheelLines(accumulator, -60, 120, 3), 0);
    EXPECT_EQ(internal::WheelLines(accumulator, -60, 120, 3), 3);
    EXPECT_EQ(accumulator, 0);
    EXPECT_EQ(internal::WheelLines(accumulator, 300, 120, 3), -6) << "away from the user is up";
    EXPECT_EQ(accumulator, -60);
    EXPECT_EQ(internal::WheelLines(accumulator, -60, 120, 3), 0) << "back again takes it off";
    EXPECT_EQ(accumulator, 0);
    EXPECT_EQ(internal::WheelLines(accumulator, -120, 0, 3), 3) << "a device that names no delta";
}
