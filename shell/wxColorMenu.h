#pragma once

#include "vesta/Export.h"

#include <wx/menu.h>

/// The menu from which the user picks the colour scheme of all programs. It carries its commands
/// out by itself, in a menu bar or as a menu that pops up, and ticks the current scheme whenever it
/// opens: another program may have changed it. Main thread.
class TOLVAN_API wxColorMenu : public wxMenu
{
public:
    /// Command ids: a scheme each, in the order of `k_SchemeNames`.
    enum
    {
        id_FirstScheme = 21000,
        id_LastScheme = 21006
    };

    wxColorMenu();

private:
    void OnOpen(wxMenuEvent& event);
    void OnCommand(wxCommandEvent& event);
    void TickScheme();
};
