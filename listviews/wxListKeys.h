#pragma once

#include "vesta/Export.h"

class wxDBListCtrl;

/// Gives a list the keys that a user of lists expects beside the arrows: Home, End, Page Up, Page
/// Down (with Shift up to there), Ctrl+A for all rows, Enter for what a double click does, and the
/// arrows for the first row when there is none to begin from. They send the events of the list that
/// clicks send. For once in the life of a list. Main thread.
TOLVAN_API void wxAddListKeys(wxDBListCtrl& list);
