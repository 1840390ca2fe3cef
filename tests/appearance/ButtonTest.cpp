#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtTextCtrl.h"
#include "tests/appearance/PanelTest.h"
#include "tests/support/EventCounter.h"
#include "tests/support/Pictures.h"

#include <wx/textctrl.h>

#include <functional>

namespace
{
// A field, OK (the frame's default) and Cancel.
class ButtonTest : public PanelTest
{
protected:
    ButtonTest()
        : m_Field(new wxTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 10))),
          m_OK(new wxtButton(m_Panel, wxID_OK, "OK", wxPoint(10, 60))),
          m_Cancel(new wxtButton(m_Panel, wxID_CANCEL, "&Cancel", wxPoint(10, 110)))
    {
        m_OK->SetDefault();
        Focus(m_Field);
    }

    static wxColour Named(const String& name, int offset)
    {
        return OffsetColor(wxtGetColor(name), offset, offset, offset);
    }
    static void ExpectDefault(const wxtButton* button, bool is = true)
    {
        EXPECT_EQ(is, button->IsDefault());
        EXPECT_EQ(is ? Named(color_Selected, 20) : Named(color_ButtonFace, 0),
                  button->GetBackgroundColour());
        EXPECT_EQ(is ? Named(color_3DDark, -20) : Named(color_ButtonText, 0),
                  button->GetForegroundColour());
        EXPECT_EQ(is, button->GetFont().GetWeight() == wxFONTWEIGHT_BOLD);
    }

    wxWeakRef<wxTextCtrl> m_Field;
    wxWeakRef<wxtButton>  m_OK;
    wxWeakRef<wxtButton>  m_Cancel;
};
} // namespace

TEST_F(ButtonTest, TheDefaultLookGoesWithTheFocusAndComesBack)
{
    for (wxWindow* const focused : std::vector<wxWindow*>{m_Field, m_Cancel, m_OK, m_Field})
    {
        Focus(focused);
        ExpectDefault(m_Cancel, focused == m_Cancel);
        if (focused == m_OK)
        {
            EXPECT_EQ(Named(color_Selected, 20 + 25), m_OK->GetBackgroundColour());
        }
        else
        {
            ExpectDefault(m_OK, focused == m_Field);
        }
    }
    // The light of the pointer goes with it.
    m_Input.MouseMove(m_Cancel->GetScreenRect().GetPosition() + wxPoint(5, 5));
    const auto isLit = [&](const String& name, int offset)
    { return WaitFor([=] { return m_Cancel->GetBackgroundColour() == Named(name, offset); }); };
    EXPECT_TRUE(isLit(color_ButtonFace, 25));
    Focus(m_Cancel);
    EXPECT_TRUE(isLit(color_Selected, 20 + 25));
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
    ExpectDefault(m_Cancel, false);
    Focus(m_Cancel);
    EXPECT_EQ(Named(color_ButtonFace, 25), m_Cancel->GetBackgroundColour()) << "only lit up";
    m_Cancel->Bind(wxEVT_BUTTON, [&](wxCommandEvent&) { m_Cancel->Destroy(); });
    Press(WXK_SPACE);
    EXPECT_TRUE(WaitFor([&] { return m_Field->HasFocus(); }));
    EXPECT_EQ(nullptr, Frame()->GetDefaultItem());
}

TEST_F(ButtonTest, ItsHandlerRunsOnceAndMayDisableIt)
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
}

TEST_F(ButtonTest, TheKeysGoOnWhenTheirButtonCannotHaveThem)
{
    // Of its click; after the first of them it still can.
    const std::function<void()> handlers[] = {
        [] { PumpEvents(); },
        [&] { m_OK->Disable(); },
        [&] { (m_OK->Disable(), PumpEvents()); },
        [&] { m_OK->Hide(); },
        [&] { m_OK->CallAfter([&] { m_OK->Disable(); }); },
    };
    EventCounter clicks(m_Panel, wxEVT_BUTTON);
    size_t       at = 0;
    m_OK->Bind(wxEVT_BUTTON,
               [&](wxCommandEvent& event)
               {
                   event.Skip();
                   handlers[at]();
               });
    for (at = 0; at < WXSIZEOF(handlers); ++at)
    {
        m_OK->Show();
        m_OK->Enable();
        Focus(m_OK);
        Press(WXK_SPACE);
        wxtButton* const next = at == 0 ? m_OK : m_Cancel;
        EXPECT_TRUE(WaitFor([&] { return clicks.Count() == 1 && next->HasFocus(); })) << at;
        PumpEvents();
        EXPECT_TRUE(next->HasFocus() && next->IsDefault()) << at;
        clicks.Clear();
    }
}

TEST_F(ButtonTest, TheKeysGoOnFromEveryThemedControl)
{
    const std::vector<wxWindow*> controls = {
        new wxtCheckBox(m_Panel, wxID_ANY, "box"),
        new wxtRadioButton(m_Panel, wxID_ANY, "radio"),
        new wxtTextCtrl(m_Panel, wxID_ANY),
        new wxtTextCtrl(m_Panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_MULTILINE),
        new wxtComboBox(m_Panel, wxID_ANY),
        new wxtChoice(m_Panel, wxID_ANY),
        new wxtCheckListBox(m_Panel, wxID_ANY),
    };
    for (auto at = controls.rbegin(); at != controls.rend(); ++at)
    {
        wxWindow* const control = *at; // the last that there is by then: the first comes after it
        const auto      hasFocus = [=]
        {
            const wxWindow* const focused = wxWindow::FindFocus();
            return focused && (focused == control || focused->GetParent() == control);
        };
        const std::function<void()> ends[] = {[=] { control->Disable(); }, [=] { control->Hide(); },
                                              [=] { control->Destroy(); }};
        for (const auto& end : ends)
        {
            control->Enable();
            control->Show();
            control->SetFocus();
            ASSERT_TRUE(WaitFor(hasFocus)) << control->GetName();
            end();
            EXPECT_TRUE(WaitFor([&] { return m_Field->HasFocus(); })) << &end - ends;
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
    for (int i = 0; i < image.GetWidth() * image.GetHeight(); ++i)
    {
        const int x = i % image.GetWidth();
        if (!Near(face, PixelAt(image, x, i / image.GetWidth()), 20))
        {
            left = std::min(left, x);
            right = std::max(right, x);
        }
    }
    ASSERT_LT(left, right) << Kept(image, "button");
    EXPECT_NEAR(left, image.GetWidth() - 1 - right, 3) << Kept(image, "button");
    m_Cancel->SetFont(m_OK->GetFont());
    EXPECT_GE(m_Cancel->GetMinWidth(), m_Cancel->GetTextExtent("Cancel").x)
        << "wide enough for its bold label, whatever its look";
}
