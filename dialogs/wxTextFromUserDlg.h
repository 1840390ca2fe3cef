#pragma once

#include "dialogs/wxTolvanDlg.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/textctrl.h>

class wxtTextCtrl;

/// Asks the user for one line of text: a message, a field, OK and Cancel. A modal dialog that comes
/// back where it stood. Main thread.
class TOLVAN_API wxTextFromUserDlg : public wxTolvanDlg
{
public:
    /// `positionName`: as of `wxTolvanDlg`. `style`: of the field, such as `wxTE_PASSWORD`. The
    /// validator looks at the text when OK is pressed, and says itself what is wrong with it.
    wxTextFromUserDlg(wxWindow* parent, const wxString& message, const wxString& title,
                      const wxString& value, const String& positionName, long style = 0,
                      const wxValidator& validator = wxDefaultValidator);

    /// The text, also after the dialog was closed.
    wxString GetValue() const;
    void     SetValue(const wxString& value);

private:
    void CreateControls(const wxString& message, const wxString& value, long style,
                        const wxValidator& validator);

    wxtTextCtrl* m_Field = nullptr;
};

/// Asks with such a dialog. True: the user pressed OK, and `text`, at first the proposal, holds
/// what they entered.
TOLVAN_API bool wxTolvanTextFromUser(wxWindow* parent, const wxString& message,
                                     const wxString& title, wxString& text,
                                     const String&      positionName,
                                     const wxValidator& validator = wxDefaultValidator);
