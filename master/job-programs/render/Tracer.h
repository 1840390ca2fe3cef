#pragma once

#include "master/job-programs/render/Scene.h"

#include <cstdint>
#include <vector>

/// A finished picture: three bytes a pixel (red, green, blue), rows from the top.
struct Picture
{
    int                  width = 0;
    int                  height = 0;
    std::vector<uint8_t> bytes;
};

/// Traces a picture of the scene with `samples` rays a pixel. The same arguments always give the
/// same picture: the random numbers start from the pixel and from `seed`.
Picture Trace(const Scene& scene, int width, int height, int samples, uint32_t seed);
