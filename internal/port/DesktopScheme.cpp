#include "internal/port/DesktopScheme.h"

#include <wx/app.h>
#include <wx/settings.h>

#include <gio/gio.h>
#include <gtk/gtk.h>

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <utility>

namespace internal
{
namespace
{
const char* const kPortal = "org.freedesktop.portal.Desktop";
const char* const kObject = "/org/freedesktop/portal/desktop";
const char* const kInterface = "org.freedesktop.portal.Settings";
const char* const kNamespace = "org.freedesktop.appearance";
const char* const kKey = "color-scheme";

constexpr int                       kCallMs = 300;
constexpr std::chrono::milliseconds kPatience(330); // with the way to the bus

std::function<void()> g_OnChange;

// The portal's numbers.
enum class Wish : guint32
{
    none,
    dark,
    light
};

// None, too, for what is no such number.
Wish WishOf(GVariant* value)
{
    Wish wish = Wish::none;
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_VARIANT))
    {
        // Portals of some age wrap it twice.
        GVariant* const inner = g_variant_get_variant(value);
        wish = WishOf(inner);
        g_variant_unref(inner);
    }
    else if (g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32))
    {
        const auto number = static_cast<Wish>(g_variant_get_uint32(value));
        wish = number == Wish::dark || number == Wish::light ? number : Wish::none;
    }
    return wish;
}

struct Answer
{
    GDBusConnection* bus = nullptr;
    Wish             wish = Wish::none;
};

Answer AskPortal()
{
    Answer answer;
    answer.bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    if (!answer.bus)
    {
        return answer;
    }
    g_dbus_connection_set_exit_on_close(answer.bus, FALSE); // the bus ends before the program does
    GVariant* const reply = g_dbus_connection_call_sync(
        answer.bus, kPortal, kObject, kInterface, "Read", g_variant_new("(ss)", kNamespace, kKey),
        G_VARIANT_TYPE("(v)"), G_DBUS_CALL_FLAGS_NONE, kCallMs, nullptr, nullptr);
    if (reply)
    {
        GVariant* const value = g_variant_get_child_value(reply, 0);
        answer.wish = WishOf(value);
        g_variant_unref(value);
        g_variant_unref(reply);
    }
    return answer;
}

class Desktop
{
public:
    static Desktop& Get()
    {
        static Desktop* const s_Desktop = new Desktop; // outlives the toolkit, which may still ask
        return *s_Desktop;
    }
    bool IsDark() const
    {
        return m_Wish == Wish::none ? wxSystemSettings::GetAppearance().IsDark()
                                    : m_Wish == Wish::dark;
    }

private:
    Desktop()
    {
        auto                asking = std::make_shared<Asking>();
        std::future<Answer> answer = asking->answer.get_future();
        std::thread([asking] { asking->Run(); }).detach();
        const bool isInTime = answer.wait_for(kPatience) == std::future_status::ready;
        if (isInTime || asking->isLate.exchange(true))
        {
            Listen(answer.get());
        }
        if (GtkSettings* const settings = gtk_settings_get_default())
        {
            for (const char* const signal :
                 {"notify::gtk-theme-name", "notify::gtk-application-prefer-dark-theme"})
            {
                g_signal_connect_swapped(settings, signal, G_CALLBACK(OnTheme), this);
            }
        }
        m_Told = IsDark();
    }

    // On a thread of its own: a bus that hangs has no deadline. An answer that nobody waits for any
    // more comes through the main loop.
    struct Asking
    {
        void Run()
        {
            const Answer found = AskPortal();
            answer.set_value(found);
            if (isLate.exchange(true))
            {
                g_idle_add(OnLateAnswer, new Answer(found));
            }
        }

        std::promise<Answer> answer;
        std::atomic<bool>    isLate{false}; ///< True: either side has come to its end.
    };

    static gboolean OnLateAnswer(void* data)
    {
        const std::unique_ptr<Answer> answer(static_cast<Answer*>(data));
        Get().Listen(*answer);
        Get().Tell();
        return G_SOURCE_REMOVE;
    }

    void Listen(const Answer& answer)
    {
        m_Wish = answer.wish;
        if (answer.bus)
        {
            g_dbus_connection_signal_subscribe(
                answer.bus, kPortal, kInterface, "SettingChanged", kObject, kNamespace,
                G_DBUS_SIGNAL_FLAGS_MATCH_ARG0_NAMESPACE, OnSetting, this, nullptr);
        }
    }

    static void OnSetting(GDBusConnection*, const char*, const char*, const char*, const char*,
                          GVariant* arguments, void* data)
    {
        if (!g_variant_is_of_type(arguments, G_VARIANT_TYPE("(ssv)")))
        {
            return;
        }
        const char* key = nullptr;
        GVariant*   value = nullptr;
        g_variant_get(arguments, "(&s&sv)", nullptr, &key, &value);
        if (std::string(key) == kKey)
        {
            auto* const self = static_cast<Desktop*>(data);
            self->m_Wish = WishOf(value);
            OnTheme(self);
        }
        g_variant_unref(value);
    }

    // Later: the toolkit has yet to look at its theme again.
    static void OnTheme(Desktop* self)
    {
        if (wxTheApp)
        {
            wxTheApp->CallAfter([self] { self->Tell(); });
        }
    }

    void Tell()
    {
        const bool isDark = IsDark();
        if (std::exchange(m_Told, isDark) != isDark && g_OnChange)
        {
            g_OnChange();
        }
    }

    Wish m_Wish = Wish::none;
    bool m_Told = false;
};

} // namespace

bool IsDesktopDark()
{
    return Desktop::Get().IsDark();
}

void OnDesktopChange(std::function<void()> changed)
{
    g_OnChange = std::move(changed);
}
} // namespace internal
