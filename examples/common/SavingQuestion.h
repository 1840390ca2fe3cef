#pragma once

class wxWindow;

/// To be asked before windows go, with the text views in them: whether nothing of those is being
/// saved to a file, or the user wants to end that. `going`: null for all windows of the program.
bool MayEndSaving(wxWindow* parent, const wxWindow* going);
