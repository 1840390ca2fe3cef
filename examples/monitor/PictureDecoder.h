#pragma once

#include "monitor/Picture.h"

/// Has the toolkit decode a picture whose size is known to be within reason. Transparent parts
/// become black. False when it is damaged. Any thread, once `PreparePictures` was called on the
/// main one.
bool DecodePicture(const String& bytes, Picture& picture);
void PreparePictures();
