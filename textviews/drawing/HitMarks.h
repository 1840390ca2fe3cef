#pragma once

#include "textviews/lines/TextCells.h"
#include "textviews/lines/TextGeometry.h"
#include "textviews/search/HitFinder.h"

#include <wx/colour.h>

namespace textviews
{
/// How a hit is marked that is not the one that the search has come to.
struct HitMark
{
    wxColour ground;
    wxColour ink; ///< Can be read on it.
};

/// On a line of that band with text in that ink: as much of the mark's colour as leaves the ink as
/// it is, or another ink.
HitMark MarkOn(const wxColour& band, const wxColour& ink, const wxColour& mark);

/// Adds the mark of a hit that is shown in those cells, unless the row that all is about has none
/// of them.
void AddMarkBox(const TextGeometry& geometry, int line, int64_t first, int64_t end,
                std::vector<wxRect>& boxes);

/// Where the hits, in order, lie in the drawn cells of a line that begin at that place.
std::vector<wxRect> MarkBoxes(const TextGeometry& geometry, int line, std::string_view text,
                              TextPlace place, const std::vector<ByteSpan>& hits);
} // namespace textviews
