#include "textviews/chart/BarChart.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace textviews
{
namespace
{
using Pixel = std::array<unsigned char, 3>;

constexpr Pixel kLightBlue = {0, 0, 255};
constexpr Pixel kDarkBlue = {0, 0, 127};
constexpr Pixel kLightGreen = {0, 255, 0};
constexpr Pixel kDarkGreen = {0, 160, 0};
constexpr Pixel kLightYellow = {255, 255, 0};
constexpr Pixel kDarkYellow = {160, 160, 0};

// Pixels.
constexpr int kSegmentWidth = 2;
constexpr int kSegmentStep = 3;
constexpr int kEndWidth = 3; // of the meter's last segment
constexpr int kHatchStep = 8;

/// The raster that the chart is made in; what lies outside is left out.
class Raster
{
public:
    explicit Raster(const wxSize& size) : m_Image(size), m_Size(size), m_Data(m_Image.GetData()) {}

    void Fill(int x, int y, int width, int height, const Pixel& colour)
    {
        Each(x, y, width, height,
             [colour](unsigned char* p) { std::copy_n(colour.data(), colour.size(), p); });
    }
    void Fill(int x, int y, int width, int height, const wxColour& colour)
    {
        if (colour.IsOk())
        {
            Fill(x, y, width, height, Pixel{colour.Red(), colour.Green(), colour.Blue()});
        }
    }
    void Invert(int x, int y, int width, int height, const Pixel& by)
    {
        Each(x, y, width, height,
             [&by](unsigned char* p)
             {
                 for (size_t i = 0; i < by.size(); ++i)
                 {
                     p[i] ^= by[i];
                 }
             });
    }
    const wxSize&  Size() const { return m_Size; }
    const wxImage& Image() const { return m_Image; }

private:
    template <class Work> void Each(int x, int y, int width, int height, Work work)
    {
        const int left = std::max(x, 0);
        const int top = std::max(y, 0);
        const int right = std::min(x + width, m_Size.x);
        const int bottom = std::min(y + height, m_Size.y);
        for (int row = top; row < bottom; ++row)
        {
            unsigned char* pixel = m_Data + 3 * (static_cast<size_t>(row) * m_Size.x + left);
            for (int column = left; column < right; ++column, pixel += 3)
            {
                work(pixel);
            }
        }
    }

    wxImage        m_Image;
    wxSize         m_Size;
    unsigned char* m_Data;
};

// Lines in both diagonals, as the toolkits draw it: the pattern repeats from the top left.
void DrawEmpty(Raster& raster, const BarColours& colours)
{
    const wxSize size = raster.Size();
    raster.Fill(0, 0, size.x, size.y, colours.emptyGround);
    for (int y = 0; y < size.y; ++y)
    {
        for (int x = 0; x < size.x; ++x)
        {
            if ((x + y) % kHatchStep == 0 || (x - y) % kHatchStep == 0)
            {
                raster.Fill(x, y, 1, 1, colours.emptyHatch);
            }
        }
    }
}

// From a bar's top to the top of its right neighbour, which is left out: a line that goes over to
// the other column half-way.
void DrawOutline(Raster& raster, int x, int top, int before)
{
    const int length = std::max(std::abs(before - top), 1);
    const int own = std::min(length / 2 + 1, length); // pixels in the bar's own column
    const int other = length - own;
    if (before < top)
    {
        raster.Fill(x, top - own + 1, 1, own, kLightBlue);
        raster.Fill(x + 1, before + 1, 1, other, kLightBlue);
    }
    else
    {
        raster.Fill(x, top, 1, own, kLightBlue);
        raster.Fill(x + 1, top + own, 1, other, kLightBlue);
    }
}

void DrawBars(Raster& raster, const std::deque<uint32_t>& values, const BarBounds& bounds)
{
    const int height = raster.Size().y;
    const int right = raster.Size().x - 1;
    int       x = right;
    int       before = 0; // the top of the bar at the right
    for (auto value = values.begin(); value != values.end() && x >= 0; ++value, --x)
    {
        const int top = height - BarScale(*value, bounds.lower, bounds.upper, height);
        raster.Fill(x, top + 1, 1, height - top - 1, kDarkBlue);
        if (x < right)
        {
            DrawOutline(raster, x, top, before);
        }
        before = top;
    }
}

void DrawMeter(Raster& raster, uint32_t newest, const BarBounds& bounds)
{
    const wxSize size = raster.Size();
    const int    length = BarScale(newest, bounds.lower, bounds.upper, size.x - 2);
    const bool   low = newest < bounds.mid;
    int          x = 1;
    for (; x <= length; x += kSegmentStep)
    {
        raster.Invert(x, 1, kSegmentWidth, size.y - 2, low ? kDarkGreen : kDarkYellow);
    }
    raster.Fill(x - kSegmentStep, 1, kEndWidth, size.y - 2, low ? kLightGreen : kLightYellow);
}

void DrawFrame(Raster& raster, const BarColours& colours)
{
    const wxSize size = raster.Size();
    raster.Fill(0, 0, 1, size.y, colours.dark);
    raster.Fill(0, 0, size.x, 1, colours.dark);
    raster.Fill(size.x - 1, 0, 1, size.y, colours.light);
    raster.Fill(0, size.y - 1, size.x, 1, colours.light);
}
} // namespace

// The differences are taken without a sign: a value below the range wraps round to a very large one
// and shows as a full bar. A range without extent has no ratio; nothing of it is shown then.
int BarScale(uint32_t value, uint32_t lower, uint32_t upper, int extent)
{
    const auto   range = static_cast<double>(static_cast<uint32_t>(upper - lower));
    const double ratio =
        range > 0 ? static_cast<double>(static_cast<uint32_t>(value - lower)) / range : 0;
    return static_cast<int>(extent * std::clamp(ratio, 0.0, 1.0));
}

wxImage DrawBarChart(const wxSize& size, const std::deque<uint32_t>& values, bool empty,
                     const BarBounds& bounds, const BarColours& colours)
{
    Raster raster(size);
    if (empty)
    {
        DrawEmpty(raster, colours);
    }
    else
    {
        raster.Fill(0, 0, size.x, size.y, colours.ground);
        DrawBars(raster, values, bounds);
        if (!values.empty())
        {
            DrawMeter(raster, values.front(), bounds);
        }
    }
    DrawFrame(raster, colours);
    return raster.Image();
}
} // namespace textviews
