#include "internal/port/Pixels.h"

#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/image.h>

#include <cairo.h>

#include <cstdint>
#include <memory>

namespace internal
{
namespace
{
// One pixel of either format that bitmaps have.
uint32_t Packed(const unsigned char* rgb)
{
    constexpr uint32_t kOpaque = 0xff000000;
    return kOpaque | static_cast<uint32_t>(rgb[0] << 16 | rgb[1] << 8 | rgb[2]);
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

bool ReplacePixels(wxBitmap& bitmap, const wxImage& image)
{
    if (!bitmap.IsOk() || !image.IsOk())
    {
        return false;
    }
    wxMemoryDC                               dc(bitmap);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    cairo_surface_t* const                   surface = MemorySurface(context.get());
    const wxSize                             size = image.GetSize();
    if (!surface || cairo_image_surface_get_width(surface) != size.x ||
        cairo_image_surface_get_height(surface) != size.y)
    {
        return false;
    }
    cairo_surface_flush(surface);
    unsigned char*       row = cairo_image_surface_get_data(surface);
    const unsigned char* source = image.GetData();
    for (int y = 0; y < size.y; ++y, row += cairo_image_surface_get_stride(surface))
    {
        auto* const pixels = reinterpret_cast<uint32_t*>(row);
        for (int x = 0; x < size.x; ++x, source += 3)
        {
            pixels[x] = Packed(source);
        }
    }
    cairo_surface_mark_dirty(surface);
    return true;
}
} // namespace internal
