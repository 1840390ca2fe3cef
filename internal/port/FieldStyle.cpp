#include "internal/port/FieldStyle.h"

#include "internal/port/Completions.h"

#include <wx/colour.h>
#include <wx/string.h>
#include <wx/window.h>

#include <gtk/gtk.h>

namespace internal
{
#if GTK_CHECK_VERSION(3, 0, 0)
namespace
{
// Over that of the toolkit's own style sheets.
constexpr unsigned kPriority = GTK_STYLE_PROVIDER_PRIORITY_APPLICATION + 50;

// Under which a field keeps its style sheet.
const char* const kSheet = "tolvan-field-style";

wxString Css(const wxColour& colour)
{
    return colour.IsOk() ? colour.GetAsString(wxC2S_CSS_SYNTAX) : wxString("transparent");
}

// For the field and for its list of completions.
wxString SheetText(const FieldColours& colours)
{
    return wxString::Format("@define-color placeholder_text_color %s;"
                            "entry { padding: 0 3px; border-image: none; box-shadow: none; }"
                            "entry:focus { box-shadow: inset 0 0 0 1px %s; }"
                            "treeview { color: %s; background-color: %s; }"
                            "selection, *:selected { color: %s; background-color: %s; }",
                            Css(colours.hint), Css(colours.focus), Css(colours.ink),
                            Css(colours.ground), Css(colours.selectedInk),
                            Css(colours.selectedGround));
}

// What the user types into: in a field of several lines it lies inside the scrolled window.
GtkWidget* InnerWidget(const wxWindow& field)
{
    GtkWidget* const widget = field.GetHandle();
    return GTK_IS_SCROLLED_WINDOW(widget) ? gtk_bin_get_child(GTK_BIN(widget)) : widget;
}

// The sheet counts for the one widget only, not for what lies in it.
void AddSheet(GtkWidget* widget, void* sheet)
{
    gtk_style_context_add_provider(gtk_widget_get_style_context(widget), GTK_STYLE_PROVIDER(sheet),
                                   kPriority);
}

// Called when the field gets completions, or others than before.
void StyleCompletions(GtkWidget* field)
{
    if (GtkWidget* const list = CompletionsOf(field))
    {
        AddSheet(list, g_object_get_data(G_OBJECT(field), kSheet));
    }
}
} // namespace

void StyleField(wxWindow& field, const FieldColours& colours)
{
    GtkWidget* const widget = InnerWidget(field);
    if (!widget)
    {
        return;
    }
    const std::string text = SheetText(colours).utf8_string();
    if (void* const sheet = g_object_get_data(G_OBJECT(widget), kSheet))
    {
        gtk_css_provider_load_from_data(GTK_CSS_PROVIDER(sheet), text.c_str(), -1, nullptr);
        return;
    }
    GtkCssProvider* const sheet = gtk_css_provider_new();
    g_object_set_data_full(G_OBJECT(widget), kSheet, sheet, g_object_unref);
    gtk_css_provider_load_from_data(sheet, text.c_str(), -1, nullptr);
    AddSheet(widget, sheet);
    StyleCompletions(widget);
    if (GTK_IS_ENTRY(widget))
    {
        g_signal_connect(widget, "notify::completion", G_CALLBACK(StyleCompletions), nullptr);
    }
}

bool ShowHint(wxWindow&, const wxString&)
{
    return false;
}
#else
namespace
{
// Under which a field keeps the colours of its hint, its frame and its list of completions, and the
// list that it has them.
const char* const kColours = "tolvan-field-colours";

// Under which it keeps its hint, as UTF-8.
const char* const kHint = "tolvan-field-hint";

struct KeptColours
{
    wxColour ink;
    wxColour ground;
    wxColour hint;
    wxColour selectedInk;
    wxColour selectedGround;
    wxColour focus;
};

// Around the text: room for the frame.
constexpr GtkBorder kMargins = {4, 4, 2, 2};

const KeptColours& ColoursOf(GtkWidget* field)
{
    return *static_cast<const KeptColours*>(g_object_get_data(G_OBJECT(field), kColours));
}

// Null for the theme's own.
const GdkColor* ColourOf(const wxColour& colour)
{
    return colour.IsOk() ? colour.GetColor() : nullptr;
}

void StyleCompletions(GtkWidget* field)
{
    GtkWidget* const list = CompletionsOf(field);
    if (!list)
    {
        return;
    }
    g_object_set_data(G_OBJECT(list), kColours, list);
    const KeptColours& colours = ColoursOf(field);
    for (const GtkStateType state : {GTK_STATE_NORMAL, GTK_STATE_SELECTED, GTK_STATE_ACTIVE})
    {
        const bool isNormal = state == GTK_STATE_NORMAL;
        gtk_widget_modify_text(list, state, ColourOf(isNormal ? colours.ink : colours.selectedInk));
        gtk_widget_modify_base(list, state,
                               ColourOf(isNormal ? colours.ground : colours.selectedGround));
    }
}

// Called when something is typed: nobody tells that a field has got completions, or others.
void StyleNewCompletions(GtkWidget* field)
{
    GtkWidget* const list = CompletionsOf(field);
    if (list && !g_object_get_data(G_OBJECT(list), kColours))
    {
        StyleCompletions(field);
    }
}

// What is being composed counts as text.
bool HoldsText(GtkEntry* entry)
{
    return *pango_layout_get_text(gtk_entry_get_layout(entry)) != '\0';
}

// After the port has drawn the field: where its text would begin.
gboolean DrawHint(GtkWidget* field, const GdkEventExpose* event, void*)
{
    auto* const entry = GTK_ENTRY(field);
    GdkWindow*  area = gtk_entry_get_text_window(entry);
    if (event->window != area || HoldsText(entry))
    {
        return FALSE;
    }
    wxPoint inField, ofArea;
    gtk_entry_get_layout_offsets(entry, &inField.x, &inField.y);
    gdk_window_get_position(area, &ofArea.x, &ofArea.y);
    const wxPoint      place = inField - ofArea;
    const auto*        hint = static_cast<const char*>(g_object_get_data(G_OBJECT(field), kHint));
    PangoLayout* const layout = gtk_widget_create_pango_layout(field, hint);
    gdk_draw_layout_with_colors(area, gtk_widget_get_style(field)->text_gc[GTK_STATE_NORMAL],
                                place.x, place.y, layout, ColourOf(ColoursOf(field).hint), nullptr);
    g_object_unref(layout);
    return FALSE; // whoever else draws may go on
}

// After the port has drawn the field, which has no frame of its own.
gboolean DrawFocus(GtkWidget* field, const GdkEventExpose* event, void*)
{
    GdkWindow* const      area = gtk_entry_get_text_window(GTK_ENTRY(field));
    const GdkColor* const colour = ColourOf(ColoursOf(field).focus);
    if (event->window == area && colour && gtk_widget_has_focus(field))
    {
        cairo_t* const drawing = gdk_cairo_create(area);
        gdk_cairo_set_source_color(drawing, colour);
        cairo_set_line_width(drawing, 1);
        cairo_rectangle(drawing, 0.5, 0.5, gdk_window_get_width(area) - 1,
                        gdk_window_get_height(area) - 1);
        cairo_stroke(drawing);
        cairo_destroy(drawing);
    }
    return FALSE; // whoever else draws may go on
}
} // namespace

// The port draws the text and its ground itself in the window's colours.
void StyleField(wxWindow& field, const FieldColours& colours)
{
    GtkWidget* const widget = field.GetHandle();
    if (!GTK_IS_ENTRY(widget))
    {
        return;
    }
    const bool isNew = !g_object_get_data(G_OBJECT(widget), kColours);
    g_object_set_data_full(G_OBJECT(widget), kColours,
                           new KeptColours{colours.ink, colours.ground, colours.hint,
                                           colours.selectedInk, colours.selectedGround,
                                           colours.focus},
                           [](void* kept) { delete static_cast<KeptColours*>(kept); });
    gtk_widget_queue_draw(widget); // the hint and the frame
    StyleCompletions(widget);
    if (isNew)
    {
        gtk_entry_set_inner_border(GTK_ENTRY(widget), &kMargins);
        g_signal_connect_after(widget, "expose-event", G_CALLBACK(DrawFocus), nullptr);
        g_signal_connect(widget, "changed", G_CALLBACK(StyleNewCompletions), nullptr);
    }
}

bool ShowHint(wxWindow& field, const wxString& hint)
{
    GtkWidget* const widget = field.GetHandle();
    if (!GTK_IS_ENTRY(widget))
    {
        return false;
    }
    if (!g_object_get_data(G_OBJECT(widget), kHint))
    {
        g_signal_connect_after(widget, "expose-event", G_CALLBACK(DrawHint), nullptr);
    }
    g_object_set_data_full(G_OBJECT(widget), kHint, g_strdup(hint.utf8_str()), g_free);
    gtk_widget_queue_draw(widget);
    return true;
}
#endif
} // namespace internal
