#pragma once

#include <wx/menu.h>

class wxFrame;

/// The menu from which the user picks the colour scheme of all programs. It ticks the current one
/// whenever it opens: another program may have changed it.
class ColorMenu : public wxMenu
{
public:
    /// `frame` gets the menu's commands.
    explicit ColorMenu(wxFrame* frame);

private:
    void OnOpen(wxMenuEvent& event);
    void TickScheme();
};
