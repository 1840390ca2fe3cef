#pragma once

#include <wx/font.h>

namespace textviews
{
/// The fixed-pitch font of all text views in a size, with the size of its cell, measured on "M".
struct _FontExtents
{
    unsigned columnWidth; ///< Pixels, at least 1.
    unsigned lineHeight;  ///< Pixels, at least 1.
    wxFont   font;

    static constexpr int k_Points = 9;

    /// The one record of that size that all views share; made on the first call and kept for good.
    static const _FontExtents& Get(int points = k_Points);
};
} // namespace textviews
