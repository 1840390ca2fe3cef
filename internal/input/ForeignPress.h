#pragma once

class wxWindow;

namespace internal
{
/// Keeps from a window, which clicks when the left button is released on it, the release of a press
/// that began on something else: when what was pressed is hidden or destroyed, the port gives the
/// release to whatever the pointer is over by then. A release without a known press counts as the
/// window's own. To be called when the window has bound its own handlers.
void RefuseForeignRelease(wxWindow& window);
} // namespace internal
