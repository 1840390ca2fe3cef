#include "appearance/controls/ButtonState.h"
#include "appearance/wxTolvanColors.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtTextCtrl.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"

#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <functional>

namespace
{
const wxPoint kAway(1200, 1000); // where the pointer lights nothing up

// A field, OK (the frame's default) and Cancel.
class ButtonTest : public FrameTest
{
protected:
    ButtonTest()
    {
        m_Panel = new wxtPanel(Frame());
        m_Field = new wxTextCtrl(m_Panel, wxID_ANY);
        m_OK = new wxtButton(m_Panel, wxID_OK, "OK");
        m_Cancel = new wxtButton(m_Panel, wxID_CANCEL, "&Cancel");
        m_OK->SetDefault();
        auto* const sizer = new wxBoxSizer(wxVERTICAL);
        for (wxWindow* const window :
             {static_cast<wxWindow*>(m_Field.get()), static_cast<wxWindow*>(m_OK.get()),
              static_cast<wxWindow*>(m_Cancel.get())})
        {
            sizer->Add(window, 0, wxALL, 10);
        }
        m_Panel->SetSizer(sizer);
        Frame()->Layout();
        m_Input.MouseMove(kAway);
        m_Panel->SetSize(Frame()->GetClientSize());
        m_Panel->Layout();
        Focus(m_Field);
    }

    static void Focus(wxWindow* window)
    {
        window->SetFocus();
        EXPECT_TRUE(WaitFor([=] { return window->HasFocus(); }));
        PumpEvents();
    }
    static wxColour Named(const String& name, int offset)
    {
        return OffsetColor(wxtGetColor(name), offset, offset, offset);
    }
    static void ExpectNormal(const wxtButton* button)
    {
        EXPECT_EQ(Named(color_ButtonFace, 0), button->GetBackgroundColour());
        EXPECT_EQ(Named(color_ButtonText, 0), button->GetForegroundColour());
        EXPECT_NE(wxFONTWEIGHT_BOLD, button->GetFont().GetWeight());
    }
    static void ExpectDefault(const wxtButton* button)
    {
        EXPECT_TRUE(button->IsDefault());
        EXPECT_EQ(Named(color_Selected, 20), button->GetBackgroundColour());
        EXPECT_EQ(Named(color_3DDark, -20), button->GetForegroundColour());
        EXPECT_EQ(wxFONTWEIGHT_BOLD, button->GetFont().GetWeight());
    }
    void Press(int key, int modifiers = 0)
    {
        m_Input.Char(key, modifiers);
        PumpEvents();
    }

    wxUIActionSimulator   m_Input;
    wxtPanel*             m_Panel;
    wxWeakRef<wxTextCtrl> m_Field;
    wxWeakRef<wxtButton>  m_OK;
    wxWeakRef<wxtButton>  m_Cancel;
};
} // namespace

TEST_F(ButtonTest, TheDefaultLookGoesWithTheFocusAndComesBack)
{
    ExpectDefault(m_OK);
    ExpectNormal(m_Cancel);
    Focus(m_Cancel);
    ExpectDefault(m_Cancel);
    ExpectNormal(m_OK);
    Focus(m_Field);
    ExpectDefault(m_OK);
    ExpectNormal(m_Cancel);

    Focus(m_OK);
    EXPECT_EQ(Named(color_Selected, 20 + 25), m_OK->GetBackgroundColour());
    Focus(m_Field);
    ExpectDefault(m_OK);
}

TEST_F(ButtonTest, ADefaultThatHasGoneIsNotGivenTheRoleBack)
{
    Focus(m_Cancel);
    m_OK->Destroy();
    Focus(m_Field);
    ExpectNormal(m_Cancel);
    EXPECT_FALSE(m_Cancel->IsDefault()) << "nobody is";
    Focus(m_Cancel);
    EXPECT_EQ(Named(color_ButtonFace, 25), m_Cancel->GetBackgroundColour()) << "only lit up";
    m_Cancel->Destroy(); // with the focus
    PumpEvents();
    EXPECT_EQ(nullptr, Frame()->GetDefaultItem());
}

TEST_F(ButtonTest, AButtonThatGoesWithTheFocusGivesTheRoleBack)
{
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"disabled", [&] { m_Cancel->Disable(); }},
        {"hidden", [&] { m_Cancel->Hide(); }},
        {"destroyed", [&] { m_Cancel->Destroy(); }},
    };
    for (const auto& [name, lose] : ways)
    {
        SCOPED_TRACE(name);
        m_Cancel->Show();
        m_Cancel->Enable();
        Focus(m_Cancel);
        ExpectDefault(m_Cancel);
        lose();
        PumpEvents();
        ExpectDefault(m_OK);
    }
}

