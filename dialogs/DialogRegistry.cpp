#include "dialogs/wxTolvanDlg.h"
#include "internal/windows/UpperFloors.h"
#include "vesta/CallEntry.h"

#include <wx/app.h>
#include <wx/thread.h>

std::set<wxTolvanDlg*>                wxTolvanDlg::s_Dialogs;
std::map<String, wxTolvanDlg::_Count> wxTolvanDlg::g_OpenCount;

Signal0<> wxTolvanDlg::s_ModalStarted;
Signal0<> wxTolvanDlg::s_ModalFinished;
Signal0<> wxTolvanDlg::s_DlgClosed;

namespace
{
bool CloseDialogs()
{
    const bool isOne = !wxTolvanDlg::s_Dialogs.empty();
    wxTolvanDlg::CloseAll();
    return isOne;
}

const bool kHearsFromBelow =
    (internal::g_UpperFloors.refreshDialogs = &wxTolvanDlg::RefreshAll,
     internal::g_UpperFloors.closeDialogs = &CloseDialogs,
     internal::g_UpperFloors.tellDialogs = &wxTolvanDlg::NotifyConnected, true);

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
    ForEachDialog([](wxTolvanDlg& dialog) { dialog.CloseForGood(); });
    s_Dialogs.clear();
}

void wxTolvanDlg::RefreshAll()
{
    CALL_ENTRY("wxTolvanDlg::RefreshAll");
    ForEachDialog(
        [](wxTolvanDlg& dialog)
        {
            if (!dialog.GetHandle())
            {
                return; // it takes its colours when its window is made
            }
            wxSysColourChangedEvent event;
            event.SetEventObject(&dialog);
            dialog.GetEventHandler()->ProcessEvent(event);
            dialog.Refresh();
        });
}
