#pragma once

class wxWindow;

namespace internal
{
/// Has what lies in the window, which need not be shown yet, ask for the room that it will need.
/// The port gives controls their fonts when their window is shown: a window that is as large as
/// they ask for before that is too small for them, or too large.
void TakeFonts(wxWindow& window);
} // namespace internal
