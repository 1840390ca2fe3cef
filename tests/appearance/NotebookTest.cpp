#include "appearance/wxtNotebook.h"

#include "appearance/ColorScheme.h"
#include "appearance/wxtButton.h"
#include "appearance/wxtDockArt.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"
#include "vesta/Application.h"

#include <wx/dcmemory.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>

namespace
{
constexpr int kTabs = 500;

class NotebookTest : public FrameTest
{
protected:
    NotebookTest() { Open(); }

    void Open()
    {
        Frame()->DestroyChildren();
        m_Book = new wxtNotebook(Frame());
        Frame()->SendSizeEvent(); // an only child fills the frame
    }
    void Add(std::initializer_list<const char*> captions)
    {
        for (const char* const caption : captions)
        {
            m_Book->AddPage(new wxtPanel(m_Book), caption);
        }
        PumpEvents();
    }
    wxWindow* Page(const wxString& caption) const
    {
        for (size_t i = 0; i < m_Book->GetPageCount(); ++i)
        {
            if (m_Book->GetPageText(i) == caption)
            {
                return m_Book->GetPage(i);
            }
        }
        return nullptr;
    }
    /// Panes by what is in them, the shown page of each marked, the current one twice.
    std::string Look() const
    {
        std::vector<std::string> panes;
        for (wxWindow* const child : m_Book->GetChildren())
        {
            auto* const tabs = dynamic_cast<wxAuiTabCtrl*>(child);
            std::string pane;
            for (size_t i = 0; tabs && i < tabs->GetPageCount(); ++i)
            {
                const wxAuiNotebookPage& page = tabs->GetPage(i);
                pane += page.caption.ToStdString();
                pane += page.active ? "*" : "";
                pane += m_Book->GetSelection() == m_Book->FindPage(page.window) ? "*" : "";
                EXPECT_EQ(page.active, page.window->IsShown()) << page.caption;
            }
            if (!pane.empty())
            {
                panes.push_back(pane);
            }
        }
        std::sort(panes.begin(), panes.end());
        std::string look;
        for (const std::string& pane : panes)
        {
            look += (look.empty() ? "" : " ") + pane;
        }
        return look;
    }

    wxWeakRef<wxtNotebook> m_Book;
};
} // namespace

TEST_F(NotebookTest, PagesComeGoAndMove)
{
    Add({"a", "b", "c"});
    EXPECT_EQ("a**bc", Look());
    m_Book->SetSelection(2);
    m_Book->InsertPage(1, new wxtPanel(m_Book), "d");
    EXPECT_EQ("adbc**", Look());
    m_Book->MovePage(Page("c"), 0);
    EXPECT_EQ("c**adb", Look());
    EXPECT_EQ(0, m_Book->FindPage(Page("c"))) << "both orders agree";
    m_Book->Split(1, wxRIGHT);
    EXPECT_EQ("a** c*db", Look());
    m_Book->Split(0, wxBOTTOM);
    EXPECT_EQ("a* c** d*b", Look()) << "what is left shows a page";
    m_Book->ClosePage(Page("a"));
    EXPECT_EQ("c** d*b", Look());
    Page("c")->Destroy();
    EXPECT_EQ("d**b", Look()) << "a page that is destroyed leaves by itself";
    m_Book->RemovePage(0);
    EXPECT_EQ("b**", Look());
    m_Book->DeleteAllPages();
    EXPECT_EQ("", Look());
    Add({"e"});
    EXPECT_EQ("e**", Look());
}

