#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/colour.h>
#include <wx/gdicmn.h>

#include <initializer_list>
#include <vector>

class wxDC;

/// Text that can be read, and a mark of the keyboard's focus that can be seen, in every scheme.
/// Main thread only.

/// The colour, lighter or darker by as little as text needs to be read on that ground (4.5 to 1);
/// as it is when either is invalid.
TOLVAN_API wxColour wxtReadableColor(const wxColour& colour, const wxColour& ground);

/// A colour that is seen on each of these grounds (3 to 1): the selection's where that will do,
/// else that of text, else another one of the scheme; black or white when there is none.
TOLVAN_API wxColour wxtFocusColor(std::initializer_list<wxColour> grounds);
/// Name of such a colour, for a control that is coloured by names; that of text when there is none.
TOLVAN_API const String& wxtFocusColorName(const wxColour& ground);
/// What is filled to draw the mark, a frame along the edges of a row, a field or a view; nothing
/// where there is no room. Pixels.
TOLVAN_API std::vector<wxRect> wxtFocusShape(const wxRect& rect);
/// Draws the mark inside the rectangle, on these grounds.
TOLVAN_API void wxtDrawFocus(wxDC& dc, const wxRect& rect, std::initializer_list<wxColour> grounds);
