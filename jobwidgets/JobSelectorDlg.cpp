#include "jobwidgets/JobSelectorDlg.h"

#include "jobwidgets/JobSelector.h"
#include "vesta/CallEntry.h"

#include <wx/sizer.h>

namespace
{
constexpr int kBorder = 12; // pixels around the dialog's content
const wxSize  kSelectorSize(620, 400);
} // namespace

JobSelectorDlg::JobSelectorDlg(wxWindow* parent, const wxString& title, JobSet& jobs,
                               bool singleSelection, bool modal)
    : wxTolvanDlg(parent, title, JobSelector::k_Section, modal)
{
    CALL_ENTRY("JobSelectorDlg::JobSelectorDlg");
    wxBoxSizer* const whole = StartControls();
    m_Selector = new JobSelector(this, wxID_ANY, jobs, singleSelection);
    m_Selector->SetMinSize(kSelectorSize);
    whole->Add(m_Selector, 1, wxEXPAND | wxLEFT | wxRIGHT | wxTOP, kBorder);
    AddButtonRow(whole, kBorder);
    m_Selector->Bind(wxtEVT_JOB_SELECTION,
                     [this](wxCommandEvent& event)
                     {
                         event.Skip();
                         ShowState();
                     });
    m_Selector->Bind(wxtEVT_JOBS_PICKED,
                     [this](wxCommandEvent&)
                     {
                         ShowState(); // the selection may not have been told yet
                         EmulateDefaultButton();
                     });
    ShowState();
}

std::vector<UID> JobSelectorDlg::GetSelection() const
{
    return m_Selector->GetSelection();
}

void JobSelectorDlg::SetSelection(const std::vector<UID>& jobs)
{
    CALL_ENTRY("JobSelectorDlg::SetSelection");
    m_Selector->SetSelection(jobs);
}

void JobSelectorDlg::ShowState()
{
    if (wxWindow* const ok = FindWindow(wxID_OK))
    {
        ok->Enable(!GetSelection().empty());
    }
}

bool JobSelectorDlg::Validate()
{
    return !GetSelection().empty();
}

bool JobSelectorDlg::TransferDataFromWindow()
{
    m_Selector->RememberPicked();
    return true;
}
