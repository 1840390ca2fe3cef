#include "dialogs/wxTextFromUserDlg.h"

#include "appearance/wxtTextCtrl.h"
#include "vesta/CallEntry.h"

#include <wx/sizer.h>

namespace
{
// Pixels.
constexpr int kBorder = 10;
constexpr int kFieldWidth = 320;
constexpr int kMessageWidth = 480; // before its lines are broken
} // namespace

wxTextFromUserDlg::wxTextFromUserDlg(wxWindow* parent, const wxString& message,
                                     const wxString& title, const wxString& value,
                                     const String& positionName, long style,
                                     const wxValidator& validator)
    : wxTolvanDlg(parent, title, positionName, true)
{
    CALL_ENTRY("wxTextFromUserDlg::wxTextFromUserDlg");
    CreateControls(message, value, style, validator);
    Fit();
    // No height but its own makes sense.
    SetSizeHints(GetSize().x, GetSize().y, wxDefaultCoord, GetSize().y);
    CentreOnParent();
}

void wxTextFromUserDlg::CreateControls(const wxString& message, const wxString& value, long style,
                                       const wxValidator& validator)
{
    wxBoxSizer* const column = StartControls();
    if (!message.empty())
    {
        wxtStaticText* const text = NewStatic(wxControl::EscapeMnemonics(message));
        text->Wrap(kMessageWidth);
        column->Add(text, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, kBorder));
    }
    m_Field = new wxtTextCtrl(this, wxID_ANY, value, wxDefaultPosition, wxSize(kFieldWidth, -1),
                              style, validator);
    m_Field->SetFocus();
    m_Field->SelectAll();
    column->Add(m_Field, wxSizerFlags().Expand().Border(wxALL, kBorder));
    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    AddButtons(row, false);
    column->Add(row, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, kBorder));
}

wxString wxTextFromUserDlg::GetValue() const
{
    return m_Field->GetValue();
}

void wxTextFromUserDlg::SetValue(const wxString& value)
{
    CALL_ENTRY("wxTextFromUserDlg::SetValue");
    m_Field->SetValue(value);
    m_Field->SelectAll();
}

bool wxTolvanTextFromUser(wxWindow* parent, const wxString& message, const wxString& title,
                          wxString& text, const String& positionName, const wxValidator& validator)
{
    CALL_ENTRY("wxTolvanTextFromUser");
    wxTextFromUserDlg dialog(parent, message, title, text, positionName, 0, validator);
    if (dialog.ShowModal() != wxID_OK)
    {
        return false;
    }
    text = dialog.GetValue();
    return true;
}
