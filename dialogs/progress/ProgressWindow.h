#pragma once

#include "dialogs/wxTolvanDlg.h"

namespace dialogs
{
class ProgressBar;

/// The window of a `wxtProgressDlg`. It is closed by that only, or with all dialogs.
class ProgressWindow : public wxTolvanDlg
{
public:
    ProgressWindow(wxWindow* parent, const wxString& title, const wxString& message, int total,
                   bool canCancel);

    /// Shows it, and paints what has changed.
    void ShowProgress(int done, const wxString& message, long leftMs);
    bool IsCancelled() const { return m_Cancelled; }

private:
    void Cancel();

    int            m_Total;
    bool           m_CanCancel;
    bool           m_Cancelled = false;
    wxtStaticText* m_Message = nullptr;
    wxtStaticText* m_TimeLeft = nullptr;
    ProgressBar*   m_Bar = nullptr;
};
} // namespace dialogs
