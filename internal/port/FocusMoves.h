#pragma once

class wxWindow;

namespace internal
{
/// Where the port moves the focus by itself, of which the toolkit tells nobody.

/// Gives the window the focus. Where the user is in another program or window it has it only when
/// they come to this one: the port would bring that to the front, under their fingers.
void FocusWithin(wxWindow& window);

/// Has the Tab key pass the window by whenever the function says no. The program and the mouse can
/// give it the focus all the same. Once for a window.
void AskBeforeTab(wxWindow& window, bool (*isStop)(const wxWindow& window));

/// Has the focus stay in the window when an arrow key comes that it has no use for, or uses and
/// passes on: the port would move the focus to the neighbour on that side. Once for a window.
void KeepFromArrows(wxWindow& window);
} // namespace internal
