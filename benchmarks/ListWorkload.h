#pragma once

#include "vesta/String.h"

/// The cells of the lists' workload: jobs of a render farm, the same in every run. A row's texts
/// have 198 bytes in the mean; two of its ten columns are paths of 20 to 80 characters, which don't
/// fit a column's width.

constexpr int kCellColumns = 10;
constexpr int kCellColumnWidth = 160; // pixels
constexpr int kCellRows = 4001;       // texts of their own; a prime, so that no pattern shows

/// The height of our rows in the packaged toolkit's own font, for peers whose rows have any height.
constexpr int kCellRowHeight = 21; // pixels

/// The text of a cell; rows from `kCellRows` on begin again.
const String& WorkloadCell(int row, int column);
/// The same with names in the scripts of the world: accents, Chinese, Japanese, Cyrillic,
/// emoji. They are in the first and the third column.
const String& WorldCell(int row, int column);
