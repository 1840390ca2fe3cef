#include "tests/dialogs/DialogTest.h"

#include "tests/support/EventCounter.h"

#include "appearance/wxtButton.h"

#include <wx/button.h>
#include <wx/textctrl.h>

#include <algorithm>

namespace
{
struct Notices : HasSlots
{
    Notices()
    {
        wxTolvanDlg::s_ModalStarted.Connect(this, [this] { heard += "s"; });
        wxTolvanDlg::s_ModalFinished.Connect(this, [this] { heard += "f"; });
        wxTolvanDlg::s_DlgClosed.Connect(this, [this] { heard += "c"; });
    }

    std::string heard;
};
} // namespace

TEST_F(DialogTest, ResultsAndSignalsOfModalRuns)
{
    const Notices notices;
    {
        wxTolvanDlg dialog(Frame(), "", "", true);
        new wxButton(&dialog, wxID_CANCEL, "Cancel");
        EXPECT_EQ(0, Run(dialog, [&dialog] { dialog.Close(); }));
        EXPECT_EQ(5, Run(dialog, [&dialog] { dialog.EndModal(5); }));
    }
    EXPECT_EQ("sfsfc", notices.heard);
}

// However late the focus is back there.
TEST_F(DialogTest, EnterClicksNothingBehindTheDialog)
{
    auto* const  button = new wxtButton(Frame(), wxID_ANY, "Open");
    EventCounter clicks(button, wxEVT_BUTTON);
    Focus(button);
    FieldDialog dialog(Frame(), "", true);
    Run(dialog, [] { wxUIActionSimulator().Char(WXK_RETURN); });
    EXPECT_TRUE(WaitForFocus(button));
    PumpEvents();
    EXPECT_EQ(0, clicks.Count());
    Press(WXK_RETURN); // a press of its own
    EXPECT_TRUE(WaitFor([&clicks] { return clicks.Count() == 1; }));
}

// The Enter that opened it from a menu, for one: its release may be waiting when the dialog opens.
TEST_F(DialogTest, AKeyPressedBeforeADialogOpensClicksNothingInIt)
{
    wxTolvanDlg dialog(Frame(), "", "", true);
    auto* const close = new wxtButton(&dialog, wxID_OK, "Close");
    dialog.StartControls()->Add(close);
    auto* const  field = new wxTextCtrl(Frame(), wxID_ANY);
    EventCounter presses(field, wxEVT_CHAR_HOOK);
    EventCounter releases(close, wxEVT_KEY_UP);
    Focus(field);
    wxUIActionSimulator().KeyDown(WXK_RETURN);
    EXPECT_TRUE(WaitFor([&] { return presses.Count() > 0; }));
    wxUIActionSimulator().KeyUp(WXK_RETURN);
    Run(dialog,
        [&]
        {
            EXPECT_TRUE(WaitForFocus(close));
            wxUIActionSimulator().Char('X'); // comes after it
            EXPECT_TRUE(WaitFor([&] { return releases.Count() > 0; }));
            EXPECT_TRUE(dialog.IsModal());
            wxUIActionSimulator().Char(WXK_SPACE); // a press of its own
        });
    EXPECT_EQ(wxID_OK, dialog.GetReturnCode());
}

// On the stack, one over the other: whoever runs a modal dialog also ends its life.
TEST_F(DialogTest, CloseAllEndsModalDialogsToo)
{
    const Notices notices;
    int           innerResult = -1;
    {
        FieldDialog outer(Frame(), "", true);
        new FieldDialog(&outer, "", false);
        const auto openInner = [&]
        {
            FieldDialog inner(&outer, "", true);
            innerResult = Run(inner, [] { wxTolvanDlg::CloseAll(); });
        };
        EXPECT_EQ(0, Run(outer, openInner));
        EXPECT_EQ(0, innerResult);
        EXPECT_EQ(0, outer.ShowModal()) << "closed for good";
        EXPECT_TRUE(wxTolvanDlg::s_Dialogs.empty());
    }
    PumpEvents();
    EXPECT_EQ(3, std::count(notices.heard.begin(), notices.heard.end(), 'c')) << notices.heard;
}

TEST_F(DialogTest, AModalDialogOutlivesItsParent)
{
    {
        FieldDialog outer(Frame(), "", true);
        const auto  openInner = [&]
        {
            FieldDialog inner(&outer, "", true);
            EXPECT_EQ(0, Run(inner, [this] { Frame()->Destroy(); }));
        };
        EXPECT_EQ(0, Run(outer, openInner));
        EXPECT_EQ(nullptr, Frame());
    }
    EXPECT_TRUE(wxTolvanDlg::s_Dialogs.empty());
}