TEST_F(NotebookTest, HandlersMayDoAnything)
{
    const struct
    {
        const char*                         name;
        wxEventType                         type;
        std::function<void(wxNotifyEvent&)> handle;
        const char*                         look; // null: the notebook has gone
    } rows[] = {
        {"veto", wxEVT_AUINOTEBOOK_PAGE_CHANGING, [](wxNotifyEvent& e) { e.Veto(); }, "a**bc"},
        {"go", wxEVT_AUINOTEBOOK_PAGE_CHANGING, [this](auto&) { m_Book->Destroy(); }, nullptr},
        {"page", wxEVT_AUINOTEBOOK_PAGE_CHANGING, [this](auto&) { Page("b")->Destroy(); }, "a**c"},
        {"all", wxEVT_AUINOTEBOOK_PAGE_CHANGED, [this](auto&) { m_Book->DeleteAllPages(); }, ""},
        {"gone", wxEVT_AUINOTEBOOK_PAGE_CHANGED, [this](auto&) { m_Book->Destroy(); }, nullptr},
        {"keep", wxEVT_AUINOTEBOOK_PAGE_CLOSE, [](wxNotifyEvent& e) { e.Veto(); }, "ab**c"},
        {"first", wxEVT_AUINOTEBOOK_PAGE_CLOSE, [this](auto&) { Page("b")->Destroy(); }, "ac**"},
        {"take", wxEVT_AUINOTEBOOK_PAGE_CLOSE, [this](auto&) { m_Book->RemovePage(1); }, "ac**"},
        {"end", wxEVT_AUINOTEBOOK_PAGE_CLOSE, [this](auto&) { m_Book->Destroy(); }, nullptr},
        {"over", wxEVT_AUINOTEBOOK_PAGE_CLOSED, [this](auto&) { m_Book->Destroy(); }, nullptr},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.name);
        Open();
        Add({"a", "b", "c"});
        m_Book->Bind(wxEventTypeTag<wxAuiNotebookEvent>(row.type),
                     [handle = row.handle](wxAuiNotebookEvent& event) { handle(event); });
        m_Book->SetSelection(1);
        if (m_Book && m_Book->GetSelection() == 1)
        {
            m_Book->ClosePage(m_Book->GetPage(1));
        }
        EXPECT_EQ(row.look != nullptr, bool(m_Book));
        EXPECT_EQ(row.look ? row.look : "", m_Book ? Look() : "");
        PumpEvents();
    }
}

// With a real pointer, which holds the row of tabs, or the bar of a page's own window.
TEST_F(NotebookTest, ADragEndsInEveryWay)
{
    const struct
    {
        const char*           name;
        std::function<void()> end;
        const char*           look;
    } rows[] = {
        {"Escape", [] { Press(WXK_ESCAPE); }, "abc**"},
        {"the row goes", [this] { m_Book->DeleteAllPages(); }, ""},
        {"the notebook goes", [this] { m_Book->Destroy(); }, nullptr},
        {"Escape in a window", [] { Press(WXK_ESCAPE); }, "ab**"},
        {"the page goes from a window", [this] { m_Book->PagesInWindows()[0]->Destroy(); }, "ab**"},
    };
    wxUIActionSimulator input;
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.name);
        Open();
        Add({"a", "b", "c"});
        m_Book->SetSelection(2);
        wxWindow* held = m_Book->GetActiveTabCtrl();
        if (wxString(row.name).Contains("window"))
        {
            wxFrame* const window = m_Book->OpenWindow(Page("c"));
            window->SetSize(650 + 9 * static_cast<int>(&row - rows), 50, 300,
                            200); // no double click
            EXPECT_TRUE(WaitFor([&] { return window->IsActive(); }));
            held = window->GetChildren().front();
        }
        const wxWeakRef<wxWindow> source(held);
        const EventCounter        painted(source, wxEVT_PAINT);
        source->Refresh();
        EXPECT_TRUE(WaitFor([&] { return painted.Count() > 0; }));
        auto* const   tabs = dynamic_cast<wxAuiTabCtrl*>(held);
        const wxPoint tab =
            source->GetScreenPosition() + wxPoint(10 + (tabs ? tabs->GetPage(2).rect.x : 0), 10);
        input.MouseMove(tab);
        input.MouseDown();
        const auto drag = [&, x = 0]() mutable
        {
            input.MouseMove(tab - wxPoint(x = (x + 8) % 64, 0));
            return source->HasCapture();
        };
        EXPECT_TRUE(WaitFor(drag));
        row.end();
        EXPECT_TRUE(WaitFor([] { return !wxWindow::GetCapture(); }));
        input.MouseMove(tab - wxPoint(90, 0));
        PumpEvents();
        EXPECT_FALSE(wxWindow::GetCapture()) << "a press drags once";
        input.MouseUp();
        PumpEvents();
        EXPECT_EQ(row.look ? row.look : "", m_Book ? Look() : "");
    }
}

