#include "tests/hands/HandsTest.h"

#include "appearance/wxExpandablePanel.h"
#include "appearance/wxTolvanColors.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtNotebook.h"
#include "jobwidgets/JobSelector.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxDBListHeader.h"
#include "listviews/wxDBTreeListCtrl.h"
#include "listviews/wxtListCtrl.h"
#include "tests/support/EventCounter.h"
#include "tests/support/TestApp.h"
#include "textviews/wxTextLineCtrl.h"
#include "vesta/Application.h"

#include <wx/combo.h>
#include <wx/control.h>
#include <wx/ctrlsub.h>
#include <wx/dialog.h>
#include <wx/eventfilter.h>
#include <wx/listbase.h>
#include <wx/textctrl.h>
#include <wx/timer.h>

#include <gtk/gtk.h>

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

namespace
{
std::map<int, int> g_Seen; // events of each kind that have been handled

void OnToolkitEvent(GdkEvent* event, void*)
{
    const int kind = event->type;
    gtk_main_do_event(event);
    ++g_Seen[kind];
}

// Does something that causes events of that kind, as many as it says, and waits until they are
// handled.
void Await(GdkEventType kind, const std::string& what, const std::function<int()>& action)
{
    const int before = g_Seen[kind];
    const int count = action();
    EXPECT_TRUE(count > 0 && WaitFor([=] { return g_Seen[kind] >= before + count; }))
        << "nobody got the " << what;
    PumpEvents();
}

// Whether the port has put the control where the toolkit has: it may do so a frame later.
bool IsInPlace(const wxWindow* control)
{
    GtkAllocation place;
    gtk_widget_get_allocation(control->GetHandle(), &place);
    return !control->IsShown() || control->GetPosition() == wxPoint(place.x, place.y);
}

// Whether a scrollbar of the view is about to come or to go, which follows the view's size a moment
// later and takes along what stands beside it.
bool IsScrollbarDue(const wxWindow* window)
{
    constexpr int     kRoom = 64; // pixels: smaller views have none
    const auto* const view = dynamic_cast<const wxDoubleBufferedWindow*>(window);
    if (!view || !view->IsShownOnScreen() || view->GetSize().x < kRoom || view->GetSize().y < kRoom)
    {
        return false;
    }
    const auto isDue = [view](int orientation)
    {
        const bool isNeeded = view->GetScrollRange(orientation) > view->GetScrollThumb(orientation);
        const bool isThere = view->wxWindow::GetScrollRange(orientation) >
                             view->wxWindow::GetScrollThumb(orientation);
        return isNeeded != isThere;
    };
    return isDue(wxHORIZONTAL) || isDue(wxVERTICAL);
}

bool IsAnyScrollbarDueIn(const wxWindow* window)
{
    const wxWindowList& children = window->GetChildren();
    return IsScrollbarDue(window) ||
           std::any_of(children.begin(), children.end(), IsAnyScrollbarDueIn);
}

enum Number
{
    kNone,
    kItem,
    kColumn,
    kOnlyThen // so frequent that only a handler of it is of interest
};

const struct
{
    wxEventType type;
    const char* name;
    Number      number = kNone;
} kHeard[] = {
    {wxEVT_BUTTON, "button"},
    {wxEVT_CHECKBOX, "check", kItem},
    {wxEVT_RADIOBUTTON, "radio"},
    {wxEVT_CHOICE, "choice", kItem},
    {wxEVT_COMBOBOX, "combo", kItem},
    {wxEVT_COMBOBOX_DROPDOWN, "open"},
    {wxEVT_COMBOBOX_CLOSEUP, "close"},
    {wxEVT_CHECKLISTBOX, "tick", kItem},
    {wxEVT_LISTBOX, "row", kItem},
    {wxEVT_LISTBOX_DCLICK, "rowdouble", kItem},
    {wxEVT_TEXT_ENTER, "enter"},
    {wxEVT_TEXT, "text", kOnlyThen},
    {wxEVT_LIST_ITEM_SELECTED, "select", kItem},
    {wxEVT_LIST_ITEM_DESELECTED, "deselect", kItem},
    {wxEVT_LIST_ITEM_ACTIVATED, "open", kItem},
    {wxEVT_LIST_ITEM_RIGHT_CLICK, "right", kItem},
    {wxEVT_TREELIST_ITEM_EXPANDING, "expanding", kItem},
    {wxEVT_TREELIST_ITEM_EXPANDED, "expanded", kItem},
    {wxEVT_LIST_COL_CLICK, "title", kColumn},
    {wxEVT_LIST_COL_RIGHT_CLICK, "titleright", kColumn},
    {wxEVT_LIST_COL_BEGIN_DRAG, "begin", kColumn},
    {wxEVT_LIST_COL_END_DRAG, "end", kColumn},
    {wxtEVT_LIST_COLUMNS, "columns", kColumn},
    {wxtEVT_JOB_SELECTION, "jobs"},
    {wxtEVT_JOBS_PICKED, "picked"},
    {wxEVT_AUINOTEBOOK_PAGE_CHANGED, "page", kItem},
    {wxEVT_AUINOTEBOOK_PAGE_CLOSE, "closing", kItem},
    {wxEVT_AUINOTEBOOK_BEGIN_DRAG, "drag", kItem},
    {wxEVT_AUINOTEBOOK_DRAG_DONE, "moved", kItem},
    {wxEVT_AUINOTEBOOK_TAB_RIGHT_DOWN, "tabright", kItem},
    {wxtEVT_TEXT_FOLLOW, "follow", kItem},
    {wxtEVT_TEXT_SIZE, "size", kItem},
};

void RunDialog(wxTopLevelWindow& parent)
{
    wxDialog dialog(&parent, wxID_ANY, "A question");
    dialog.CallAfter(
        [&]
        {
            EXPECT_TRUE(WaitFor([&] { return dialog.IsActive(); }));
            dialog.EndModal(wxID_OK);
        });
    dialog.ShowModal();
    EXPECT_TRUE(WaitFor([&] { return parent.IsActive(); }));
}

void Refill(wxWindow* control)
{
    if (auto* const list = dynamic_cast<wxtListCtrl*>(control))
    {
        list->Clear();
        list->InsertItem(0, "Another");
    }
    else if (auto* const items = dynamic_cast<wxItemContainer*>(control))
    {
        items->Clear();
        items->Append("Another");
    }
}
} // namespace

