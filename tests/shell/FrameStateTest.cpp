#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"

#include "internal/windows/Geometry.h"
#include "shell/frames/FrameExtents.h"
#include "shell/wxTolvanFrame.h"

#include <wx/display.h>
#include <wx/menu.h>
#include <wx/uiaction.h>

namespace
{
class MainFrame : public wxTolvanFrame
{
public:
    explicit MainFrame(const wxSize& size = wxSize(500, 300), const wxPoint& place = {100, 120})
        : wxTolvanFrame("Main", place, size)
    {
    }
    void Finish() { m_Built = true; }
};

class FrameStateTest : public UserFolderTest
{
protected:
    FrameStateTest()
    {
        TestApp::Get().ForgetOptions();
        g_Scheme = -1;
    }
    ~FrameStateTest() override
    {
        if (wxTolvanFrame::s_Frame)
        {
            wxTolvanFrame::s_Frame->Destroy();
        }
        WaitFor([] { return !wxTolvanFrame::s_Frame; });
        internal::Displays::Get() = internal::Displays::Real();
        TestApp::Get().ForgetOptions();
    }

    static OptionsFile& Options() { return TestApp::Get().Options(); }

    // As a program does: positions first, then the window is shown.
    static MainFrame* Open(MainFrame* frame = new MainFrame)
    {
        frame->LoadWindowPosition();
        frame->Finish();
        frame->Show();
        EXPECT_TRUE(WaitFor([&] { return frame->IsShownOnScreen() && frame->IsActive(); }));
        // The toolkit waits a second for the frame's extents; a busy window manager tells them
        // later, and the window grows by them then.
        EXPECT_TRUE(WaitFor([&] { return shell::FrameExtentsOf(*frame) != "0, 0, 0, 0"; }));
        Settle(frame);
        return frame;
    }
    // Until the window manager has had its say: nothing has changed for a while.
    static void Settle(wxWindow* window)
    {
        wxRect    last;
        int       quiet = 0;
        const int enough = 25;
        WaitFor(
            [&]
            {
                quiet = window->GetRect() == last ? quiet + 1 : 0;
                last = window->GetRect();
                return quiet > enough;
            });
    }
};
} // namespace

TEST_F(FrameStateTest, StateAndSizeComeBackHoweverOftenTheyChange)
{
    wxRect normal(150, 130, 640, 480);
    Options().SetValue("Window", "Window", internal::FormatGeometry(normal));
    Options().SetValue("Window", "IsMaximized", "yes");
    Options().SetValue("Window", "IsMinimized", "yes");
    MainFrame* const frame = Open();
    EXPECT_FALSE(frame->IsIconized());
    for (int round = 0; round < 2; ++round)
    {
        ASSERT_TRUE(WaitFor([&] { return frame->IsMaximized() && frame->GetSize().x > 1000; }));
        Settle(frame);
        frame->SaveWindowPosition();
        EXPECT_EQ("yes", Options().GetValue("Window", "IsMaximized").ToLower());
        const auto stored = internal::ParseGeometry(Options().GetValue("Window", "Window"));
        EXPECT_TRUE(stored && stored->GetSize() == normal.GetSize());
        EXPECT_TRUE(round == 0 || stored == normal);
        for (const bool full : {true, false})
        {
            frame->ShowFullScreen(full, wxFULLSCREEN_ALL);
            EXPECT_TRUE(WaitFor(
                [&]
                {
                    frame->SaveWindowPosition();
                    return Options().GetBool("Window", "IsFullScreen", !full) == full;
                }));
            EXPECT_TRUE(Options().GetBool("Window", "IsMaximized", false)) << full;
            Settle(frame);
        }
        frame->Maximize(false);
        ASSERT_TRUE(WaitFor([&] { return !frame->IsMaximized(); }));
        Settle(frame);
        EXPECT_EQ(normal.GetSize(), frame->GetSize());
        normal = frame->GetRect();
        frame->SaveWindowPosition();
        EXPECT_FALSE(Options().GetBool("Window", "IsMaximized", true));
        frame->Maximize();
    }
}

TEST_F(FrameStateTest, UnusablePlacesCentreTheWindow)
{
    const wxRect area = wxDisplay(0u).GetClientArea();
    auto* const  frame = new MainFrame(wxSize(300, 200));
    frame->Show();
    ASSERT_TRUE(WaitFor([&] { return frame->IsShownOnScreen(); }));
    for (const char* text :
         {"", "10, 20, 300", "no numbers", "5000, 5000, 300, 200", "10, 20, 30, -1",
          "99999999999999999999, 0, 10, 10", "0, -40000, 10, 10", "0, 0, 2000000000, 10"})
    {
        frame->Move(0, 0);
        Settle(frame);
        Options().SetValue("Job", "Window", text);
        wxSetWindowPos(frame, "Job", 0);
        EXPECT_TRUE(WaitFor(
            [&]
            {
                const wxPoint middle = frame->GetRect().GetPosition() + frame->GetSize() / 2;
                return std::abs(middle.x - area.width / 2) < 40 &&
                       std::abs(middle.y - area.height / 2) < 60;
            }))
            << text << ": " << frame->GetPosition().x << ", " << frame->GetPosition().y;
    }
}

