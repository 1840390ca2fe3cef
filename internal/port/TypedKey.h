#pragma once

#include <wx/event.h>

namespace internal
{
/// The character that a key types with the modifiers that are held; 0: none. An event of the key
/// itself names only what it types without Shift.
wxUniChar TypedBy(const wxKeyEvent& event);
} // namespace internal
