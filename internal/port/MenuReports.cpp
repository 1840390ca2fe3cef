#include "internal/port/MenuReports.h"

#include <gtk/gtk.h>

namespace internal
{
#if GTK_CHECK_VERSION(3, 0, 0)
namespace
{
// The port's own handlers are the ones without data.
gboolean OnDeselect(GSignalInvocationHint*, guint, const GValue* values, void*)
{
    static const guint map = g_signal_lookup("map", GTK_TYPE_WIDGET);
    g_signal_handlers_disconnect_matched(g_value_get_object(values),
                                         GSignalMatchType(G_SIGNAL_MATCH_ID | G_SIGNAL_MATCH_DATA),
                                         map, 0, nullptr, nullptr, nullptr);
    return TRUE; // the next time too
}
} // namespace

void EndOldMenuReports()
{
    static const gulong hook = g_signal_add_emission_hook(
        g_signal_lookup("deselect", GTK_TYPE_MENU_ITEM), 0, OnDeselect, nullptr, nullptr);
    static_cast<void>(hook);
}
#else
void EndOldMenuReports()
{
}
#endif
} // namespace internal
