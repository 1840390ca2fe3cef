#include "appearance/wxTolvanColors.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"

#include <wx/dcmemory.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <functional>

namespace
{
const wxPoint kAway(1200, 1000); // where the pointer lights nothing up

class CheckBoxTest : public FrameTest
{
protected:
    CheckBoxTest() : m_Panel(new wxtPanel(Frame())) { m_Panel->SetSize(Frame()->GetClientSize()); }

    // One below another.
    template <class Box> Box* Add(const wxString& label, long style = 0)
    {
        m_Top += 30;
        return new Box(m_Panel, wxID_ANY, label, wxPoint(10, m_Top), wxDefaultSize, style);
    }
    static void Focus(wxWindow* window)
    {
        window->SetFocus();
        EXPECT_TRUE(WaitFor([=] { return window->HasFocus(); }));
        PumpEvents();
    }
    void Click(const wxWindow* window)
    {
        m_Input.MouseMove(window->GetScreenRect().GetPosition() + wxPoint(5, 5));
        m_Input.MouseClick();
    }
    // Asks the keyboard: what the toolkit names as the focus may be a mere wish.
    bool HasKeys(wxWindow* window)
    {
        EventCounter keys(window, wxEVT_KEY_DOWN);
        m_Input.Char(WXK_F12);
        return WaitFor([&] { return keys.Count() > 0; });
    }

    wxUIActionSimulator m_Input;
    wxtPanel*           m_Panel;
    int                 m_Top = -20; // pixels
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
    m_Input.Char('K', wxMOD_ALT);
    ASSERT_TRUE(WaitFor([&] { return events.Count() == 1; }));
    EXPECT_FALSE(box->GetValue());
    box->Disable();
    m_Input.Char('K', wxMOD_ALT);
    Click(box);
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
    const wxColour frame = Hilight(wxtGetColor(color_WindowBGDarker));
    ASSERT_TRUE(WaitFor([&] { return PixelAt(PictureOf(box), 9, 9) == face; }));
    const wxImage image = PictureOf(box);
    EXPECT_EQ(paper, PixelAt(image, 0, 10));
    EXPECT_EQ(frame, PixelAt(image, 1, 10));
    EXPECT_EQ(frame, PixelAt(image, 18, 10));
    for (int y = 0; y < 20; ++y)
    {
        EXPECT_EQ(paper, PixelAt(image, 20, y)) << "between box and label " << y;
    }
    EXPECT_EQ(wxSize(wxDefaultCoord, box->GetCharHeight() + 4), box->GetMaxSize());

    // The focus shows as a dotted frame, all round the label.
    const auto isFramed = [&]
    {
        const wxImage focused = PictureOf(box);
        int           dots = 0;
        for (int x = 30; x < 140; ++x)
        {
            dots += PixelAt(focused, x, 0) != paper && PixelAt(focused, x, 19) != paper;
        }
        return dots > 20;
    };
    EXPECT_TRUE(WaitFor(isFramed)) << Kept(PictureOf(box), "focused");
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
        m_Input.Char(key);
        EXPECT_TRUE(WaitFor([&, look = expected] { return Checked(buttons) == look; })) << key;
    }
}

TEST_F(CheckBoxTest, TheKeysFollowTheChoiceOfARadioButton)
{
    auto* const first = Add<wxtRadioButton>("&One", wxRB_GROUP);
    auto* const second = Add<wxtRadioButton>("&Two");
    auto* const third = Add<wxtRadioButton>("Th&ree");
    auto* const field = new wxTextCtrl(m_Panel, wxID_ANY, "", wxPoint(200, 10));
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"click", [&] { Click(second); }},
        {"mnemonic", [&] { m_Input.Char('T', wxMOD_ALT); }},
        {"from the program", [&] { second->SetValue(true); }},
        {"focus and space bar",
         [&]
         {
             Focus(second);
             m_Input.Char(WXK_SPACE);
         }},
    };
    for (const auto& [name, choose] : ways)
    {
        SCOPED_TRACE(name);
        first->SetValue(true);
        Focus(field);
        choose();
        ASSERT_TRUE(WaitFor([&] { return second->GetValue(); }));
        EXPECT_TRUE(HasKeys(second));
        m_Input.Char(WXK_DOWN);
        EXPECT_TRUE(WaitFor([&] { return third->GetValue(); }));
        EXPECT_TRUE(HasKeys(third));
        EXPECT_EQ("", field->GetValue());
    }
    first->SetFocusFromKbd();
    EXPECT_TRUE(HasKeys(third)) << "the checked one";
    Focus(first); // only the focus
    m_Input.Char(WXK_TAB);
    EXPECT_TRUE(HasKeys(field)) << "Tab leaves the group";
    third->Hide();
    third->SetValue(false);
    third->SetValue(true);
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
        m_Input.Char(WXK_TAB);
        EXPECT_TRUE(HasKeys(first));
    }
}
