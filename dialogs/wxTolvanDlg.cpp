#include "dialogs/wxTolvanDlg.h"

#include "shell/wxTolvanFrame.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>
#include <wx/thread.h>

std::set<wxTolvanDlg*> wxTolvanDlg::s_Dialogs;

namespace
{
// Calls `work` for every live dialog; what it does may end any of them.
template <class Work> void ForEachDialog(Work work)
{
    const std::set<wxTolvanDlg*> dialogs = wxTolvanDlg::s_Dialogs;
    for (wxTolvanDlg* const dialog : dialogs)
    {
        if (wxTolvanDlg::s_Dialogs.count(dialog))
        {
            work(*dialog);
        }
    }
}
} // namespace

wxTolvanDlg::wxTolvanDlg(wxWindow* parent, const wxString& title)
    : wxDialog(parent ? parent : wxTolvanFrame::s_Frame, wxID_ANY, title)
{
    CALL_ENTRY("wxTolvanDlg::wxTolvanDlg");
    s_Dialogs.insert(this);
    Manage(this);
}

wxTolvanDlg::~wxTolvanDlg()
{
    s_Dialogs.erase(this);
}

void wxTolvanDlg::OnConnected(bool)
{
}

void wxTolvanDlg::NotifyConnected(bool connected)
{
    CALL_ENTRY("wxTolvanDlg::NotifyConnected");
    if (wxIsMainThread())
    {
        ForEachDialog([connected](wxTolvanDlg& dialog) { dialog.OnConnected(connected); });
    }
    else if (wxTheApp)
    {
        wxTheApp->CallAfter([connected] { NotifyConnected(connected); });
    }
}

void wxTolvanDlg::CloseAll()
{
    CALL_ENTRY("wxTolvanDlg::CloseAll");
    ForEachDialog([](wxTolvanDlg& dialog) { dialog.Destroy(); });
    s_Dialogs.clear();
}

void wxTolvanDlg::RefreshAll()
{
    CALL_ENTRY("wxTolvanDlg::RefreshAll");
    ForEachDialog(
        [](wxTolvanDlg& dialog)
        {
            wxSysColourChangedEvent event;
            event.SetEventObject(&dialog);
            dialog.GetEventHandler()->ProcessEvent(event);
            dialog.Refresh();
        });
}
