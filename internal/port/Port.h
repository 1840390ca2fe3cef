#pragma once

class wxBitmap;
class wxImage;
class wxWindow;
struct _PangoContext;

namespace internal
{
/// What the toolkit has no word for, by the port's own means.

/// Gives a scrolled window scrollbars that take room of their own. Scrollbars that float over the
/// content (GTK 3) come and go by themselves, and the window's client size with them.
void UseSolidScrollbars(wxWindow& window);

/// Keeps the port from scrolling a window by its own keys: the window has others, or its own.
void RefuseNativeScrollKeys(wxWindow& window);

/// Ends the press of the window's native scrollbars, if any. One that goes while it is pressed
/// hears of no release, and the port keeps every motion of the pointer from the program until then.
void EndScrollbarPress(wxWindow& window);

/// What the port lays out texts for the screen with; the caller owns the reference. Null where the
/// port does not tell.
_PangoContext* ScreenTextContext();

/// Closes the menus and the toolkit's own message box or file dialog that are open, as the Escape
/// key does. Whether there was any.
bool ClosePopUps();

/// Replaces the picture of a bitmap that is as large as the image (pixels of the screen), without
/// transparency. False where that is not possible: the bitmap has to be made anew from the image,
/// which takes several times as long.
bool ReplacePixels(wxBitmap& bitmap, const wxImage& image);
} // namespace internal
