#pragma once

#include "dialogs/wxTolvanDlg.h"
#include "textviews/wxTextRule.h"

#include <vector>

class wxtButton;
class wxtCheckBox;
class wxtCheckListBox;
class wxtChoice;
class wxtTextCtrl;

/// Edits the rules by which the program's logs are coloured. They show each change at once, and
/// what they had when it is cancelled.
class LogRulesDlg : public wxTolvanDlg
{
public:
    explicit LogRulesDlg(wxWindow* parent);

    /// `wxID_OK`: the rules are kept, and logs are coloured from now on.
    int  ShowModal() override;
    bool Validate() override;

private:
    wxSizer*     NewList();
    wxSizer*     NewFields();
    wxtButton*   NewButton(const wxString& label, void (LogRulesDlg::*act)());
    wxtCheckBox* NewCheckBox(const wxString& label);
    wxtChoice*   NewChoice(const wxArrayString& items);
    wxtTextCtrl* NewField();

    wxTextRule* Selected(); ///< Null: none.
    void        FillList(int selection);
    void        ShowRule();
    void        ShowProblem();
    void        TakeRule();
    void        TakeColour(wxTextRule& rule) const;
    void        Try() const;

    void Add();
    void Remove();
    void MoveUp() { Move(-1); }
    void MoveDown() { Move(1); }
    void Move(int by);
    void RestoreRules();
    void PickColour();

    std::vector<wxTextRule> m_Rules;
    bool                    m_IsShowing = false; ///< What changes is not by the user.

    wxtCheckListBox* m_List = nullptr;
    wxtTextCtrl*     m_Name = nullptr;
    wxtTextCtrl*     m_Pattern = nullptr;
    wxtCheckBox*     m_Expression = nullptr;
    wxtCheckBox*     m_MatchCase = nullptr;
    wxtCheckBox*     m_WholeWords = nullptr;
    wxtChoice*       m_Kind = nullptr;
    wxtChoice*       m_Colour = nullptr;
    wxtChoice*       m_Part = nullptr;
    wxtButton*       m_Pick = nullptr;
    wxtButton*       m_Remove = nullptr;
    wxtButton*       m_Up = nullptr;
    wxtButton*       m_Down = nullptr;
    wxtStaticText*   m_Problem = nullptr;
};
