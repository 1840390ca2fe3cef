#include "appearance/Contrast.h"
#include "tests/appearance/PanelTest.h"
#include "tests/support/EventCounter.h"
#include "tests/support/Pictures.h"

#include <wx/textctrl.h>

namespace
{
class CheckBoxTest : public PanelTest
{
protected:
    // One below another.
    template <class Box> Box* Add(const wxString& label, long style = 0)
    {
        m_Top += 30;
        return new Box(m_Panel, wxID_ANY, label, wxPoint(10, m_Top), wxDefaultSize, style);
    }
    // Asks the keyboard: what the toolkit names as the focus may be a mere wish.
    bool HasKeys(wxWindow* window)
    {
        EventCounter keys(window, wxEVT_KEY_DOWN);
        m_Input.Char(WXK_F12);
        return WaitFor([&] { return keys.Count() > 0; });
    }

    int m_Top = -20; // pixels
};

// Which of them are checked, as "x..".
String Checked(const std::vector<wxtRadioButton*>& buttons)
{
    String text;
    for (const wxtRadioButton* const button : buttons)
    {
        text += button->GetValue() ? "x" : ".";
    }
    return text;
}
} // namespace

TEST_F(CheckBoxTest, OnlyTheUsersChangesAreTold)
{
    auto* const  box = Add<wxtCheckBox>("&Keep");
    EventCounter events(m_Panel, wxEVT_CHECKBOX);
    box->SetValue(true);
    Focus(box);
    Press('K', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return events.Count() == 1 && !box->GetValue(); }));
    box->Disable();
    Press('K', wxMOD_ALT);
    WaitFor([&] { return events.Count() > 1; }, 100);
    EXPECT_EQ(1, events.Count());
}

TEST_F(CheckBoxTest, TheBoxStandsBesideTheLabelHoweverLong)
{
    auto* const box = Add<wxtCheckBox>(wxString('W', 2000));
    box->SetSize(150, 20);
    Focus(box);
    const wxColour paper = box->GetBackgroundColour();
    const wxColour face = Hilight(wxtGetColor(color_ButtonFace));
    ASSERT_TRUE(WaitFor([&] { return PixelAt(PictureOf(box), 9, 9) == face; }));
    const wxImage image = PictureOf(box);
    EXPECT_EQ(wxtFocusColor({paper}), PixelAt(image, 0, 10));
    EXPECT_EQ(Hilight(wxtGetColor(color_WindowBGDarker)), PixelAt(image, 18, 10));
    for (int y = 0; y < 20; ++y)
    {
        EXPECT_EQ(paper, PixelAt(image, 20, y)) << "between box and label " << y;
    }
    EXPECT_EQ(wxSize(wxDefaultCoord, box->GetCharHeight() + 4), box->GetMaxSize());
    // The focus shows as a dotted frame, all round the label.
    int dots = 0;
    for (int x = 30; x < 140; ++x)
    {
        dots += PixelAt(image, x, 0) != paper && PixelAt(image, x, 19) != paper;
    }
    EXPECT_GT(dots, 20) << Kept(image, "focused");
}

TEST_F(CheckBoxTest, CheckingARadioButtonClearsItsGroupOnly)
{
    std::vector<wxtRadioButton*> buttons;
    for (const long style : {wxRB_GROUP, 0, 0, wxRB_GROUP, 0, wxRB_SINGLE})
    {
        Add<wxtCheckBox>("between"); // other controls part no group
        buttons.push_back(Add<wxtRadioButton>("button", style));
    }
    EXPECT_EQ("x..x..", Checked(buttons)) << "the first of a group starts checked";
    const std::pair<size_t, const char*> choices[] = {
        {2, "..xx.."}, {4, "..x.x."}, {1, ".x..x."}, {0, "x...x."}};
    for (const auto& [chosen, expected] : choices)
    {
        buttons[chosen]->SetValue(true);
        EXPECT_EQ(expected, Checked(buttons));
        EXPECT_TRUE(WaitFor([&, at = chosen] { return buttons[at]->HasFocus(); }));
    }
    // The arrow keys go round, past what cannot be chosen.
    buttons[1]->Disable();
    const std::pair<int, const char*> keys[] = {
        {WXK_DOWN, "..x.x."}, {WXK_DOWN, "x...x."}, {WXK_UP, "..x.x."}};
    for (const auto& [key, expected] : keys)
    {
        Press(key);
        EXPECT_TRUE(WaitFor([&, look = expected] { return Checked(buttons) == look; })) << key;
    }
}

TEST_F(CheckBoxTest, ARadioButtonThatIsCheckedElsewhereLeavesTheUserAlone)
{
    auto* const button = Add<wxtRadioButton>("button");
    wxFrame     other(nullptr, wxID_ANY, "Other", wxPoint(50, 50), wxSize(200, 100));
    auto* const field = new wxTextCtrl(&other, wxID_ANY);
    other.Show();
    EXPECT_TRUE(WaitFor([&] { return other.IsActive(); })) << "keys go to it";
    Focus(field);
    button->SetValue(true);
    for (const char* const typed : {"a", "aa"})
    {
        Press('A');
        EXPECT_TRUE(WaitFor([&] { return field->GetValue() == typed; }));
    }
    other.Hide();
    Frame()->Raise();
    EXPECT_TRUE(WaitFor([&] { return button->HasFocus(); })) << "once the user is there";
}

TEST_F(CheckBoxTest, TheKeysEnterAndLeaveAGroupAtItsChoice)
{
    auto* const first = Add<wxtRadioButton>("One", wxRB_GROUP);
    auto* const second = Add<wxtRadioButton>("&Two");
    auto* const field = new wxTextCtrl(m_Panel, wxID_ANY, "", wxPoint(200, 10));
    Focus(field);
    Press('T', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return second->GetValue(); }));
    EXPECT_TRUE(HasKeys(second));
    Focus(field);
    first->SetFocusFromKbd();
    EXPECT_TRUE(HasKeys(second)) << "the checked one";
    Focus(field);
    second->Hide();
    second->SetValue(false);
    second->SetValue(true);
    EXPECT_TRUE(HasKeys(field)) << "one that cannot have the keys does not take them";
}

TEST_F(CheckBoxTest, TabFindsAGroupWhoseCheckedButtonHasGone)
{
    const std::pair<const char*, std::function<void(wxtRadioButton*)>> ways[] = {
        {"destroyed", [](wxtRadioButton* button) { button->Destroy(); }},
        {"disabled", [](wxtRadioButton* button) { button->Disable(); }},
        {"hidden", [](wxtRadioButton* button) { button->Hide(); }},
        {"cleared", [](wxtRadioButton* button) { button->SetValue(false); }},
    };
    for (const auto& [name, lose] : ways)
    {
        SCOPED_TRACE(name);
        m_Panel->DestroyChildren();
        auto* const field = new wxTextCtrl(m_Panel, wxID_ANY, "", wxPoint(200, 10));
        auto* const first = Add<wxtRadioButton>("first", wxRB_GROUP);
        auto* const second = Add<wxtRadioButton>("second");
        second->SetValue(true);
        lose(second);
        Focus(field);
        Press(WXK_TAB);
        EXPECT_TRUE(HasKeys(first));
    }
}
