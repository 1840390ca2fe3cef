#include "common/ColorMenu.h"

#include "shell/wxTolvanFrame.h"

#include <wx/frame.h>
#include <wx/intl.h>

#include <iterator>

namespace
{
constexpr int kFirstId = 21000;

struct Entry
{
    int         scheme;
    const char* label;
};

constexpr Entry kEntries[] = {
    {scheme_Default, wxTRANSLATE("&Default")}, {scheme_Light, wxTRANSLATE("&Light")},
    {scheme_Lighter, wxTRANSLATE("L&ighter")}, {scheme_Dark, wxTRANSLATE("D&ark")},
    {scheme_Darker, wxTRANSLATE("Da&rker")},   {scheme_Custom, wxTRANSLATE("&Custom")},
};

constexpr int kLastId = kFirstId + static_cast<int>(std::size(kEntries)) - 1;
} // namespace

ColorMenu::ColorMenu(wxFrame* frame)
{
    int id = kFirstId;
    for (const Entry& entry : kEntries)
    {
        AppendRadioItem(id++, wxGetTranslation(entry.label));
    }
    frame->Bind(
        wxEVT_MENU,
        [](wxCommandEvent& event)
        { wxTolvanFrame::SetColorScheme(kEntries[event.GetId() - kFirstId].scheme); },
        kFirstId, kLastId);
    frame->Bind(wxEVT_MENU_OPEN, &ColorMenu::OnOpen, this);
}

void ColorMenu::OnOpen(wxMenuEvent& event)
{
    event.Skip();
    for (size_t i = 0; i < std::size(kEntries); ++i)
    {
        if (kEntries[i].scheme == g_Scheme)
        {
            Check(kFirstId + static_cast<int>(i), true);
        }
    }
}
