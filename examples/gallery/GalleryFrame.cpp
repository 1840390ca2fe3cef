#include "gallery/GalleryFrame.h"

#include "gallery/GalleryDialogs.h"
#include "gallery/GallerySections.h"

#include "appearance/wxtScrolledPane.h"
#include "appearance/wxtStockControls.h"
#include "shell/wxColorMenu.h"

#include <wx/display.h>
#include <wx/menu.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int kBorder = 6;     // pixels
constexpr int kUnderTitle = 3; // pixels; all sections fit a screen of 1024
constexpr int kColumns = 2;
constexpr int kLeastHeight = 240;  // pixels
constexpr int kAroundPane = 80;    // pixels of the menu bar and of the frame
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

    m_Pane = new wxtScrolledPane(this);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent& event) { m_Pane->Enable(!event.IsChecked()); },
        id_Disabled);
    m_Grid = new wxFlexGridSizer(kColumns, wxSize(kBorder, kBorder));
    AddSections();
    auto* const framed = new wxBoxSizer(wxVERTICAL);
    framed->Add(m_Grid, 1, wxEXPAND | wxALL, kBorder);
    m_Pane->SetSizer(framed);
    auto* const whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(m_Pane, 1, wxEXPAND);
    m_TwoColumns = m_Pane->GetSizer()->GetMinSize().x;
    FitToScreen();
    SetSizerAndFit(whole);
    FitToScreen(); // the search bar takes a second row at that width
    whole->Fit(this);
    m_Pane->Bind(wxEVT_SIZE, &GalleryFrame::OnPaneSize, this);
    SetMinSize(ClientToWindowSize(wxSize(LeastWidth(), kLeastHeight)));
    LoadWindowPosition();
    Bind(wxEVT_CLOSE_WINDOW, &GalleryFrame::OnClose, this);
    m_Built = true;
}

void GalleryFrame::OnClose(wxCloseEvent& event)
{
    if (!m_End.Begin())
    {
        SaveWindowPosition();
        event.Skip();
    }
}

void GalleryFrame::AddSections()
{
    for (const auto& section : kSections)
    {
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        auto* const title = new wxtStaticText(m_Pane, wxID_ANY, section.title);
        title->SetFont(title->GetFont().Bold());
        title->m_ForegroundName = color_TextGrey;
        title->KeepReadable();
        sizer->Add(title, 0, wxBOTTOM, kUnderTitle);
        section.add(m_Pane, sizer);
        m_Grid->Add(sizer, 1, wxEXPAND);
    }
    for (int column = 0; column < kColumns; ++column)
    {
        m_Grid->AddGrowableCol(static_cast<size_t>(column), 1);
    }
}

void GalleryFrame::SetColumns(int columns)
{
    if (columns < m_Grid->GetCols())
    {
        m_Grid->RemoveGrowableCol(static_cast<size_t>(columns));
    }
    else if (columns > m_Grid->GetCols())
    {
        m_Grid->SetCols(columns); // a column has to be there before it can grow
        m_Grid->AddGrowableCol(static_cast<size_t>(columns - 1), 1);
    }
    m_Grid->SetCols(columns);
}

// What is higher than the pane scrolls; what is wider goes below one another.
void GalleryFrame::FitToScreen()
{
    const wxSize screen = WindowToClientSize(wxDisplay(this).GetClientArea().GetSize());
    SetColumns(m_TwoColumns > screen.x ? 1 : kColumns);
    const wxSize content = m_Pane->GetSizer()->GetMinSize();
    const int bar = content.y > screen.y ? wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this) : 0;
    m_Pane->SetMinSize(
        wxSize(std::min(content.x + bar, screen.x), std::min(content.y, screen.y - kAroundPane)));
}

// Of the sections below one another, with the scrollbar.
int GalleryFrame::LeastWidth()
{
    const int columns = m_Grid->GetCols();
    SetColumns(1);
    const int width = m_Pane->GetSizer()->GetMinSize().x;
    SetColumns(columns);
    return width + std::max(wxSystemSettings::GetMetric(wxSYS_VSCROLL_X, this), 0);
}

void GalleryFrame::OnPaneSize(wxSizeEvent& event)
{
    event.Skip();
    SetColumns(m_Pane->GetSize().x < m_TwoColumns ? 1 : kColumns);
}
