#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/string.h>

/// The one way of a text between the platform and wxWidgets, in both directions. Any thread.

/// The text for display. UTF-8; a byte that is no valid UTF-8 becomes the character of its number,
/// so that no text ever turns out empty. What is stored, compared or written to files stays the
/// `String` itself: the way back does not restore such bytes.
TOLVAN_API wxString wxtToWx(const String& text);
/// The same for part of a text.
TOLVAN_API wxString wxtToWx(const char* bytes, size_t count);

/// The text in UTF-8.
TOLVAN_API String wxtFromWx(const wxString& text);
