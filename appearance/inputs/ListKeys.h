#pragma once

#include <optional>

class wxVListBox;

namespace appearance
{
/// Where a key takes the selection of a list of `rows` rows, `page` of which are seen at a time.
/// `selected`: the row that is, or -1. Nothing: no key that moves the selection; -1: there are no
/// rows.
std::optional<int> RowForKey(int key, int selected, int rows, int page);

/// Scrolls as little as needed for a row to be wholly seen; -1 scrolls nothing.
void ShowRow(wxVListBox& list, int row, int page);
} // namespace appearance
