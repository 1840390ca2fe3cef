#pragma once

#include "vesta/String.h"

/// The cells of the lists' workload: jobs of a render farm, the same in every run. A row's texts
/// have 198 bytes in the mean; two of its ten columns are paths of 20 to 80 characters, which don't
/// fit a column's width.

constexpr int kCellColumns = 10;
constexpr int kCellColumnWidth = 160; // pixels
constexpr int kCellRows = 4001;       // texts of their own; a prime, so that no pattern shows

/// The text of a cell; rows from `kCellRows` on begin again.
const String& WorkloadCell(int row, int column);
