#pragma once

#include "vesta/String.h"

#include <wx/string.h>

namespace jobwidgets
{
/// How texts from module files and from jobs, which may hold anything at all, are shown.

/// One line of at most `most` characters: a blank for each control character, and an ellipsis where
/// it is cut.
wxString OneLine(const String& text, size_t most);
/// At most `most` characters, with an ellipsis where it is cut; its lines stay lines.
wxString Shortened(const String& text, size_t most);
/// The label of a menu item: one line that is taken as it stands, "&" and tabs included, and is
/// never empty.
wxString MenuLabel(const String& text);
} // namespace jobwidgets
