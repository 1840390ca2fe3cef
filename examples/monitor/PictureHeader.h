#pragma once

#include "vesta/String.h"

#include <cstddef>
#include <cstdint>

/// What the beginning of a picture file says, so that a damaged or huge one is known before it is
/// decoded. Without a window; any thread.

/// Size of a picture in pixels; 0 when it is not known.
struct PictureSize
{
    int width = 0;
    int height = 0;
};

constexpr long long k_MostPicturePixels = 40000000; ///< That are decoded.

/// Of a PNM, PNG, JPEG, BMP or GIF file; nothing is believed of other files.
PictureSize SizeOfPicture(const String& bytes);

/// What stands before the pixels of a binary PNM file.
struct PnmHeader
{
    PictureSize size;
    int         channels = 0; ///< 0: it is none.
    uint32_t    most = 0;     ///< Of a value.
    size_t      begin = 0;    ///< Of the pixels.
};
PnmHeader ReadPnmHeader(const String& text);
