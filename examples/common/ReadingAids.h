#pragma once

class wxFrame;
class wxMenu;

/// Appends what a menu bar offers for finding a place in a text view again, to be passed on to its
/// `OnMenu`, with the keys at which the view does so by itself.
void AppendReadingCommands(wxMenu& menu);
/// Appends whether all logs of the program show line numbers and arrival times, and has the frame,
/// which the menu is for, act on it.
void AppendGutterChoices(wxMenu& menu, wxFrame& frame);
