#pragma once

#include "dialogs/wxTolvanDlg.h"

/// Says which program this is, in which version.
class AboutDlg : public wxTolvanDlg
{
public:
    /// `purpose`: one sentence.
    AboutDlg(wxWindow* parent, const wxString& program, const wxString& purpose);
};
