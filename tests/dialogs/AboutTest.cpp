#include "dialogs/wxtAboutDlg.h"
#include "tests/dialogs/DialogTest.h"

#include <wx/control.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

namespace
{
// All that is written in the window.
wxString TextsOf(const wxWindow& window)
{
    wxString texts;
    for (wxWindow* const child : window.GetChildren())
    {
        auto* const text = dynamic_cast<wxTextCtrl*>(child);
        texts += (text ? text->GetValue() : wxControl::RemoveMnemonics(child->GetLabel())) + "\n" +
                 TextsOf(*child);
    }
    return texts;
}
} // namespace

TEST_F(DialogTest, AboutShowsWhatIsKnownOfTheProgram)
{
    wxAboutDialogInfo info;
    info.SetName("Cut & Paste");
    const wxtAboutDlg plain(Frame(), info);
    EXPECT_EQ("About Cut & Paste", plain.GetTitle());
    const wxString texts = TextsOf(plain);
    EXPECT_TRUE(texts.StartsWith("Cut & Paste\nBuilt with wx")) << texts;
    EXPECT_FALSE(texts.Contains("Web Site"));

    info.SetVersion("1.2");
    info.SetDescription("Cuts & pastes.");
    info.AddDeveloper("A & B");
    info.SetCopyright("(C) A & B");
    info.SetWebSite("http://localhost/");
    info.SetLicence(wxString('x', 100000));
    wxtAboutDlg full(Frame(), info);
    for (const char* const part : {"1.2", "Cuts & pastes.", "A & B", "Web Site"})
    {
        EXPECT_TRUE(TextsOf(full).Contains(part)) << part;
    }
    const wxSize size = full.GetSize();
    const wxSize screen = wxDisplay(0u).GetClientArea().GetSize();
    EXPECT_TRUE(size.x < screen.x && size.y < screen.y) << size.x << " x " << size.y;
    const auto look = [&full]
    {
        EXPECT_EQ(full.GetSizer()->GetMinSize(), full.GetClientSize()) << "texts in their fonts";
        Press(WXK_RETURN);
    };
    EXPECT_EQ(wxID_OK, Run(full, look));
}
