#pragma once

#include "vesta/Export.h"

#include <wx/timer.h>

class wxTopLevelWindow;

/// Lets a window end only when what runs over it has ended: the functions that show a menu, a box
/// or a dialog must have returned before their window goes. A member of the window, whose close
/// handler asks `Begin` first and does nothing else when it says yes. Main thread.
class TOLVAN_API wxEndLater
{
public:
    /// `window` must outlive this.
    explicit wxEndLater(wxTopLevelWindow& window);

    /// Ends the menu, box or dialogs that are open and closes the window, without a veto, a moment
    /// later. False when nothing is open: the window may go at once.
    bool Begin();

private:
    wxTimer m_Timer;
};
