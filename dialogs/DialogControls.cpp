#include "appearance/wxtButton.h"
#include "appearance/wxtStockControls.h"
#include "dialogs/wxTolvanDlg.h"
#include "vesta/CallEntry.h"

#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>

namespace
{
constexpr int kButtonBorder = 5; // pixels
constexpr int kLineHeight = 1;   // pixels

// A plain panel would take the focus itself, as nothing in it can: an invisible stop for Tab.
class Line : public wxtPanel
{
public:
    explicit Line(wxWindow* parent)
        : wxtPanel(parent, wxID_ANY, wxDefaultPosition, wxSize(-1, kLineHeight))
    {
        m_container.DisableSelfFocus();
        m_BackgroundName = color_TextGrey;
        RefreshColors();
    }
};

wxtButton* AddButton(wxTolvanDlg& dialog, wxBoxSizer& sizer, int id, const wxString& label)
{
    auto* const button = new wxtButton(&dialog, id, label);
    // In a column the toolkit asserts: there is nothing to be centred in.
    const int centred = sizer.GetOrientation() == wxHORIZONTAL ? wxALIGN_CENTRE_VERTICAL : 0;
    sizer.Add(button, 0, wxALL | centred, kButtonBorder);
    return button;
}

wxFont Changed(wxFont font, bool bold, bool italic, int sizeDelta)
{
    if (bold)
    {
        font.SetWeight(wxFONTWEIGHT_BOLD);
    }
    if (italic)
    {
        font.SetStyle(wxFONTSTYLE_ITALIC);
    }
    if (sizeDelta)
    {
        font.SetPointSize(std::max(1, font.GetPointSize() + sizeDelta));
    }
    return font;
}
} // namespace

wxBoxSizer* wxTolvanDlg::StartControls()
{
    CALL_ENTRY("wxTolvanDlg::StartControls");
    auto* const sizer = new wxBoxSizer(wxVERTICAL);
    SetSizer(sizer, true);
    return sizer;
}

void wxTolvanDlg::AddButtons(wxBoxSizer* sizer, bool ownRow)
{
    CALL_ENTRY("wxTolvanDlg::AddButtons");
    wxBoxSizer* row = sizer;
    if (sizer->GetOrientation() == wxHORIZONTAL)
    {
        sizer->AddStretchSpacer(1);
    }
    else if (ownRow)
    {
        row = new wxBoxSizer(wxHORIZONTAL);
        sizer->Add(row, 0, wxALIGN_RIGHT);
    }
    AddButton(*this, *row, wxID_OK, wxGetTranslation("OK"))->SetDefault();
    AddButton(*this, *row, wxID_CANCEL, wxGetTranslation("Cancel"));
}

void wxTolvanDlg::AddButtonRow(wxBoxSizer* sizer, int border)
{
    CALL_ENTRY("wxTolvanDlg::AddButtonRow");
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    AddButtons(row, false);
    sizer->Add(row, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, std::max(0, border - kButtonBorder));
}

wxtStaticText* wxTolvanDlg::NewStatic(const wxString& text, bool bold, bool italic, int sizeDelta,
                                      long style, wxWindow* parent)
{
    CALL_ENTRY("wxTolvanDlg::NewStatic");
    auto* const label = new wxtStaticText(parent ? parent : this, wxID_ANY, text, wxDefaultPosition,
                                          wxDefaultSize, style);
    if (bold || italic || sizeDelta)
    {
        label->SetFont(Changed(label->GetFont(), bold, italic, sizeDelta));
    }
    return label;
}

wxtStaticText* wxTolvanDlg::NewStatic(const wxString& text, wxWindow* parent,
                                      const String& colourName)
{
    CALL_ENTRY("wxTolvanDlg::NewStatic");
    wxtStaticText* const label = NewStatic(text, false, false, 0, 0, parent);
    label->m_ForegroundName = colourName;
    label->RefreshColors();
    return label;
}

wxtPanel* wxTolvanDlg::NewLine(wxWindow* parent)
{
    CALL_ENTRY("wxTolvanDlg::NewLine");
    return new Line(parent ? parent : this);
}

wxBoxSizer* wxTolvanDlg::NewStaticLine(const wxString& text, wxWindow* parent)
{
    CALL_ENTRY("wxTolvanDlg::NewStaticLine");
    auto* const          row = new wxBoxSizer(wxHORIZONTAL);
    wxtStaticText* const caption = NewStatic(text, false, true, 0, 0, parent);
    caption->m_ForegroundName = color_TextGrey;
    caption->RefreshColors();
    row->Add(caption, 0, wxALIGN_CENTRE_VERTICAL);
    row->Add(NewLine(parent), 1, wxALIGN_CENTRE_VERTICAL);
    return row;
}
