#pragma once

#include <wx/timer.h>

class wxTopLevelWindow;

/// Lets a window end only when what runs over it has ended: the functions that show a menu, a box
/// or a dialog must have returned before their window goes.
class EndLater
{
public:
    explicit EndLater(wxTopLevelWindow& window);

    /// Ends what is open and closes the window a moment later. False when nothing is open: the
    /// window may go at once.
    bool Begin();

private:
    wxTimer m_Timer;
};
