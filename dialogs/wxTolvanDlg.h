#pragma once

#include "appearance/wxTolvanColors.h"
#include "vesta/Export.h"
#include "vesta/String.h"

#include <wx/dialog.h>

#include <set>

/// Base of the programs' dialogs: it knows all that are alive, so that they can follow the colour
/// scheme, hear of the connection to the master and be closed together. Main thread, except
/// `NotifyConnected`.
class TOLVAN_API wxTolvanDlg : public wxDialog, public wxtColorManaged
{
public:
    /// A null parent stands for the main frame.
    wxTolvanDlg(wxWindow* parent, const wxString& title);
    ~wxTolvanDlg() override;

    static std::set<wxTolvanDlg*> s_Dialogs; ///< All that are alive.

    /// The connection to the master has come or gone.
    virtual void OnConnected(bool connected);

    /// Calls `OnConnected` of every live dialog. Any thread: on the main thread it has done so when
    /// it returns; from any other the main thread does so later, and the caller does not wait.
    static void NotifyConnected(bool connected);
    /// Destroys every live dialog.
    static void CloseAll();
    /// Has every live dialog take its colours from the table again.
    static void RefreshAll();
};
