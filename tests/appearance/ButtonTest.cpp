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

TEST_F(ButtonTest, TheRoleComesBackAlsoFromOneThatIsDestroyed)
{
    auto* const brief = new wxtButton(m_Panel, wxID_ANY, "Brief");
    Focus(brief);
    ExpectDefault(brief);
    brief->Destroy();
    PumpEvents();
    ExpectDefault(m_OK);
    // But not to one that has gone.
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

TEST_F(ButtonTest, ItsHandlerRunsOnceAndMayDisableOrDestroyIt)
{
    int clicks = 0;
    m_OK->Bind(wxEVT_BUTTON,
               [&](wxCommandEvent&)
               {
                   ++clicks;
                   EXPECT_FALSE(m_OK->IsEnabled());
                   m_OK->EmulateClick();
                   m_OK->Enable(false);
               });
    m_OK->EmulateClick();
    EXPECT_EQ(1, clicks) << "no click while one is on its way";
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
        EXPECT_TRUE(dynamic_cast<wxtButton*>(next)->IsDefault());
        clicks.Clear();
    }
}

TEST_F(ButtonTest, TheKeysGoOnFromEveryThemedControl)
{
    const std::function<wxWindow*()> makers[] = {
        [&] { return new wxtCheckBox(m_Panel, wxID_ANY, "box"); },
        [&] { return new wxtRadioButton(m_Panel, wxID_ANY, "radio"); },
        [&] { return new wxtTextCtrl(m_Panel, wxID_ANY); },
        [&]
        {
            return new wxtTextCtrl(m_Panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                   wxTE_MULTILINE);
        },
        [&] { return new wxtComboBox(m_Panel, wxID_ANY); },
        [&] { return new wxtChoice(m_Panel, wxID_ANY); },
        [&] { return new wxtCheckListBox(m_Panel, wxID_ANY); },
    };
    for (const auto& make : makers)
    {
        wxWindow* const control = make(); // the last, which the first comes after
        const auto      hasFocus = [=]
        {
            const wxWindow* const focused = wxWindow::FindFocus();
            return focused && (focused == control || focused->GetParent() == control);
        };
        for (const bool hides : {false, true})
        {
            control->Show();
            control->Enable();
            control->SetFocus();
            ASSERT_TRUE(WaitFor(hasFocus)) << control->GetName();
            hides ? control->Hide() : control->Disable();
            EXPECT_TRUE(WaitFor([&] { return m_Field->HasFocus(); }))
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
    // What happens, a letter each, and what it says to it; a blank is no answer.
    //  F: focus as the default item; R: focus, taking the role; K: focus lost
    //  L, l: light on, off; T: light taken
    //  C: click; E, D: enable, disable; X: end of the click
    //  P, Q: press, and once more; U: let go
    const std::pair<const char*, const char*> cases[] = {
        {"K", "n"},         {"FKK", " ln"}, {"RKK", " rn"},     {"RFK", "  l"}, {"LLll", "ynyn"},
        {"TLTl", "nyyn"},   {"ED", "nn"},   {"CX", " y"},       {"CDX", " yn"}, {"CDEX", " yyy"},
        {"CDXCX", " yn y"}, {"CXE", " yn"}, {"PUQUU", " y ny"}, {"U", "y"},     {"PQU", "  n"},
    };
    for (const auto& [deeds, expected] : cases)
    {
        State       state;
        std::string said;
        for (const char deed : std::string(deeds))
        {
            const auto tell = [&said](bool yes) { said += yes ? 'y' : 'n'; };
            switch (deed)
            {
            case 'F':
            case 'R':
                (state.GainFocus(deed == 'R'), said += ' ');
                break;
            case 'K':
                said += "nlr"[static_cast<int>(state.LoseFocus())];
                break;
            case 'L':
            case 'l':
                tell(state.Light(deed == 'L'));
                break;
            case 'T':
                tell(state.TakeLight());
                break;
            case 'C':
                (state.BeginClick(), said += ' ');
                break;
            case 'E':
            case 'D':
                tell(state.KeepEnabling(deed == 'E'));
                break;
            case 'X':
                tell(state.EndClick());
                break;
            case 'P':
            case 'Q':
                (state.Press(deed == 'Q'), said += ' ');
                break;
            default:
                tell(state.Release());
            }
        }
        EXPECT_EQ(expected, said) << deeds;
    }
}
