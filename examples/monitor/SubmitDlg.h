#pragma once

#include "monitor/JobForm.h"

#include "dialogs/wxTolvanDlg.h"
#include "tolvan/Job.h"

#include <map>

class JobFields;
class ProductChoice;
class wxtStaticText;
class wxtTextCtrl;

/// Asks for a new job, product by product with its parameters, and submits it. What is wrong is
/// said in the dialog, which stays open; what was entered for one product is there again when the
/// user comes back to it.
class SubmitDlg : public wxTolvanDlg
{
public:
    /// `send` sends a message to the master.
    SubmitDlg(wxWindow* parent, Job::Sender send);
    /// The same with the product and the values of a job that there was, to be changed.
    SubmitDlg(wxWindow* parent, Job::Sender send, const JobForm& form);

    bool Validate() override;
    bool TransferDataFromWindow() override;
    void OnConnected(bool connected) override;

private:
    SubmitDlg(wxWindow* parent, Job::Sender send, const wxString& title, const JobForm* form);

    void           BuildHead(wxBoxSizer& sizer);
    wxWindow*      NewProduct();
    wxtStaticText* NewOneLine(const String& colourName);
    int            FirstFieldsHeight() const;
    void           ShowProduct();
    JobForm*       FormOf(const UID& product);
    void           ShowForm();
    int            AlignLabels(const JobForm& form);
    void           TakeForm();
    void           FocusField(int field);
    void           ShowProblem(const String& text);

    Job::Sender            m_Send;
    std::map<UID, JobForm> m_Forms;             ///< Of the products that have been shown.
    JobForm*               m_Form = nullptr;    ///< The one that is shown; null without a product.
    ProductChoice*         m_Product = nullptr; ///< Null when the product is given.
    wxtStaticText*         m_Label = nullptr;   ///< Of the product; as wide as every other one.
    wxtStaticText*         m_Description = nullptr;
    wxtTextCtrl*           m_Name = nullptr;
    wxtTextCtrl*           m_Priority = nullptr;
    JobFields*             m_Fields = nullptr;
    wxtStaticText*         m_Problem = nullptr;
};
