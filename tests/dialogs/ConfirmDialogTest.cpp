#include "tests/dialogs/DialogTest.h"

#include "tests/support/LogCapture.h"

#include "appearance/wxtButton.h"
#include "appearance/wxtCheckBox.h"
#include "dialogs/wxConfirmDlg.h"
#include "dialogs/wxQuestion.h"

#include <wx/textctrl.h>

#include <thread>

namespace
{
class ConfirmDialogTest : public DialogTest
{
protected:
    // Asks; the answer, or none when no box came up.
    String Ask(const String& key, bool tick, int key1)
    {
        wxConfirmDlg dialog(Frame(), "Remove 3 jobs?", key, true);
        if (dialog.GetChildren().empty())
        {
            wxTolvanDlg::RefreshAll(); // there is no window
            delete new wxConfirmDlg(Frame(), "", "another", false);
            EXPECT_TRUE(dialog.Confirm());
            return "silenced";
        }
        const auto act = [&]
        {
            auto* const box = dynamic_cast<wxtCheckBox*>(dialog.FindWindow("checkBox"));
            EXPECT_TRUE(WaitForFocus(dialog.FindWindow(wxID_OK))); // a blank must not tick
            if (tick)
            {
                Press(WXK_TAB);
                Press(WXK_TAB);
                EXPECT_TRUE(WaitForFocus(box));
                Press(WXK_SPACE);
                EXPECT_TRUE(WaitFor([box] { return box->GetValue(); }));
            }
            Press(key1);
        };
        return Run(dialog, act) == wxID_OK ? "yes" : "no";
    }
};

wxTolvanDlg* TheDialog()
{
    return wxTolvanDlg::s_Dialogs.empty() ? nullptr : *wxTolvanDlg::s_Dialogs.begin();
}

// Without what may have been put in, or taken away, to wrap it.
wxString Unwrapped(wxString text)
{
    for (const char* const space : {" ", "\r", "\n"})
    {
        text.Replace(space, "");
    }
    return text;
}

bool ABoxIsUp()
{
    return TheDialog() && TheDialog()->IsModal() && TheDialog()->IsActive();
}

// Confirms every box; two more requests fail while the first one is up.
struct BoxCloser : HasSlots
{
    BoxCloser() { wxTolvanDlg::s_ModalStarted.Connect(this, &BoxCloser::Started); }
    void Started()
    {
        EXPECT_EQ(1u, wxTolvanDlg::s_Dialogs.size());
        for (const char* const text : {"second", "third", "third"})
        {
            if (boxes == 0)
            {
                TestApp::Get().RequestHasFailed(text);
            }
        }
        ++boxes;
        TestApp::Get().CallAfter(
            []
            {
                EXPECT_TRUE(WaitFor(ABoxIsUp));
                wxUIActionSimulator().Char(WXK_RETURN);
            });
    }

    int boxes = 0;
};
} // namespace

TEST_F(ConfirmDialogTest, OnlyATickAndOKSilenceAQuestion)
{
    EXPECT_EQ("no", Ask("a", true, WXK_ESCAPE));
    EXPECT_FALSE(Options().HasValue("Confirm", "a"));
    EXPECT_EQ("yes", Ask("a", false, WXK_RETURN));
    EXPECT_EQ("0", Options().GetValue("Confirm", "a"));
    EXPECT_EQ("yes", Ask("a", true, WXK_RETURN));
    EXPECT_EQ("1", Options().GetValue("Confirm", "a"));
    EXPECT_EQ("silenced", Ask("a", false, WXK_ESCAPE));
    EXPECT_EQ("no", Ask("b", false, WXK_ESCAPE));
    wxConfirmDlg::ResetAll();
    EXPECT_EQ("no", Ask("a", false, WXK_ESCAPE));
    Options().SetValue("Confirm", "a", "perhaps");
    EXPECT_EQ("no", Ask("a", false, WXK_ESCAPE));
}

TEST_F(ConfirmDialogTest, MessagesOfAnyLengthKeepTheButtonsOnTheScreen)
{
    const wxString lines = "R&D && \"more\"\r\n";
    wxString       many;
    for (int i = 0; i < 700; ++i)
    {
        many += lines;
    }
    for (const wxString& message : {wxString("Short & sweet"), wxString('x', 300),
                                    wxString('x', 10000), many, wxString(), wxString('\n', 200)})
    {
        wxConfirmDlg dialog(Frame(), message, "long", false);
        dialog.SetOK("Go on");
        dialog.SetCancel("A much longer label than before");
        const auto act = [&]
        {
            PumpEvents();
            for (const wxWindow* const window : dialog.GetChildren())
            {
                EXPECT_TRUE(wxRect(wxGetDisplaySize()).Contains(window->GetScreenRect()))
                    << message.length() << " " << window->GetLabel();
            }
            wxWindow* const first = dialog.GetChildren().GetFirst()->GetData();
            auto* const     text = dynamic_cast<wxTextCtrl*>(first);
            const wxString  shown =
                Unwrapped(text ? text->GetValue() : wxControl::RemoveMnemonics(first->GetLabel()));
            EXPECT_TRUE(Unwrapped(message) == shown) << message.length() << " " << shown.Left(40);
            Press(WXK_ESCAPE);
        };
        Run(dialog, act);
    }
}

TEST_F(ConfirmDialogTest, MessagesAreLoggedAndHarmIsDeniedByEnter)
{
    const LogCapture log;
    const auto       press = [](int key)
    {
        TestApp::Get().CallAfter(
            [key]
            {
                EXPECT_TRUE(WaitFor(ABoxIsUp));
                EXPECT_EQ(key == WXK_RETURN, TheDialog()->FindWindow("checkBox") != nullptr);
                SetColors(scheme_Light);
                wxTolvanDlg::RefreshAll();
                EXPECT_EQ(wxtGetColor(color_WindowBGDarker), TheDialog()->GetBackgroundColour());
                Press(key);
            });
    };
    press(WXK_RETURN);
    EXPECT_TRUE(wxTolvanMessageBox("All done", "done", Frame()));
    press(WXK_RETURN);
    EXPECT_FALSE(wxAsk(Frame(), {"harm", "Kill Job", "Kill it?", "Kill", "Keep", true}));
    for (int time = 0; time < 2; ++time)
    {
        press(WXK_ESCAPE);
        wxTellProblem("Disk full", Frame());
    }
    EXPECT_TRUE(log.Has("All done", log_Info));
    EXPECT_EQ(2, log.Count("Disk full"));
}

// From a thread of the platform, and while a box is up: one box at a time, nothing lost.
TEST_F(ConfirmDialogTest, FailedRequestsDoNotPileUp)
{
    const LogCapture log;
    BoxCloser        closer;
    std::thread([] { TestApp::Get().RequestHasFailed("first"); }).join();
    EXPECT_TRUE(WaitFor([&] { return closer.boxes == 2 && wxTolvanDlg::s_Dialogs.empty(); }));
    EXPECT_TRUE(log.Has("Master reports error:\nfirst", log_Info));
    EXPECT_TRUE(log.Has("Master reports error:\nsecond\nthird", log_Info));
}