// Sees which window a key comes to first.
class HandsTest::KeyWatch : public wxEventFilter
{
public:
    KeyWatch() { wxEvtHandler::AddFilter(this); }
    ~KeyWatch() override { wxEvtHandler::RemoveFilter(this); }
    int FilterEvent(wxEvent& event) override
    {
        if (event.GetEventType() != wxEVT_CHAR_HOOK)
        {
            return Event_Skip;
        }
        m_Window = m_Window ? m_Window : dynamic_cast<wxWindow*>(event.GetEventObject());
        return Event_Processed;
    }

    wxWindow* m_Window = nullptr;
};

HandsTest::HandsTest()
{
    EXPECT_TRUE(m_Hand.IsThere());
    gdk_event_handler_set(OnToolkitEvent, nullptr, nullptr);
    TestApp::Get().ForgetOptions();
    SetColors(scheme_Dark);
    Open();
}

HandsTest::~HandsTest()
{
    if (m_Frame)
    {
        m_Frame->Destroy();
    }
    WaitFor([this] { return !m_Frame; });
    TestApp::Get().ForgetOptions();
}

void HandsTest::Open()
{
    m_Then = nullptr;
    if (m_Frame)
    {
        m_Frame->Destroy();
        ASSERT_TRUE(WaitFor([this] { return !m_Frame; }));
    }
    Application::the_Application->Options().ClearSection(JobSelector::k_Section);
    m_Frame = new GalleryFrame;
    Listen(*m_Frame, false);
    First<wxtListCtrl>()->SetName("list");
    First<wxDBTreeListCtrl>()->SetName("tree");
    First<wxTextLineCtrl>()->SetName("lines");
    First<JobSelector>()->SetName("jobs");
    First<wxtNotebook>()->SetName("book");
    m_Frame->FindWindow(wxExpandablePanel::id_Expand)->SetName("expander");
    m_Frame->Show();
    ASSERT_TRUE(WaitFor([this] { return m_Frame->IsShownOnScreen() && m_Frame->IsActive(); }));
    m_Page = m_Frame->GetChildren().back();
    Settle();
    Do(m_Frame, "leave");
    m_Heard.clear();
}

