#include "internal/port/MenuKeys.h"

#include <wx/event.h>
#include <wx/frame.h>
#include <wx/menuitem.h>

#include <gtk/gtk.h>

#include <algorithm>

namespace internal
{
namespace
{
const struct
{
    int         key;
    const char* name;
} kNames[] = {{WXK_ESCAPE, "Escape"}, {WXK_HOME, "Home"},     {WXK_END, "End"},
              {WXK_PAGEUP, "Prior"},  {WXK_PAGEDOWN, "Next"}, {WXK_DELETE, "Delete"},
              {WXK_INSERT, "Insert"}, {WXK_RETURN, "Return"}, {WXK_TAB, "Tab"},
              {WXK_SPACE, "space"},   {WXK_LEFT, "Left"},     {WXK_RIGHT, "Right"},
              {WXK_UP, "Up"},         {WXK_DOWN, "Down"}};

// 0 when there is none.
guint PortKey(int key)
{
    if (key >= WXK_F1 && key <= WXK_F24)
    {
        return gdk_keyval_from_name(wxString::Format("F%d", key - WXK_F1 + 1).utf8_str());
    }
    for (const auto& each : kNames)
    {
        if (each.key == key)
        {
            return gdk_keyval_from_name(each.name);
        }
    }
    return key > WXK_SPACE && key < WXK_DELETE ? gdk_keyval_to_lower(static_cast<guint>(key)) : 0;
}

GdkModifierType PortModifiers(int flags)
{
    return static_cast<GdkModifierType>((flags & wxACCEL_CTRL ? GDK_CONTROL_MASK : 0) |
                                        (flags & wxACCEL_SHIFT ? GDK_SHIFT_MASK : 0) |
                                        (flags & wxACCEL_ALT ? GDK_MOD1_MASK : 0));
}
} // namespace

bool WriteKey(const wxMenuItem& item, const wxAcceleratorEntry& key)
{
    static const char* const kWritten = "tolvan-written-key";
    // Of no window, so that nothing but the items' texts knows of the keys.
    static GtkAccelGroup* const s_Group = gtk_accel_group_new();
    GtkWidget* const            widget = item.GetMenuItem();
    const guint                 port = PortKey(key.GetKeyCode());
    if (!widget || port == 0 || g_object_get_data(G_OBJECT(widget), kWritten))
    {
        return false;
    }
    gtk_widget_add_accelerator(widget, "activate", s_Group, port, PortModifiers(key.GetFlags()),
                               GTK_ACCEL_VISIBLE);
    g_object_set_data(G_OBJECT(widget), kWritten, widget);
    return true;
}

// By what is written on the key in any of the keyboard's scripts: the one in use may lack the
// letters that menus name.
bool PressMenuKey(const wxFrame& frame, const wxKeyEvent& key)
{
    const int flags = (key.ControlDown() ? wxACCEL_CTRL : 0) |
                      (key.ShiftDown() ? wxACCEL_SHIFT : 0) | (key.AltDown() ? wxACCEL_ALT : 0);
    const auto press = [&](guint value)
    {
        return gtk_accel_groups_activate(G_OBJECT(frame.GetHandle()), gdk_keyval_to_lower(value),
                                         PortModifiers(flags)) != FALSE;
    };
    guint* values = nullptr;
    gint   count = 0;
    gdk_keymap_get_entries_for_keycode(
        gdk_keymap_get_for_display(gtk_widget_get_display(frame.GetHandle())), key.GetRawKeyFlags(),
        nullptr, &values, &count);
    const bool isPressed = press(key.GetRawKeyCode()) || std::any_of(values, values + count, press);
    g_free(values);
    return isPressed;
}
} // namespace internal
