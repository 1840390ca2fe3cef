#pragma once

#include <wx/accel.h>

class wxFrame;
class wxKeyEvent;
class wxMenuItem;

namespace internal
{
/// Writes a key beside an item of a menu, as the port does for accelerators, without making it one.
/// False, and nothing is written, for a key that the port has no name for, and beside an item that
/// has one already.
bool WriteKey(const wxMenuItem& item, const wxAcceleratorEntry& key);

/// Does what the key does in the menus of the frame, as if it were pressed there. False, and
/// nothing is done, when no item that is enabled has it.
bool PressMenuKey(const wxFrame& frame, const wxKeyEvent& key);
} // namespace internal