// The toolkit lays out, and then moves the controls, the next times that it draws. Here they are
// where they are to be once what they lie in has been painted.
void HandsTest::Settle()
{
    m_Moves = false;
    if (m_Page && m_Page->IsShownOnScreen())
    {
        const EventCounter painted(m_Page, wxEVT_PAINT);
        m_Page->Layout();
        m_Page->Refresh();
        EXPECT_TRUE(WaitFor([&] { return painted.Count() > 0; }));
        EXPECT_TRUE(WaitFor([this] { return !IsAnyScrollbarDueIn(m_Page); }));
    }
    PumpEvents();
}

void HandsTest::Listen(wxEvtHandler& at, bool onlyThen)
{
    for (const auto& heard : kHeard)
    {
        const auto listen = [this, heard, onlyThen](wxCommandEvent& event)
        {
            const auto* const inList = dynamic_cast<wxListEvent*>(&event);
            const auto* const ofPage = dynamic_cast<wxBookCtrlEvent*>(&event);
            const long        number = heard.number == kColumn ? inList->GetColumn()
                                       : inList                ? inList->GetIndex()
                                       : ofPage                ? ofPage->GetSelection()
                                                               : event.GetInt();
            const bool        counts = heard.number == kItem || heard.number == kColumn;
            if (m_Then || !(onlyThen || heard.number == kOnlyThen))
            {
                OnHeard(event, heard.name + (counts ? std::to_string(number) : std::string()));
            }
            else
            {
                event.Skip();
            }
        };
        at.Bind(wxEventTypeTag<wxCommandEvent>(heard.type), listen);
    }
}

void HandsTest::OnHeard(wxEvent& event, const std::string& what)
{
    m_Heard += what + " ";
    const auto then = std::exchange(m_Then, nullptr);
    // The toolkit would go on with a control that has gone, and a list or a notebook with a menu,
    // which waits for the hand that waits here.
    event.Skip(!then && event.GetEventType() != wxEVT_LIST_COL_RIGHT_CLICK &&
               event.GetEventType() != wxEVT_AUINOTEBOOK_TAB_RIGHT_DOWN);
    if (then)
    {
        then();
    }
}

wxDBTreeListCtrl* TreeOf(wxWindow* control)
{
    if (!dynamic_cast<JobSelector*>(control))
    {
        return dynamic_cast<wxDBTreeListCtrl*>(control);
    }
    const wxWindowList& parts = control->GetChildren();
    return parts.size() < 3 ? nullptr : dynamic_cast<wxDBTreeListCtrl*>(parts[2]);
}

wxWindow* HandsTest::FirstOf(const std::function<bool(wxWindow*)>& is) const
{
    std::vector<wxWindow*> waiting{m_Frame};
    for (size_t i = 0; i < waiting.size(); ++i)
    {
        if (is(waiting[i]))
        {
            return waiting[i];
        }
        waiting.insert(waiting.end(), waiting[i]->GetChildren().begin(),
                       waiting[i]->GetChildren().end());
    }
    ADD_FAILURE() << "the gallery has no such control";
    return nullptr;
}

wxWindow* HandsTest::Named(const wxString& name) const
{
    return FirstOf(
        [&](wxWindow* each)
        {
            const auto* const text = dynamic_cast<wxTextEntryBase*>(each);
            return (text ? text->GetValue() : wxControl::RemoveMnemonics(each->GetLabel())) ==
                       name ||
                   each->GetName() == name;
        });
}

void HandsTest::MoveTo(const wxPoint& screen)
{
    m_Hand.Move(screen.x, screen.y);
    PumpEvents();
}

void HandsTest::Button(int button, bool press)
{
    Await(press ? GDK_BUTTON_PRESS : GDK_BUTTON_RELEASE, press ? "press" : "release",
          [&]
          {
              m_Hand.Button(button, press);
              return 1;
          });
}

void HandsTest::Press(const std::string& key)
{
    Await(GDK_KEY_RELEASE, key, [&] { return m_Hand.Key(key); });
}

void HandsTest::Notch(bool down)
{
    Await(GDK_SCROLL, "notch",
          [&]
          {
              m_Hand.Notch(down);
              return 1;
          });
}