TEST_F(NotebookTest, APageHasAWindowAndComesBack)
{
    Add({"a", "b", "c"});
    wxWindow* const page = Page("b");
    m_Book->SetPageModified(page, true);
    m_Book->SetSelection(1);
    wxWeakRef<wxFrame> frame(m_Book->OpenWindow(page));
    ASSERT_TRUE(frame);
    EXPECT_EQ("ac**", Look());
    EXPECT_EQ(frame, wxGetTopLevelParent(page));
    EXPECT_TRUE(WaitFor([&] { return page->IsShownOnScreen(); }));
    m_Book->SetCaption(page, "B");
    EXPECT_EQ("B", frame->GetTitle());
    EXPECT_TRUE(m_Book->IsPageModified(page));
    frame->Close();
    EXPECT_EQ("aB**c", Look()) << "closing brings it back to its place";
    EXPECT_TRUE(WaitFor([&] { return !frame; }));
    EXPECT_TRUE(m_Book->IsPageModified(page));

    frame = m_Book->OpenWindow(page);
    page->Destroy();
    EXPECT_TRUE(WaitFor([&] { return !frame; })) << "nothing is left in it";
    EXPECT_TRUE(m_Book->PagesInWindows().empty());
    frame = m_Book->OpenWindow(Page("a"));
    const wxWeakRef<wxWindow> inside(m_Book->PagesInWindows().front());
    m_Book->ClosePage(inside);
    EXPECT_TRUE(WaitFor([&] { return !frame && !inside; }));
    frame = m_Book->OpenWindow(Page("c"));
    EXPECT_EQ("", Look()) << "the last one, too";
    m_Book->Destroy();
    EXPECT_TRUE(WaitFor([&] { return !frame; })) << "goes with the notebook";
}

// To the neighbours of the place that the page came from, and back by use; with real keys.
TEST_F(NotebookTest, KeysLeadFromWindowToWindow)
{
    Add({"a", "b", "c"});
    m_Book->SetSelection(2);
    m_Book->SetSelection(1);
    wxFrame* const      own = m_Book->OpenWindow(Page("b"));
    wxUIActionSimulator keys;
    const struct
    {
        int         key;
        int         modifiers;
        const char* look;
        bool        isOwn;
    } rows[] = {
        {WXK_PAGEUP, wxMOD_CONTROL, "a**c", false},
        {WXK_TAB, wxMOD_CONTROL, "a**c", true},
        {WXK_PAGEDOWN, wxMOD_CONTROL, "ac**", false},
        {WXK_TAB, wxMOD_CONTROL, "ac**", true},
        {WXK_TAB, wxMOD_CONTROL, "ac**", false},
        {WXK_TAB, wxMOD_CONTROL | wxMOD_SHIFT, "a**c", false},
    };
    ASSERT_TRUE(WaitFor([&] { return own->IsActive(); }));
    for (const auto& row : rows)
    {
        SCOPED_TRACE(&row - rows);
        keys.Char(row.key, row.modifiers);
        wxFrame* const front = row.isOwn ? own : Frame();
        EXPECT_TRUE(WaitFor([&] { return Look() == row.look && front->IsActive(); })) << Look();
    }
}

// Whatever had the keys of the frame that it comes back to.
TEST_F(NotebookTest, APageComesBackWithTheKeys)
{
    Add({"a", "b"});
    auto* const field = new wxtButton(Page("b"), wxID_ANY, "Go");
    (new wxtButton(Page("a"), wxID_ANY, "Go"))->SetFocus();
    wxFrame* const own = m_Book->OpenWindow(Page("b"));
    ASSERT_TRUE(WaitFor([&] { return own->IsActive(); }));
    own->Close();
    EXPECT_TRUE(WaitFor([&] { return Frame()->IsActive() && field->HasFocus(); }));
}

