#pragma once

#include "vesta/Export.h"

class wxWindow;

/// Takes the mouse from whatever in that window holds it. For windows that are about to go: the
/// toolkit's own controls (a tab, a sash) don't let go of it when they are destroyed while pressed.
TOLVAN_API void _EndMouseHold(wxWindow& window);
