#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/string.h>

class wxWindow;

/// Tells the user something that they may ask not to be told again: their answer is kept under
/// `key` in section "Confirm" of the options file, and the message is confirmed without a box from
/// then on. Also writes the message to the log. Whether it was confirmed. Main thread.
TOLVAN_API bool wxTolvanMessageBox(const wxString& message, const String& key, wxWindow* parent);
