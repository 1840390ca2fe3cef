#pragma once

#include "vesta/Export.h"

#include <wx/colour.h>

/// `share` (0 to 1) of `a` and the rest of `b`, each channel truncated, so that the same mix gives
/// the same colour on every port. Invalid when either is.
TOLVAN_API wxColour _MixColours(const wxColour& a, const wxColour& b, double share);
