#include "internal/port/ColourPicking.h"

#include "internal/port/SignalData.h"

#include <wx/colordlg.h>

#include <gtk/gtk.h>

namespace internal
{
namespace
{
using Picked = std::function<void(const wxColour&)>;

// Both ports know these names, of which one calls them old.
G_GNUC_BEGIN_IGNORE_DEPRECATIONS
GtkWidget* SelectionOf(GtkWidget* dialog)
{
    return GTK_IS_COLOR_SELECTION_DIALOG(dialog)
               ? gtk_color_selection_dialog_get_color_selection(GTK_COLOR_SELECTION_DIALOG(dialog))
               : nullptr;
}

wxColour ColourOf(GtkColorSelection* selection)
{
    constexpr int kBytesShift = 8; // 16 bits a channel
    GdkColor      colour;
    gtk_color_selection_get_current_color(selection, &colour);
    const auto channel = [](guint16 value)
    { return static_cast<unsigned char>(value >> kBytesShift); };
    return wxColour(channel(colour.red), channel(colour.green), channel(colour.blue));
}
G_GNUC_END_IGNORE_DEPRECATIONS

void OnChange(GtkColorSelection* selection, Picked* picked)
{
    (*picked)(ColourOf(selection));
}
} // namespace

void OnColourPicked(wxColourDialog& dialog, const Picked& picked)
{
    if (GtkWidget* const selection = SelectionOf(dialog.GetHandle()))
    {
        Connect(selection, "color-changed", OnChange, new Picked(picked));
    }
}
} // namespace internal
