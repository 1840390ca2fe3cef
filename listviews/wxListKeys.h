#pragma once

#include "vesta/Export.h"

#include <functional>

class wxDBListCtrl;
class wxPoint;

/// Gives a list the keys that a user of lists expects beside the arrows: Home, End, Page Up, Page
/// Down (with Shift up to there), Ctrl+A for all rows, Enter for what a double click does, and the
/// arrows for the first row when there is none to begin from. They send the events of the list that
/// clicks send. For once in the life of a list. Main thread.
TOLVAN_API void wxAddListKeys(wxDBListCtrl& list);

/// Calls `show` whenever the user asks for the menu of the selected rows: by a right click on one
/// of them, or by the keyboard, then under the row that a range is selected from. `where`: in
/// pixels of the screen. For once in the life of a list. Main thread.
TOLVAN_API void wxAddListMenu(wxDBListCtrl&                                    list,
                              const std::function<void(const wxPoint& where)>& show);
