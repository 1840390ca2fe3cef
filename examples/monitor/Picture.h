#pragma once

#include "vesta/String.h"

#include <cstdint>
#include <vector>

/// The pixels of a picture. Without a window; any thread.

/// Red, green and blue of each pixel, row by row from the top.
struct Picture
{
    int                  width = 0;
    int                  height = 0;
    std::vector<uint8_t> pixels;
};

/// Decodes a binary PNM picture of 8 or 16 bits. Rows that are not there yet stay black, and
/// `isWhole` becomes false. False when it is none, or one that is too large.
bool DecodePnm(const String& bytes, Picture& picture, bool& isWhole);
/// The same picture, no larger than that in either direction: each pixel is the mean of those that
/// it stands for.
Picture Shrunk(const Picture& picture, int most);
