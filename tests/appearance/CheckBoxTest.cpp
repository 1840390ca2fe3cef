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

TEST_F(CheckBoxTest, SpaceAndClickToggleAndTell)
{
    auto* const  box = Add<wxtCheckBox>("&Keep");
    EventCounter events(m_Panel, wxEVT_CHECKBOX);
    box->SetValue(true);
    EXPECT_EQ(0, events.Count()) << "only the user's changes are told";

    Focus(box);
    m_Input.Char(WXK_SPACE);
    ASSERT_TRUE(WaitFor([&] { return events.Count() == 1; }));
    EXPECT_FALSE(box->GetValue());
    m_Input.MouseMove(box->GetScreenRect().GetPosition() + wxPoint(5, 5));
    m_Input.MouseClick();
    ASSERT_TRUE(WaitFor([&] { return events.Count() == 2; }));
    EXPECT_TRUE(dynamic_cast<const wxCommandEvent*>(events.Last())->IsChecked());
    m_Input.Char('K', wxMOD_ALT);
    ASSERT_TRUE(WaitFor([&] { return events.Count() == 3; }));
    box->Disable();
    m_Input.MouseClick();
    WaitFor([&] { return events.Count() > 3; }, 100);
    EXPECT_EQ(3, events.Count());
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
    for (int i = 0; i < 6; ++i)
    {
        if (i == 1)
        {
            Add<wxtCheckBox>("between"); // other controls part no group
        }
        const long style = i == 0 || i == 3 ? wxRB_GROUP : i == 5 ? wxRB_SINGLE : 0;
        buttons.push_back(Add<wxtRadioButton>("button", style));
    }
    EXPECT_EQ("x..x..", Checked(buttons)) << "the first of a group starts checked";
    buttons[2]->SetValue(true);
    EXPECT_EQ("..xx..", Checked(buttons));
    EXPECT_TRUE(WaitFor([&] { return buttons[2]->HasFocus(); }));
    buttons[4]->SetValue(true);
    EXPECT_EQ("..x.x.", Checked(buttons));
    buttons[1]->SetValue(true);
    EXPECT_EQ(".x..x.", Checked(buttons));
    buttons[0]->SetValue(true);
    EXPECT_EQ("x...x.", Checked(buttons));

    // The arrow keys go round, past what cannot be chosen, and tell.
    EventCounter events(m_Panel, wxEVT_RADIOBUTTON);
    buttons[1]->Disable();
    Focus(buttons[0]);
    for (const char* const expected : {"..x.x.", "x...x."})
    {
        const int before = events.Count();
        m_Input.Char(WXK_DOWN);
        ASSERT_TRUE(WaitFor([&] { return events.Count() == before + 1; }));
        EXPECT_EQ(expected, Checked(buttons));
        EXPECT_TRUE(WaitFor(
            [&] { return dynamic_cast<wxWindow*>(events.Last()->GetEventObject())->HasFocus(); }));
    }
    m_Input.Char(WXK_UP);
    ASSERT_TRUE(WaitFor([&] { return events.Count() == 3; }));
    EXPECT_EQ("..x.x.", Checked(buttons));

    // The Tab key comes to a group once, wherever it is checked, and to any while none is.
    m_Input.Char(WXK_TAB);
    EXPECT_TRUE(WaitFor([&] { return buttons[4]->HasFocus(); }));
    m_Input.Char(WXK_TAB);
    EXPECT_TRUE(WaitFor([&] { return buttons[5]->HasFocus(); }));
    buttons[4]->Disable();
    m_Input.Char(WXK_TAB, wxMOD_SHIFT);
    EXPECT_TRUE(WaitFor([&] { return buttons[3]->HasFocus(); })) << "the checked one is disabled";
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
