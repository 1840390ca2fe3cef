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

    splitter->GetWindow1()->SetFocus();
    splitter->SwitchPane();
    EXPECT_TRUE(WaitFor([&] { return splitter->GetWindow2()->HasFocus(); }));
    splitter->SwitchPane();
    EXPECT_TRUE(WaitFor([&] { return splitter->GetWindow1()->HasFocus(); }));
}