TEST_F(ButtonTest, KeysMouseAndMnemonicClickOnce)
{
    EventCounter clicks(m_Panel, wxEVT_BUTTON);
    Focus(m_Cancel);
    const int keys[] = {WXK_SPACE, WXK_RETURN, WXK_NUMPAD_ENTER};
    for (const int key : keys)
    {
        clicks.Clear();
        Press(key);
        EXPECT_TRUE(WaitFor([&] { return clicks.Count() == 1; })) << key;
        EXPECT_TRUE(m_Cancel->HasFocus()) << "the click does not cost the focus";
    }
    clicks.Clear();
    Press('A');
    EXPECT_EQ(0, clicks.Count());

    Focus(m_Field);
    Press('C', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return clicks.Count() == 1; }));
    EXPECT_EQ(wxID_CANCEL, clicks.Last()->GetId());
    EXPECT_EQ("&Cancel", m_Cancel->GetLabel());

    clicks.Clear();
    m_Input.MouseMove(m_OK->GetScreenRect().GetPosition() + wxPoint(5, 5));
    m_Input.MouseClick();
    EXPECT_TRUE(WaitFor([&] { return clicks.Count() == 1; }));
    clicks.Clear();
    m_Input.MouseDblClick();
    WaitFor([&] { return clicks.Count() > 1; }, 100);
    EXPECT_EQ(1, clicks.Count()) << "the release that ends a double click";
}

// The key that closed a dialog is let go over the button that the focus has come back to.
TEST_F(ButtonTest, TheReleaseOfAKeyPressedElsewhereClicksNothing)
{
    EventCounter clicks(m_Panel, wxEVT_BUTTON);
    EventCounter presses(m_Field, wxEVT_KEY_DOWN);
    m_Input.KeyDown(WXK_RETURN);
    ASSERT_TRUE(WaitFor([&] { return presses.Count() > 0; }));
    Focus(m_OK);
    m_Input.KeyUp(WXK_RETURN);
    WaitFor([&] { return clicks.Count() > 0; }, 100);
    EXPECT_EQ(0, clicks.Count());
}

TEST_F(ButtonTest, ItsHandlerMayDisableOrDestroyIt)
{
    int clicks = 0;
    m_OK->Bind(wxEVT_BUTTON,
               [&](wxCommandEvent&)
               {
                   ++clicks;
                   m_OK->EmulateClick();
                   EXPECT_EQ(1, clicks) << "no click while one is on its way";
                   EXPECT_FALSE(m_OK->IsEnabled());
                   m_OK->Enable(false);
               });
    m_OK->EmulateClick();
    EXPECT_FALSE(m_OK->IsEnabled());
    EXPECT_EQ(wxtGetColor(color_TextGrey), m_OK->GetForegroundColour());
    EXPECT_EQ(wxtGetColor(color_WindowBGDarker), m_OK->GetBackgroundColour());
    m_OK->Enable();
    ExpectDefault(m_OK);

    m_Cancel->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { delete m_Panel; });
    m_Cancel->EmulateClick();
    EXPECT_FALSE(m_OK);
}

TEST_F(ButtonTest, TheKeysGoOnWhenTheirButtonCannotHaveThem)
{
    const struct
    {
        const char*           name;
        std::function<void()> handler; // of OK's click
        bool                  keeps;   // the focus
    } cases[] = {
        {"nothing happens", [] {}, true},
        {"events are handled meanwhile", [] { PumpEvents(); }, true},
        {"disabled", [&] { m_OK->Disable(); }, false},
        {"disabled, and events are handled", [&] { (m_OK->Disable(), PumpEvents()); }, false},
        {"hidden", [&] { m_OK->Hide(); }, false},
        {"by the program, later", [&] { m_OK->CallAfter([&] { m_OK->Disable(); }); }, false},
    };
    EventCounter clicks(m_Panel, wxEVT_BUTTON);
    size_t       at = 0;
    m_OK->Bind(wxEVT_BUTTON,
               [&](wxCommandEvent& event)
               {
                   event.Skip();
                   cases[at].handler();
               });
    for (at = 0; at < WXSIZEOF(cases); ++at)
    {
        SCOPED_TRACE(cases[at].name);
        m_OK->Show();
        m_OK->Enable();
        Focus(m_OK);
        Press(WXK_SPACE);
        wxWindow* const next = cases[at].keeps ? m_OK.get() : m_Cancel.get();
        EXPECT_TRUE(WaitFor([&] { return clicks.Count() == 1 && next->HasFocus(); }));
        PumpEvents();
        EXPECT_TRUE(next->HasFocus());
        ExpectDefault(dynamic_cast<wxtButton*>(next));
        clicks.Clear();
    }
}

