#pragma once

class wxFrame;
class wxMenu;

/// Appends what a menu bar offers for finding a place in a text view again, to be passed on to its
/// `OnMenu`, with the keys at which the view does so by itself.
void AppendReadingCommands(wxMenu& menu);
/// The same for the way from error to error.
void AppendErrorCommands(wxMenu& menu);
/// Appends whether all logs of the program show line numbers and arrival times, and wrap long
/// lines, and has the frame, which the menu is for, act on it.
void AppendGutterChoices(wxMenu& menu, wxFrame& frame);
/// Appends whether they are coloured by rules and have a strip beside them, and the dialog for
/// those.
void AppendRuleChoices(wxMenu& menu, wxFrame& frame);
