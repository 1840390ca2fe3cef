#pragma once

#include "textviews/lines/ByteSpan.h"

namespace textviews
{
/// The hit that a view shows, in its marked line.
struct MarkedHit
{
    int      column = -1; ///< In the stored line.
    int      length = 0;
    ByteSpan bytes;
    bool     isShown = false; ///< Its bytes are those of what is shown of the line.
};
} // namespace textviews
