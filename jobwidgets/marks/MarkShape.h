#pragma once

#include "vesta/String.h"

#include <wx/gdicmn.h>

#include <vector>

namespace jobwidgets
{
/// What a state looks like, also to those who tell no colours apart.
enum class MarkShape
{
    kRing,     ///< Waiting.
    kTriangle, ///< Running.
    kBars,     ///< Suspended.
    kTick,     ///< Done.
    kCross,    ///< Failed.
    kSquare,   ///< Killed.
    kDot       ///< Any other.
};

MarkShape ShapeOf(const String& state);

/// A mark as what is filled to draw it, in whole pixels, so that it is sharp at every scale.
struct MarkPixels
{
    std::vector<wxRect> whole;
    std::vector<wxRect> inside; ///< The same without its outline.
};

/// A mark in a square of that side from (0, 0) on; the outline is as thick as `line`. Kept, since
/// every row of a list asks for it. Pixels. Main thread.
const MarkPixels& PixelsOf(MarkShape shape, int side, int line);
} // namespace jobwidgets
