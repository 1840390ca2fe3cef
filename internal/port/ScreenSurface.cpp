#include "internal/port/ScreenSurface.h"

#include "internal/port/SurfaceDC.h"

#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/window.h>

#include <gtk/gtk.h>

namespace internal
{
namespace
{
cairo_t* CairoOf(wxGraphicsContext* context)
{
    return context ? static_cast<cairo_t*>(context->GetNativeContext()) : nullptr;
}

// The toolkit's context takes a reference of its own.
std::unique_ptr<wxGraphicsContext> ContextOn(cairo_surface_t* surface)
{
    cairo_t* const                     cairo = cairo_create(surface);
    std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::CreateFromNative(cairo));
    cairo_destroy(cairo);
    return context;
}

} // namespace

ScreenSurface::ScreenSurface(cairo_surface_t* surface, const wxSize& size, double scale)
    : m_Surface(surface), m_Size(size), m_Scale(scale)
{
}

ScreenSurface::~ScreenSurface()
{
    cairo_surface_destroy(m_Surface);
}

#if GTK_CHECK_VERSION(3, 0, 0)
std::unique_ptr<ScreenSurface> ScreenSurface::For(const wxWindow& window, const wxSize& size)
{
    GdkWindow* const place = window.GTKGetDrawingWindow();
    if (!place || size.x < 1 || size.y < 1)
    {
        return nullptr;
    }
    cairo_surface_t* const surface =
        gdk_window_create_similar_surface(place, CAIRO_CONTENT_COLOR, size.x, size.y);
    std::unique_ptr<ScreenSurface> made(
        new ScreenSurface(surface, size, window.GetContentScaleFactor()));
    return cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS ? std::move(made) : nullptr;
}

#else
std::unique_ptr<ScreenSurface> ScreenSurface::For(const wxWindow&, const wxSize&)
{
    return nullptr; // bitmaps are pixmaps of the display
}
#endif

std::unique_ptr<wxDC> ScreenSurface::NewDC() const
{
    return std::make_unique<SurfaceDC>(ContextOn(m_Surface), m_Size, m_Scale);
}

void ScreenSurface::ShowOn(wxDC& paint) const
{
    cairo_t* const cairo = CairoOf(paint.GetGraphicsContext());
    if (!cairo)
    {
        return;
    }
    cairo_save(cairo);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cairo, m_Surface, 0, 0);
    cairo_rectangle(cairo, 0, 0, m_Size.x, m_Size.y);
    cairo_fill(cairo);
    cairo_restore(cairo);
}

wxBitmap ScreenSurface::Copy() const
{
    wxBitmap bitmap;
    bitmap.CreateScaled(m_Size.x, m_Size.y, wxBITMAP_SCREEN_DEPTH, m_Scale);
    wxMemoryDC                               dc(bitmap);
    const std::unique_ptr<wxGraphicsContext> context(wxGraphicsContext::Create(dc));
    if (cairo_t* const cairo = CairoOf(context.get()))
    {
        cairo_set_source_surface(cairo, m_Surface, 0, 0);
        cairo_paint(cairo);
    }
    return bitmap;
}

std::unique_ptr<wxGraphicsContext> NewContextOn(wxDC& dc)
{
    if (auto* const memory = dynamic_cast<wxMemoryDC*>(&dc))
    {
        return std::unique_ptr<wxGraphicsContext>(wxGraphicsContext::Create(*memory));
    }
    cairo_t* const cairo = CairoOf(dc.GetGraphicsContext());
    return cairo ? ContextOn(cairo_get_target(cairo)) : nullptr;
}
} // namespace internal
