#include "internal/port/ToolkitStyle.h"

#include "internal/port/TopWindows.h"

#include <wx/window.h>

#include <cstring>
#include <utility>

namespace internal
{
namespace
{
// Of what follows the style, and whatever is in it with it: a class, or a part of the name.
const char* const kMark = "tolvan-scheme";

// Under which a window of the port keeps that it is looked at.
const char* const kWatched = "tolvan-style-watched";

#if GTK_CHECK_VERSION(3, 0, 0)
// Over that of the theme, and under that of the toolkit's own style sheets, which have the colours
// that a window was given.
constexpr unsigned kPriority = GTK_STYLE_PROVIDER_PRIORITY_APPLICATION - 50;

bool HasMark(GtkWidget* widget)
{
    return gtk_style_context_has_class(gtk_widget_get_style_context(widget), kMark);
}

void SetMark(GtkWidget* widget, bool isMarked)
{
    GtkStyleContext* const style = gtk_widget_get_style_context(widget);
    isMarked ? gtk_style_context_add_class(style, kMark)
             : gtk_style_context_remove_class(style, kMark);
}

GtkCssProvider* NewSheet()
{
    GtkCssProvider* const sheet = gtk_css_provider_new();
    gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(sheet),
                                              kPriority);
    return sheet;
}

void SetSheet(const ToolkitColours& colours)
{
    static GtkCssProvider* const s_Sheet = NewSheet();
    gtk_css_provider_load_from_data(s_Sheet, CssOf(colours).c_str(), -1, nullptr);
}
#else
// What the styles count for; the last that fits wins. Only names of classes are found there.
const char* const kRules = "widget \"*tolvan-scheme*\" style \"tolvan-window\"\n"
                           "widget \"*tolvan-scheme*.GtkButton*\" style \"tolvan-button\"\n"
                           "widget \"*tolvan-scheme*.GtkMenu*\" style \"tolvan-menu\"\n"
                           "widget \"*tolvan-scheme*.GtkMenuBar*\" style \"tolvan-bar\"\n"
                           "widget \"*tolvan-scheme*.Gtk?Scrollbar\" style \"tolvan-scrollbar\"\n"
                           "widget \"gtk-tooltip*tolvan-scheme*\" style \"tolvan-tooltip\"\n";

bool HasMark(GtkWidget* widget)
{
    return g_str_has_suffix(gtk_widget_get_name(widget), kMark);
}

void SetMark(GtkWidget* widget, bool isMarked)
{
    if (HasMark(widget) != isMarked)
    {
        const std::string name = gtk_widget_get_name(widget);
        gtk_widget_set_name(widget, isMarked ? (name + kMark).c_str()
                                             : name.substr(0, name.size() - strlen(kMark)).c_str());
        gtk_widget_reset_rc_styles(widget);
    }
}

bool Follows(GtkWidget* widget);

decltype(GtkStyleClass::draw_layout) s_DrawText = nullptr; // the port's

// What is disabled gets its colour and no more: the white that the port puts below it would be the
// brightest there is in a dark scheme.
void DrawText(GtkStyle* style, GdkWindow* window, GtkStateType state, gboolean isTyped,
              GdkRectangle* area, GtkWidget* widget, const char* detail, int x, int y,
              PangoLayout* text)
{
    if (state != GTK_STATE_INSENSITIVE || !Follows(widget))
    {
        s_DrawText(style, window, state, isTyped, area, widget, detail, x, y, text);
        return;
    }
    cairo_t* const drawing = gdk_cairo_create(window);
    if (area)
    {
        gdk_cairo_rectangle(drawing, area);
        cairo_clip(drawing);
    }
    gdk_cairo_set_source_color(drawing, &(isTyped ? style->text : style->fg)[state]);
    cairo_move_to(drawing, x, y);
    pango_cairo_show_layout(drawing, text);
    cairo_destroy(drawing);
}

// That of the plain drawing, which is all that the styles use.
void SetRules()
{
    gtk_rc_parse_string(kRules);
    auto* const drawing = GTK_STYLE_CLASS(g_type_class_ref(GTK_TYPE_STYLE));
    s_DrawText = std::exchange(drawing->draw_layout, DrawText);
}

void SetSheet(const ToolkitColours& colours)
{
    gtk_rc_parse_string(RcOf(colours).c_str());
    static const bool s_HasRules = (SetRules(), true);
    static_cast<void>(s_HasRules);
    gtk_rc_reset_styles(gtk_settings_get_default());
}
#endif

bool Follows(GtkWidget* widget)
{
    for (; widget; widget = gtk_widget_get_parent(widget))
    {
        if (HasMark(widget))
        {
            return true;
        }
    }
    return false;
}

// The window that got the keyboard last; null once it is gone.
GtkWidget* s_Latest = nullptr;

bool CanBeOwner(GtkWidget* window)
{
    return gtk_window_get_window_type(GTK_WINDOW(window)) == GTK_WINDOW_TOPLEVEL &&
           gtk_widget_get_visible(window);
}

void Remember(GtkWidget* window)
{
    if (CanBeOwner(window))
    {
        g_set_weak_pointer(&s_Latest, window);
    }
}

// While the keyboard is on its way from one window to the next, none is active: the latest is as
// good, or any that can be seen.
GtkWidget* LikelyOwner()
{
    if (GtkWidget* const active = ActiveWindow())
    {
        return active;
    }
    return s_Latest && CanBeOwner(s_Latest) ? s_Latest : FindTopWindow(CanBeOwner);
}

// One that the toolkit opens at the pointer belongs, for the port, to nothing.
GtkWidget* OwnerOfMenu(GtkMenu* menu)
{
    GtkWidget* const owner = gtk_menu_get_attach_widget(menu);
    return owner ? owner : LikelyOwner();
}

// What a window was opened for; null for one that is on its own.
GtkWidget* OwnerOf(GtkWindow* window)
{
    GtkWidget* const inside = gtk_bin_get_child(GTK_BIN(window));
    if (GTK_IS_MENU(inside))
    {
        return OwnerOfMenu(GTK_MENU(inside));
    }
    GtkWindow* const owner = gtk_window_get_transient_for(window);
    // Those of GTK 2 have no owner.
    const bool isTooltip = gtk_window_get_type_hint(window) == GDK_WINDOW_TYPE_HINT_TOOLTIP;
    return owner ? GTK_WIDGET(owner) : isTooltip ? LikelyOwner() : nullptr;
}

// That of the tooltips serves one window after the other. A message that belongs to no window comes
// before the first one of the program.
void FollowOwner(GtkWindow* window)
{
    GtkWidget* const owner = OwnerOf(window);
    SetMark(GTK_WIDGET(window), owner ? Follows(owner) : GTK_IS_MESSAGE_DIALOG(window));
}

// Those that follow by themselves have another value there.
gboolean OnShow(GSignalInvocationHint*, guint, const GValue* values, void*)
{
    GObject* const shown = G_OBJECT(g_value_get_object(values));
    if (!GTK_IS_WINDOW(shown))
    {
        return TRUE; // the next one too
    }
    void* const watched = g_object_get_data(shown, kWatched);
    if (!watched || watched == shown)
    {
        FollowOwner(GTK_WINDOW(shown));
        if (!watched)
        {
            g_object_set_data(shown, kWatched, shown);
            g_signal_connect(shown, "notify::transient-for", G_CALLBACK(FollowOwner), nullptr);
        }
    }
    return TRUE;
}

gboolean OnFocus(GSignalInvocationHint*, guint, const GValue* values, void*)
{
    void* const focused = g_value_get_object(values);
    if (GTK_IS_WINDOW(focused))
    {
        Remember(GTK_WIDGET(focused));
    }
    return TRUE;
}

gulong Hook(const char* signal, GSignalEmissionHook hook)
{
    return g_signal_add_emission_hook(g_signal_lookup(signal, GTK_TYPE_WIDGET), 0, hook, nullptr,
                                      nullptr);
}

void WatchWindows()
{
    static const gulong s_Hooks[] = {Hook("show", OnShow), Hook("focus-in-event", OnFocus)};
    static_cast<void>(s_Hooks);
}
} // namespace

void StyleToolkit(const ToolkitColours& colours)
{
    WatchWindows();
    SetSheet(colours);
}

void FollowStyle(wxWindow& window)
{
    GtkWidget* const widget = window.GetHandle();
    SetMark(widget, true);
    g_object_set_data(G_OBJECT(widget), kWatched, const_cast<char*>(kMark));
}
} // namespace internal
