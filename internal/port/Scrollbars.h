#pragma once

#include <functional>

class wxSize;
class wxWindow;

namespace internal
{
/// The native scrollbars of a window, where the toolkit has no word for what they are to do.

/// Gives a scrolled window scrollbars that take room of their own. Scrollbars that float over the
/// content (GTK 3) come and go by themselves, and the window's client size with them.
void UseSolidScrollbars(wxWindow& window);

/// To be called before a scrolled window is given that size, in pixels: takes its scrollbars away
/// while there is no room for them, of which GTK 3 complains, and brings them back. A window that
/// does not scroll is left alone.
void FitScrollbars(wxWindow& window, const wxSize& size);

/// Has a window's content moved by `move`. The toolkit moves hidden children, too, of which GTK 3
/// complains.
void MoveContent(wxWindow& window, const std::function<void()>& move);

/// Keeps the port from scrolling a window by its own keys: the window has others, or its own.
void RefuseNativeScrollKeys(wxWindow& window);

/// Ends the press of the window's native scrollbars, if any. One that goes while it is pressed
/// hears of no release, and the port keeps every motion of the pointer from the program until then.
void EndScrollbarPress(wxWindow& window);
} // namespace internal
