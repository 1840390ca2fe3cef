#pragma once

#include <wx/colour.h>

namespace internal
{
/// `share` (0 to 1) of `a` and the rest of `b`, each channel truncated, so that the same mix gives
/// the same colour on every port. Invalid when either is.
wxColour MixColours(const wxColour& a, const wxColour& b, double share);
/// Each channel's complement; an invalid colour stays invalid.
wxColour InvertedColour(const wxColour& colour);
} // namespace internal
