#include "shell/wxColorMenu.h"

#include "appearance/SchemeNames.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/CallEntry.h"

#include <iterator>

static_assert(std::size(k_SchemeNames) ==
              wxColorMenu::id_LastScheme - wxColorMenu::id_FirstScheme + 1);

wxColorMenu::wxColorMenu()
{
    CALL_ENTRY("wxColorMenu::wxColorMenu");
    int id = id_FirstScheme;
    for (const SchemeName& entry : k_SchemeNames)
    {
        // No radio items: the toolkit does not tell of one that is picked again, and the colours of
        // the custom scheme may be others by then.
        AppendCheckItem(id++, wxGetTranslation(entry.label));
    }
    Bind(wxEVT_MENU_OPEN, &wxColorMenu::OnOpen, this);
    Bind(wxEVT_MENU, &wxColorMenu::OnCommand, this, id_FirstScheme, id_LastScheme);
}

void wxColorMenu::OnOpen(wxMenuEvent& event)
{
    event.Skip();
    TickScheme();
}

void wxColorMenu::OnCommand(wxCommandEvent& event)
{
    wxTolvanFrame::SetColorScheme(k_SchemeNames[event.GetId() - id_FirstScheme].scheme);
    TickScheme();
}

void wxColorMenu::TickScheme()
{
    int id = id_FirstScheme;
    for (const SchemeName& entry : k_SchemeNames)
    {
        Check(id++, entry.scheme == g_Scheme);
    }
}
