#pragma once

#include "vesta/Export.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>

class wxDC;
class wxWindow;

/// Arithmetic and drawing with colours. Main thread only.

/// Whether the window lies in the active top-level window and no menu is open: the views draw their
/// selection lively then. Null counts as a window without a top-level one.
TOLVAN_API bool ParentIsActive(wxWindow* window);

/// Each channel plus its offset, kept within 0 to 255; opaque. An invalid colour stays invalid.
TOLVAN_API wxColour OffsetColor(const wxColour& colour, int red, int green, int blue);
/// 0.7 of the colour and 0.3 of the stock light grey, truncated. An invalid colour stays invalid.
TOLVAN_API wxColour Disabled(const wxColour& colour);
/// Each channel plus 25. An invalid colour stays invalid.
TOLVAN_API wxColour Hilight(const wxColour& colour);

/// Fills the rectangle with steps of colour from `outer` at the edges that shrink towards `inner`;
/// without a shrinking edge one plain rectangle of `inner`. `exponent` bends the way between the
/// two. An empty rectangle or an invalid colour draws nothing.
TOLVAN_API void DrawGradedRectangle(wxDC& dc, const wxRect& rect, const wxColour& inner,
                                    const wxColour& outer, float exponent, bool shrinkBottom,
                                    bool shrinkTop);
/// The elliptic arc in the rectangle from one angle to the other (degrees, anticlockwise from three
/// o'clock), with the current pen and brush; a pie slice unless the brush is transparent. An empty
/// rectangle, or an angle that is no finite number, draws nothing.
TOLVAN_API void DrawCircle(wxDC& dc, const wxRect& rect, double startAngle, double endAngle);
