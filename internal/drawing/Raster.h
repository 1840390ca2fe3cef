#pragma once

#include <wx/colour.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

#include <cstdint>
#include <vector>

namespace internal
{
/// A picture in the program's memory: rows from the top, without room between them.
struct Raster
{
    using Pixel = uint32_t; ///< Opaque: 0xffRRGGBB.

    static constexpr Pixel PixelOf(unsigned red, unsigned green, unsigned blue)
    {
        return 0xff000000U | red << 16 | green << 8 | blue;
    }
    static Pixel PixelOf(const wxColour& colour)
    {
        return PixelOf(colour.Red(), colour.Green(), colour.Blue());
    }

    const Pixel* Row(int y) const { return pixels.data() + static_cast<size_t>(y) * size.x; }

    wxSize             size;
    std::vector<Pixel> pixels; ///< As many as the size says.
};

/// The same as the toolkit has it, each pixel as a square of that many.
wxImage ImageOf(const Raster& raster, int scale);
} // namespace internal
