#pragma once

#include <functional>

namespace internal
{
/// Whether the user's desktop asks for dark windows: its settings portal on the session bus says
/// so, or else the theme of the port, whose windows are dark. The portal is asked once, in the
/// first call, which waits for it for a third of a second at most; a later answer counts as a
/// change, and changes are told of from then on. Main thread.
bool IsDesktopDark();

/// Has `changed` called, by the main loop, whenever `IsDesktopDark` may have got another answer.
/// One at a time; null for none. Main thread.
void OnDesktopChange(std::function<void()> changed);
} // namespace internal
