#include "appearance/wxTolvanColors.h"
#include "tests/support/FrameTest.h"

#include <memory>

namespace
{
class ColorManagedTest : public FrameTest
{
protected:
    static void Tell(wxWindow* window)
    {
        wxSysColourChangedEvent event;
        window->GetEventHandler()->ProcessEvent(event);
    }
};
} // namespace

TEST_F(ColorManagedTest, FollowsTheSchemeThroughItsParents)
{
    auto* const plain = new wxPanel(Frame());
    auto* const panel = new wxtPanel(plain);
    EXPECT_EQ(wxColour(72, 72, 72), panel->GetBackgroundColour());
    EXPECT_EQ(wxColour(235, 235, 235), panel->GetForegroundColour());
    Lighter();
    EXPECT_EQ(wxColour(72, 72, 72), panel->GetBackgroundColour());
    Tell(Frame());
    EXPECT_EQ(wxColour(233, 233, 233), panel->GetBackgroundColour());
    EXPECT_EQ(wxColour(10, 10, 10), panel->GetForegroundColour());
}

TEST_F(ColorManagedTest, ChildrenStartWithTheirParentsSettings)
{
    auto* const parent = new wxtPanel(Frame());
    parent->m_BackgroundName = color_Header;
    parent->m_BackgroundOffset = 5;
    parent->m_DisabledForegroundOffset = -7;
    parent->RefreshColors();
    auto* const child = new wxtPanel(parent);
    EXPECT_EQ(wxColour(120, 120, 120), child->GetBackgroundColour());
    EXPECT_EQ(-7, child->m_DisabledForegroundOffset);
    auto* const stranger = new wxtPanel(new wxPanel(parent));
    EXPECT_EQ(wxColour(72, 72, 72), stranger->GetBackgroundColour());
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
    Lighter();
    Tell(Frame());
    EXPECT_EQ(*wxWHITE, panel->GetBackgroundColour());
}

TEST_F(ColorManagedTest, InvalidColoursAreUsedWithoutComplaint)
{
    auto* const panel = new wxtPanel(Frame());
    wxtSetColor(color_WindowBG, wxColour());
    panel->m_ForegroundName = "NoSuchColour";
    panel->m_ForegroundOffset = 40;
    Tell(Frame());
    PumpEvents();
    EXPECT_TRUE(panel->IsShown());
}

TEST_F(ColorManagedTest, WindowAndMixinMayGoInAnyOrder)
{
    auto mixin = std::make_unique<wxtColorManaged>();
    mixin->RefreshColors(); // manages nothing yet
    auto* const first = new wxPanel(Frame());
    mixin->Manage(first);
    Lighter();
    Tell(Frame());
    EXPECT_EQ(wxColour(233, 233, 233), first->GetBackgroundColour());

    first->Destroy();
    mixin->RefreshColors();
    auto* const second = new wxPanel(Frame());
    mixin->Manage(second);
    mixin.reset();
    const wxColour before = second->GetBackgroundColour();
    Dark();
    Tell(Frame()); // nothing dangles, nothing changes
    EXPECT_EQ(before, second->GetBackgroundColour());
}

TEST_F(ColorManagedTest, AMixinMovesToAnotherWindow)
{
    wxtColorManaged mixin;
    auto* const     first = new wxPanel(Frame());
    auto* const     second = new wxPanel(Frame());
    mixin.Manage(first);
    mixin.Manage(second);
    Lighter();
    Tell(Frame());
    EXPECT_EQ(wxColour(72, 72, 72), first->GetBackgroundColour());
    EXPECT_EQ(wxColour(233, 233, 233), second->GetBackgroundColour());
}
