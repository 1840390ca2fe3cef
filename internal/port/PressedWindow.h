#pragma once

namespace internal
{
/// Keeps the first press on a new window from being the second one of a double click. The port
/// takes two quick presses on the same place of one window for that, and knows the window by its
/// address, which a new one may have got from one that has gone. From now on, for as long as the
/// program runs, the address of the window that was pressed last is given to no other.
void KeepPressedWindow();
} // namespace internal
