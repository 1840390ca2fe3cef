#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/gdicmn.h>

class wxDC;

/// The mark of a job's or a frame's state: a small symbol before the state's name, one for each
/// state, told apart by its form and not only by its colour. The name itself is written in the
/// row's own colour, which can be read on every ground. Main thread.

/// What the mark takes of a cell of that height. Pixels.
TOLVAN_API int wxtJobMarkWidth(int cellHeight);
/// Draws the mark at the left of a list's cell, in the state's colour with an outline in the
/// context's text colour, and gives what it leaves for the text: the whole cell where there is no
/// state, or no room for both. Pixels.
TOLVAN_API wxRect wxtDrawJobMark(wxDC& dc, const wxRect& cell, const String& state);
