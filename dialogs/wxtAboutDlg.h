#pragma once

#include "dialogs/wxTolvanDlg.h"
#include "vesta/Export.h"

#include <wx/aboutdlg.h>

/// Says which program this is, in which version and by whom: the toolkit's about box in the colours
/// of the scheme. What was not set in the information is left out; without a name the application's
/// is shown. A web site gets a button. Main thread.
class TOLVAN_API wxtAboutDlg : public wxTolvanDlg
{
public:
    /// A null parent stands for the main frame.
    wxtAboutDlg(wxWindow* parent, const wxAboutDialogInfo& info);

private:
    wxSizer*  NewTexts(const wxAboutDialogInfo& info);
    wxSizer*  NewButtons(const wxAboutDialogInfo& info);
    wxWindow* NewGreyText(const wxString& text);
};

/// Shows such a dialog until it is closed; in place of the toolkit's `wxAboutBox`. Main thread.
TOLVAN_API void wxtAboutBox(const wxAboutDialogInfo& info, wxWindow* parent = nullptr);
