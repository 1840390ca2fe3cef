#include "dialogs/wxTextFromUserDlg.h"
#include "internal/port/Completions.h"
#include "tests/dialogs/DialogTest.h"

#include <wx/valtext.h>

#include <algorithm>

namespace
{
// Says no to an empty text, and counts.
class NotEmpty : public wxTextValidator
{
public:
    explicit NotEmpty(int* refusals) : m_Refusals(refusals) {}
    wxObject* Clone() const override { return new NotEmpty(*this); }
    bool      Validate(wxWindow*) override
    {
        const bool empty = GetTextEntry()->IsEmpty();
        *m_Refusals += empty;
        return !empty;
    }

private:
    int* m_Refusals;
};
} // namespace

TEST_F(DialogTest, TextIsAskedForUntilTheValidatorAgrees)
{
    int               refusals = 0;
    wxTextFromUserDlg dialog(Frame(), "Name & place:", "Rename", "old", "TextTest", 0,
                             NotEmpty(&refusals));
    const auto        answer = [&]
    {
        Press(WXK_DELETE); // the proposal is selected
        ASSERT_TRUE(WaitFor([&] { return dialog.GetValue().empty(); }));
        Press(WXK_RETURN);
        ASSERT_TRUE(WaitFor([&] { return refusals == 1; }));
        EXPECT_TRUE(dialog.IsModal());
        // Taking a completion, once their list is open, is no answer yet.
        Press('O');
        ASSERT_TRUE(WaitFor(internal::CompletionsAreOpen));
        Press(WXK_DOWN);
        Press(WXK_RETURN);
        ASSERT_TRUE(WaitFor([&] { return dialog.GetValue() == "Off"; })) << dialog.GetValue();
        EXPECT_TRUE(dialog.IsModal());
        Press(WXK_RETURN);
    };
    const int result = Run(dialog, answer);
    EXPECT_EQ(wxID_OK, result);
    EXPECT_EQ("Off", dialog.GetValue());
    const auto sections = Options().Sections();
    EXPECT_EQ(1, std::count(sections.begin(), sections.end(), "TextTest")) << "its place is kept";
}

TEST_F(DialogTest, NoTextMakesTheQuestionWiderThanTheScreen)
{
    const wxString    path = "/" + wxString('x', 408);
    wxTextFromUserDlg dialog(Frame(), path, "Rename", path, String());
    const auto        look = [&]
    {
        EXPECT_GT(600, dialog.GetSize().x);
        EXPECT_EQ(path, dialog.GetValue());
        // The field has the keyboard, whatever the message is shown in.
        Press('Y');
        EXPECT_TRUE(WaitFor([&] { return dialog.GetValue() == "y"; })) << dialog.GetValue();
        Press(WXK_RETURN);
    };
    EXPECT_EQ(wxID_OK, Run(dialog, look));
}
