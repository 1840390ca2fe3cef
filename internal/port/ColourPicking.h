#pragma once

#include <wx/colour.h>

#include <functional>

class wxColourDialog;

namespace internal
{
/// Has `picked` called with each colour that the user comes by in the dialog, which the toolkit
/// tells of only when it is confirmed. While the user drags that may be a hundred times a second.
void OnColourPicked(wxColourDialog& dialog, const std::function<void(const wxColour&)>& picked);
} // namespace internal
