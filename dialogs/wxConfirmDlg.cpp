#include "dialogs/wxConfirmDlg.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtCheckBox.h"
#include "dialogs/messages/MessageText.h"
#include "internal/windows/UpperFloors.h"
#include "shell/wxTolvanFrame.h"
#include "vesta/Application.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/app.h>
#include <wx/intl.h>
#include <wx/sizer.h>

#include <memory>

namespace
{
const char* const kSection = "Confirm";
constexpr int     kMessageBorder = 20; // pixels, as all below
constexpr int     kRowBorder = 10;
constexpr int     kRowGap = 10;
constexpr int     kButtonGap = 5;

void TellUser(const wxString& message, const String& key)
{
    wxTolvanMessageBox(message, key, nullptr);
}

const bool kTellsForBelow = (internal::g_UpperFloors.tellUser = &TellUser, true);

OptionsFile& Options()
{
    return Application::the_Application->Options();
}
} // namespace

wxConfirmDlg::wxConfirmDlg(wxWindow* parent, const wxString& message, const String& key,
                           bool alwaysOk)
    : wxTolvanDlg(String(), true), m_Remembered(Options().GetBool(kSection, key, false)), m_Key(key)
{
    CALL_ENTRY("wxConfirmDlg::wxConfirmDlg");
    if (m_Remembered)
    {
        return;
    }
    CreateDialog(parent, wxTheApp->GetAppDisplayName());
    m_BackgroundName = color_WindowBGDarker;
    RefreshColors();
    CreateControls(parent, message, alwaysOk);
}

void wxConfirmDlg::CreateControls(wxWindow* parent, const wxString& message, bool alwaysOk)
{
    CALL_ENTRY("wxConfirmDlg::CreateControls");
    wxBoxSizer* const column = StartControls();
    const wxSize      limit = dialogs::MessageLimit(parent ? parent : this);
    column->Add(dialogs::NewMessage(this, message, limit),
                wxSizerFlags(1).Expand().Border(wxALL, kMessageBorder));

    m_CheckBox = new wxtCheckBox(
        this, wxID_ANY,
        alwaysOk ? wxGetTranslation("This is always OK") : wxGetTranslation("Don't tell me again"),
        wxDefaultPosition, wxDefaultSize, 0, wxDefaultValidator, "checkBox");
    auto* const ok = new wxtButton(this, wxID_OK, wxGetTranslation("OK"));
    ok->SetDefault();
    auto* const cancel = new wxtButton(this, wxID_CANCEL, wxGetTranslation("Cancel"));

    // The keyboard begins at the buttons: a blank typed too early would silence the question.
    m_CheckBox->MoveAfterInTabOrder(cancel);

    auto* const row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(m_CheckBox, wxSizerFlags().CentreVertical());
    row->Add(kRowGap, 0, 1);
    row->Add(ok, wxSizerFlags().CentreVertical().Border(wxRIGHT, kButtonGap));
    row->Add(cancel, wxSizerFlags().CentreVertical());
    column->Add(row, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, kRowBorder));
}

bool wxConfirmDlg::Confirm()
{
    CALL_ENTRY("wxConfirmDlg::Confirm");
    if (m_Remembered)
    {
        return true;
    }
    Fit();
    CentreOnParent();
    return ShowModal() == wxID_OK;
}

bool wxConfirmDlg::TransferDataFromWindow()
{
    CALL_ENTRY("wxConfirmDlg::TransferDataFromWindow");
    if (m_CheckBox)
    {
        const WriteLock lock(Options().Lock());
        Options().InsertSection(kSection);
        Options().SetValue(kSection, m_Key, m_CheckBox->GetValue() ? "1" : "0");
    }
    return true;
}

void wxConfirmDlg::SetOK(const String& label)
{
    SetButtonLabel(wxID_OK, label);
}

void wxConfirmDlg::SetCancel(const String& label)
{
    SetButtonLabel(wxID_CANCEL, label);
}

void wxConfirmDlg::SetButtonLabel(int id, const String& label)
{
    CALL_ENTRY("wxConfirmDlg::SetButtonLabel");
    if (wxWindow* const button = FindWindow(id))
    {
        button->SetLabel(wxtToWx(label));
    }
}

void wxConfirmDlg::ResetAll()
{
    CALL_ENTRY("wxConfirmDlg::ResetAll");
    const WriteLock lock(Options().Lock());
    Options().ClearSection(kSection);
}

bool wxTolvanMessageBox(const wxString& message, const String& key, wxWindow* parent)
{
    CALL_ENTRY("wxTolvanMessageBox");
    LogInfo(wxtFromWx(message));
    wxConfirmDlg box(parent, message, key, false);
    return box.Confirm();
}
