#include "common/ColorMenu.h"

#include "common/SchemeNames.h"
#include "shell/wxTolvanFrame.h"

#include <wx/frame.h>

#include <iterator>

namespace
{
constexpr int kFirstId = 21000;

constexpr int kLastId = kFirstId + static_cast<int>(std::size(k_SchemeNames)) - 1;
} // namespace

ColorMenu::ColorMenu(wxFrame* frame)
{
    int id = kFirstId;
    for (const SchemeName& entry : k_SchemeNames)
    {
        // No radio items: the toolkit does not tell of one that is picked again, and the colours of
        // the custom scheme may be others by then.
        AppendCheckItem(id++, wxGetTranslation(entry.label));
    }
    frame->Bind(
        wxEVT_MENU,
        [this](wxCommandEvent& event)
        {
            wxTolvanFrame::SetColorScheme(k_SchemeNames[event.GetId() - kFirstId].scheme);
            TickScheme();
        },
        kFirstId, kLastId);
    frame->Bind(wxEVT_MENU_OPEN, &ColorMenu::OnOpen, this);
}

void ColorMenu::OnOpen(wxMenuEvent& event)
{
    event.Skip();
    TickScheme();
}

void ColorMenu::TickScheme()
{
    for (size_t i = 0; i < std::size(k_SchemeNames); ++i)
    {
        Check(kFirstId + static_cast<int>(i), k_SchemeNames[i].scheme == g_Scheme);
    }
}
