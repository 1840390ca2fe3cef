#pragma once

#include "vesta/Export.h"

class wxWindow;

/// What the toolkit has no word for, by the port's own means.

/// Gives a scrolled window scrollbars that take room of their own. Scrollbars that float over the
/// content (GTK 3) come and go by themselves, and the window's client size with them.
TOLVAN_API void _UseSolidScrollbars(wxWindow& window);
