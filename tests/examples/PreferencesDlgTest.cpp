#include "common/PreferencesDlg.h"
#include "tests/dialogs/DialogTest.h"

#include "appearance/SchemeNames.h"
#include "appearance/wxtCheckBox.h"
#include "shell/wxTolvanFrame.h"

namespace
{
class PreferencesDlgTest : public DialogTest
{
protected:
    ~PreferencesDlgTest() override { wxTolvanFrame::SetColorScheme(scheme_Default); }

    // As the user's click does.
    static void Choose(PreferencesDlg& dialog, int scheme)
    {
        for (const SchemeName& name : k_SchemeNames)
        {
            if (name.scheme == scheme)
            {
                wxWindow* const button =
                    wxWindow::FindWindowByLabel(wxGetTranslation(name.label), &dialog);
                ASSERT_TRUE(button);
                wxCommandEvent chosen(wxEVT_RADIOBUTTON, button->GetId());
                button->ProcessWindowEvent(chosen);
            }
        }
    }
};
} // namespace

TEST_F(PreferencesDlgTest, CancelTakesBackWhatWasChosenHereAndNothingElse)
{
    enum Who
    {
        kHere,
        kElsewhere
    };
    const struct
    {
        std::vector<std::pair<Who, int>> picks;
        int                              after;
    } cases[] = {{{{kHere, scheme_Light}}, scheme_Dark},
                 {{{kHere, scheme_Light}, {kHere, scheme_Lighter}}, scheme_Dark},
                 {{{kElsewhere, scheme_Light}}, scheme_Light},
                 {{{kHere, scheme_Light}, {kElsewhere, scheme_Lighter}}, scheme_Lighter},
                 {{{kElsewhere, scheme_Light}, {kHere, scheme_Lighter}}, scheme_Light}};
    for (const auto& c : cases)
    {
        wxTolvanFrame::SetColorScheme(scheme_Dark);
        PumpEvents();
        PreferencesDlg dialog(Frame());
        Run(dialog,
            [&]
            {
                for (const auto& [who, scheme] : c.picks)
                {
                    if (who == kHere)
                    {
                        Choose(dialog, scheme);
                    }
                    else
                    {
                        wxTolvanFrame::SetColorScheme(scheme);
                    }
                    PumpEvents();
                    EXPECT_EQ(scheme, g_Scheme);
                }
                dialog.EndModal(wxID_CANCEL);
            });
        EXPECT_EQ(c.after, g_Scheme) << &c - cases;
    }
}