// With real keys and a real pointer.
TEST_F(NotebookTest, APagesWindowHasTheKeysOfTheMenus)
{
    Add({"a", "b", "c"});
    auto* const menu = new wxMenu;
    menu->Append(wxID_CLOSE, "Close\tCtrl+W");
    menu->AppendCheckItem(wxID_ICONIZE_FRAME, "Tick\tF11");
    menu->Append(wxID_OPEN, "Open\tCtrl+O")->Enable(false);
    auto* const bar = new wxMenuBar;
    bar->Append(menu, "&Menu");
    Frame()->SetMenuBar(bar);
    std::vector<wxWindow*> used;
    Frame()->Bind(wxEVT_MENU,
                  [&](wxCommandEvent& event)
                  {
                      used.push_back(m_Book->PageInUse());
                      if (event.GetId() == wxID_CLOSE)
                      {
                          m_Book->ClosePage(used.back());
                      }
                  });
    wxWindow* const b = Page("b");
    wxFrame* const  own = m_Book->OpenWindow(b);
    ASSERT_TRUE(WaitFor([&] { return own->IsActive() && b->IsShownOnScreen(); }));
    Press(WXK_F11);
    EXPECT_TRUE(WaitFor([&] { return used.size() == 1; }));
    EXPECT_TRUE(bar->IsChecked(wxID_ICONIZE_FRAME));
    Press('O', wxMOD_CONTROL);
    Press('W', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([&] { return used.size() == 2 && Frame()->IsActive(); }));
    EXPECT_EQ((std::vector<wxWindow*>{b, b}), used) << "what is disabled has no key";
    Press(WXK_F11);
    EXPECT_TRUE(WaitFor([&] { return used.size() == 3; }));
    EXPECT_EQ(m_Book->GetCurrentPage(), used.back());
    EXPECT_FALSE(bar->IsChecked(wxID_ICONIZE_FRAME));
    EXPECT_EQ(2u, m_Book->GetPageCount());

    wxFrame* const other = m_Book->OpenWindow(Page("c"));
    ASSERT_TRUE(WaitFor([&] { return other->IsActive(); }));
    other->SetPosition(wxPoint(700, 100));
    wxWindow* const     tab = other->GetChildren().front();
    wxUIActionSimulator input;
    EXPECT_TRUE(
        WaitFor([&] { return tab->IsShownOnScreen() && tab->GetScreenPosition().x >= 700; }));
    input.MouseMove(tab->GetScreenPosition() + wxPoint(10, 10));
    PumpEvents();
    input.MouseClick(wxMOUSE_BTN_MIDDLE);
    EXPECT_TRUE(WaitFor([&] { return m_Book->PagesInWindows().empty(); }));
    EXPECT_EQ(1u, m_Book->GetPageCount()) << "closed, and not brought back";
}

// Also what is typed with Shift; with real keys.
TEST_F(NotebookTest, ThePageListIsGoneThroughByTyping)
{
    Add({"a", "b_1", "b_2"});
    Page("a")->SetFocus();
    m_Book->ShowPageList();
    for (const auto& [key, modifiers] :
         {std::pair<int, int>('B', 0), {'-', wxMOD_SHIFT}, {'2', 0}, {WXK_RETURN, 0}})
    {
        Press(key, modifiers);
    }
    EXPECT_TRUE(WaitFor([&] { return Look() == "ab_1b_2**"; })) << Look();
}

// A control's mnemonic works in the window that its page is in, and only where it is seen.
TEST_F(NotebookTest, MnemonicsGoWithThePage)
{
    Add({"a", "b"});
    auto* const        inA = new wxtButton(Page("a"), wxID_ANY, "&Go");
    auto* const        inB = new wxtButton(Page("b"), wxID_ANY, "&Go");
    const EventCounter a(inA, wxEVT_BUTTON);
    const EventCounter b(inB, wxEVT_BUTTON);
    inA->SetFocus();
    Press('G', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return a.Count() == 1; }));
    wxFrame* const own = m_Book->OpenWindow(Page("b"));
    ASSERT_TRUE(WaitFor([&] { return own->IsActive(); }));
    Press('G', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return b.Count() == 1; }));
    own->Close();
    ASSERT_TRUE(WaitFor([&] { return Frame()->IsActive() && inB->IsShownOnScreen(); }));
    Press('G', wxMOD_ALT);
    EXPECT_TRUE(WaitFor([&] { return b.Count() == 2; }));
    EXPECT_EQ(a.Count(), 1);
}

