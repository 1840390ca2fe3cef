#pragma once

#include <wx/string.h>

namespace internal
{
/// Texts of any kind, as they are shown where there is no room for them as they are.

/// A blank for each control character, line ends and tabs among them.
wxString OneLine(wxString text);
/// The first `most` characters, with an ellipsis where it is cut.
wxString Shortened(wxString text, size_t most);
} // namespace internal
