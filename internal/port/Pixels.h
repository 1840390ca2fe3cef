#pragma once

class wxBitmap;
class wxImage;

namespace internal
{
/// Replaces the picture of a bitmap that is as large as the image (pixels of the screen), without
/// transparency. False where that is not possible: the bitmap has to be made anew from the image,
/// which takes several times as long.
bool ReplacePixels(wxBitmap& bitmap, const wxImage& image);
} // namespace internal
