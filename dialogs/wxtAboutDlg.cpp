#include "dialogs/wxtAboutDlg.h"

#include "appearance/wxtButton.h"
#include "appearance/wxtStockControls.h"
#include "dialogs/messages/MessageText.h"
#include "vesta/CallEntry.h"

#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/utils.h>
#include <wx/versioninfo.h>

namespace
{
constexpr int kBorder = 20;         // pixels around the dialog's content
constexpr int kGap = 10;            // pixels between its parts
constexpr int kTitleLarger = 4;     // points
const wxSize  kTextLimit(480, 160); // pixels of one text, such as a licence, before it scrolls
} // namespace

wxtAboutDlg::wxtAboutDlg(wxWindow* parent, const wxAboutDialogInfo& info)
    : wxTolvanDlg(parent, wxString::Format(wxGetTranslation("About %s"), info.GetName()), String(),
                  true)
{
    CALL_ENTRY("wxtAboutDlg::wxtAboutDlg");
    auto* const content = new wxBoxSizer(wxHORIZONTAL);
    if (info.HasIcon())
    {
        content->Add(new wxStaticBitmap(this, wxID_ANY, info.GetIcon()),
                     wxSizerFlags().Border(wxRIGHT, kBorder));
    }
    content->Add(NewTexts(info), wxSizerFlags(1).Expand());

    wxBoxSizer* const whole = StartControls();
    whole->Add(content, wxSizerFlags(1).Expand().Border(wxALL, kBorder));
    whole->Add(NewButtons(info),
               wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, kBorder));
}

wxSizer* wxtAboutDlg::NewTexts(const wxAboutDialogInfo& info)
{
    auto* const column = new wxBoxSizer(wxVERTICAL);
    const auto  add = [column](wxWindow* text)
    { column->Add(text, wxSizerFlags().Border(column->IsEmpty() ? 0 : wxTOP, kGap)); };
    add(NewStatic(wxControl::EscapeMnemonics(info.GetName()), true, false, kTitleLarger));
    if (info.HasVersion())
    {
        add(dialogs::NewMessage(this, info.GetLongVersion(), kTextLimit));
    }
    for (const wxString& text : {info.GetDescriptionAndCredits(), info.GetLicence()})
    {
        if (!text.empty())
        {
            add(dialogs::NewMessage(this, text, kTextLimit));
        }
    }
    if (info.HasCopyright())
    {
        add(NewGreyText(info.GetCopyrightToDisplay()));
    }
    add(NewGreyText(wxString::Format(wxGetTranslation("Built with %s"),
                                     wxGetLibraryVersionInfo().GetVersionString())));
    return column;
}

wxWindow* wxtAboutDlg::NewGreyText(const wxString& text)
{
    wxtStaticText* const grey =
        NewStatic(wxControl::EscapeMnemonics(text), nullptr, color_TextGrey);
    grey->KeepReadable();
    return grey;
}

wxSizer* wxtAboutDlg::NewButtons(const wxAboutDialogInfo& info)
{
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    if (info.HasWebSite())
    {
        auto* const visit = new wxtButton(this, wxID_ANY, wxGetTranslation("&Web Site"));
        visit->SetToolTip(info.GetWebSiteURL());
        visit->Bind(wxEVT_BUTTON,
                    [url = info.GetWebSiteURL()](wxCommandEvent&) { wxLaunchDefaultBrowser(url); });
        row->Add(visit);
    }
    auto* const close = new wxtButton(this, wxID_OK, wxGetTranslation("Close"));
    close->SetDefault();
    row->AddStretchSpacer();
    row->Add(close, wxSizerFlags().Border(wxLEFT, kGap));
    return row;
}

void wxtAboutBox(const wxAboutDialogInfo& info, wxWindow* parent)
{
    CALL_ENTRY("wxtAboutBox");
    wxtAboutDlg(parent, info).ShowModal();
}
