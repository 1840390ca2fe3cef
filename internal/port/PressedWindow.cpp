#include "internal/port/PressedWindow.h"

#include <gtk/gtk.h>

namespace internal
{
namespace
{
GObject* g_Pressed = nullptr;

gboolean OnPress(GSignalInvocationHint*, unsigned, const GValue* values, void*)
{
    const auto* const event = static_cast<const GdkEvent*>(g_value_get_boxed(&values[1]));
    auto* const       window = G_OBJECT(event->any.window);
    if (window && window != g_Pressed)
    {
        g_clear_object(&g_Pressed);
        g_Pressed = G_OBJECT(g_object_ref(window));
    }
    return TRUE; // and the next one, too
}
} // namespace

void KeepPressedWindow()
{
    static const unsigned long s_Hook = g_signal_add_emission_hook(
        g_signal_lookup("button-press-event", GTK_TYPE_WIDGET), 0, OnPress, nullptr, nullptr);
    static_cast<void>(s_Hook);
}
} // namespace internal
