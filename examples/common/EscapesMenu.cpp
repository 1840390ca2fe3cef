#include "common/EscapesMenu.h"

#include "common/FollowingText.h"

#include <wx/intl.h>

#include <iterator>

namespace
{
using Escapes = wxTextLineCtrl::Escapes;

constexpr struct
{
    Escapes     escapes;
    const char* label;
} kEntries[] = {{Escapes::Coloured, wxTRANSLATE("&Colours")},
                {Escapes::Plain, wxTRANSLATE("&Plain")},
                {Escapes::Raw, wxTRANSLATE("&Raw")}};
static_assert(std::size(kEntries) == EscapesMenu::id_Last - EscapesMenu::id_First + 1);
} // namespace

EscapesMenu::EscapesMenu()
{
    int id = id_First;
    for (const auto& entry : kEntries)
    {
        AppendRadioItem(id++, wxGetTranslation(entry.label));
    }
    TickChosen();
    Bind(wxEVT_MENU_OPEN,
         [this](wxMenuEvent& event)
         {
             event.Skip();
             TickChosen();
         });
    Bind(
        wxEVT_MENU,
        [](wxCommandEvent& event)
        { FollowingText::WantEscapes(kEntries[event.GetId() - id_First].escapes); },
        id_First, id_Last);
}

void EscapesMenu::TickChosen()
{
    int id = id_First;
    for (const auto& entry : kEntries)
    {
        if (entry.escapes == FollowingText::WantedEscapes())
        {
            Check(id, true);
        }
        ++id;
    }
}

void AppendEscapes(wxMenu& menu)
{
    menu.AppendSubMenu(new EscapesMenu, wxGetTranslation("&Escape Sequences"));
}
