#include "monitor/DesktopNotice.h"

#include "vesta/File.h"
#include "vesta/Log.h"

#include <gio/gio.h>

#include <cstdlib>
#include <memory>

namespace
{
constexpr int     kTimeout = 5000; // milliseconds
const char* const kName = "org.freedesktop.Notifications";
const char* const kObject = "/org/freedesktop/Notifications";

struct Pending
{
    String title;
    String text;
    bool   isUrgent;
};

// The text is taken for markup.
String Escaped(const String& text)
{
    String escaped;
    for (const char byte : text)
    {
        escaped += byte == '<'   ? "&lt;"
                   : byte == '>' ? "&gt;"
                   : byte == '&' ? "&amp;"
                                 : String(1, byte);
    }
    return escaped;
}

// The bus takes nothing but valid UTF-8.
std::unique_ptr<gchar, decltype(&g_free)> Valid(const String& text)
{
    return {g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), &g_free};
}

void LogFailure(GError* error)
{
    LogDebug(String("No notice of the desktop: ") + (error ? error->message : "no bus"));
    g_clear_error(&error);
}

void OnCalled(GObject* bus, GAsyncResult* result, gpointer)
{
    GError*         error = nullptr;
    GVariant* const answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(bus), result, &error);
    if (answer)
    {
        g_variant_unref(answer);
    }
    else
    {
        LogFailure(error);
    }
}

GVariant* ArgumentsOf(const Pending& notice)
{
    GVariantBuilder hints;
    g_variant_builder_init(&hints, G_VARIANT_TYPE("a{sv}"));
    g_variant_builder_add(&hints, "{sv}", "urgency", g_variant_new_byte(notice.isUrgent ? 2 : 1));
    return g_variant_new("(susssasa{sv}i)", "Tolvan Monitor", 0U,
                         notice.isUrgent ? "dialog-error" : "dialog-information",
                         Valid(notice.title).get(), Valid(Escaped(notice.text)).get(), nullptr,
                         &hints, -1);
}

void OnBus(GObject*, GAsyncResult* result, gpointer data)
{
    const std::unique_ptr<Pending> notice(static_cast<Pending*>(data));
    GError*                        error = nullptr;
    GDBusConnection* const         bus = g_bus_get_finish(result, &error);
    if (!bus)
    {
        LogFailure(error);
        return;
    }
    g_dbus_connection_set_exit_on_close(bus,
                                        FALSE); // the end of the bus is not that of the program
    g_dbus_connection_call(bus, kName, kObject, kName, "Notify", ArgumentsOf(*notice), nullptr,
                           G_DBUS_CALL_FLAGS_NONE, kTimeout, nullptr, &OnCalled, nullptr);
    g_object_unref(bus);
}

// Without one the library would try to start one.
bool HasBus()
{
    const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    return address ? *address != '\0' : folder && File::Exists(Path(folder) / "bus");
}
} // namespace

void ShowDesktopNotice(const String& title, const String& text, bool isUrgent)
{
    if (HasBus())
    {
        g_bus_get(G_BUS_TYPE_SESSION, nullptr, &OnBus, new Pending{title, text, isUrgent});
    }
    else
    {
        LogFailure(nullptr);
    }
}
