#pragma once

#include <wx/colour.h>

#include <initializer_list>

namespace internal
{
/// `share` (0 to 1) of `a` and the rest of `b`, each channel truncated, so that the same mix gives
/// the same colour on every port. Invalid when either is.
wxColour MixColours(const wxColour& a, const wxColour& b, double share);
/// Each channel's complement; an invalid colour stays invalid.
wxColour InvertedColour(const wxColour& colour);

/// Contrast that is asked of text, and of marks that tell something without words.
/// @{
constexpr double k_TextContrast = 4.5;
constexpr double k_MarkContrast = 3.0;
/// @}

/// How well one is told from the other: 1 (not at all) to 21 (black from white).
double ContrastOf(const wxColour& a, const wxColour& b);
/// The first of the wanted colours that text on that ground can be read in (4.5 to 1); black or
/// white when there is none. An invalid colour is passed over.
wxColour ReadableOn(const wxColour& ground, std::initializer_list<wxColour> wanted);
/// The colour, lighter or darker by as little as text needs to be read (4.5 to 1) where the two are
/// its ink and its ground, either way round; as it is when either is invalid.
wxColour MadeReadable(const wxColour& colour, const wxColour& other);
} // namespace internal
