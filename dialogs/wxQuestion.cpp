#include "dialogs/wxQuestion.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "dialogs/messages/MessageText.h"
#include "dialogs/wxConfirmDlg.h"
#include "internal/windows/UpperFloors.h"
#include "vesta/CallEntry.h"
#include "vesta/Log.h"

#include <wx/app.h>
#include <wx/intl.h>
#include <wx/sizer.h>

namespace
{
constexpr int kMessageBorder = 20; // pixels
constexpr int kButtonBorder = 10;  // pixels

const bool kTellsForBelow = (internal::g_UpperFloors.tellProblem = &wxTellProblem, true);

class _Notice : public wxTolvanDlg
{
public:
    _Notice(wxWindow* parent, const wxString& message)
        : wxTolvanDlg(parent, wxTheApp->GetAppDisplayName(), String(), true)
    {
        m_BackgroundName = color_WindowBGDarker;
        RefreshColors();
        wxBoxSizer* const column = StartControls();
        column->Add(dialogs::NewMessage(this, message, dialogs::MessageLimit(this)),
                    wxSizerFlags(1).Expand().Border(wxALL, kMessageBorder));
        auto* const ok = new wxtButton(this, wxID_OK, wxGetTranslation("OK"));
        ok->SetDefault();
        SetEscapeId(wxID_OK);
        column->Add(ok, wxSizerFlags().Right().Border(wxLEFT | wxRIGHT | wxBOTTOM, kButtonBorder));
        Fit();
        CentreOnParent();
    }
};

// The first in the order of the Tab key has the keyboard when the dialog comes up.
void MakeCancelDefault(wxConfirmDlg& dialog)
{
    wxWindow* const cancel = dialog.FindWindow(wxID_CANCEL);
    cancel->MoveBeforeInTabOrder(dialog.FindWindow(wxID_OK));
    if (auto* const button = dynamic_cast<wxtButton*>(cancel))
    {
        button->SetDefault();
    }
}
} // namespace

bool wxAsk(wxWindow* parent, const wxQuestion& question)
{
    CALL_ENTRY("wxAsk");
    wxConfirmDlg dialog(parent, question.text, question.key, true);
    if (dialog.GetHandle()) // there is none when the answer is known
    {
        dialog.SetTitle(question.title);
        dialog.SetOK(wxtFromWx(question.ok));
        dialog.SetCancel(wxtFromWx(question.cancel));
        if (question.isHarmful)
        {
            MakeCancelDefault(dialog);
        }
    }
    return dialog.Confirm();
}

void wxTellProblem(const wxString& message, wxWindow* parent)
{
    CALL_ENTRY("wxTellProblem");
    LogInfo(wxtFromWx(message));
    _Notice(parent, message).ShowModal();
}
