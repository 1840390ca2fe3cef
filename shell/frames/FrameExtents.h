#pragma once

#include "vesta/String.h"

#include <wx/gdicmn.h>

class wxTopLevelWindow;
class wxWindow;

namespace shell
{
/// What the window manager's frame adds to a window, as text for the settings: "left, right, top,
/// bottom", pixels. Empty for a window without one.
String FrameExtentsOf(const wxWindow& window);

/// Gives a window that has not been shown yet that place and size, its frame included. The toolkit
/// learns how large the frame is only when the window is shown; without `frameExtents` from an
/// earlier time it would come up larger by that, or lose its place. False, and nothing is done,
/// when the text is none of ours.
bool PlaceWithFrame(wxTopLevelWindow& window, const wxRect& place, const String& frameExtents);

/// Keeps them under `name` in the options file.
void SaveFrameExtents(const wxWindow& window, const String& name);
} // namespace shell
