#pragma once

class wxBitmap;

namespace internal
{
struct Raster;

/// Replaces the picture of a bitmap that is as large as the raster with each pixel as a square of
/// `scale` (pixels of the screen), without transparency. False where that is not possible: the
/// bitmap has to be made anew, which takes several times as long.
bool ReplacePixels(wxBitmap& bitmap, const Raster& raster, int scale);
} // namespace internal
