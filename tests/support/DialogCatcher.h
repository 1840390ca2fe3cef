#pragma once

#include <wx/modalhook.h>
#include <wx/msgdlg.h>

/// Answers every modal dialog at once and remembers what a message box said.
class DialogCatcher : public wxModalDialogHook
{
public:
    DialogCatcher() { Register(); }
    ~DialogCatcher() override { Unregister(); }

    int      count = 0;
    wxString caption;
    wxString text;

protected:
    int Enter(wxDialog* dialog) override
    {
        ++count;
        if (const auto* const box = dynamic_cast<wxMessageDialog*>(dialog))
        {
            caption = box->GetTitle();
            text = box->GetMessage();
        }
        return wxID_OK;
    }
};
