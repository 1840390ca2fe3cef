#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace
{
const wxColour kBackground(1, 2, 3);
const wxColour kInner(0, 100, 200);
const wxColour kOuter(200, 100, 0);

wxImage Graded(int height, float exponent, bool shrinkBottom, bool shrinkTop)
{
    return Drawn(wxSize(4, 12), kBackground,
                 [=](wxDC& dc)
                 {
                     dc.SetBrush(*wxRED_BRUSH);
                     dc.SetPen(*wxGREEN_PEN);
                     DrawGradedRectangle(dc, wxRect(0, 1, 4, height), kInner, kOuter, exponent,
                                         shrinkBottom, shrinkTop);
                     EXPECT_EQ(*wxRED, dc.GetBrush().GetColour()) << "left as it was";
                     EXPECT_EQ(*wxGREEN, dc.GetPen().GetColour());
                     DrawGradedRectangle(dc, wxRect(0, 0, 4, 4), wxColour(), kOuter, 1, true, true);
                 });
}

// The colours of the column of pixels at x = 1.
std::vector<wxColour> Column(const wxImage& image)
{
    std::vector<wxColour> colours;
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        colours.push_back(PixelAt(image, 1, y));
    }
    return colours;
}
} // namespace

TEST(ColorHelpers, ChannelsAreOffsetClampedAndTruncated)
{
    EXPECT_EQ(wxColour(255, 0, 128), OffsetColor(wxColour(250, 5, 128), 20, -20, 0));
    EXPECT_EQ(wxColour(255, 0, 0), OffsetColor(wxColour(9, 9, 9), INT_MAX, INT_MIN, -9));
    EXPECT_EQ(wxColour(255, 35, 255), Hilight(wxColour(240, 10, 230)));
    const auto grey = static_cast<unsigned char>(0.3 * wxLIGHT_GREY->Red());
    EXPECT_EQ(wxColour(grey, grey, grey), Disabled(*wxBLACK));
    EXPECT_EQ(wxColour(25, 100, 255),
              internal::MixColours(wxColour(0, 100, 255), wxColour(100, 103, 255), 0.75));
    const wxColour none = wxtGetColor("NoSuchColour");
    for (const wxColour& colour : {none, OffsetColor(none, 10, 10, 10), Disabled(none),
                                   Hilight(none), internal::MixColours(none, *wxBLACK, 1)})
    {
        EXPECT_FALSE(colour.IsOk());
    }
    EXPECT_EQ(wxColour(255, 0, 155), internal::InvertedColour(wxColour(0, 255, 100)));
}

TEST(GradedRectangle, RunsFromTheOuterColourAtTheEdgesToTheInner)
{
    const std::vector<wxColour> both = Column(Graded(10, 1, true, true));
    // Five steps: shares of 1, 0.8, 0.6, 0.4 and 0.2 of the outer colour, from both edges.
    const int red[] = {200, 160, 120, 80, 40, 40, 80, 120, 160, 200};
    for (size_t i = 0; i < 10; ++i)
    {
        EXPECT_NEAR(red[i], both[i + 1].Red(), 1) << i;
        EXPECT_NEAR(200 - red[i], both[i + 1].Blue(), 1) << i;
    }
    const std::vector<wxColour> fromBottom = Column(Graded(10, 1, false, true));
    EXPECT_EQ(kOuter, fromBottom[1]);
    EXPECT_NEAR(40, fromBottom[10].Red(), 1); // the innermost step fills what is left
    const std::vector<wxColour> bent = Column(Graded(10, 2, true, true));
    EXPECT_NEAR(200 * 0.64, bent[2].Red(), 1);
    EXPECT_EQ(kInner, Column(Graded(10, std::nanf(""), true, true))[5]) << "no number at all";
    const auto all = [](const wxColour& colour, size_t rows)
    {
        std::vector<wxColour> column(12, kBackground);
        std::fill_n(column.begin() + 1, rows, colour);
        return column;
    };
    EXPECT_EQ(all(kInner, 10), Column(Graded(10, 1, false, false))) << "no edge shrinks";
    EXPECT_EQ(all(kOuter, 2), Column(Graded(2, 1, true, true)));
    EXPECT_EQ(all(kOuter, 0), Column(Graded(1, 1, true, true)));
    EXPECT_EQ(all(kOuter, 0), Column(Graded(-5, 1, false, false)));
}

TEST(Circle, FillsTheEllipseInTheRectangle)
{
    const wxImage image = Drawn(wxSize(21, 21), kBackground,
                                [](wxDC& dc)
                                {
                                    dc.SetPen(*wxTRANSPARENT_PEN);
                                    dc.SetBrush(wxBrush(kInner));
                                    DrawCircle(dc, wxRect(0, 0, 20, 20), 0, 180);
                                });
    EXPECT_EQ(kInner, PixelAt(image, 10, 5)) << Kept(image, "upper-half");
    EXPECT_EQ(kBackground, PixelAt(image, 10, 15)) << Kept(image, "upper-half");
    EXPECT_EQ(kBackground, PixelAt(image, 0, 0)) << Kept(image, "upper-half");
}

// Angles that would take the port for ever, or end the program in it.
TEST(Circle, TakesAnySizeAndAngle)
{
    const double kNone = std::nan("");
    const struct
    {
        int    side;
        double from, to;
        bool   drawn;
    } cases[] = {{20, 0, 360, true},        {20, 3.6e9, 3.6e9 + 360, true},
                 {20, -1e300, 1e300, true}, {20, 35 + 720, 215 + 720, true},
                 {20, kNone, 90, false},    {20, 0, HUGE_VAL, false},
                 {0, 0, 360, false},        {-20, 0, 360, false}};
    for (const auto& one : cases)
    {
        const wxImage image =
            Drawn(wxSize(21, 21), kBackground,
                  [&one](wxDC& dc)
                  {
                      dc.SetPen(*wxTRANSPARENT_PEN);
                      dc.SetBrush(wxBrush(kInner));
                      DrawCircle(dc, wxRect(0, 0, one.side, one.side), one.from, one.to);
                  });
        EXPECT_EQ(one.drawn, image.CountColours() > 1) << one.side << " " << one.from;
    }
}
