#include "internal/port/PortStyle.h"

#include <wx/colour.h>
#include <wx/string.h>
#include <wx/window.h>

#include <dlfcn.h>
#include <glib-object.h>

namespace internal
{
namespace
{
// Style sheets of a priority over that of the toolkit's own.
constexpr unsigned int kStylePriority = 650;

// By name: the GTK 2 port has none of these.
template <class Function> Function* PortFunction(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_DEFAULT, name));
}

wxString Css(const wxColour& colour)
{
    return colour.IsOk() ? colour.GetAsString(wxC2S_CSS_SYNTAX) : wxString("transparent");
}

// The style sheet that `holder` keeps under `key`, filled with the text. Null: the port has none.
// `isNew`: it has yet to be added where it is to count.
void* StyleSheet(GObject* holder, const char* key, const wxString& text, bool& isNew)
{
    static auto* const create = PortFunction<void*()>("gtk_css_provider_new");
    static auto* const load =
        PortFunction<int(void*, const char*, ssize_t, void*)>("gtk_css_provider_load_from_data");
    if (!holder || !create || !load)
    {
        return nullptr;
    }
    void* provider = g_object_get_data(holder, key);
    isNew = !provider;
    if (isNew)
    {
        provider = create();
        g_object_set_data_full(holder, key, provider, g_object_unref);
    }
    load(provider, text.utf8_str(), -1, nullptr);
    return provider;
}

// What the user types into: in a field of several lines it lies inside the scrolled window.
GObject* InnerWidget(wxWindow& field)
{
    auto* const widget = reinterpret_cast<GObject*>(field.GetHandle());
    const auto  child = PortFunction<void*(void*)>("gtk_bin_get_child");
    const GType bin = g_type_from_name("GtkScrolledWindow");
    if (!widget || !child || !bin || !g_type_is_a(G_OBJECT_TYPE(widget), bin))
    {
        return widget;
    }
    return static_cast<GObject*>(child(widget));
}

// What has the user's input to itself, or null.
GObject* Grabbing()
{
    static auto* const grabbing = PortFunction<void*()>("gtk_grab_get_current");
    return grabbing ? static_cast<GObject*>(grabbing()) : nullptr;
}

bool IsA(GObject* object, const char* className)
{
    const GType type = g_type_from_name(className);
    return object && type && g_type_is_a(G_OBJECT_TYPE(object), type);
}

// The first list inside the widget, or the widget itself; null without one.
GObject* ListInside(GObject* widget)
{
    static auto* const children = PortFunction<GList*(void*)>("gtk_container_get_children");
    if (!children || !IsA(widget, "GtkContainer") || IsA(widget, "GtkTreeView"))
    {
        return IsA(widget, "GtkTreeView") ? widget : nullptr;
    }
    GObject*     found = nullptr;
    GList* const all = children(widget);
    for (const GList* one = all; one && !found; one = one->next)
    {
        found = ListInside(static_cast<GObject*>(one->data));
    }
    g_list_free(all);
    return found;
}

// As the port lays it out.
struct RowOfList
{
    int   stamp;
    void* data[3];
};
} // namespace

void StyleField(wxWindow& field, const FieldColours& colours)
{
    const wxString text =
        wxString::Format("@define-color placeholder_text_color %s;"
                         "entry { padding: 0 3px; border-image: none; box-shadow: none; }"
                         "entry:focus { box-shadow: inset 0 0 0 1px %s; }"
                         "selection, *:selected { color: %s; background-color: %s; }",
                         Css(colours.hint), Css(colours.focus), Css(colours.selectedInk),
                         Css(colours.selectedGround));
    static auto* const contextOf = PortFunction<void*(void*)>("gtk_widget_get_style_context");
    static auto* const add =
        PortFunction<void(void*, void*, unsigned int)>("gtk_style_context_add_provider");
    GObject* const widget = InnerWidget(field);
    bool           isNew = false;
    void* const    sheet = StyleSheet(widget, "tolvan-field-style", text, isNew);
    if (sheet && isNew && contextOf && add)
    {
        add(contextOf(widget), sheet, kStylePriority);
    }
}

void StyleCompletions(const wxColour& ink, const wxColour& ground, const wxColour& selectedInk,
                      const wxColour& selectedGround)
{
    // The only lists that lie this way, right under a window.
    const wxString text = wxString::Format(
        "window > frame > box treeview { color: %s; background-color: %s; }"
        "window > frame > box treeview:selected { color: %s; background-color: %s; }",
        Css(ink), Css(ground), Css(selectedInk), Css(selectedGround));
    static auto* const screenOf = PortFunction<void*()>("gdk_screen_get_default");
    static auto* const add =
        PortFunction<void(void*, void*, unsigned int)>("gtk_style_context_add_provider_for_screen");
    GObject* const screen = screenOf ? static_cast<GObject*>(screenOf()) : nullptr;
    bool           isNew = false;
    void* const    sheet = StyleSheet(screen, "tolvan-completions-style", text, isNew);
    if (sheet && isNew && add)
    {
        add(screen, sheet, kStylePriority);
    }
}

bool CompletionsAreOpen()
{
    constexpr int  kPopup = 1; // the kind of window; a dialog that has the keys is of another
    GObject* const widget = Grabbing();
    int            kind = 0;
    if (IsA(widget, "GtkWindow"))
    {
        g_object_get(widget, "type", &kind, nullptr);
    }
    return kind == kPopup;
}

wxString MarkedCompletion()
{
    static auto* const selectionOf = PortFunction<void*(void*)>("gtk_tree_view_get_selection");
    static auto* const selected =
        PortFunction<int(void*, void**, RowOfList*)>("gtk_tree_selection_get_selected");
    static auto* const get = PortFunction<void(void*, RowOfList*, ...)>("gtk_tree_model_get");
    GObject* const     list = CompletionsAreOpen() ? ListInside(Grabbing()) : nullptr;
    void*              model = nullptr;
    RowOfList          row{};
    if (!list || !selectionOf || !selected || !get || !selected(selectionOf(list), &model, &row))
    {
        return wxString();
    }
    constexpr int kText = 0;
    constexpr int kEnd = -1;
    char*         text = nullptr;
    get(model, &row, kText, &text, kEnd);
    const wxString marked = wxString::FromUTF8(text ? text : "");
    g_free(text);
    return marked;
}
} // namespace internal
