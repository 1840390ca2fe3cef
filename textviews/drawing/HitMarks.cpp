#include "textviews/drawing/HitMarks.h"

#include "internal/drawing/ColorMix.h"

#include <algorithm>

namespace textviews
{
namespace
{
constexpr double kGroundShares[] = {0.6, 0.7, 0.8}; // of the band's colour; the rest is the mark's
} // namespace

HitMark MarkOn(const wxColour& band, const wxColour& ink, const wxColour& mark)
{
    if (!mark.IsOk() || !band.IsOk())
    {
        return {band, ink};
    }
    wxColour ground;
    for (const double share : kGroundShares)
    {
        ground = internal::MixColours(band, mark, share);
        if (ink.IsOk() && internal::ContrastOf(ink, ground) >= internal::k_TextContrast)
        {
            return {ground, ink};
        }
    }
    return {ground, internal::MadeReadable(ink, ground)};
}

// A pixel of the band all around parts it from those beside it.
void AddMarkBox(const TextGeometry& geometry, int line, int64_t first, int64_t end,
                std::vector<wxRect>& boxes)
{
    if (geometry.row && geometry.Within(first) >= geometry.Within(end))
    {
        return;
    }
    const int left = geometry.XOf(geometry.Within(first));
    boxes.emplace_back(left, geometry.TopOf(line) + 1,
                       std::max(geometry.XOf(geometry.Within(end)) - left - 1, 1),
                       std::max(geometry.lineHeight - 2, 1));
}

std::vector<wxRect> MarkBoxes(const TextGeometry& geometry, int line, std::string_view text,
                              TextPlace place, const std::vector<ByteSpan>& hits)
{
    std::vector<wxRect> boxes;
    const int64_t       end = geometry.EndOfDrawnCells();
    const auto          cellAt = [&](size_t byte)
    {
        constexpr int64_t kFar = INT64_MAX;
        AdvancePlace(text, place, {static_cast<int64_t>(byte), kFar, end});
        return place.cell;
    };
    for (const ByteSpan& hit : hits)
    {
        const int64_t first = cellAt(hit.begin);
        const int64_t last = cellAt(hit.end);
        if (first < last)
        {
            AddMarkBox(geometry, line, first, last, boxes);
        }
    }
    return boxes;
}
} // namespace textviews