TEST_F(FrameStateTest, AFrameComesBackToItsPlace)
{
    const wxRect  area = wxDisplay(0u).GetClientArea();
    const wxPoint corner = area.GetPosition();
    const wxSize  large = area.GetSize() * 3 / 4; // a window manager would centre it
    for (const wxPoint& place : {corner, corner + wxPoint(30, 40)})
    {
        const wxRect geometry(place, large);
        Options().SetValue("Window", "Window", internal::FormatGeometry(geometry));
        Options().SetValue("Window", "Frame", "1, 1, 20, 5");
        MainFrame* const frame = Open(new MainFrame(wxDefaultSize, wxDefaultPosition));
        EXPECT_EQ(internal::FormatGeometry(wxRect(place, frame->GetSize())),
                  internal::FormatGeometry(frame->GetRect()));
        frame->Destroy();
        WaitFor([] { return !wxTolvanFrame::s_Frame; });
    }
}

TEST_F(FrameStateTest, AFrameSavedOffEveryScreenIsSeenWhenItIsShown)
{
    Options().SetValue("Window", "Window", "6000, 100, 300, 200");
    MainFrame* const frame = Open();
    EXPECT_TRUE(WaitFor([&] { return internal::Displays::Get().indexOf(frame) != wxNOT_FOUND; }))
        << frame->GetPosition().x;
}

TEST_F(FrameStateTest, TheMainFrameTakesTheOthersWithIt)
{
    HasSlots    slots;
    auto* const main = new MainFrame;
    EXPECT_EQ(main, wxTolvanFrame::s_Frame);
    EXPECT_EQ(0, g_Scheme); // loaded with it
    auto* const second = new wxTolvanFrame("Second");
    auto* const tool = new wxTolvanFrame(main, "Tool", 0);
    EXPECT_EQ((std::set<wxTolvanFrame*>{second, tool}), g_ChildFrames);
    wxTolvanFrame::s_WinClosed.Connect(&slots, [] {});
    EXPECT_EQ(1u, slots.ConnectionCount());
    tool->Destroy();
    EXPECT_TRUE(WaitFor([&] { return slots.ConnectionCount() == 0; }));

    const wxWeakRef<wxTolvanFrame> watch(second);
    // Destroying the one may destroy the other.
    new wxTolvanFrame(new wxTolvanFrame(second, "Outer", 0), "Inner", 0);
    main->Destroy();
    EXPECT_TRUE(WaitFor([&] { return !watch; }));
    EXPECT_TRUE(g_ChildFrames.empty());
    EXPECT_EQ(nullptr, wxTolvanFrame::s_Frame);
}

TEST_F(FrameStateTest, SwitchingTheSchemeReachesEveryFrame)
{
    auto* const main = new MainFrame;
    auto* const second = new wxTolvanFrame("Second");
    auto* const panel = new wxtPanel(second);
    auto* const tool = new wxTolvanFrame(main, "Tool", 0);
    EXPECT_EQ(0, wxTolvanFrame::SetColorScheme(-1));
    EXPECT_EQ(2, wxTolvanFrame::SetColorScheme(scheme_Lighter));
    for (const wxWindow* const window : std::vector<wxWindow*>{main, second, panel, tool})
    {
        EXPECT_EQ(wxColour(233, 233, 233), window->GetBackgroundColour());
    }
    EXPECT_EQ("scheme = 2\n", ReadFile(UserFile("Colors.ini")));

    // Another program changes it.
    WriteFile(UserFile("Colors.ini"), "scheme = 4\n");
    EXPECT_TRUE(TestApp::Get().HandleRequest("COLORS"));
    EXPECT_TRUE(WaitFor([&] { return panel->GetBackgroundColour() == wxColour(32, 32, 32); }));
    EXPECT_EQ(4, g_Scheme);
}

// A sash or a tab of the toolkit's own may be pressed when the program ends.
TEST_F(FrameStateTest, TakesTheMouseFromWhatGoesWithIt)
{
    MainFrame* const frame = Open();
    auto* const      panel = new wxtPanel(frame);
    panel->CaptureMouse();
    frame->Destroy();
    EXPECT_TRUE(WaitFor([] { return !wxTolvanFrame::s_Frame; }));
    EXPECT_FALSE(wxWindow::GetCapture());
}

TEST_F(FrameStateTest, KnowsWhetherAMenuIsOpen)
{
    EXPECT_FALSE(ParentIsActive(new MainFrame)); // never shown
    MainFrame* const frame = Open();
    auto* const      menu = new wxMenu;
    menu->Append(1, "An item");
    auto* const inner = new wxMenu;
    inner->Append(2, "Another");
    menu->AppendSubMenu(inner, "More");
    auto* const bar = new wxMenuBar;
    bar->Append(menu, "&File");
    frame->SetMenuBar(bar);
    frame->Maximize();
    ASSERT_TRUE(WaitFor([&] { return frame->GetSize().x > 1000; }));
    Settle(frame);

    wxUIActionSimulator input;
    // Above the client area.
    const wxPoint               title = frame->ClientToScreen(wxPoint(10, -12));
    const std::function<void()> ways[] = {
        [&] { input.Char('F', wxMOD_ALT); },
        [&]
        {
            input.MouseMove(title);
            input.MouseClick();
        },
    };
    for (const auto& open : ways)
    {
        // Again where none came: the toolkit opens none while the window manager of a busy machine
        // still has the keys or the pointer.
        const auto opens = [&open]
        {
            open();
            return WaitFor(wxTolvanFrame::IsMenuOpen, 1000);
        };
        EXPECT_TRUE(WaitFor(opens));
        EXPECT_FALSE(ParentIsActive(nullptr));
        wxMenuEvent close(wxEVT_MENU_CLOSE, 0, inner);
        frame->GetEventHandler()->ProcessEvent(close);
        EXPECT_TRUE(wxTolvanFrame::IsMenuOpen());
        input.Char(WXK_ESCAPE);
        EXPECT_TRUE(WaitFor([] { return !wxTolvanFrame::IsMenuOpen(); }));
        EXPECT_TRUE(ParentIsActive(nullptr));
    }
}
