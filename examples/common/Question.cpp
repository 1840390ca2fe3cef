#include "common/Question.h"

#include "appearance/wxTolvanString.h"
#include "appearance/wxtButton.h"
#include "dialogs/wxConfirmDlg.h"

namespace
{
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

bool Ask(wxWindow* parent, const Question& question)
{
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
