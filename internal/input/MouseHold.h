#pragma once

class wxWindow;

namespace internal
{
/// Takes the mouse from whatever in that window holds it. For windows that are about to go: the
/// toolkit's own controls (a tab, a sash) don't let go of it when they are destroyed while pressed.
void EndMouseHold(wxWindow& window);
} // namespace internal
