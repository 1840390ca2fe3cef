#pragma once

#include "vesta/Export.h"

#include <functional>

class wxDBListCtrl;
class wxPoint;

/// Calls `show` whenever the user asks for the menu of the selected rows: by a right click on one
/// of them, or by the keyboard, then under the row that the keys are on. `where`: in pixels of the
/// screen. For once in the life of a list. Main thread.
TOLVAN_API void wxAddListMenu(wxDBListCtrl&                                    list,
                              const std::function<void(const wxPoint& where)>& show);
