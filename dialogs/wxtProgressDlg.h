#pragma once

#include "vesta/Export.h"

#include <wx/stopwatch.h>
#include <wx/string.h>
#include <wx/weakref.h>

#include <memory>

class wxWindow;

namespace dialogs
{
class ProgressWindow;
} // namespace dialogs

/// Shows how far something long has come that runs on the main thread, what is left of it in time,
/// and a button that stops it. The other windows of the program take no input meanwhile. What ends
/// within half a second shows nothing. Lives as long as the work: mostly on the stack, in the
/// function that does it. Main thread.
///
///     wxtProgressDlg progress(this, "Export", "Writing the list", rows);
///     for (int row = 0; row < rows && progress.Update(row); ++row) { ... }
class TOLVAN_API wxtProgressDlg
{
public:
    /// `total`: steps of the work; 0 or less: nobody knows, and only that it goes on is shown. Null
    /// `parent`: the main frame. `canCancel`: whether it can be stopped.
    wxtProgressDlg(wxWindow* parent, const wxString& title, const wxString& message, int total,
                   bool canCancel = true);
    /// Closes the window.
    ~wxtProgressDlg();
    wxtProgressDlg(const wxtProgressDlg&) = delete;
    wxtProgressDlg& operator=(const wxtProgressDlg&) = delete;

    /// So many steps are done; an empty message leaves the one that is shown. False: the work is to
    /// stop, as the user wants, or because all dialogs were closed. May be called as often as one
    /// likes: the window is brought up to it at most every 50 ms. Events are handled then, also
    /// those of timers and of the farm: the work must not depend on what their handlers change.
    bool Update(int done, const wxString& message = wxString());
    /// The user has said so, or all dialogs were closed. It stays so.
    bool WasCancelled() const;

private:
    void Open();

    wxWeakRef<wxWindow>                m_Parent;
    wxString                           m_Title;
    wxString                           m_Message;
    int                                m_Total;
    bool                               m_CanCancel;
    bool                               m_Opened = false;
    wxStopWatch                        m_Time;
    long                               m_ShownMs = 0; ///< When it was brought up to date last.
    wxWeakRef<dialogs::ProgressWindow> m_Window;
};
