#include "shell/wxEndLater.h"

#include "internal/windows/UpperFloors.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/CallEntry.h"

namespace
{
constexpr int kAgain = 20; // milliseconds
} // namespace

wxEndLater::wxEndLater(wxTopLevelWindow& window)
{
    CALL_ENTRY("wxEndLater::wxEndLater");
    m_Timer.Bind(wxEVT_TIMER, [&window](wxTimerEvent&) { window.Close(true); });
}

bool wxEndLater::Begin()
{
    CALL_ENTRY("wxEndLater::Begin");
    // What has popped up over a dialog ends first.
    if (!wxTolvanFrame::ClosePopUp() && !internal::g_UpperFloors.closeDialogs())
    {
        return false;
    }
    m_Timer.StartOnce(kAgain);
    return true;
}