void HandsTest::Clicks(int count)
{
    Await(GDK_BUTTON_RELEASE, "clicks",
          [=]
          {
              m_Hand.Clicks(m_MouseButton, count);
              return count;
          });
    StepAside();
}

void HandsTest::Do(wxWindow* control, const std::string& words)
{
    const wxWeakRef<wxWindow> weak(control);
    std::istringstream        stream(words);
    for (std::string word; stream >> word;)
    {
        if (word == "then")
        {
            stream >> word;
            m_Then = [=] { DoWord(weak, word); };
            if (dynamic_cast<wxExpandablePanel*>(control->GetParent()))
            {
                Listen(*control, true); // the panel keeps the clicks on its header
            }
            if (word == "throw")
            {
                std::getline(stream, word);
                DoInMainLoop(weak, word);
            }
        }
        else if (!DoWord(weak, word))
        {
            Press(word);
        }
    }
}

// An exception is brought to the program's main loop: one runs until the words are obeyed.
void HandsTest::DoInMainLoop(wxWindow* control, const std::string& words)
{
    TestApp& app = TestApp::Get();
    bool     arrived = false;
    app.m_OnException = [&](Exception*)
    {
        arrived = true;
        return false;
    };
    app.CallAfter(
        [&]
        {
            Do(control, words);
            app.ExitMainLoop();
        });
    app.OnRun();
    app.m_OnException = nullptr;
    EXPECT_TRUE(arrived);
}

wxPoint HandsTest::PlaceOf(wxWindow* control, const std::string& word) const
{
    constexpr int kBeside = 60; // pixels off the edge of a column
    constexpr int kFar = 400;
    constexpr int kBelow = 8;   // pixels, in the first row of an open list
    constexpr int kInText = 70; // pixels, right of the numbers of lines
    const auto    middle = [this](const wxRect& place)
    { return place.GetPosition() + wxPoint(place.width / 2 + m_Aside, place.height / 2); };
    const auto inClient = [](wxWindow* window, const wxRect& place)
    { return wxRect(window->ClientToScreen(place.GetPosition()), place.GetSize()); };
    auto* const list = dynamic_cast<wxtListCtrl*>(control);
    auto* const checks = dynamic_cast<wxtCheckListBox*>(control);
    if (list && word != "enter")
    {
        const int    left = list->GetColumn(0).width;
        const int    width = list->GetColumn(1).width;
        const wxRect header = list->GetHeader()->GetScreenRect();
        const int    edge = left + width;
        const int    across = word == "title"   ? left + width / 2 + m_Aside
                              : word == "edge"  ? edge
                              : word == "wider" ? edge + kBeside
                                                : edge - kFar;
        return header.GetPosition() + wxPoint(across, header.height / 2);
    }
    if (auto* const book = dynamic_cast<wxtNotebook*>(control); book && word != "below")
    {
        wxAuiTabCtrl* const      tabs = book->GetActiveTabCtrl();
        const wxAuiNotebookPage& page = tabs->GetPage(word == "enter"   ? 0
                                                      : word == "wider" ? 2
                                                                        : 1);
        const auto&              art = static_cast<wxtTabArt&>(*tabs->GetArtProvider());
        return middle(
            inClient(tabs, word == "box" ? art.SlotIn(*tabs, page, page.rect) : page.rect));
    }
    if (word == "below")
    {
        return control->GetScreenRect().GetBottomLeft() + wxPoint(kBeside + m_Aside, kBelow);
    }
    if (const auto* const text = dynamic_cast<wxTextLineCtrl*>(control))
    {
        const int height = text->GetScrollRange(wxVERTICAL) / std::max(text->GetLineCount(), 1);
        const int line = word == "title" ? 0 : word == "enter" ? 2 : 4;
        return text->ClientToScreen(wxPoint(kInText + m_Aside, line * height + height / 2));
    }
    if (const auto* const tree = TreeOf(control))
    {
        const wxRect cell = tree->GetBody()->GetCellRect(word == "box" ? 0 : 2, 0);
        return tree->GetBody()->ClientToScreen(word == "box" ? cell.GetTopLeft() + wxPoint(9, 9)
                                                             : middle(cell));
    }
    if (word == "box")
    {
        return middle(inClient(checks, checks->GetBoxRect(2)));
    }
    return middle(list ? inClient(list->GetBody(), list->GetBody()->GetItemRect(2))
                       : control->GetScreenRect());
}

