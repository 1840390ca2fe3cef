#include "tests/dialogs/DialogTest.h"

#include "tests/support/EventCounter.h"

#include "appearance/wxtButton.h"

#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <cstdlib>

FieldDialog::FieldDialog(wxWindow* parent, const String& name, bool modal, long fieldStyle)
    : wxTolvanDlg(parent, "Fields", name, modal)
{
    wxBoxSizer* const column = StartControls();
    for (wxTextCtrl** const field : {&first, &second})
    {
        *field = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxSize(300, -1), fieldStyle);
        column->Add(*field, 0, wxEXPAND);
    }
    AddButtons(column, true);
}

namespace
{
FieldDialog* Opened(wxWindow* parent, const String& name)
{
    auto* const dialog = new FieldDialog(parent, name, false);
    dialog->Show();
    EXPECT_TRUE(WaitFor([dialog] { return dialog->IsActive(); }));
    return dialog;
}

void CloseAndWait(wxTolvanDlg* dialog)
{
    const wxWeakRef<wxTolvanDlg> closed(dialog);
    dialog->Close();
    EXPECT_TRUE(WaitFor([&closed] { return !closed; }));
}

} // namespace

TEST_F(DialogTest, DialogsOfOneNameOpenInACascade)
{
    Options().SetValue("Cascade", "Window", "100, 120, 400, 300");
    int step = wxSystemSettings::GetMetric(wxSYS_CAPTION_Y, Frame());
    step = step > 0 ? step : 20;
    std::vector<FieldDialog*> open;
    for (int i = 0; i < 3; ++i)
    {
        open.push_back(new FieldDialog(Frame(), "Cascade", false));
        const wxPoint expected(100 + i * step, 120 + i * step);
        open.back()->Show();
        EXPECT_EQ(expected, open.back()->GetPosition()) << i;
        EXPECT_TRUE(open.back()->HasFlag(wxRESIZE_BORDER));
    }
    for (const size_t closed : {0, 2, 1})
    {
        CloseAndWait(open[closed]);
    }
    EXPECT_EQ(0u, wxTolvanDlg::g_OpenCount["Cascade"].dialogs);
    EXPECT_TRUE(wxTolvanDlg::s_Dialogs.empty());
}

TEST_F(DialogTest, EveryWayOutKeepsThePosition)
{
    const struct
    {
        const char*                       name;
        int                               result;
        std::function<void(FieldDialog&)> leave;
    } ways[] = {
        {"ok", wxID_OK, [](FieldDialog&) { Press(WXK_RETURN); }},
        {"cancel", 0,
         [](FieldDialog& dialog) { dialog.EmulateWxtButtonClickIfPresent(wxID_CANCEL); }},
        {"escape", 0, [](FieldDialog&) { Press(WXK_ESCAPE); }},
        {"close box", wxID_CANCEL, [](FieldDialog& dialog) { dialog.Close(); }},
    };
    for (const bool modal : {true, false})
    {
        for (const auto& way : ways)
        {
            Options().ClearSection("Place");
            const auto leave = [&way](FieldDialog& dialog)
            {
                EXPECT_TRUE(WaitForFocus(dialog.first));
                const wxPoint place(333, 222);
                dialog.Move(place);
                // Until it is there: what the system said of an earlier place may still come.
                EXPECT_TRUE(WaitFor(
                    [&]
                    {
                        const wxPoint off = dialog.ClientToScreen(wxPoint()) - place;
                        const bool    isThere = std::max(std::abs(off.x), std::abs(off.y)) < 60;
                        PumpEvents();
                        return isThere && dialog.GetPosition() == place;
                    }));
                way.leave(dialog);
            };
            if (modal)
            {
                FieldDialog dialog(Frame(), "Place", true);
                EXPECT_EQ(way.result, Run(dialog, [&] { leave(dialog); })) << way.name;
            }
            else
            {
                const wxWeakRef<FieldDialog> dialog(Opened(Frame(), "Place"));
                leave(*dialog);
                EXPECT_TRUE(WaitFor([&dialog] { return !dialog; })) << way.name;
            }
            EXPECT_EQ(0, Options().GetValue("Place", "Window").find("333, 222, ")) << way.name;
        }
    }
    const std::vector<String> sections = Options().Sections();
    CloseAndWait(Opened(Frame(), ""));
    EXPECT_EQ(sections, Options().Sections());
}

