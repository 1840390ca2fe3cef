#pragma once

#include "vesta/String.h"

#include <wx/gdicmn.h>

#include <functional>
#include <optional>

class wxWindow;

namespace internal
{
/// The text of a geometry in the settings: "x, y, width, height", pixels.
String FormatGeometry(const wxRect& geometry);
/// The geometry of such a text; none when it has fewer than four numbers, or numbers that no window
/// can have. A piece that is no number counts as 0; further pieces are ignored.
std::optional<wxRect> ParseGeometry(const String& text);

/// What to store for a window at `current`. Where a program cannot place its windows it does not
/// know where they are either: the stored position stays then, and only the size is new.
String GeometryToStore(const String& stored, const wxRect& current, bool positionKnown);

/// `size`, but at least half as large as `reference`, in the middle of `area`.
wxRect CentredOn(const wxRect& area, const wxSize& reference, const wxSize& size);

/// The place moved into the area, and made smaller where it is larger.
wxRect MovedInto(const wxRect& area, const wxRect& place);

/// The displays, as functions that a test can replace. Main thread.
struct Displays
{
    std::function<int(const wxWindow*)> indexOf;       ///< Display of a window, or wxNOT_FOUND.
    std::function<wxRect(int index)>    clientArea;    ///< Pixels, screen coordinates.
    std::function<bool()>               placesWindows; ///< Whether programs place their windows.

    static Displays& Get(); ///< The ones in use; at first the real ones.
    static Displays  Real();
};

/// Client area of the display that the window lies on (of the first one when it is on none).
wxRect DisplayAreaOf(const wxWindow* window);
} // namespace internal