// What came or went makes room for its neighbours, or takes it: none is aimed at while it moves.
void HandsTest::Aim(wxWindow* control, const std::string& word)
{
    if (m_Moves)
    {
        Settle();
        const wxWeakRef<wxWindow> aimed(control);
        EXPECT_TRUE(WaitFor([&] { return !aimed || IsInPlace(aimed); }));
    }
    MoveTo(PlaceOf(control, word));
}

bool HandsTest::DoWord(wxWindow* control, const std::string& word)
{
    constexpr int     kPause = 250; // ms, until no timer of the toolkit waits for the next key
    const std::string page = "page-";
    if (word.compare(0, page.size(), page) == 0)
    {
        return DoWord(control->GetParent(), word.substr(page.size()));
    }
    static const std::set<std::string> kPlaces = {"enter",    "title", "edge", "wider",
                                                  "narrower", "box",   "below"};
    if (kPlaces.count(word) > 0)
    {
        Aim(control, word);
        return true;
    }
    const std::map<std::string, std::function<void()>> deeds = {
        // A motion out of a window may be no more than a crossing; a hand's is not the last one.
        {"leave",
         [&]
         {
             MoveTo(m_Frame->GetScreenPosition() + wxPoint(4, 61));
             MoveTo(m_Frame->GetScreenPosition() + wxPoint(4, 60));
         }},
        {"middle", [&] { m_MouseButton = 2; }},
        {"right", [&] { m_MouseButton = 3; }},
        {"press", [&] { Button(m_MouseButton, true); }},
        {"release",
         [&]
         {
             Button(m_MouseButton, false);
             m_MouseButton = 1;
             StepAside();
         }},
        {"click",
         [&]
         {
             Aim(control, "enter");
             Clicks(1);
         }},
        {"double", [&] { Clicks(2); }},
        {"notch+", [&] { Notch(true); }},
        {"notch-", [&] { Notch(false); }},
        {"disable", [&] { control->Disable(); }},
        {"enable", [&] { control->Enable(); }},
        {"hide", [&] { control->Hide(); }},
        {"show", [&] { control->Show(); }},
        {"destroy", [&] { control->Destroy(); }},
        {"focus", [&] { control->SetFocus(); }},
        {"opened", [&] { EXPECT_TRUE(WaitFor([&] { return m_Hand.SeesPopUp(); })); }},
        {"closed", [&] { EXPECT_TRUE(WaitFor([&] { return !m_Hand.SeesPopUp(); })); }},
        {"later",
         []
         {
             wxTimer pause;
             pause.StartOnce(kPause);
             EXPECT_TRUE(WaitFor([&] { return !pause.IsRunning(); }));
         }},
        {"shut",
         [&]
         {
             if (m_Hand.SeesPopUp())
             {
                 Do(control, "Escape closed");
             }
         }},
        {"held", [] { EXPECT_TRUE(WaitFor([] { return wxWindow::GetCapture(); })); }},
        {"freed", [] { EXPECT_TRUE(WaitFor([] { return !wxWindow::GetCapture(); })); }},
        {"dialog", [&] { RunDialog(*m_Frame); }},
        {"refill", [&] { Refill(control); }},
        {"throw", [] { throw std::runtime_error("thrown on purpose"); }},
        {"theme",
         []
         {
             SetColors(g_Scheme == scheme_Dark ? scheme_Lighter : scheme_Dark);
             wxTolvanFrame::ProcessColorChange();
         }},
    };
    const auto deed = deeds.find(word);
    if (deed == deeds.end())
    {
        return false;
    }
    m_Moves = m_Moves || word == "hide" || word == "show" || word == "destroy";
    deed->second();
    PumpEvents();
    return true;
}

wxWindow* HandsTest::WhoHasTheKeys()
{
    const KeyWatch watch;
    Press("F9");
    return watch.m_Window;
}

bool HandsTest::HasTheKeys(const wxWindow* control)
{
    const wxWindow* const has = WhoHasTheKeys();
    return has && (has == control || control->IsDescendant(const_cast<wxWindow*>(has)));
}

std::string HandsTest::Heard()
{
    const std::string heard = m_Heard.substr(0, m_Heard.find_last_not_of(' ') + 1);
    m_Heard.clear();
    return heard;
}
