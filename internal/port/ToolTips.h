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

/// Has the port look whether a tooltip is to be open where the pointer is.
void LookAtToolTip(const wxWindow& window);

/// While tooltips are refused the pointer opens none, whatever the port takes for a reason.
void RefuseToolTips(bool refuse);

/// From now on no tooltip opens in a window below a menu or a modal dialog, as the port would have
/// it, over those. Main thread, when the port has started.
void KeepToolTipsBelow();
} // namespace internal
