#pragma once

class wxWindow;

namespace internal
{
/// Closes the menus and the toolkit's own message box or file dialog that are open, as the Escape
/// key does. Whether there was any.
bool ClosePopUps();

/// Whether a menu is open, or a modal dialog that the window is no part of.
bool IsShutOut(const wxWindow& window);

/// Lets no other window of the program have input while that one, a top-level one that is still to
/// be shown, is on the screen. Unlike those that are disabled, they look as before.
void ShutOutOthers(wxWindow& window);
} // namespace internal
