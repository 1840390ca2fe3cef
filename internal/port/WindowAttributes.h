#pragma once

#include <wx/window.h>

namespace internal
{
/// The toolkit's own font and colours of top-level windows, which are asked for whenever anything
/// in one is painted: found once for each theme, because the toolkit makes a widget and styles it
/// to find them. Main thread.
wxVisualAttributes TopLevelAttributes();
} // namespace internal
