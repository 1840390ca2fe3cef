#include "listviews/cells/RowBands.h"

#include "listviews/cells/ListGeometry.h"

#include <algorithm>

namespace listviews
{
std::vector<RowBand> BandsWithin(const std::vector<wxRect>& areas, const ListGeometry& geometry)
{
    std::vector<RowBand> touched;
    for (const wxRect& area : areas)
    {
        if (!area.IsEmpty())
        {
            touched.push_back({std::max(geometry.RowAt(area.y), 0),
                               std::max(geometry.RowAt(area.GetBottom()) + 1, 0)});
        }
    }
    std::sort(touched.begin(), touched.end(),
              [](const RowBand& a, const RowBand& b) { return a.first < b.first; });
    std::vector<RowBand> bands;
    for (const RowBand& band : touched)
    {
        if (bands.empty() || bands.back().end < band.first)
        {
            bands.push_back(band);
        }
        else
        {
            bands.back().end = std::max(bands.back().end, band.end);
        }
    }
    return bands;
}

bool Hold(const std::vector<RowBand>& bands, const wxRect& rect, const ListGeometry& geometry)
{
    // What lies outside of the view was seen when that was larger, and is drawn no more.
    const wxRect               seen = wxRect(rect).Intersect(wxRect(geometry.client));
    const std::vector<RowBand> touched = BandsWithin({seen}, geometry);
    return touched.empty() ||
           std::any_of(bands.begin(), bands.end(),
                       [&touched](const RowBand& band)
                       { return band.first <= touched[0].first && touched[0].end <= band.end; });
}
} // namespace listviews
