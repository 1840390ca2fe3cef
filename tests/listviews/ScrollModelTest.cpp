#include "internal/scrolling/ScrollModel.h"

#include <gtest/gtest.h>

#include <climits>

TEST(ScrollModel, SizesKeepWithinTheirBounds)
{
    EXPECT_EQ(internal::ScrollRange(10'000'000, 15), 150'000'000);
    EXPECT_EQ(internal::ScrollRange(INT_MAX, 15), INT_MAX);
    EXPECT_EQ(internal::ScrollRange(-5, 15), 0);
    EXPECT_EQ(internal::VisibleUnits(100, 0), 102) << "a unit of nothing counts as a pixel";
    EXPECT_EQ(internal::PageSize(wxVERTICAL, {10, 7, 2, 2}), 10) << "at least a unit";
    EXPECT_EQ(internal::PageSize(wxHORIZONTAL, {10, 7, 2, 2}), 7);
    EXPECT_EQ(internal::PageSize(wxVERTICAL, {10, 7, 22, 32}), 200) << "whole lines";
    EXPECT_EQ(internal::PageSize(wxHORIZONTAL, {10, 7, 22, 32}), 189) << "three columns stay";
}

TEST(ScrollModel, Targets)
{
    // Range 1000, thumb 100, line 10, page 70.
    const struct
    {
        wxEventType type;
        int         position;
        int         eventPosition;
        int         target;
    } cases[] = {
        {wxEVT_SCROLLWIN_TOP, 500, 77, 0},          {wxEVT_SCROLLWIN_BOTTOM, 500, 77, 900},
        {wxEVT_SCROLLWIN_LINEUP, 500, 77, 490},     {wxEVT_SCROLLWIN_LINEUP, 5, 77, 0},
        {wxEVT_SCROLLWIN_LINEDOWN, 500, 77, 510},   {wxEVT_SCROLLWIN_LINEDOWN, 895, 77, 900},
        {wxEVT_SCROLLWIN_PAGEUP, 500, 77, 430},     {wxEVT_SCROLLWIN_PAGEDOWN, 500, 77, 570},
        {wxEVT_SCROLLWIN_THUMBTRACK, 500, 77, 77},  {wxEVT_SCROLLWIN_THUMBRELEASE, 500, 990, 900},
        {wxEVT_SCROLLWIN_THUMBRELEASE, 500, -5, 0},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(internal::ScrollTarget(c.type, {c.position, 100, 1000}, 10, 70, c.eventPosition),
                  c.target)
            << &c - cases;
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
    const struct
    {
        internal::ScrollAxis before;
        int                  thumb;
        int                  range;
        bool                 follow;
        int                  position;
    } cases[] = {
        {{900, 100, 1000}, 100, 1500, true, 1400}, {{899, 100, 1000}, 100, 1500, true, 899},
        {{900, 100, 1000}, 100, 1500, false, 900}, {{0, 0, 0}, 100, 1500, true, 1400},
        {{900, 100, 1000}, 100, 500, false, 400},  {{900, 100, 1000}, 300, 1000, true, 700},
        {{50, 100, 1000}, 300, 200, true, 0},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(internal::Adjusted(c.before, c.thumb, c.range, c.follow).position, c.position)
            << &c - cases;
    }
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
