#include "internal/port/Port.h"

#include <wx/dcmemory.h>
#include <wx/graphics.h>
#include <wx/image.h>
#include <wx/window.h>

#include <cairo.h>
#include <dlfcn.h>
#include <glib-object.h>

#include <cstdint>
#include <memory>

namespace internal
{
namespace
{
constexpr int kMostMenus = 20; // one in the other

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

// Not handled: the key goes on to the window's parents.
gboolean StopScrollKey(GObject* widget, int, gboolean, void*)
{
    g_signal_stop_emission_by_name(widget, "scroll-child");
    return FALSE;
}

// What has the user's input to itself, if it is of that class of the port; else null.
GObject* GrabOf(const char* className)
{
    // By name, here and below: both ports have loaded it, and its headers need not be installed.
    using GetGrab = GObject* (*)();
    const auto     getGrab = reinterpret_cast<GetGrab>(dlsym(RTLD_DEFAULT, "gtk_grab_get_current"));
    const GType    type = g_type_from_name(className);
    GObject* const grab = getGrab && type ? getGrab() : nullptr;
    return grab && g_type_is_a(G_OBJECT_TYPE(grab), type) ? grab : nullptr;
}

// The innermost one that is open.
bool CloseMenu()
{
    using Cancel = void (*)(GObject*);
    const auto     cancel = reinterpret_cast<Cancel>(dlsym(RTLD_DEFAULT, "gtk_menu_shell_cancel"));
    GObject* const menu = GrabOf("GtkMenuShell");
    if (menu && cancel)
    {
        cancel(menu);
    }
    return menu && cancel;
}

// A message box or a file dialog; those of our own are none of the port's.
bool CloseStockDialog()
{
    constexpr int kClosed = -4; // the port's answer of a box that was closed
    using Respond = void (*)(GObject*, int);
    const auto     respond = reinterpret_cast<Respond>(dlsym(RTLD_DEFAULT, "gtk_dialog_response"));
    GObject* const box = GrabOf("GtkDialog");
    if (box && respond)
    {
        respond(box, kClosed);
    }
    return box && respond;
}
} // namespace

void UseSolidScrollbars(wxWindow& window)
{
    // By name: the GTK 2 port has no such property, and nothing to be told.
    static const char* const kProperty = "overlay-scrolling";
    auto* const              widget = reinterpret_cast<GObject*>(window.GetHandle());
    if (widget && g_object_class_find_property(G_OBJECT_GET_CLASS(widget), kProperty))
    {
        g_object_set(widget, kProperty, FALSE, nullptr);
    }
}

void RefuseNativeScrollKeys(wxWindow& window)
{
    auto* const widget = reinterpret_cast<GObject*>(window.GetHandle());
    if (widget && g_signal_lookup("scroll-child", G_OBJECT_TYPE(widget)) != 0)
    {
        g_signal_connect(widget, "scroll-child", G_CALLBACK(StopScrollKey), nullptr);
    }
}

void EndScrollbarPress(wxWindow& window)
{
    constexpr int kButtonRelease = 7; // the port's number of that event
    // By name, as above.
    using GetBar = GObject* (*)(GObject*);
    using MakeEvent = void* (*)(int);
    using FreeEvent = void (*)(void*);
    const auto  make = reinterpret_cast<MakeEvent>(dlsym(RTLD_DEFAULT, "gdk_event_new"));
    const auto  free = reinterpret_cast<FreeEvent>(dlsym(RTLD_DEFAULT, "gdk_event_free"));
    auto* const widget = reinterpret_cast<GObject*>(window.GetHandle());
    for (const char* const name :
         {"gtk_scrolled_window_get_vscrollbar", "gtk_scrolled_window_get_hscrollbar"})
    {
        const auto     getBar = reinterpret_cast<GetBar>(dlsym(RTLD_DEFAULT, name));
        GObject* const bar = widget && getBar && make && free ? getBar(widget) : nullptr;
        if (bar)
        {
            void* const event = make(kButtonRelease);
            gboolean    handled = FALSE;
            g_signal_emit_by_name(bar, "button-release-event", event, &handled);
            free(event);
        }
    }
}

_PangoContext* ScreenTextContext()
{
    // By name, as above.
    using Get = _PangoContext* (*)();
    const auto get = reinterpret_cast<Get>(dlsym(RTLD_DEFAULT, "gdk_pango_context_get"));
    return get ? get() : nullptr;
}

bool ClosePopUps()
{
    int closed = 0;
    for (; closed < kMostMenus && CloseMenu(); ++closed)
    {
    }
    return closed > 0 || CloseStockDialog();
}

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