// Whatever is stored, the buttons are on the screen.
TEST_F(DialogTest, NoStoredGeometryHidesTheButtons)
{
    const wxRect area(wxGetDisplaySize());
    for (const char* const stored :
         {"5000, 5000, 400, 300", "-300, -200, 1, 1", "1500, 1100, 30000, 30000",
          "99999999999, 0, 10, 10", "-5, -5, -5, -5", "nonsense", "1,2,3"})
    {
        Options().SetValue("Odd", "Window", stored);
        FieldDialog* const dialog = Opened(Frame(), "Odd");
        EXPECT_TRUE(WaitFor(
            [&]
            {
                return area.Contains(dialog->FindWindow(wxID_OK)->GetScreenRect()) &&
                       area.Contains(dialog->FindWindow(wxID_CANCEL)->GetScreenRect());
            }))
            << stored;
        CloseAndWait(dialog);
    }
}

TEST_F(DialogTest, TheKeyboardAloneIsEnough)
{
    FieldDialog dialog(Frame(), "", true, wxTE_MULTILINE);
    EXPECT_FALSE(dialog.HasFlag(wxRESIZE_BORDER));
    const auto act = [&dialog]
    {
        EXPECT_TRUE(WaitForFocus(dialog.first));
        Press(WXK_TAB);
        EXPECT_TRUE(WaitForFocus(dialog.second));
        dialog.valid = false;
        Press(WXK_RETURN); // in a text of several lines too
        EXPECT_TRUE(WaitFor([&] { return dialog.transfers == 1; }));
        EXPECT_TRUE(dialog.IsModal());
        EXPECT_EQ("", dialog.second->GetValue());
        Press(WXK_TAB);
        EXPECT_TRUE(WaitForFocus(dialog.FindWindow(wxID_OK)));
        Press(WXK_NUMPAD_ENTER);
        PumpEvents();
        EXPECT_EQ(2, dialog.transfers) << "one press, one click";
        Press(WXK_TAB);
        EXPECT_TRUE(WaitForFocus(dialog.FindWindow(wxID_CANCEL)));
        Press(WXK_RETURN);
    };
    EXPECT_EQ(0, Run(dialog, act));
    EXPECT_EQ(2, dialog.transfers);
}

TEST_F(DialogTest, ADialogOfADialogHasItsFontAndGivesItCommandsNotKeys)
{
    FieldDialog* const outer = Opened(Frame(), "");
    FieldDialog* const inner = Opened(outer, "");
    const int          usual = wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetPointSize();
    EXPECT_EQ(usual - 1, outer->GetFont().GetPointSize());
    EXPECT_EQ(usual - 1, inner->GetFont().GetPointSize());
    EventCounter typed(outer, wxEVT_CHAR_HOOK);
    EventCounter texts(outer, wxEVT_TEXT);
    EXPECT_TRUE(WaitForFocus(inner->first));
    Press('A');
    EXPECT_TRUE(WaitFor([&] { return texts.Count() == 1; }));
    EXPECT_EQ(0, typed.Count());
    outer->Destroy();
    EXPECT_TRUE(WaitFor([] { return wxTolvanDlg::s_Dialogs.empty(); }));
}

TEST_F(DialogTest, KeysClickOnlyWhatTheUserCouldClick)
{
    auto* const dialog = new FieldDialog(Frame(), "", false);
    wxWindow*   ok = dialog->FindWindow(wxID_OK);
    ok->Disable();
    EXPECT_FALSE(dialog->EmulateDefaultButton());
    ok->Enable();
    ok->Hide();
    EXPECT_FALSE(dialog->EmulateDefaultButton());
    EXPECT_FALSE(dialog->EmulateWxtButtonClickIfPresent(wxID_OK));
    ok->Show();
    EXPECT_FALSE(dialog->EmulateWxtButtonClickIfPresent(dialog->first->GetId()));
    dialog->SetEscapeId(wxID_NONE);
    EXPECT_FALSE(dialog->EmulateCancelButton());
    dialog->SetEscapeId(wxID_ANY);
    dialog->FindWindow(wxID_CANCEL)->Hide();
    EXPECT_TRUE(dialog->EmulateCancelButton()); // the affirmative button in its place
    EXPECT_EQ(1, dialog->transfers);
    EXPECT_TRUE(WaitFor([] { return wxTolvanDlg::s_Dialogs.empty(); }));
}
