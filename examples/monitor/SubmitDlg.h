#pragma once

#include "monitor/JobForm.h"

#include "dialogs/wxTolvanDlg.h"
#include "tolvan/Job.h"

#include <memory>
#include <vector>

class JobFields;
class wxChoice;
class wxTextCtrl;
class wxtStaticText;

/// Asks for a new job, product by product with its parameters, and submits it. What is wrong is
/// said in the dialog, which stays open; what was entered for one product is there again when the
/// user comes back to it.
class SubmitDlg : public wxTolvanDlg
{
public:
    /// `send` sends a message to the master.
    SubmitDlg(wxWindow* parent, Job::Sender send);

    bool Validate() override;
    bool TransferDataFromWindow() override;
    void OnConnected(bool connected) override;

private:
    void           BuildHead(wxBoxSizer& sizer);
    wxtStaticText* NewOneLine(const String& colourName);
    int            FirstFieldsHeight() const;
    void           ShowForm();
    void           TakeForm();
    void           FocusField(int field);
    void           ShowProblem(const String& text);

    Job::Sender          m_Send;
    std::vector<JobForm> m_Forms;       ///< One for each job type, sorted by name.
    size_t               m_Current = 0; ///< The form that is shown.
    wxChoice*            m_Product = nullptr;
    wxtStaticText*       m_Description = nullptr;
    wxTextCtrl*          m_Name = nullptr;
    wxTextCtrl*          m_Priority = nullptr;
    JobFields*           m_Fields = nullptr;
    wxtStaticText*       m_Problem = nullptr;
};
