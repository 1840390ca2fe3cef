#include "textviews/chart/BarHistory.h"
#include "appearance/wxTolvanColors.h"
#include "appearance/wxTolvanString.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"
#include "textviews/chart/BarChart.h"
#include "textviews/wxBarHistoryCtrl.h"

#include <wx/numformatter.h>

namespace
{
const textviews::BarColours kColours = {wxColour(24, 24, 24), wxColour(92, 92, 92),
                                        wxColour(72, 72, 72), wxColour(69, 69, 69),
                                        wxColour(165, 165, 165)};

// A letter for each pixel.
char Letter(const wxColour& colour)
{
    struct
    {
        wxColour colour;
        char     letter;
    } const names[] = {
        {kColours.ground, '.'},
        {wxColour(0, 0, 255), 'L'},
        {wxColour(0, 0, 127), 'D'},
        {kColours.dark, '#'},
        {kColours.light, '+'},
        {wxColour(0, 255, 0), 'g'},
        {wxColour(255, 255, 0), 'y'},
        {wxColour(24, 24 ^ 160, 24), 'x'},
        {wxColour(0, 160, 255), 'X'},
        {wxColour(0, 160, 127), 'd'},
        {wxColour(24 ^ 160, 24 ^ 160, 24), 'z'},
        {wxColour(160, 160, 127), 'Z'},
        {wxColour(160, 160, 255), 'Y'},
        {kColours.emptyGround, 'o'},
        {kColours.emptyHatch, 'h'},
    };
    for (const auto& name : names)
    {
        if (name.colour == colour)
        {
            return name.letter;
        }
    }
    return '?';
}

std::vector<String> Rows(const wxImage& image)
{
    std::vector<String> rows;
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        rows.emplace_back();
        for (int x = 0; x < image.GetWidth(); ++x)
        {
            rows.back() += Letter(PixelAt(image, x, y));
        }
    }
    return rows;
}

using Chart = std::vector<String>;
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
    struct
    {
        const char*          name;
        wxSize               size;
        std::deque<uint32_t> values; // newest first
        textviews::BarBounds bounds;
        Chart                chart;
    } const cases[] = {
        {"one value, no meter",
         {6, 5},
         {0},
         {0, 10, 20},
         {"#####+", "#....+", "#....+", "#....+", "++++++"}},
        {"a falling line and a green meter",
         {12, 6},
         {6, 3},
         {0, 10, 10},
         {"###########+", "#xx.ggg....+", "#xx.ggg....+", "#xx.ggg....+", "#xx.ggg...L+",
          "++++++++++++"}},
        {"a line that crosses over half-way",
         {8, 8},
         {1, 6, 0},
         {0, 10, 8},
         {"#######+", "#......+", "#.....L+", "#.....L+", "#.....L+", "#....LD+", "#....LD+",
          "++++++++"}},
        {"a full bar under a yellow one",
         {8, 5},
         {10, 10},
         {0, 10, 10},
         {"#######+", "#zz.yyy+", "#zz.yyy+", "#zz.yyy+", "++++++++"}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.chart,
                  Rows(textviews::DrawBarChart(c.size, c.values, false, c.bounds, kColours)));
    }
    const Chart empty = Rows(textviews::DrawBarChart(wxSize(10, 10), {}, true, {}, kColours));
    EXPECT_EQ("#hoooooho+", empty[1]);
    EXPECT_EQ("#oohohooo+", empty[3]);
}

using BarHistoryCtrlTest = FrameTest;

TEST_F(BarHistoryCtrlTest, TellsItsFiguresInTheLocalesNumbers)
{
    auto* const chart = new wxBarHistoryCtrl(Frame(), wxID_ANY, wxPoint(5, 5), wxSize(60, 20));
    chart->SetBounds(1000, 2000000);
    chart->SetMidBound(50000);
    chart->PushValue(1234567);
    chart->PushValue(7);
    chart->SetTooltipText("Memory", "of this machine");
    String       text = wxtFromWx(chart->GetToolTipText());
    const size_t ago = text.find(", ", text.find("Peak:"));
    ASSERT_NE(String::npos, ago) << text;
    text.erase(ago, text.find(" ago") - ago); // as long as the test took
    // Grouped as the locale does; not every machine has one that groups.
    wxChar       local = 0;
    const bool   grouped = wxNumberFormatter::GetThousandsSeparatorIfUsed(&local);
    const String mark = grouped ? wxtFromWx(wxString(local)) : String();
    EXPECT_EQ("Memory\nCurrent:\t7\nRange:\t1" + mark + "000 / 50" + mark + "000 / 2" + mark +
                  "000" + mark + "000\nPeak:\t1" + mark + "234" + mark + "567 ago\nAverage:\t617" +
                  mark + "287\nof this machine",
              text);
}

TEST_F(BarHistoryCtrlTest, FollowsItsWidthAndTheScheme)
{
    auto* const chart = new wxBarHistoryCtrl(Frame(), wxID_ANY, wxPoint(5, 5), wxSize(60, 20));
    EXPECT_EQ(wxSize(50, 10), chart->GetMinSize()) << "whatever size it was made with";
    EXPECT_EQ(wxSize(60, 20), chart->GetSize());
    EXPECT_EQ(wxSize(50, 10),
              (new wxBarHistoryCtrl(Frame(), wxID_ANY, wxPoint(200, 9)))->GetSize());
    chart->SetBounds(0, 100);
    for (int i = 0; i < 80; ++i)
    {
        chart->PushValue(50);
    }
    const auto groundIs = [&](const wxColour& colour)
    { return WaitFor([&] { return PixelAt(PictureOf(chart), 40, 4) == colour; }); };
    const auto ground = []
    { return OffsetColor(wxtGetColor(color_WindowBGDarker), -32, -32, -32); };
    EXPECT_TRUE(groundIs(ground()));
    SetColors(scheme_Light);
    wxSysColourChangedEvent event;
    Frame()->ProcessWindowEvent(event);
    EXPECT_TRUE(groundIs(ground()));
    chart->SetSize(100, 20);
    chart->PushValue(50);
    EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(chart), 90, 15) == wxColour(0, 0, 127); }));
    EXPECT_EQ(ground(), PixelAt(PictureOf(chart), 30, 4)) << "no more values than were pushed";
}
