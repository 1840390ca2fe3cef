#pragma once

namespace internal
{
/// Closes the menus and the toolkit's own message box or file dialog that are open, as the Escape
/// key does. Whether there was any.
bool ClosePopUps();
} // namespace internal
