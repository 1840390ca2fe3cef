#pragma once

#include "vesta/String.h"

/// Shows a notice of the desktop. It is sent in the background; where there is no session bus, or
/// nobody on it who shows notices, nothing happens but a line of the log. Main thread.
void ShowDesktopNotice(const String& title, const String& text, bool isUrgent);
