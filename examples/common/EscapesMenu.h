#pragma once

#include <wx/menu.h>

/// The menu from which the user picks what becomes of the escape sequences in the program's logs.
/// It carries its commands out by itself, and ticks what is chosen whenever it opens: another
/// window's menu may have changed it.
class EscapesMenu : public wxMenu
{
public:
    /// Command ids: a way to show them each, in the order of the menu.
    enum
    {
        id_First = 22300,
        id_Last = 22302
    };

    EscapesMenu();

private:
    void TickChosen();
};

/// Appends it to a menu of the view.
void AppendEscapes(wxMenu& menu);
