#include "gallery/GallerySections.h"

#include "appearance/wxtNotebook.h"
#include "appearance/wxtTextCtrl.h"

#include <wx/artprov.h>
#include <wx/sizer.h>

namespace
{
const wxSize  kViewSize(600, 100); // pixels
constexpr int kGap = 6;            // pixels

const struct
{
    const char* caption;
    bool        isModified;
} kPages[] = {{"Scene", false},
              {"shot_010_lighting_v012_final_for_review_by_the_whole_studio.scene", false},
              {"Log", true},
              {"Frames", false},
              {"Notes", false}};

wxWindow* MakePage(wxWindow* parent, const wxString& caption)
{
    auto* const page = new wxtPanel(parent);
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(new wxtTextCtrl(page, wxID_ANY, "Page " + caption), 0, wxEXPAND | wxALL, kGap);
    page->SetSizer(sizer);
    return page;
}
} // namespace

void AddNotebook(wxWindow* parent, wxSizer* sizer)
{
    auto* const book = new wxtNotebook(parent);
    book->SetMinSize(kViewSize);
    for (const auto& page : kPages)
    {
        wxWindow* const window = MakePage(book, page.caption);
        book->AddPage(window, page.caption);
        book->SetPageModified(window, page.isModified);
    }
    book->SetPageBitmap(0, wxArtProvider::GetBitmapBundle(wxART_NORMAL_FILE, wxART_MENU));
    sizer->Add(book, 1, wxEXPAND);
}
