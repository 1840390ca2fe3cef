#pragma once

namespace internal
{
/// Keeps the toolkit from learning the size of a window's frame from one that has been hidden: a
/// window manager says then that it has none, and the toolkit, which keeps the size for the next
/// window of that kind, would make that one too small and put it into the corner of the screen.
/// From now on, for as long as the program runs.
void ForgetHiddenFrames();
} // namespace internal
