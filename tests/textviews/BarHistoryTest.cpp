#include "textviews/chart/BarHistory.h"
#include "appearance/wxTolvanColors.h"
#include "internal/drawing/Raster.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"
#include "textviews/chart/BarChart.h"
#include "textviews/wxBarHistoryCtrl.h"

#include <wx/numformatter.h>

#include <map>

namespace
{
const textviews::BarColours kColours = {wxColour(24, 24, 24), wxColour(92, 92, 92),
                                        wxColour(72, 72, 72), wxColour(69, 69, 69),
                                        wxColour(165, 165, 165)};

// A letter for each pixel.
std::vector<String> Rows(const wxImage& image)
{
    const std::map<wxUint32, char> letters = {
        {kColours.ground.GetRGB(), '.'},        {kColours.dark.GetRGB(), '#'},
        {kColours.light.GetRGB(), '+'},         {kColours.emptyGround.GetRGB(), 'o'},
        {kColours.emptyHatch.GetRGB(), 'h'},    {wxColour(0, 0, 255).GetRGB(), 'L'},
        {wxColour(0, 0, 127).GetRGB(), 'D'},    {wxColour(0, 255, 0).GetRGB(), 'g'},
        {wxColour(255, 255, 0).GetRGB(), 'y'},  {wxColour(24, 184, 24).GetRGB(), 'x'},
        {wxColour(184, 184, 24).GetRGB(), 'z'},
    };
    std::vector<String> rows;
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        rows.emplace_back();
        for (int x = 0; x < image.GetWidth(); ++x)
        {
            const auto letter = letters.find(PixelAt(image, x, y).GetRGB());
            rows.back() += letter == letters.end() ? '?' : letter->second;
        }
    }
    return rows;
}

using Chart = std::vector<String>;

Chart ChartOf(const wxSize& size, const std::deque<uint32_t>& values, bool empty,
              const textviews::BarBounds& bounds)
{
    static internal::Raster s_Raster; // what another chart leaves in it must not show
    textviews::DrawBarChart(s_Raster, size, values, empty, bounds, kColours);
    return Rows(internal::ImageOf(s_Raster, 1));
}
} // namespace

TEST(BarScale, WrapsBelowTheRangeAndKeepsWithinIt)
{
    EXPECT_EQ(10, textviews::BarScale(50, 0, 100, 20));
    EXPECT_EQ(20, textviews::BarScale(200, 0, 100, 20));
    EXPECT_EQ(20, textviews::BarScale(9, 10, 100, 20)) << "below the range";
    EXPECT_EQ(0, textviews::BarScale(10, 10, 100, 20));
    EXPECT_EQ(0, textviews::BarScale(7, 7, 7, 20)) << "a range without extent";
    EXPECT_EQ(6, textviews::BarScale(0xC0000000u, 0, 0xFFFFFFFFu, 9));
}

TEST(BarHistory, PeakLimitAndSum)
{
    textviews::BarHistory history;
    EXPECT_FALSE(history.Push(0)) << "the limit is 0";
    EXPECT_TRUE(history.Values().empty());
    history.Limit(3);
    EXPECT_TRUE(history.Push(5));
    EXPECT_FALSE(history.Push(5)) << "it has not left the peak";
    EXPECT_FALSE(history.Push(3));
    EXPECT_TRUE(history.Push(5)) << "reached again";
    EXPECT_EQ(13u / 3, history.Average());
    history.Limit(1);
    EXPECT_EQ((std::deque<uint32_t>{5}), history.Values());
    EXPECT_EQ(13u, history.Average()) << "what a smaller limit drops stays in the sum";
    history.Push(1);
    EXPECT_EQ(9u, history.Average());
    history.Clear();
    EXPECT_EQ(5u, history.Peak());
    EXPECT_EQ(0u, history.Average());
}

TEST(BarChart, PixelByPixel)
{
    const struct
    {
        wxSize               size;
        std::deque<uint32_t> values; // newest first
        textviews::BarBounds bounds;
        Chart                chart;
    } cases[] = {
        // A line that crosses over half-way; one under a green and under a yellow meter.
        {{8, 8},
         {1, 6, 0},
         {0, 10, 8},
         {"#######+", "#......+", "#.....L+", "#.....L+", "#.....L+", "#....LD+", "#....LD+",
          "++++++++"}},
        {{12, 6},
         {6, 3},
         {0, 10, 10},
         {"###########+", "#xx.ggg....+", "#xx.ggg....+", "#xx.ggg....+", "#xx.ggg...L+",
          "++++++++++++"}},
        {{8, 5},
         {10, 10},
         {0, 10, 10},
         {"#######+", "#zz.yyy+", "#zz.yyy+", "#zz.yyy+", "++++++++"}},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(c.chart, ChartOf(c.size, c.values, false, c.bounds));
    }
    const Chart empty = ChartOf(wxSize(10, 10), {}, true, {});
    EXPECT_EQ("#hoooooho+", empty[1]);
    EXPECT_EQ("#oohohooo+", empty[3]);
}

using BarHistoryCtrlTest = FrameTest;

TEST_F(BarHistoryCtrlTest, TellsItsFiguresInTheLocalesNumbers)
{
    auto* const chart = new wxBarHistoryCtrl(Frame(), wxID_ANY);
    chart->SetBounds(1000, 2000000);
    chart->SetMidBound(50000);
    chart->PushValue(1234567);
    chart->PushValue(7);
    chart->SetTooltipText("Memory", "of this machine");
    wxString  text = chart->GetToolTipText();
    const int peak = text.Find("Peak:");
    text.erase(text.find(", ", peak),
               text.find(" ago") - text.find(", ", peak)); // the time it took
    const auto figure = [](long value) { return wxNumberFormatter::ToString(value); };
    EXPECT_EQ("Memory\nCurrent:\t7\nRange:\t" + figure(1000) + " / " + figure(50000) + " / " +
                  figure(2000000) + "\nPeak:\t" + figure(1234567) + " ago\nAverage:\t" +
                  figure(617287) + "\nof this machine",
              text);
}

TEST_F(BarHistoryCtrlTest, FollowsItsWidthAndTheScheme)
{
    auto* const chart = new wxBarHistoryCtrl(Frame(), wxID_ANY, wxPoint(5, 5), wxSize(60, 20));
    EXPECT_EQ(wxSize(50, 10), chart->GetMinSize()) << "whatever size it was made with";
    EXPECT_EQ(wxSize(60, 20), chart->GetSize());
    chart->SetBounds(0, 100);
    for (int i = 0; i < 80; ++i)
    {
        chart->PushValue(50);
    }
    const auto ground = []
    { return OffsetColor(wxtGetColor(color_WindowBGDarker), -32, -32, -32); };
    for (const int scheme : {scheme_Dark, scheme_Light})
    {
        UseColors(scheme, Frame());
        EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(chart), 40, 4) == ground(); }));
    }
    chart->SetSize(100, 20);
    chart->PushValue(50);
    EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(chart), 90, 15) == wxColour(0, 0, 127); }));
    EXPECT_EQ(ground(), PixelAt(PictureOf(chart), 30, 4)) << "no more values than were pushed";
}
