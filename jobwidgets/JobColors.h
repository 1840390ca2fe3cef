#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/gdicmn.h>

class wxDC;

/// Name of the colour of a job's state: of its mark, and of text that is kept readable.
TOLVAN_API const String& wxtJobStateColor(const String& state);
/// Name of the colour of a job's progress bar.
TOLVAN_API const String& wxtJobBarColor(const String& state);
/// Draws a job's progress (percent, 0 to 100) as a bar in the colour of its state, so dark or light
/// that a figure can be written on it in the scheme's text colour. `rect`: pixels.
TOLVAN_API void wxtDrawJobProgress(wxDC& dc, const wxRect& rect, const String& state, int percent);
