#pragma once

#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"

#include "dialogs/wxTolvanDlg.h"

#include <wx/uiaction.h>

/// A test with a main frame and real keys.
class DialogTest : public FrameTest
{
protected:
    DialogTest() { TestApp::Get().SetTopWindow(Frame()); }
    ~DialogTest() override { TestApp::Get().SetTopWindow(nullptr); }

    static OptionsFile& Options() { return TestApp::Get().Options(); }

    static bool WaitForFocus(wxWindow* window)
    {
        return WaitFor([window] { return window->HasFocus(); });
    }
    /// Runs the dialog; `act` runs inside its loop and must bring it to an end.
    static int Run(wxDialog& dialog, const std::function<void()>& act)
    {
        TestApp::Get().CallAfter(
            [&dialog, act]
            {
                EXPECT_TRUE(WaitFor([&dialog] { return dialog.IsActive(); }));
                act();
                if (!WaitFor([&dialog] { return !dialog.IsModal(); }))
                {
                    ADD_FAILURE() << "the dialog is still open";
                    dialog.EndModal(-1);
                }
            });
        return dialog.ShowModal();
    }
};

/// A dialog of two fields with the standard buttons, that may refuse what was entered.
class FieldDialog : public wxTolvanDlg
{
public:
    FieldDialog(wxWindow* parent, const String& name, bool modal, long fieldStyle = 0);

    bool TransferDataFromWindow() override
    {
        ++transfers;
        return valid;
    }

    wxTextCtrl* first = nullptr;
    wxTextCtrl* second = nullptr;
    bool        valid = true;
    int         transfers = 0;
};
