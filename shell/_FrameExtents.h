#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/gdicmn.h>

class wxTopLevelWindow;
class wxWindow;

/// What the window manager's frame adds to a window, as text for the settings: "left, right, top,
/// bottom", pixels. Empty for a window without one.
TOLVAN_API String _FrameExtentsOf(const wxWindow& window);

/// Gives a window that has not been shown yet that place and size, its frame included. The toolkit
/// learns how large the frame is only when the window is shown; without `frameExtents` from an
/// earlier time it would come up larger by that, or lose its place. False, and nothing is done,
/// when the text is none of ours.
TOLVAN_API bool _PlaceWithFrame(wxTopLevelWindow& window, const wxRect& place,
                                const String& frameExtents);

/// Keeps them under `name` in the options file.
TOLVAN_API void _SaveFrameExtents(const wxWindow& window, const String& name);
