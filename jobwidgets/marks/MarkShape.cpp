#include "jobwidgets/marks/MarkShape.h"

#include "tolvan/Job.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

namespace jobwidgets
{
namespace
{
// Everything here is in halves of the square's side, from its middle: -1 to 1.
struct Point
{
    double x;
    double y;
};

constexpr double kStroke = 0.37; // half of a line's thickness

double DistanceTo(const Point& at, const Point& from, const Point& to)
{
    const Point  way{to.x - from.x, to.y - from.y};
    const double along =
        ((at.x - from.x) * way.x + (at.y - from.y) * way.y) / (way.x * way.x + way.y * way.y);
    const double part = std::clamp(along, 0.0, 1.0);
    return std::hypot(at.x - from.x - part * way.x, at.y - from.y - part * way.y);
}

bool IsTick(const Point& at)
{
    constexpr Point kLeft{-0.65, 0.05};
    constexpr Point kFoot{-0.2, 0.5};
    constexpr Point kRight{0.65, -0.5};
    return std::min(DistanceTo(at, kLeft, kFoot), DistanceTo(at, kFoot, kRight)) <= kStroke;
}

bool Contains(MarkShape shape, const Point& at)
{
    const double x = std::abs(at.x);
    const double y = std::abs(at.y);
    const double radius = std::hypot(x, y);
    switch (shape)
    {
    case MarkShape::kRing:
        return radius <= 1 && radius > 0.45;
    case MarkShape::kTriangle:
        return at.x >= -0.75 && y <= (1 - at.x) * 0.6;
    case MarkShape::kBars:
        return x >= 0.25 && x <= 0.95 && y <= 0.95;
    case MarkShape::kTick:
        return IsTick(at);
    case MarkShape::kCross:
        return std::abs(x - y) <= kStroke * std::sqrt(2.0) && std::max(x, y) <= 0.95;
    case MarkShape::kSquare:
        return std::max(x, y) <= 0.8;
    case MarkShape::kDot:
        break;
    }
    return radius <= 0.5;
}

using Mask = std::vector<std::vector<bool>>; // rows of pixels

Mask WholeOf(MarkShape shape, int side)
{
    Mask       mask(static_cast<size_t>(side), std::vector<bool>(static_cast<size_t>(side)));
    const auto middleOf = [side](size_t pixel)
    { return (2 * static_cast<double>(pixel) + 1) / side - 1; };
    for (size_t y = 0; y < mask.size(); ++y)
    {
        for (size_t x = 0; x < mask.size(); ++x)
        {
            mask[y][x] = Contains(shape, {middleOf(x), middleOf(y)});
        }
    }
    return mask;
}

// A pixel whose neighbour is none of the mark's belongs to its outline.
Mask Shrunk(const Mask& mask)
{
    const size_t last = mask.size() - 1;
    Mask         inside = mask;
    for (size_t y = 0; y <= last; ++y)
    {
        for (size_t x = 0; x <= last; ++x)
        {
            const bool isEdge = x == 0 || y == 0 || x == last || y == last;
            inside[y][x] = mask[y][x] && !isEdge && mask[y - 1][x] && mask[y + 1][x] &&
                           mask[y][x - 1] && mask[y][x + 1];
        }
    }
    return inside;
}

std::vector<wxRect> RectsOf(const Mask& mask)
{
    std::vector<wxRect> rects;
    for (size_t y = 0; y < mask.size(); ++y)
    {
        const auto& row = mask[y];
        for (auto from = std::find(row.begin(), row.end(), true); from != row.end();)
        {
            const auto   to = std::find(from, row.end(), false);
            const wxRect run(static_cast<int>(from - row.begin()), static_cast<int>(y),
                             static_cast<int>(to - from), 1);
            // Equal runs of rows that follow each other are one rectangle.
            const auto above = std::find_if(rects.begin(), rects.end(),
                                            [&run](const wxRect& each) {
                                                return each.x == run.x && each.width == run.width &&
                                                       each.y + each.height == run.y;
                                            });
            if (above == rects.end())
            {
                rects.push_back(run);
            }
            else
            {
                ++above->height;
            }
            from = std::find(to, row.end(), true);
        }
    }
    return rects;
}
} // namespace

MarkShape ShapeOf(const String& state)
{
    static const std::map<String, MarkShape> s_Shapes = {
        {state_Waiting, MarkShape::kRing},   {state_Running, MarkShape::kTriangle},
        {state_Suspended, MarkShape::kBars}, {state_Done, MarkShape::kTick},
        {state_Failed, MarkShape::kCross},   {state_Killed, MarkShape::kSquare}};
    const auto found = s_Shapes.find(state);
    return found == s_Shapes.end() ? MarkShape::kDot : found->second;
}

const MarkPixels& PixelsOf(MarkShape shape, int side, int line)
{
    static std::map<std::tuple<MarkShape, int, int>, MarkPixels> s_Known;
    const auto [entry, isNew] = s_Known.try_emplace({shape, side, line});
    if (isNew && side > 0)
    {
        Mask mask = WholeOf(shape, side);
        entry->second.whole = RectsOf(mask);
        for (int i = 0; i < line; ++i)
        {
            mask = Shrunk(mask);
        }
        entry->second.inside = RectsOf(mask);
    }
    return entry->second;
}
} // namespace jobwidgets
