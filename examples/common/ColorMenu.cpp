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
        AppendRadioItem(id++, wxGetTranslation(entry.label));
    }
    frame->Bind(
        wxEVT_MENU,
        [](wxCommandEvent& event)
        { wxTolvanFrame::SetColorScheme(k_SchemeNames[event.GetId() - kFirstId].scheme); },
        kFirstId, kLastId);
    frame->Bind(wxEVT_MENU_OPEN, &ColorMenu::OnOpen, this);
}

void ColorMenu::OnOpen(wxMenuEvent& event)
{
    event.Skip();
    for (size_t i = 0; i < std::size(k_SchemeNames); ++i)
    {
        if (k_SchemeNames[i].scheme == g_Scheme)
        {
            Check(kFirstId + static_cast<int>(i), true);
        }
    }
}
