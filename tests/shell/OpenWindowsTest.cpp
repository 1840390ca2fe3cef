#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"

#include "internal/windows/Geometry.h"
#include "shell/OpenWindows.h"

#include <wx/menu.h>

namespace
{
class OpenWindowsTest : public FrameTest
{
protected:
    OpenWindowsTest() { TestApp::Get().SetTopWindow(Frame()); }
    ~OpenWindowsTest() override
    {
        TestApp::Get().SetTopWindow(nullptr);
        OpenWindows::_this->Clear();
        internal::Displays::Get() = internal::Displays::Real();
    }

    wxFrame* Open(const wxString& title, const String& group = "", bool vetoes = false)
    {
        auto* const window = new wxFrame(Frame(), wxID_ANY, title, wxPoint(200, 200));
        window->Bind(wxEVT_CLOSE_WINDOW,
                     [=](wxCloseEvent& event) { vetoes ? event.Veto() : event.Skip(); });
        wxOpenUserWindow(window, group);
        return window;
    }
    wxFrame* Shown(const wxString& title, bool vetoes = false)
    {
        wxFrame* const window = Open(title, "", vetoes);
        window->Show();
        EXPECT_TRUE(WaitFor([window] { return window->IsActive(); }));
        return window;
    }
    void Command(int id)
    {
        wxCommandEvent event(wxEVT_MENU, id);
        Frame()->GetEventHandler()->ProcessEvent(event);
        PumpEvents();
    }
    // The labels, as they read; "-" a separator, "(x)" one that is disabled.
    static wxString Menu()
    {
        wxString text;
        for (wxMenuItem* const item : wxGetOpenWindowMenu()->GetMenuItems())
        {
            const wxString label = item->IsSeparator() ? wxString("-") : item->GetItemLabelText();
            text += item->IsEnabled() ? label + "|" : "(" + label + ")|";
        }
        return text;
    }
};
} // namespace

TEST_F(OpenWindowsTest, TheMenuListsTheWindowsByGroup)
{
    EXPECT_EQ("(No open windows)|Main Window|Close All|", Menu());
    Open("Job 7", "Jobs");
    wxFrame* const log = Open("R&D\tCtrl+Q");
    Open("", "R&D");
    Open("Job 12", "Jobs");
    EXPECT_EQ("Main Window|-|R&D Ctrl+Q|-|(   Jobs)|Job 7|Job 12|-|(   R&D)| |-|Collect All|"
              "Close All|",
              Menu());
    EXPECT_EQ(wxGetOpenWindowMenu(), wxGetOpenWindowMenu());
    EXPECT_EQ(nullptr,
              wxGetOpenWindowMenu()->FindItem(OpenWindows::id_FirstWindow + 1)->GetAccel());
    log->Destroy(); // without having been closed
    WaitFor([&] { return !Menu().Contains("Ctrl"); });
    EXPECT_FALSE(Menu().Contains("Ctrl"));
    for (int i = 0; i < 101; ++i)
    {
        Open("Many");
    }
    wxMenu* const menu = wxGetOpenWindowMenu();
    EXPECT_EQ("Many", menu->FindItem(OpenWindows::id_LastWindow)->GetItemLabelText());
    EXPECT_EQ("Close All", menu->FindItem(OpenWindows::id_CloseAll)->GetItemLabelText());
}

TEST_F(OpenWindowsTest, CommandsActOnTheWindowsThatAreThere)
{
    wxFrame* const first = Shown("First", true);
    wxFrame* const second = Shown("Second");
    wxFrame* const third = Shown("Third");
    wxGetOpenWindowMenu();
    const auto raises = [&](int id, wxFrame* window)
    {
        Command(id);
        EXPECT_TRUE(WaitFor([window] { return window->IsActive(); })) << window->GetTitle();
    };
    raises(OpenWindows::id_MainWindow, Frame());
    raises(OpenWindows::id_FirstWindow, first);
    raises(OpenWindows::id_FirstWindow + 1, second);

    const wxWeakRef<wxFrame> gone(second);
    second->Destroy();
    EXPECT_TRUE(WaitFor([&gone] { return !gone; }));
    raises(OpenWindows::id_MainWindow, Frame());
    Command(OpenWindows::id_FirstWindow + 1); // it is no more; no other one in its place
    raises(OpenWindows::id_FirstWindow + 2, third);

    // Who vetoes stays open, and is off the list all the same.
    const wxWeakRef<wxFrame> closing(third);
    Command(OpenWindows::id_CloseAll);
    EXPECT_TRUE(WaitFor([&closing] { return !closing; }));
    EXPECT_TRUE(first->IsShown());
    EXPECT_EQ("(No open windows)|Main Window|Close All|", Menu());
}

TEST_F(OpenWindowsTest, WindowsGatherOnTheMainWindowsDisplay)
{
    Frame()->SetSize(600, 400);
    internal::Displays::Get().indexOf = [](const wxWindow*) { return 1; };
    internal::Displays::Get().clientArea = [](int index)
    { return wxRect(index * 300, 100, 900, 700); };
    wxFrame* const tiny = Shown("Tiny");
    tiny->SetSize(5, 5, 80, 300);
    EXPECT_TRUE(WaitFor([tiny] { return tiny->GetRect() == wxRect(5, 5, 80, 300); }));
    wxOpenUserWindow(tiny, "");
    EXPECT_EQ(wxRect(300 + (900 - 300) / 2, 100 + (700 - 300) / 2, 300, 300), tiny->GetRect());
    tiny->SetSize(0, 0, 500, 350);
    EXPECT_TRUE(WaitFor([tiny] { return tiny->GetRect() == wxRect(0, 0, 500, 350); }));
    wxGetOpenWindowMenu();
    Command(OpenWindows::id_CollectAll);
    EXPECT_TRUE(WaitFor([tiny] { return tiny->GetRect() == wxRect(500, 275, 500, 350); }));
    wxOpenUserWindow(nullptr, "");
    OpenWindows::_this->CenterOnDisplay(nullptr, tiny);
}
