#include "textviews/search/BarRows.h"

#include <cstdint>

namespace textviews
{
std::vector<int> RowsFor(const std::vector<int>& widths, int gap, int room)
{
    std::vector<int> rows;
    int              row = 0;
    int64_t          used = 0;
    for (const int width : widths)
    {
        const int64_t wanted = used + width + (used > 0 ? gap : 0);
        const bool    begins = used > 0 && wanted > room;
        row += begins ? 1 : 0;
        used = begins ? width : wanted;
        rows.push_back(row);
    }
    return rows;
}
} // namespace textviews
