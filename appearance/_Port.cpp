#include "appearance/_Port.h"

#include <wx/window.h>

#include <dlfcn.h>
#include <glib-object.h>

void _UseSolidScrollbars(wxWindow& window)
{
    // By name: the GTK 2 port has no such property, and nothing to be told.
    static const char* const kProperty = "overlay-scrolling";
    auto* const              widget = reinterpret_cast<GObject*>(window.GetHandle());
    if (widget && g_object_class_find_property(G_OBJECT_GET_CLASS(widget), kProperty))
    {
        g_object_set(widget, kProperty, FALSE, nullptr);
    }
}

_PangoContext* _ScreenTextContext()
{
    // By name: both ports have loaded it, and its headers need not be installed.
    using Get = _PangoContext* (*)();
    const auto get = reinterpret_cast<Get>(dlsym(RTLD_DEFAULT, "gdk_pango_context_get"));
    return get ? get() : nullptr;
}
