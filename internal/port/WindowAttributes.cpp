#include "internal/port/WindowAttributes.h"

#include <gtk/gtk.h>
#include <wx/toplevel.h>

#include <optional>

namespace internal
{
namespace
{
// Never destroyed: at the program's end the toolkit's fonts are gone before it could be.
std::optional<wxVisualAttributes>& Kept()
{
    static auto* const s_Kept = new std::optional<wxVisualAttributes>;
    return *s_Kept;
}

void Forget()
{
    Kept().reset();
}

// Any of the toolkit's settings may be one of the theme's or of its fonts.
bool WatchSettings()
{
    GtkSettings* const settings = gtk_settings_get_default();
    return settings && g_signal_connect(settings, "notify", G_CALLBACK(&Forget), nullptr) != 0;
}
} // namespace

wxVisualAttributes TopLevelAttributes()
{
    static const bool s_IsWatched = WatchSettings();
    if (!s_IsWatched)
    {
        return wxTopLevelWindow::GetClassDefaultAttributes();
    }
    std::optional<wxVisualAttributes>& kept = Kept();
    if (!kept)
    {
        kept = wxTopLevelWindow::GetClassDefaultAttributes();
    }
    return *kept;
}
} // namespace internal
