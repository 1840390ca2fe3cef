#include "textviews/drawing/FontExtents.h"

#include <wx/dcmemory.h>

#include <algorithm>
#include <map>

namespace textviews
{
namespace
{
_FontExtents Measured(int points)
{
    const wxFont font(points, wxFONTFAMILY_MODERN, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL);
    wxBitmap     bitmap(1, 1);
    wxMemoryDC   dc(bitmap);
    dc.SetFont(font);
    const wxSize extent = dc.GetTextExtent("M");
    return {static_cast<unsigned>(std::max(extent.x, 1)),
            static_cast<unsigned>(std::max(extent.y, 1)), font};
}
} // namespace

const _FontExtents& _FontExtents::Get(int points)
{
    static auto* const s_Sizes = new std::map<int, _FontExtents>; // as the program's end leaves it
    const auto         known = s_Sizes->find(points);
    return known != s_Sizes->end() ? known->second
                                   : s_Sizes->emplace(points, Measured(points)).first->second;
}
} // namespace textviews
