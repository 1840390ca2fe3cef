#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/string.h>

class wxWindow;

/// A question that the user may answer once and for all; see `wxConfirmDlg`.
struct wxQuestion
{
    String   key; ///< Under which the answer is kept in the options file.
    wxString title;
    wxString text;   ///< Shown as it is, however long it may be.
    wxString ok;     ///< Label of the button that confirms.
    wxString cancel; ///< Label of the other one.
    /// What is asked about cannot be undone: Enter leaves it undone.
    bool isHarmful = false;
};

/// Asks in a modal dialog, unless the answer is known. Whether it was confirmed. Main thread.
TOLVAN_API bool wxAsk(wxWindow* parent, const wxQuestion& question);

/// Tells why something that the user asked for could not be done, in a modal box that is always
/// shown: silenced, as `wxTolvanMessageBox` allows, it would leave the next failure unseen. Also
/// written to the log. Main thread.
TOLVAN_API void wxTellProblem(const wxString& message, wxWindow* parent);
