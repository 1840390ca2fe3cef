#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include <cstdint>
#include <deque>

namespace internal
{
struct Raster;
}

namespace textviews
{
/// The range that a bar chart maps on its extent, and from where on its meter is yellow.
struct BarBounds
{
    uint32_t lower = 0;
    uint32_t mid = 0;
    uint32_t upper = 0;
};

/// The scheme's colours of a bar chart; an invalid one draws nothing.
struct BarColours
{
    wxColour ground;      ///< Behind the bars.
    wxColour emptyGround; ///< Without values.
    wxColour emptyHatch;
    wxColour dark;  ///< Top and left edge.
    wxColour light; ///< Bottom and right edge.
};

/// How much of `extent` pixels a value takes.
int BarScale(uint32_t value, uint32_t lower, uint32_t upper, int extent);

/// Makes the raster the chart as it is shown, drawn pixel by pixel: bars, newest at the right, the
/// meter of the newest value across them, and a sunken frame. The same on every port.
void DrawBarChart(internal::Raster& raster, const wxSize& size, const std::deque<uint32_t>& values,
                  bool empty, const BarBounds& bounds, const BarColours& colours);
} // namespace textviews
