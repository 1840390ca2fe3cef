#pragma once

#include <wx/gdicmn.h>

#include <vector>

namespace listviews
{
struct ListGeometry;

/// Rows one below the other: [first, end).
struct RowBand
{
    int first = 0;
    int end = 0;
};

/// The rows, also those that the list does not have, that areas of the view touch: each once, from
/// the top.
std::vector<RowBand> BandsWithin(const std::vector<wxRect>& areas, const ListGeometry& geometry);
/// Whether they hold all rows that the rectangle touches.
bool Hold(const std::vector<RowBand>& bands, const wxRect& rect, const ListGeometry& geometry);
} // namespace listviews
