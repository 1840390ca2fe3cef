#pragma once

#include <gtk/gtk.h>

namespace internal
{
/// Connects a handler whose last argument is the data, which goes with the widget.
template <class Data, class Handler>
void Connect(GtkWidget* widget, const char* signal, Handler* handler, Data* data)
{
    const auto free = [](void* owned, GClosure*) { delete static_cast<Data*>(owned); };
    g_signal_connect_data(widget, signal, G_CALLBACK(handler), data, free, GConnectFlags{});
}
} // namespace internal
