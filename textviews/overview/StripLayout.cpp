#include "textviews/overview/StripLayout.h"

#include <algorithm>

namespace textviews
{
namespace
{
// Pixels.
constexpr int kLeastWidth = 11;
constexpr int kLeastFrame = 8;
constexpr int kLeastMark = 2;
constexpr int kEdge = 1; ///< The line that parts the strip from the text.
} // namespace

int StripScale::Total() const
{
    return std::max({lines, height / std::max(lineHeight, 1), 1});
}

int StripScale::RowOf(int line) const
{
    return static_cast<int>(static_cast<int64_t>(line) * height / Total());
}

int StripScale::LineAt(int row) const
{
    const int64_t inside = std::clamp(row, 0, std::max(height - 1, 0));
    const int64_t line = (inside * Total() + height - 1) / std::max(height, 1);
    return static_cast<int>(std::min<int64_t>(line, lines - 1));
}

StripSpan StripScale::FrameOf(int64_t top, int64_t bottom) const
{
    const int64_t all = std::max<int64_t>(static_cast<int64_t>(Total()) * lineHeight, 1);
    StripSpan     rows{static_cast<int>(top * height / all),
                   static_cast<int>((bottom * height + all - 1) / all)};
    rows.end = std::min(rows.end, height);
    const int lacking = kLeastFrame - (rows.end - rows.first);
    if (lacking > 0)
    {
        rows.first = std::clamp(rows.first - lacking / 2, 0, std::max(height - kLeastFrame, 0));
        rows.end = std::min(rows.first + kLeastFrame, height);
    }
    return rows;
}

int64_t StripScale::TopFor(int row, int seen) const
{
    const int64_t all = static_cast<int64_t>(Total()) * lineHeight;
    const int64_t middle = std::clamp(row, 0, height) * all / std::max(height, 1);
    return std::max<int64_t>(middle - seen / 2, 0);
}

StripLanes LanesOf(int width)
{
    const int room = std::max(width - kEdge, 0);
    const int rules = kEdge + room / 2;
    const int hits = rules + room * 3 / 10;
    return {{kEdge, rules}, {rules, hits}, {hits, width}};
}

int StripWidth(int charHeight)
{
    return std::max(charHeight * 7 / 10, kLeastWidth);
}

std::vector<StripSpan> MarkedRows(const std::vector<uint8_t>& rows, uint8_t bit)
{
    std::vector<StripSpan> spans;
    const int              count = static_cast<int>(rows.size());
    for (int row = 0; row < count; ++row)
    {
        if ((rows[static_cast<size_t>(row)] & bit) == 0)
        {
            continue;
        }
        const StripSpan mark{std::min(row, std::max(count - kLeastMark, 0)),
                             std::min(row + kLeastMark, count)};
        if (!spans.empty() && spans.back().end >= mark.first)
        {
            spans.back().end = mark.end;
        }
        else
        {
            spans.push_back(mark);
        }
    }
    return spans;
}
} // namespace textviews
