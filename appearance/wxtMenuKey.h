#pragma once

#include "vesta/Export.h"

#include <wx/string.h>

class wxMenuItem;

/// Writes a key beside an item of a menu, such as "Ctrl+F", for what a control does at that key by
/// itself. It is no accelerator, as one after a tab in the item's text would be: the control gets
/// the key and passes it on, so that an accelerator would do everything twice, and it would take
/// the key from text fields. `item` lies in a menu already and has no accelerator. False, and
/// nothing is written, for what is no key, and when a key has been written there before. Main
/// thread.
TOLVAN_API bool wxtShowMenuKey(wxMenuItem& item, const wxString& key);
