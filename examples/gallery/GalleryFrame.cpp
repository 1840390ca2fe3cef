#include "gallery/GalleryFrame.h"

#include "gallery/GalleryDialogs.h"
#include "gallery/GallerySections.h"

#include "appearance/wxtStockControls.h"
#include "shell/wxColorMenu.h"

#include <wx/menu.h>
#include <wx/sizer.h>

namespace
{
constexpr int kBorder = 10;    // pixels
constexpr int kUnderTitle = 3; // pixels; all sections fit a screen of 1024
constexpr int kColumns = 2;
constexpr int id_Disabled = 23000; // menu command: no control can be used

void AddJobDialogAndPages(wxWindow* parent, wxSizer* sizer)
{
    auto* const pages = new wxBoxSizer(wxVERTICAL);
    AddNotebook(parent, pages);
    AddJobDialog(parent, sizer);
    sizer->Add(pages, 1, wxEXPAND);
}

const struct
{
    const char*    title;
    GallerySection add;
} kSections[] = {
    {"Buttons", AddButtons},
    {"Check boxes and radio buttons", AddBoxes},
    {"Text fields", AddFields},
    {"Choice, combo box and check list", AddChoices},
    {"Panels that open; a pane that scrolls; docked panes", AddPanels},
    {"Charts", AddCharts},
    {"List", AddList},
    {"Text lines", AddText},
    {"A list of a million rows", AddArrangedList},
    {"Tree", AddTree},
    {"Jobs to pick", AddJobs},
    {"The same in a dialog; pages with tabs", AddJobDialogAndPages},
};
} // namespace

GalleryFrame::GalleryFrame() : wxTolvanFrame("Tolvan Gallery")
{
    auto* const view = new wxMenu;
    view->AppendSubMenu(new wxColorMenu, "&Colours");
    view->AppendCheckItem(id_Disabled, "&Disabled");
    auto* const bar = new wxMenuBar;
    bar->Append(view, "&View");
    bar->Append(NewDialogMenu(*this), "D&ialogs"); // a button has the D
    SetMenuBar(bar);

    auto* const panel = new wxtPanel(this);
    Bind(
        wxEVT_MENU, [panel](wxCommandEvent& event) { panel->Enable(!event.IsChecked()); },
        id_Disabled);
    panel->SetSizer(BuildSections(panel));
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(panel, 1, wxEXPAND);
    SetSizerAndFit(whole);
    whole->SetSizeHints(this); // the search bar takes a second row at that width
    Bind(wxEVT_CLOSE_WINDOW, &GalleryFrame::OnClose, this);
    m_Built = true;
}

void GalleryFrame::OnClose(wxCloseEvent& event)
{
    if (!m_End.Begin())
    {
        event.Skip();
    }
}

wxSizer* GalleryFrame::BuildSections(wxWindow* parent)
{
    auto* const grid = new wxFlexGridSizer(kColumns, wxSize(kBorder, kBorder));
    for (int column = 0; column < kColumns; ++column)
    {
        grid->AddGrowableCol(static_cast<size_t>(column), 1);
    }
    for (const auto& section : kSections)
    {
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        auto* const title = new wxtStaticText(parent, wxID_ANY, section.title);
        title->SetFont(title->GetFont().Bold());
        title->m_ForegroundName = color_TextGrey;
        title->KeepReadable();
        sizer->Add(title, 0, wxBOTTOM, kUnderTitle);
        section.add(parent, sizer);
        grid->Add(sizer, 1, wxEXPAND);
    }
    auto* const framed = new wxBoxSizer(wxVERTICAL);
    framed->Add(grid, 1, wxEXPAND | wxALL, kBorder);
    return framed;
}
