#include "tests/hands/HandsTest.h"

#include "appearance/wxTolvanColors.h"
#include "listviews/wxDBListBody.h"
#include "listviews/wxtListCtrl.h"
#include "tests/support/TestApp.h"

#include <wx/combo.h>
#include <wx/control.h>
#include <wx/ctrlsub.h>
#include <wx/dialog.h>
#include <wx/eventfilter.h>
#include <wx/listbase.h>
#include <wx/textctrl.h>

#include <array>
#include <dlfcn.h>
#include <sstream>

namespace
{
// The first member of every event of the toolkit below, and the kinds that are waited for. Its
// headers need not be installed.
enum Kind
{
    kind_Press = 4,
    kind_Release = 7,
    kind_KeyRelease = 9,
    kind_Scroll = 31,
    kind_Count = 64
};
std::array<int, kind_Count> g_Seen; // events of each kind that have been handled

template <class Function> Function Symbol(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

void OnToolkitEvent(void* event, void*)
{
    static const auto handle = Symbol<void (*)(void*)>("gtk_main_do_event");
    const int         kind = *static_cast<const int*>(event);
    handle(event);
    if (kind >= 0 && kind < kind_Count)
    {
        ++g_Seen[static_cast<size_t>(kind)];
    }
}

void WatchToolkitEvents()
{
    using Handler = void (*)(void* event, void* data);
    const auto set =
        Symbol<void (*)(Handler, void* data, void (*notify)(void*))>("gdk_event_handler_set");
    ASSERT_TRUE(set);
    set(OnToolkitEvent, nullptr, nullptr);
}

int& Seen(Kind kind)
{
    return g_Seen[kind];
}

// Does something that causes events of that kind, as many as it says, and waits until they are
// handled.
void Await(Kind kind, const std::string& what, const std::function<int()>& action)
{
    const int before = Seen(kind);
    const int count = action();
    EXPECT_TRUE(count > 0 && WaitFor([=] { return Seen(kind) >= before + count; }))
        << "nobody got the " << what;
    PumpEvents();
}

const struct
{
    wxEventTypeTag<wxCommandEvent> type;
    const char*                    name;
    bool                           hasItem;
} kHeard[] = {
    {wxEVT_BUTTON, "button", false},
    {wxEVT_CHECKBOX, "check", true},
    {wxEVT_RADIOBUTTON, "radio", false},
    {wxEVT_CHOICE, "choice", true},
    {wxEVT_COMBOBOX, "combo", true},
    {wxEVT_COMBOBOX_DROPDOWN, "open", false},
    {wxEVT_COMBOBOX_CLOSEUP, "close", false},
    {wxEVT_CHECKLISTBOX, "tick", true},
    {wxEVT_LISTBOX, "row", true},
    {wxEVT_LISTBOX_DCLICK, "rowdouble", true},
    {wxEVT_TEXT_ENTER, "enter", false},
};

const struct
{
    wxEventTypeTag<wxListEvent> type;
    const char*                 name;
} kHeardOfLists[] = {
    {wxEVT_LIST_ITEM_SELECTED, "select"},
    {wxEVT_LIST_ITEM_DESELECTED, "deselect"},
    {wxEVT_LIST_ITEM_ACTIVATED, "open"},
    {wxEVT_LIST_ITEM_RIGHT_CLICK, "right"},
};
// The third one.
wxRect RowOnScreen(wxtListCtrl& list)
{
    const wxRect row = list.GetBody()->GetItemRect(2);
    return {list.GetBody()->ClientToScreen(row.GetPosition()), row.GetSize()};
}

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
    WatchToolkitEvents();
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
    if (m_Frame)
    {
        m_Frame->Destroy();
        ASSERT_TRUE(WaitFor([this] { return !m_Frame; }));
    }
    m_Frame = new GalleryFrame;
    for (const auto& heard : kHeard)
    {
        m_Frame->Bind(heard.type,
                      [this, heard](wxCommandEvent& event) {
                          OnHeard(event,
                                  heard.name + (heard.hasItem ? std::to_string(event.GetInt())
                                                              : std::string()));
                      });
    }
    for (const auto& heard : kHeardOfLists)
    {
        m_Frame->Bind(heard.type, [this, heard](wxListEvent& event)
                      { OnHeard(event, heard.name + std::to_string(event.GetIndex())); });
    }
    First<wxtListCtrl>()->SetName("list");
    m_Frame->Show();
    ASSERT_TRUE(WaitFor([this] { return m_Frame->IsShownOnScreen() && m_Frame->IsActive(); }));
    PumpEvents();
    Do(m_Frame, "leave");
    m_Heard.clear();
}

void HandsTest::OnHeard(wxEvent& event, const std::string& what)
{
    m_Heard += what + " ";
    const auto then = std::exchange(m_Then, nullptr);
    event.Skip(!then); // the toolkit would go on with a control that has gone
    if (then)
    {
        then();
    }
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
    Await(press ? kind_Press : kind_Release, press ? "press" : "release",
          [&]
          {
              m_Hand.Button(button, press);
              return 1;
          });
}

void HandsTest::Press(const std::string& key)
{
    Await(kind_KeyRelease, key, [&] { return m_Hand.Key(key); });
}

void HandsTest::Notch(bool down)
{
    Await(kind_Scroll, "notch",
          [&]
          {
              m_Hand.Notch(down);
              return 1;
          });
}

void HandsTest::Clicks(int count)
{
    Await(kind_Release, "clicks",
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
        }
        else if (!DoWord(weak, word))
        {
            Press(word);
        }
    }
}

bool HandsTest::DoWord(wxWindow* control, const std::string& word)
{
    const auto middle = [&]
    {
        auto* const  list = dynamic_cast<wxtListCtrl*>(control);
        const wxRect place = list ? RowOnScreen(*list) : control->GetScreenRect();
        return place.GetPosition() + wxPoint(place.width / 2 + m_Aside, place.height / 2);
    };
    const std::pair<const char*, std::function<void()>> deeds[] = {
        {"enter", [&] { MoveTo(middle()); }},
        {"leave", [&] { MoveTo(m_Frame->GetScreenPosition() + wxPoint(4, 60)); }},
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
             MoveTo(middle());
             Clicks(1);
         }},
        {"double", [&] { Clicks(2); }},
        {"triple", [&] { Clicks(3); }},
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
        {"dialog", [&] { RunDialog(*m_Frame); }},
        {"refill", [&] { Refill(control); }},
        {"theme",
         []
         {
             SetColors(g_Scheme == scheme_Dark ? scheme_Lighter : scheme_Dark);
             wxTolvanFrame::ProcessColorChange();
         }},
    };
    for (const auto& [name, deed] : deeds)
    {
        if (word == name)
        {
            deed();
            PumpEvents();
            return true;
        }
    }
    return false;
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
