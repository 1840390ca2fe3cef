#include "appearance/inputs/ListKeys.h"

#include "internal/input/PadKey.h"

#include <wx/defs.h>
#include <wx/vlbox.h>

#include <algorithm>

namespace appearance
{
std::optional<int> RowForKey(int key, int selected, int rows, int page)
{
    int row = selected;
    switch (internal::OffThePad(key))
    {
    case WXK_HOME:
        row = 0;
        break;
    case WXK_END:
        row = rows - 1;
        break;
    case WXK_DOWN:
        row += 1;
        break;
    case WXK_UP:
        row = selected < 0 ? rows - 1 : row - 1;
        break;
    case WXK_PAGEDOWN:
        row += std::max(page, 1);
        break;
    case WXK_PAGEUP:
        row -= std::max(page, 1);
        break;
    default:
        return std::nullopt;
    }
    return std::min(std::max(row, 0), rows - 1);
}

void ShowRow(wxVListBox& list, int row, int page)
{
    const int first = static_cast<int>(list.GetVisibleRowsBegin());
    const int wanted = std::max(std::min(first, row), row - std::max(page, 1) + 1);
    if (row >= 0 && wanted != first)
    {
        list.ScrollToRow(static_cast<size_t>(wanted));
    }
}
} // namespace appearance