TEST_F(ButtonTest, TheKeysGoOnFromEveryThemedControl)
{
    wxWindow* const controls[] = {
        new wxtCheckBox(m_Panel, wxID_ANY, "box"), new wxtRadioButton(m_Panel, wxID_ANY, "radio"),
        new wxtTextCtrl(m_Panel, wxID_ANY),        new wxtComboBox(m_Panel, wxID_ANY),
        new wxtChoice(m_Panel, wxID_ANY),          new wxtCheckListBox(m_Panel, wxID_ANY)};
    for (wxWindow* const control : controls)
    {
        const auto isIn = [=]
        { return wxWindow::FindFocus() && control->IsDescendant(wxWindow::FindFocus()); };
        for (const bool hides : {false, true})
        {
            control->Show();
            control->Enable();
            control->MoveAfterInTabOrder(m_OK);
            control->SetFocus();
            ASSERT_TRUE(WaitFor(isIn)) << control->GetName();
            hides ? control->Hide() : control->Disable();
            EXPECT_TRUE(WaitFor([&] { return m_Cancel->HasFocus(); }))
                << control->GetName() << hides;
        }
    }
}

TEST_F(ButtonTest, TheLabelIsCentredOnAFlatFace)
{
    const wxColour face = wxtGetColor(color_ButtonFace);
    EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(m_Cancel), 1, 1) == face; }));
    const wxImage image = PictureOf(m_Cancel);
    int           left = image.GetWidth();
    int           right = 0;
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        for (int x = 0; x < image.GetWidth(); ++x)
        {
            if (!Near(face, PixelAt(image, x, y), 20))
            {
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
    }
    ASSERT_LT(left, right) << Kept(image, "button");
    EXPECT_NEAR(left, image.GetWidth() - 1 - right, 3) << Kept(image, "button");
    // Wide enough for its bold label, whatever its look.
    wxFont bold = m_OK->GetFont();
    m_Cancel->SetFont(bold);
    EXPECT_GE(m_Cancel->GetMinWidth(), m_Cancel->GetTextExtent("Cancel").x);
}

TEST(ButtonStateTest, TellsWhatIsLeftToDo)
{
    using State = appearance::ButtonState;
    using Focus = State::Focus;
    const struct
    {
        const char* name;
        bool (*holds)(State& state);
    } cases[] = {
        {"focus without a role", [](State& s) { return s.LoseFocus() == Focus::None; }},
        {"a role is given back once",
         [](State& s)
         {
             s.GainFocus(true);
             return s.OfFocus() == Focus::Role && s.LoseFocus() == Focus::Role &&
                    s.LoseFocus() == Focus::None;
         }},
        {"focus again, as the default item by then",
         [](State& s)
         {
             s.GainFocus(true);
             s.GainFocus(false);
             return s.LoseFocus() == Focus::Lit;
         }},
        {"light on and off", [](State& s)
         { return s.Light(true) && !s.Light(true) && s.IsLit() && s.Light(false) && !s.IsLit(); }},
        {"light is taken with the look",
         [](State& s) { return !s.TakeLight() && s.Light(true) && s.TakeLight() && !s.IsLit(); }},
        {"no wish outside of a click", [](State& s) { return !s.KeepEnabling(false); }},
        {"a click leaves it enabled",
         [](State& s)
         {
             s.BeginClick();
             return s.IsClicking() && s.EndClick() && !s.IsClicking();
         }},
        {"the last wish counts, and for one click only",
         [](State& s)
         {
             s.BeginClick();
             const bool kept = s.KeepEnabling(true) && s.KeepEnabling(false);
             const bool enable = s.EndClick();
             s.BeginClick();
             return kept && !enable && s.EndClick();
         }},
        {"a double click ends without a click, a third press clicks",
         [](State& s)
         {
             s.Press(false);
             const bool first = s.Release();
             s.Press(true);
             const bool second = s.Release();
             return first && !second && s.Release();
         }},
    };
    for (const auto& one : cases)
    {
        State state;
        EXPECT_TRUE(one.holds(state)) << one.name;
    }
}
