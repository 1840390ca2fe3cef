#include "internal/port/Pixels.h"

#include "internal/drawing/Raster.h"

#include <wx/dcmemory.h>
#include <wx/graphics.h>

#include <cairo.h>

#include <algorithm>
#include <memory>

namespace internal
{
namespace
{
// Both formats that bitmaps have hold pixels as the raster does.
void Stretch(const Raster::Pixel* from, int width, int scale, Raster::Pixel* to)
{
    if (scale == 1)
    {
        std::copy_n(from, width, to);
        return;
    }
    for (int x = 0; x < width; ++x)
    {
        to = std::fill_n(to, scale, from[x]);
    }
}

// Null where pixels are not kept in the process's own memory.
cairo_surface_t* MemorySurface(wxGraphicsContext* context)
{
    auto* const cairo = context ? static_cast<cairo_t*>(context->GetNativeContext()) : nullptr;
    auto* const surface = cairo ? cairo_get_target(cairo) : nullptr;
    if (!surface || cairo_surface_get_type(surface) != CAIRO_SURFACE_TYPE_IMAGE)
    {
        return nullptr;
    }
    const cairo_format_t format = cairo_image_surface_get_format(surface);
    return format == CAIRO_FORMAT_RGB24 || format == CAIRO_FORMAT_ARGB32 ? surface : nullptr;
}
} // namespace

bool ReplacePixels(wxBitmap& bitmap, const Raster& raster, int scale)
{
    if (!bitmap.IsOk())
    {
        return false;
    }
    wxMemoryDC                               dc(bitmap);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    cairo_surface_t* const                   surface = MemorySurface(context.get());
    const wxSize                             size = raster.size * scale;
    if (!surface || cairo_image_surface_get_width(surface) != size.x ||
        cairo_image_surface_get_height(surface) != size.y)
    {
        return false;
    }
    cairo_surface_flush(surface);
    unsigned char* row = cairo_image_surface_get_data(surface);
    for (int y = 0; y < size.y; ++y, row += cairo_image_surface_get_stride(surface))
    {
        Stretch(raster.Row(y / scale), raster.size.x, scale, reinterpret_cast<Raster::Pixel*>(row));
    }
    cairo_surface_mark_dirty(surface);
    return true;
}
} // namespace internal
