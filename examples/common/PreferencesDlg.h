#pragma once

#include "dialogs/wxTolvanDlg.h"

#include <vector>

class wxtRadioButton;
class wxtStaticText;

/// The choices that a program leaves to its user: the colour scheme of all programs, shown at once
/// while the dialog is open and taken back by Cancel, and the questions that were silenced.
class PreferencesDlg : public wxTolvanDlg
{
public:
    explicit PreferencesDlg(wxWindow* parent);

    /// `wxID_OK`, or 0 when the former scheme is back.
    int ShowModal() override;

private:
    void AddSchemes(wxBoxSizer& sizer);
    void AddQuestions(wxBoxSizer& sizer);
    void ShowScheme();

    std::vector<wxtRadioButton*> m_Schemes; ///< In the order of the schemes' names.
    wxtStaticText*               m_Asked = nullptr;
    bool                         m_HasChosen = false; ///< The scheme that is shown was chosen here.
};
