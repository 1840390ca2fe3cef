#pragma once

#include <wx/event.h>

class wxWindow;

namespace appearance
{
/// The mnemonic of the control that gets it was pressed. A control that leaves it alone has none.
wxDECLARE_EVENT(EVT_MNEMONIC, wxKeyEvent);

/// Has the frame or dialog that the window is in, or is, pass the mnemonics of its controls on to
/// them, those of controls that come later, too. One handler serves them all: every key goes
/// through all handlers of its frame, and a page of a notebook has dozens of controls.
void WatchMnemonics(wxWindow& window);
} // namespace appearance
