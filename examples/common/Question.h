#pragma once

#include "vesta/String.h"

#include <wx/string.h>

class wxWindow;

/// A question that the user may answer once and for all.
struct Question
{
    String   key; ///< Under which the answer is kept.
    wxString title;
    wxString text;
    wxString ok;     ///< Label of the button that confirms.
    wxString cancel; ///< Label of the other one.
    /// What is asked about cannot be undone: Enter leaves it undone.
    bool isHarmful = false;
};

/// Asks, unless the answer is known. Whether it was confirmed.
bool Ask(wxWindow* parent, const Question& question);
