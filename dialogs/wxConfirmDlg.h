#pragma once

#include "dialogs/wxTolvanDlg.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/string.h>

class wxtCheckBox;

/// Asks the user to confirm something, unless they said that they need not be asked: ticking the
/// box and pressing OK keeps "1" under the question's key in section "Confirm" of the options file,
/// and from then on the question counts as confirmed. A modal dialog; main thread.
class TOLVAN_API wxConfirmDlg : public wxTolvanDlg
{
public:
    /// `message` is shown as it is, however long it may be. `alwaysOk` chooses the wording of the
    /// check box. When the question is silenced no window is made.
    wxConfirmDlg(wxWindow* parent, const wxString& message, const String& key, bool alwaysOk);

    /// Builds what the dialog shows; the constructor does so.
    void CreateControls(wxWindow* parent, const wxString& message, bool alwaysOk);
    /// Asks, unless the question is silenced. Whether it was confirmed.
    bool Confirm();
    /// Keeps the answer. The dialog calls it on OK.
    bool TransferDataFromWindow() override;

    /// @name Labels of the buttons
    /// Another label for the button. No effect when the question is silenced.
    /// @{
    void SetOK(const String& label);
    void SetCancel(const String& label);
    /// @}

    /// Lets every silenced question be asked again.
    static void ResetAll();

private:
    void SetButtonLabel(int id, const String& label);

    wxtCheckBox* m_CheckBox = nullptr;
    bool         m_Remembered = false; ///< The question is silenced.
    String       m_Key;
};

/// Tells the user something that they may ask not to be told again, as `wxConfirmDlg` does under
/// `key`, and writes it to the log. Whether it was confirmed. Main thread.
TOLVAN_API bool wxTolvanMessageBox(const wxString& message, const String& key, wxWindow* parent);
