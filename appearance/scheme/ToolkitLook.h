#pragma once

#include "internal/port/ToolkitStyle.h"

class wxWindow;

namespace appearance
{
/// The colours of the scheme for what the toolkit draws by itself. A colour that is none is
/// replaced: what is written has to be read.
internal::ToolkitColours ToolkitLook();

/// Has what the toolkit draws in the window, and what is opened for it, follow the scheme, as it is
/// now: whoever sees first that the scheme has changed brings all such windows up to it.
void FollowScheme(wxWindow& window);
} // namespace appearance
