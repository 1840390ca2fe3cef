#pragma once

#include <wx/string.h>

class wxWindow;

namespace internal
{
/// Shows the text where the pointer is. A tooltip that is open for the window would stay where it
/// has opened, for another part of the window, and only change its text. Does nothing where the
/// window has that tooltip already.
void SetToolTipHere(wxWindow& window, const wxString& text);
/// Hides what is open, too.
void UnsetToolTipHere(wxWindow& window);
} // namespace internal
