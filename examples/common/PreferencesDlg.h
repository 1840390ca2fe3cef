#pragma once

#include "dialogs/wxTolvanDlg.h"

#include <functional>
#include <optional>
#include <vector>

class wxtRadioButton;
class wxtStaticText;

/// The choices that a program leaves to its user: the colour scheme of all programs, shown at once
/// while the dialog is open and taken back by Cancel, and the questions that were silenced.
class PreferencesDlg : public wxTolvanDlg
{
public:
    /// A choice of the program's own. The dialog calls the window's `TransferDataFromWindow` when
    /// it is confirmed.
    struct Section
    {
        wxString                                   title;
        std::function<wxWindow*(wxWindow* parent)> make;
        bool isGrowing = true; ///< Takes the room that nobody needs.
    };

    explicit PreferencesDlg(wxWindow* parent, const std::vector<Section>& sections = {});

    /// `wxID_OK`, or 0 when the former scheme is back.
    int ShowModal() override;

private:
    void AddSchemes(wxBoxSizer& sizer);
    void AddQuestions(wxBoxSizer& sizer);
    void AddSection(wxBoxSizer& sizer, const Section& section);
    void Choose(int scheme);
    void EditColours();
    void OnSchemeChanged();
    void ShowScheme();

    std::vector<wxtRadioButton*> m_Schemes; ///< In the order of the schemes' names.
    wxtStaticText*               m_Asked = nullptr;
    int                          m_Former;            ///< Not chosen here; what Cancel takes back.
    std::optional<int>           m_Chosen;            ///< The scheme that is shown, if chosen here.
    bool                         m_IsEditing = false; ///< The editor shows the custom scheme.
};
