#include "common/Question.h"

#include "appearance/wxTolvanString.h"
#include "dialogs/wxConfirmDlg.h"

bool Ask(wxWindow* parent, const Question& question)
{
    wxConfirmDlg dialog(parent, question.text, question.key, true);
    if (dialog.GetHandle()) // there is none when the answer is known
    {
        dialog.SetTitle(question.title);
        dialog.SetOK(wxtFromWx(question.ok));
        dialog.SetCancel(wxtFromWx(question.cancel));
    }
    return dialog.Confirm();
}
