#pragma once

#include <wx/colour.h>

#include <string>

class wxWindow;

namespace internal
{
/// Colours of what the port draws by itself: menus, scrollbars, tooltips, its own dialogs.
struct ToolkitColours
{
    wxColour ink;
    wxColour greyInk; ///< Of what is disabled.
    wxColour ground;  ///< Of windows.
    wxColour raised;  ///< Of menus and of what is typed or picked in.
    wxColour sunk;    ///< Of tooltips and of the troughs of scrollbars.
    wxColour buttonInk;
    wxColour button;
    wxColour selectedInk;
    wxColour selected;

    bool operator==(const ToolkitColours& other) const;
    bool operator!=(const ToolkitColours& other) const { return !(*this == other); }
};

/// The style sheet of the port for these colours, all of which are valid: CSS for GTK 3, rc text
/// for GTK 2. It counts for nothing but the windows that `FollowStyle` was called for.
/// @{
std::string CssOf(const ToolkitColours& colours);
std::string RcOf(const ToolkitColours& colours);
/// @}

/// Has all that follows the style drawn in these colours from now on. Every widget of the program
/// is looked at again, so once for each change.
void StyleToolkit(const ToolkitColours& colours);

/// Lets what the port draws in the window follow the style, and, if it is a top-level one, whatever
/// is opened for it: its menus, tooltips, pop-ups and dialogs. A stock message box that no window
/// owns follows it too. Others of the program stay as the theme has them.
void FollowStyle(wxWindow& window);
} // namespace internal
