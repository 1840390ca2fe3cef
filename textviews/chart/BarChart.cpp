#include "textviews/chart/BarChart.h"

#include "internal/drawing/Raster.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace textviews
{
namespace
{
using internal::Raster;
using Pixel = Raster::Pixel;

constexpr Pixel kBlack = Raster::PixelOf(0, 0, 0);
constexpr Pixel kLightBlue = Raster::PixelOf(0, 0, 255);
constexpr Pixel kDarkBlue = Raster::PixelOf(0, 0, 127);
constexpr Pixel kLightGreen = Raster::PixelOf(0, 255, 0);
constexpr Pixel kDarkGreen = Raster::PixelOf(0, 160, 0);
constexpr Pixel kLightYellow = Raster::PixelOf(255, 255, 0);
constexpr Pixel kDarkYellow = Raster::PixelOf(160, 160, 0);
constexpr Pixel kColour = 0x00ffffff; // of a pixel

// Pixels.
constexpr int kSegmentWidth = 2;
constexpr int kSegmentStep = 3;
constexpr int kEndWidth = 3; // of the meter's last segment
constexpr int kHatchStep = 8;

/// Draws on the raster; what lies outside is left out.
class Pencil
{
public:
    explicit Pencil(Raster& raster) : m_Raster(raster) {}

    void Fill(int x, int y, int width, int height, Pixel colour)
    {
        const int left = std::max(x, 0);
        const int right = std::min(x + width, Size().x);
        const int bottom = std::min(y + height, Size().y);
        for (int row = std::max(y, 0); row < bottom && left < right; ++row)
        {
            std::fill(RowAt(row) + left, RowAt(row) + right, colour);
        }
    }
    /// One pixel wide.
    void FillColumn(int x, int y, int height, Pixel colour)
    {
        const int top = std::max(y, 0);
        const int bottom = std::min(y + height, Size().y);
        if (x < 0 || x >= Size().x || top >= bottom)
        {
            return;
        }
        const auto step = static_cast<size_t>(Size().x);
        Pixel*     pixel = RowAt(top) + x;
        for (int row = top; row < bottom; ++row, pixel += step)
        {
            *pixel = colour;
        }
    }
    /// In each column what lies below its top. Row by row, which the compiler turns into vectors.
    void FillBelow(const std::vector<int>& tops, Pixel colour)
    {
        for (int y = 0; y < Size().y; ++y)
        {
            Pixel* const pixels = RowAt(y);
            std::transform(tops.begin(), tops.end(), pixels, pixels,
                           [=](int top, Pixel pixel) { return y > top ? colour : pixel; });
        }
    }
    void Fill(int x, int y, int width, int height, const wxColour& colour)
    {
        if (colour.IsOk())
        {
            Fill(x, y, width, height, Raster::PixelOf(colour));
        }
    }
    /// In these rows each pixel by that of the same column in `by`.
    void Invert(int y, int height, const std::vector<Pixel>& by)
    {
        const int bottom = std::min(y + height, Size().y);
        for (int row = std::max(y, 0); row < bottom; ++row)
        {
            Pixel* const pixels = RowAt(row);
            std::transform(by.begin(), by.end(), pixels, pixels,
                           [](Pixel mask, Pixel pixel) { return pixel ^ (mask & kColour); });
        }
    }
    const wxSize& Size() const { return m_Raster.size; }

private:
    Pixel* RowAt(int y) { return m_Raster.pixels.data() + static_cast<size_t>(y) * Size().x; }

    Raster& m_Raster;
};

// Lines in both diagonals, as the toolkits draw it: the pattern repeats from the top left.
void DrawEmpty(Pencil& pencil, const BarColours& colours)
{
    const wxSize size = pencil.Size();
    pencil.Fill(0, 0, size.x, size.y, colours.emptyGround);
    for (int y = 0; y < size.y; ++y)
    {
        for (int x = 0; x < size.x; ++x)
        {
            if ((x + y) % kHatchStep == 0 || (x - y) % kHatchStep == 0)
            {
                pencil.Fill(x, y, 1, 1, colours.emptyHatch);
            }
        }
    }
}

// From a bar's top to the top of its right neighbour, which is left out: a line that goes over to
// the other column half-way.
void DrawOutline(Pencil& pencil, int x, int top, int before)
{
    const int length = std::max(std::abs(before - top), 1);
    const int own = std::min(length / 2 + 1, length); // pixels in the bar's own column
    const int other = length - own;
    if (before < top)
    {
        pencil.FillColumn(x, top - own + 1, own, kLightBlue);
        pencil.FillColumn(x + 1, before + 1, other, kLightBlue);
    }
    else
    {
        pencil.FillColumn(x, top, own, kLightBlue);
        pencil.FillColumn(x + 1, top + own, other, kLightBlue);
    }
}

void DrawBars(Pencil& pencil, const std::deque<uint32_t>& values, const BarBounds& bounds)
{
    const int        height = pencil.Size().y;
    const int        right = pencil.Size().x - 1;
    int              x = right;
    int              before = 0; // the top of the bar at the right
    std::vector<int> tops(static_cast<size_t>(right) + 1, height); // none without a value
    for (auto value = values.begin(); value != values.end() && x >= 0; ++value, --x)
    {
        tops[static_cast<size_t>(x)] =
            height - BarScale(*value, bounds.lower, bounds.upper, height);
    }
    pencil.FillBelow(tops, kDarkBlue);
    const int end = x;
    for (x = right; x > end; --x)
    {
        const int top = tops[static_cast<size_t>(x)];
        if (x < right)
        {
            DrawOutline(pencil, x, top, before);
        }
        before = top;
    }
}

void DrawMeter(Pencil& pencil, uint32_t newest, const BarBounds& bounds)
{
    const wxSize       size = pencil.Size();
    const int          length = BarScale(newest, bounds.lower, bounds.upper, size.x - 2);
    const bool         low = newest < bounds.mid;
    int                x = 1;
    std::vector<Pixel> segments(static_cast<size_t>(size.x));
    for (; x <= length; x += kSegmentStep)
    {
        std::fill_n(segments.begin() + x, std::min(kSegmentWidth, size.x - x),
                    low ? kDarkGreen : kDarkYellow);
    }
    pencil.Invert(1, size.y - 2, segments);
    pencil.Fill(x - kSegmentStep, 1, kEndWidth, size.y - 2, low ? kLightGreen : kLightYellow);
}

void DrawFrame(Pencil& pencil, const BarColours& colours)
{
    const wxSize size = pencil.Size();
    pencil.Fill(0, 0, 1, size.y, colours.dark);
    pencil.Fill(0, 0, size.x, 1, colours.dark);
    pencil.Fill(size.x - 1, 0, 1, size.y, colours.light);
    pencil.Fill(0, size.y - 1, size.x, 1, colours.light);
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

void DrawBarChart(Raster& raster, const wxSize& size, const std::deque<uint32_t>& values,
                  bool empty, const BarBounds& bounds, const BarColours& colours)
{
    raster.size = size;
    raster.pixels.assign(static_cast<size_t>(size.x) * size.y, kBlack);
    Pencil pencil(raster);
    if (empty)
    {
        DrawEmpty(pencil, colours);
    }
    else
    {
        pencil.Fill(0, 0, size.x, size.y, colours.ground);
        DrawBars(pencil, values, bounds);
        if (!values.empty())
        {
            DrawMeter(pencil, values.front(), bounds);
        }
    }
    DrawFrame(pencil, colours);
}
} // namespace textviews
