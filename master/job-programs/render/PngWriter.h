#pragma once

#include "master/job-programs/render/Tracer.h"

#include <string>

/// Writes the picture as a PNG file, first under a temporary name: whoever looks at the folder
/// never finds half a frame. Returns an empty text, or why it could not be written.
std::string WritePng(const Picture& picture, const std::string& fileName);
