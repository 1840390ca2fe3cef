#pragma once

#include "dialogs/wxTolvanDlg.h"
#include "jobwidgets/JobSet.h"
#include "vesta/UID.h"

#include <vector>

class JobSelector;

/// Asks for jobs in a `JobSelector`. OK needs a selection; Enter and a double click on a job are
/// OK. A dialog to be run modally, or shown, as every `wxTolvanDlg`.
class TOLVAN_API JobSelectorDlg : public wxTolvanDlg
{
public:
    /// The set has to live as long as the dialog. `singleSelection`: for one job.
    JobSelectorDlg(wxWindow* parent, const wxString& title, JobSet& jobs, bool singleSelection,
                   bool modal = true);

    /// @name Selection
    /// As those of the control; after `ShowModal` has returned `wxID_OK` what was picked, without
    /// jobs that have gone since.
    /// @{
    std::vector<UID> GetSelection() const;
    void             SetSelection(const std::vector<UID>& jobs);
    /// @}
    JobSelector* GetSelector() const { return m_Selector; }

    bool Validate() override;
    bool TransferDataFromWindow() override;

private:
    void ShowState();

    JobSelector* m_Selector = nullptr;
};
