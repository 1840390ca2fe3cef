#pragma once

#include <vector>

namespace textviews
{
/// The row that each part of a bar stands in, from 0 on: as many in a row as there is room for.
/// Pixels; one that is wider than the bar has a row for itself.
std::vector<int> RowsFor(const std::vector<int>& widths, int gap, int room);
} // namespace textviews
