#include "internal/port/DesktopScheme.h"

#include "appearance/ColorScheme.h"
#include "tests/support/FrameTest.h"

#include <gio/gio.h>

#include <cstdlib>
#include <future>
#include <string>
#include <thread>

namespace
{
const char* const kSender = ":1.2";

// A session bus with a settings portal, and nothing else, on a thread of its own. It stays until
// the program ends: whatever else of the toolkit's asks for a bus by then is on this one.
class Portal
{
public:
    Portal()
    {
        std::thread([this] { Serve(); }).detach();
        setenv("DBUS_SESSION_BUS_ADDRESS", m_Address.get_future().get().c_str(), 1);
    }
    Portal(const Portal&) = delete;
    Portal& operator=(const Portal&) = delete;

    void Tell(const char* key, GVariant* value)
    {
        GDBusMessage* const message = g_dbus_message_new_signal(
            "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
        Send(message, g_variant_new("(ssv)", "org.freedesktop.appearance", key, value));
    }

private:
    void Serve()
    {
        GMainContext* const context = g_main_context_new();
        g_main_context_push_thread_default(context);
        char* const        guid = g_dbus_generate_guid();
        GDBusServer* const server = g_dbus_server_new_sync(
            "unix:tmpdir=/tmp", G_DBUS_SERVER_FLAGS_NONE, guid, nullptr, nullptr, nullptr);
        g_free(guid);
        g_signal_connect(server, "new-connection", G_CALLBACK(OnClient), this);
        g_dbus_server_start(server);
        m_Address.set_value(g_dbus_server_get_client_address(server));
        for (;;)
        {
            g_main_context_iteration(context, TRUE);
        }
    }
    static gboolean OnClient(GDBusServer*, GDBusConnection* client, Portal* self)
    {
        self->m_Client = static_cast<GDBusConnection*>(g_object_ref(client));
        g_dbus_connection_add_filter(client, OnMessage, self, nullptr);
        return TRUE;
    }
    static GDBusMessage* OnMessage(GDBusConnection*, GDBusMessage* message, gboolean isIncoming,
                                   void* self)
    {
        if (!isIncoming ||
            g_dbus_message_get_message_type(message) != G_DBUS_MESSAGE_TYPE_METHOD_CALL)
        {
            return message;
        }
        const std::string member = g_dbus_message_get_member(message);
        GVariant* const   body =
            member == "Hello"          ? g_variant_new("(s)", ":1.1")
              : member == "GetNameOwner" ? g_variant_new("(s)", kSender)
              : member == "Read"
                  ? g_variant_new("(v)", g_variant_new_variant(g_variant_new_uint32(1)))
                  : nullptr;
        static_cast<Portal*>(self)->Send(
            body || member == "AddMatch"
                ? g_dbus_message_new_method_reply(message)
                : g_dbus_message_new_method_error_literal(
                      message, "org.freedesktop.DBus.Error.ServiceUnknown", "There is none"),
            body);
        g_object_unref(message);
        return nullptr;
    }
    void Send(GDBusMessage* message, GVariant* body)
    {
        g_dbus_message_set_sender(message, kSender);
        if (body)
        {
            g_dbus_message_set_body(message, body);
        }
        g_dbus_connection_send_message(m_Client, message, G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr,
                                       nullptr);
        g_object_unref(message);
    }

    std::promise<std::string> m_Address;
    GDBusConnection*          m_Client = nullptr; // the program's only one
};

class DesktopSchemeTest : public FrameTest
{
protected:
    ~DesktopSchemeTest() override { internal::OnDesktopChange(nullptr); }
};
} // namespace

TEST_F(DesktopSchemeTest, FollowsThePortal)
{
    static Portal& portal = *new Portal;
    wxColour       ground;
    internal::OnDesktopChange(
        [&]
        {
            SetColors(scheme_Desktop);
            ground = wxtGetColor(color_WindowBG);
        });
    Light();
    const wxColour light = wxtGetColor(color_WindowBG);
    Dark();
    const wxColour dark = wxtGetColor(color_WindowBG);
    Light();
    SetColors(scheme_Desktop);
    EXPECT_EQ(dark, wxtGetColor(color_WindowBG));
    portal.Tell("contrast", g_variant_new_uint32(2)); // none of its business
    // This bus tells of changes before anybody asks for them, and they are not listened to.
    EXPECT_TRUE(WaitFor(
        [&]
        {
            portal.Tell("color-scheme", g_variant_new_uint32(2));
            return ground == light;
        }));
    portal.Tell("color-scheme", g_variant_new_uint32(1));
    EXPECT_TRUE(WaitFor([&] { return ground == dark; }));
    // No preference, and what is none: as the theme is, which is light here.
    portal.Tell("color-scheme", g_variant_new_string("dark"));
    EXPECT_TRUE(WaitFor([&] { return ground == light; }));
}
