#include "internal/drawing/Raster.h"

namespace internal
{
wxImage ImageOf(const Raster& raster, int scale)
{
    wxImage        image(raster.size * scale, false);
    unsigned char* to = image.GetData();
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        const Raster::Pixel* const row = raster.Row(y / scale);
        for (int x = 0; x < image.GetWidth(); ++x)
        {
            const Raster::Pixel pixel = row[x / scale];
            *to++ = static_cast<unsigned char>(pixel >> 16);
            *to++ = static_cast<unsigned char>(pixel >> 8);
            *to++ = static_cast<unsigned char>(pixel);
        }
    }
    return image;
}
} // namespace internal
