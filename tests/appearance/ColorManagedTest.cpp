#include "appearance/wxTolvanColors.h"
#include "tests/support/FrameTest.h"

#include <memory>

using ColorManagedTest = FrameTest;

TEST_F(ColorManagedTest, FollowsTheSchemeAndHandsItsSettingsDown)
{
    auto* const panel = new wxtPanel(new wxPanel(Frame()));
    EXPECT_EQ(wxColour(72, 72, 72), panel->GetBackgroundColour());
    UseColors(scheme_Lighter, Frame());
    EXPECT_EQ(wxColour(233, 233, 233), panel->GetBackgroundColour());
    EXPECT_EQ(wxColour(10, 10, 10), panel->GetForegroundColour());

    panel->m_BackgroundName = color_Header;
    panel->m_BackgroundOffset = 5;
    panel->m_DisabledForegroundOffset = -7;
    panel->RefreshColors();
    auto* const child = new wxtPanel(panel);
    EXPECT_EQ(wxColour(216, 216, 216), child->GetBackgroundColour());
    EXPECT_EQ(-7, child->m_DisabledForegroundOffset);
    auto* const stranger = new wxtPanel(new wxPanel(panel));
    EXPECT_EQ(wxColour(233, 233, 233), stranger->GetBackgroundColour());

    panel->m_ForegroundName = "NoSuchColour";
    UseColors(scheme_Lighter, Frame());
    PumpEvents(); // nobody complains
}

TEST_F(ColorManagedTest, DisabledWindowsStandOut)
{
    auto* const plain = new wxPanel(Frame());
    auto* const panel = new wxtPanel(plain);
    auto* const text = new wxtStaticText(panel, wxID_ANY, "text");
    const auto  expectLook = [&](const char* when, bool panelEnabled, bool textEnabled)
    {
        const wxColour disabled(142, 142, 142);
        const wxColour enabled(72, 72, 72);
        EXPECT_EQ(panelEnabled ? enabled : disabled, panel->GetBackgroundColour()) << when;
        EXPECT_EQ(textEnabled ? enabled : disabled, text->GetBackgroundColour()) << when;
        EXPECT_EQ(textEnabled ? wxColour(235, 235, 235) : wxColour(160, 170, 190),
                  text->GetForegroundColour())
            << when;
    };
    text->Disable();
    expectLook("itself", true, false);
    plain->Disable();
    text->Enable();
    expectLook("with what it lies in", false, false);
    plain->Enable();
    expectLook("enabled again", true, true);
    panel->Disable();
    UseColors(scheme_Lighter, Frame());
    EXPECT_EQ(*wxWHITE, panel->GetBackgroundColour());
}

TEST_F(ColorManagedTest, AMixinMovesAndOutlivesWindowsAndGoesBeforeThem)
{
    auto mixin = std::make_unique<wxtColorManaged>();
    mixin->RefreshColors(); // manages nothing yet
    wxWindow* const windows[] = {new wxPanel(Frame()), new wxPanel(Frame()), new wxPanel(Frame())};
    mixin->Manage(windows[0]);
    mixin->Manage(windows[1]);
    UseColors(scheme_Lighter, Frame());
    EXPECT_EQ(wxColour(72, 72, 72), windows[0]->GetBackgroundColour());
    EXPECT_EQ(wxColour(233, 233, 233), windows[1]->GetBackgroundColour());
    windows[1]->Destroy();
    mixin->RefreshColors();
    mixin->Manage(windows[2]);
    mixin.reset();
    UseColors(scheme_Dark, Frame()); // nothing dangles, nothing changes
    EXPECT_EQ(wxColour(233, 233, 233), windows[2]->GetBackgroundColour());
}
