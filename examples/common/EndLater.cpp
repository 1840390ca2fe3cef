#include "common/EndLater.h"

#include "dialogs/wxTolvanDlg.h"
#include "shell/wxTolvanFrame.h"

namespace
{
constexpr int kAgain = 20; // milliseconds
} // namespace

EndLater::EndLater(wxTopLevelWindow& window)
{
    m_Timer.Bind(wxEVT_TIMER, [&window](wxTimerEvent&) { window.Close(true); });
}

bool EndLater::Begin()
{
    const bool isDialogOpen = !wxTolvanDlg::s_Dialogs.empty();
    if (!wxTolvanFrame::ClosePopUp())
    {
        if (!isDialogOpen)
        {
            return false;
        }
        wxTolvanDlg::CloseAll();
    }
    m_Timer.StartOnce(kAgain);
    return true;
}
