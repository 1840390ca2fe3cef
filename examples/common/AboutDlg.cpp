#include "common/AboutDlg.h"

#include "appearance/wxtButton.h"
#include "appearance/wxtStockControls.h"

#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/utils.h>
#include <wx/versioninfo.h>

namespace
{
constexpr int kBorder = 20;     // pixels around the dialog's content
constexpr int kGap = 10;        // pixels between its parts
constexpr int kTitleLarger = 4; // points
} // namespace

AboutDlg::AboutDlg(wxWindow* parent, const wxString& program, const wxString& purpose)
    : wxTolvanDlg(parent, wxString::Format(wxGetTranslation("About %s"), program), String(), true)
{
    auto* const text = new wxBoxSizer(wxVERTICAL);
    text->Add(NewStatic(program, true, false, kTitleLarger), 0, wxBOTTOM, kGap / 2);
    text->Add(NewStatic(wxString::Format(wxGetTranslation("Version %s"), TOLVAN_VERSION)), 0,
              wxBOTTOM, kGap);
    text->Add(NewStatic(purpose), 0, wxBOTTOM, kGap);
    auto* const built = NewStatic(wxString::Format(wxGetTranslation("Built with %s"),
                                                   wxGetLibraryVersionInfo().GetVersionString()),
                                  nullptr, color_TextGrey);
    built->KeepReadable();
    text->Add(built);

    auto* const close = new wxtButton(this, wxID_OK, wxGetTranslation("Close"));
    close->SetDefault();
    wxBoxSizer* const whole = StartControls();
    whole->Add(text, 1, wxEXPAND | wxALL, kBorder);
    whole->Add(close, 0, wxALIGN_RIGHT | wxLEFT | wxRIGHT | wxBOTTOM, kGap);
}