// The pointer rests where the next tab comes.
TEST_F(NotebookTest, NoTipOutlivesItsTab)
{
    Add({"a", "b", "c"});
    m_Book->SetPageToolTip(1, "of b");
    m_Book->SetPageToolTip(2, "of c");
    wxAuiTabCtrl* const tabs = m_Book->GetActiveTabCtrl();
    EXPECT_TRUE(WaitFor([&] { return !tabs->GetPage(1).rect.IsEmpty(); }));
    wxPoint             place = tabs->ClientToScreen(tabs->GetPage(1).rect.GetPosition());
    wxUIActionSimulator pointer;
    const auto          shows = [&](const char* tip)
    { return WaitFor([&] { return tabs->GetToolTipText() == tip; }); };
    pointer.MouseMove(place += wxPoint(10, 10));
    EXPECT_TRUE(shows("of b"));
    m_Book->ClosePage(Page("b"));
    EXPECT_TRUE(shows(""));
    pointer.MouseMove(place += wxPoint(1, 0));
    EXPECT_TRUE(shows("of c"));
}

TEST_F(NotebookTest, TheLayoutComesBack)
{
    Add({"a", "b", "c", "d", "e"});
    m_Book->Split(1, wxLEFT);
    m_Book->Split(static_cast<size_t>(m_Book->FindPage(Page("c"))), wxBOTTOM);
    m_Book->MovePage(Page("e"), 0);
    m_Book->OpenWindow(Page("d"));
    m_Book->SetSelection(static_cast<size_t>(m_Book->FindPage(Page("a"))));
    PumpEvents();
    const std::string look = Look();
    EXPECT_EQ("b* c* ea**", look);
    const wxRect b = Page("b")->GetRect();
    const wxRect c = Page("c")->GetRect();
    EXPECT_LT(b.x, c.x);
    m_Book->SaveLayout("Book");
    Open();
    EXPECT_FALSE(m_Book->LoadLayout("Another"));
    Add({"e", "d", "c", "b", "a"});
    EXPECT_TRUE(m_Book->LoadLayout("Book"));
    PumpEvents();
    EXPECT_EQ(look, Look());
    EXPECT_EQ(b, Page("b")->GetRect());
    EXPECT_EQ(c, Page("c")->GetRect());
    EXPECT_EQ(1u, m_Book->PagesInWindows().size());
    Application::the_Application->Options().SetValue("Book", "Tabs", "tabs1 / bad");
    EXPECT_FALSE(m_Book->LoadLayout("Book"));
    EXPECT_EQ(look, Look());
}

TEST_F(NotebookTest, TheActiveTabIsClearInEveryScheme)
{
    Add({"a"});
    const wxAuiNotebookPage page = m_Book->GetActiveTabCtrl()->GetPage(0);
    const wxSize            size(100, 30);
    const auto              accents = [&](bool active)
    {
        const wxColour accent = wxtGetColor(color_Selected);
        const wxImage  image = Drawn(size, *wxBLACK,
                                     [&](wxMemoryDC& dc)
                                     {
                                        wxAuiNotebookPage drawn = page;
                                        drawn.active = active;
                                        wxRect tab;
                                        wxRect slot;
                                        int    extent = 0;
                                        m_Book->GetArtProvider()->DrawTab(
                                             dc, m_Book->GetActiveTabCtrl(), drawn, wxRect(size),
                                             wxAUI_BUTTON_STATE_NORMAL, &tab, &slot, &extent);
                                    });
        return CountPixels(image, [&](const wxColour& colour) { return Near(colour, accent, 2); });
    };
    for (const int scheme : {scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker})
    {
        SCOPED_TRACE(scheme);
        SetColors(scheme);
        EXPECT_GT(accents(true), 30);
        EXPECT_EQ(0, accents(false));
        m_Book->Disable();
        EXPECT_EQ(0, accents(true));
        m_Book->Enable();
    }
}

TEST_F(NotebookTest, ManyPagesAreQuick)
{
    const wxStopWatch adding;
    for (int i = 0; i < kTabs; ++i)
    {
        m_Book->AddPage(new wxtPanel(m_Book), wxString::Format("A page with the number %d", i));
    }
    PumpEvents();
    const long        added = adding.Time();
    const wxStopWatch switching;
    for (int i = 0; i < kTabs; ++i)
    {
        m_Book->SetSelection(static_cast<size_t>(i * 7 % kTabs));
        PumpEvents();
    }
    const long switched = switching.Time();
    RecordProperty("added_ms", static_cast<int>(added));
    RecordProperty("switched_us", static_cast<int>(switched * 1000 / kTabs));
    // Far beyond what is seen, for machines that are busy; four times as many pages would exceed it
    // if the work grew with their square.
    EXPECT_LT(added, 4000);
    EXPECT_LT(switched / kTabs, 64);
}
