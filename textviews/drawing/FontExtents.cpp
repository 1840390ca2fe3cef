#include "textviews/drawing/FontExtents.h"

#include <wx/dcmemory.h>

#include <algorithm>

namespace textviews
{
namespace
{
constexpr int kPointSize = 9;

_FontExtents* Measured()
{
    const wxFont font(kPointSize, wxFONTFAMILY_MODERN, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL);
    wxBitmap     bitmap(1, 1);
    wxMemoryDC   dc(bitmap);
    dc.SetFont(font);
    const wxSize extent = dc.GetTextExtent("M");
    return new _FontExtents{static_cast<unsigned>(std::max(extent.x, 1)),
                            static_cast<unsigned>(std::max(extent.y, 1)), font};
}
} // namespace

const _FontExtents& _FontExtents::Get()
{
    static const _FontExtents* const s_Extents = Measured();
    return *s_Extents;
}
} // namespace textviews
