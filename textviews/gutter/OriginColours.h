#pragma once

#include <wx/colour.h>

namespace textviews
{
/// The colour of a place that lines come from, counted from 0, which can be read on that ground: of
/// the scheme, and another one for each as far as it has some. Main thread.
wxColour OriginColour(int place, const wxColour& ground);

/// Places that have a colour each; that of the next one is the first's.
constexpr int k_OriginColours = 12;
} // namespace textviews
