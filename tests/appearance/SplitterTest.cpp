#include "appearance/wxtSplitterWindow.h"
#include "tests/support/FrameTest.h"

TEST_F(FrameTest, ASashComesBackAndLeavesBothPanesRoom)
{
    const auto split = [this](const String& name)
    {
        Frame()->DestroyChildren();
        auto* const splitter = new wxtSplitterWindow(Frame(), name);
        Frame()->SendSizeEvent(); // an only child fills the frame
        splitter->Split(new wxtPanel(splitter), new wxtPanel(splitter), 150);
        EXPECT_TRUE(WaitFor([&] { return splitter->GetSashPosition() > 0; }));
        return splitter;
    };
    wxtSplitterWindow* splitter = split("Panes");
    EXPECT_EQ(150, splitter->GetSashPosition());
    splitter->MoveSash(50);
    EXPECT_EQ(200, splitter->GetSashPosition());
    splitter->SaveSash();
    EXPECT_EQ(200, split("Panes")->GetSashPosition());
    splitter = split(String());
    EXPECT_EQ(150, splitter->GetSashPosition()) << "without a name nothing is kept";
    splitter->SaveSash();
    splitter->MoveSash(-10000);
    const int least = splitter->GetSashPosition();
    EXPECT_GT(least, 0);
    splitter->MoveSash(10000);
    EXPECT_EQ(400 - splitter->GetSashSize() - least, splitter->GetSashPosition());

    splitter->MoveSash(250 - splitter->GetSashPosition());
    const auto comesTo = [&](int height, int sash)
    {
        Frame()->SetClientSize(600, height);
        EXPECT_TRUE(WaitFor([&] { return splitter->GetSashPosition() == sash; }))
            << splitter->GetSashPosition() << " instead of " << sash << " in " << height;
    };
    const auto most = [&](int height) { return height - splitter->GetSashSize() - least; };
    comesTo(200, most(200));
    comesTo(400, 250); // as before the window was too small
    comesTo(220, most(220));
    splitter->MoveSash(-10);
    comesTo(400, most(220) - 10); // where the user has put it

    splitter->GetWindow1()->SetFocus();
    splitter->SwitchPane();
    EXPECT_TRUE(WaitFor([&] { return splitter->GetWindow2()->HasFocus(); }));
    splitter->SwitchPane();
    EXPECT_TRUE(WaitFor([&] { return splitter->GetWindow1()->HasFocus(); }));
}

// A press in a pane may destroy it.
TEST_F(FrameTest, APaneThatGoesLeavesTheOtherOneAllTheRoom)
{
    for (const bool isFirst : {true, false})
    {
        Frame()->DestroyChildren();
        auto* const splitter = new wxtSplitterWindow(Frame(), String());
        Frame()->SendSizeEvent();
        auto* const upper = new wxtPanel(splitter);
        auto* const lower = new wxtPanel(splitter);
        splitter->Split(upper, lower, 150);
        (isFirst ? upper : lower)->Destroy();
        wxWindow* const left = isFirst ? lower : upper;
        EXPECT_FALSE(splitter->IsSplit());
        EXPECT_EQ(left, splitter->GetWindow1());
        Frame()->SetClientSize(500, 350);
        splitter->Refresh();
        EXPECT_TRUE(WaitFor([&] { return left->GetSize() == splitter->GetClientSize(); }));
        splitter->SwitchPane();
        splitter->MoveSash(20);
        left->Destroy();
        Frame()->SetClientSize(400, 400);
        PumpEvents();
        EXPECT_EQ(nullptr, splitter->GetWindow1());
    }
}
