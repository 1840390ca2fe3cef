#include "appearance/wxTolvanColors.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtGenericValidator.h"
#include "appearance/wxtTextCtrl.h"
#include "internal/port/Completions.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"
#include "tests/support/TestApp.h"
#include "tolvan/ClientOptions.h"

#include <wx/uiaction.h>

#include <tuple>

namespace
{
// Counts those that are alive.
class Counted : public wxClientData
{
public:
    Counted() { ++s_Alive; }
    ~Counted() override { --s_Alive; }
    static inline int s_Alive = 0;
};

// A panel for the input controls, and real keys.
class InputsTest : public FrameTest
{
protected:
    InputsTest() : m_Panel(new wxtPanel(Frame())) { m_Panel->SetSize(Frame()->GetClientSize()); }

    static wxArrayString Items()
    {
        wxArrayString items;
        items.Add("Alpha");
        items.Add("beta");
        items.Add("bravo");
        items.Add("two\nlines\tand & more");
        items.Add(wxString('W', 10000));
        return items;
    }
    wxtChoice* AddChoice()
    {
        return new wxtChoice(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 24), Items());
    }
    void Focus(wxWindow* window)
    {
        window->SetFocus();
        ASSERT_TRUE(WaitFor([=] { return window->HasFocus(); }));
        PumpEvents();
    }
    void Press(int key, int modifiers = 0)
    {
        m_Input.Char(key, modifiers);
        PumpEvents();
    }
    static void SwitchTo(int scheme, wxWindow* top)
    {
        SetColors(scheme);
        wxSysColourChangedEvent event;
        top->ProcessWindowEvent(event);
    }

    wxUIActionSimulator m_Input;
    wxtPanel*           m_Panel;
};
} // namespace

TEST_F(InputsTest, OpenListsFollowTheScheme)
{
    auto* const field = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 60), wxSize(200, -1));
    const auto  expectGround = [&](const wxWindow* control)
    {
        // In the second item.
        const wxPoint at = control->ClientToScreen(wxPoint(150, control->GetSize().y * 5 / 2));
        for (const int scheme : {scheme_Dark, scheme_Light})
        {
            SwitchTo(scheme, Frame());
            const wxColour ground = wxtGetColor(color_WindowBGLighter);
            EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOfScreen(), at.x, at.y) == ground; }))
                << control->GetName() << scheme << Kept(PictureOfScreen(), "list");
        }
    };
    auto* const choice = AddChoice();
    Focus(choice);
    Press(WXK_F4);
    ASSERT_TRUE(WaitFor([=] { return choice->IsPopupShown(); }));
    expectGround(choice);
    Press(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([=] { return !choice->IsPopupShown(); }));
    Focus(field);
    const auto opened = [&]
    {
        Press('O');
        return WaitFor(internal::CompletionsAreOpen, 500);
    };
    ASSERT_TRUE(WaitFor(opened));
    expectGround(field);
}

TEST_F(InputsTest, TabLeavesAFieldWhoseCompletionsAreOpen)
{
    auto* const field = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 10), wxSize(200, -1));
    auto* const next = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 60), wxSize(200, -1));
    for (const auto& [from, to, modifiers] :
         {std::make_tuple(field, next, 0), std::make_tuple(next, field, int{wxMOD_SHIFT})})
    {
        Focus(from);
        const auto opened = [&, from = from]
        {
            Press('O');
            return WaitFor(internal::CompletionsAreOpen, 500);
        };
        ASSERT_TRUE(WaitFor(opened));
        Press(WXK_TAB, modifiers);
        EXPECT_TRUE(
            WaitFor([to = to] { return to->HasFocus() && !internal::CompletionsAreOpen(); }));
    }
}

TEST_F(InputsTest, FieldCompletesNothingWhereStyleOrOptionsForbid)
{
    const struct
    {
        long        style;
        const char* option;
    } cases[] = {{wxTE_PASSWORD, "Yes"}, {wxTE_MULTILINE, "Yes"}, {0, "No"}};
    for (const auto& one : cases)
    {
        TestApp::Get().Options().SetValue("Window", o_AutoComplete, one.option);
        auto* const field =
            new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 10), wxSize(200, 40), one.style);
        Focus(field);
        Press('O');
        ASSERT_TRUE(WaitFor([&] { return field->GetValue() == "o"; })) << field->GetValue();
        EXPECT_FALSE(WaitFor(internal::CompletionsAreOpen, 300)) << one.style << one.option;
        field->Destroy();
    }
}

TEST_F(InputsTest, EveryStateHasTheColoursOfTheScheme)
{
    auto* const field = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 60), wxSize(200, 24));
    auto* const fixed =
        new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 90), wxSize(200, 24), wxTE_READONLY);
    auto* const disabled =
        new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 120), wxSize(200, 24));
    disabled->Disable();
    auto* const combo = new wxtComboBox(m_Panel, wxID_ANY, "", wxPoint(10, 150), wxSize(200, 24));
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 180), wxSize(200, 60));
    auto* const choice = AddChoice();
    Focus(choice);
    for (const int scheme : {scheme_Dark, scheme_Lighter})
    {
        SwitchTo(scheme, Frame());
        const wxColour ground = wxtGetColor(color_WindowBGLighter);
        for (wxWindow* const control :
             {static_cast<wxWindow*>(field), static_cast<wxWindow*>(fixed),
              static_cast<wxWindow*>(combo), static_cast<wxWindow*>(list),
              static_cast<wxWindow*>(choice)})
        {
            EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(control), 100, 12) == ground; }))
                << scheme << control->GetName() << Kept(PictureOf(control), "input");
        }
        EXPECT_TRUE(WaitFor(
            [&] {
                return PixelAt(PictureOf(disabled), 100, 12) == wxtGetColor(color_WindowBGDarker);
            }));
        const wxImage picture = PictureOf(choice);
        EXPECT_EQ(wxtGetColor(color_ButtonFace), PixelAt(picture, 198, 2)) << scheme;
        EXPECT_EQ(wxtGetColor(color_Selected), PixelAt(picture, 0, 12)) << "the focus's frame";
    }
}

TEST_F(InputsTest, SortedCheckListFindsWhatIsTypedAndKeepsItsTicks)
{
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 150),
                                           Items(), wxLB_SORT);
    Focus(list);
    Press('B');
    Press('R');
    ASSERT_TRUE(WaitFor([=] { return list->GetStringSelection() == "bravo"; }));
    list->Check(static_cast<unsigned>(list->GetSelection()));
    list->Check(1000);
    list->Delete(0);
    wxArrayInt checked;
    ASSERT_EQ(1u, list->GetCheckedItems(checked));
    EXPECT_EQ("bravo", list->GetString(static_cast<unsigned>(checked[0])));
    EXPECT_EQ("bravo", list->GetStringSelection());
}

TEST_F(InputsTest, CheckListStaysWhereItIsWhenItemsComeAndGo)
{
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 60), wxSize(200, 100));
    Focus(list);
    for (const int key : {WXK_HOME, WXK_END, WXK_PAGEUP, WXK_PAGEDOWN, WXK_UP, WXK_SPACE})
    {
        Press(key);
    }
    EXPECT_EQ(wxNOT_FOUND, list->GetSelection()) << "it is empty";
    for (int i = 0; i < 30; ++i)
    {
        list->Append(wxString::Format("item %d", i));
    }
    list->SetSelection(29);
    Press(WXK_PAGEUP);
    ASSERT_TRUE(WaitFor([&] { return list->GetSelection() < 28; }));
    Press(WXK_PAGEDOWN);
    ASSERT_TRUE(WaitFor([&] { return list->GetSelection() == 29; }));
    const size_t first = list->GetVisibleRowsBegin();
    list->Append("more");
    list->Delete(28);
    EXPECT_EQ(first, list->GetVisibleRowsBegin());
    EXPECT_EQ(28, list->GetSelection());
}

TEST_F(InputsTest, ClientObjectsAreFreedOnce)
{
    auto* const choice = AddChoice();
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY);
    for (wxItemContainer* const items :
         {static_cast<wxItemContainer*>(choice), static_cast<wxItemContainer*>(list)})
    {
        items->Clear();
        for (const char* const text : {"a", "b", "c"})
        {
            items->Append(text, new Counted);
        }
        items->Delete(1);
        delete items->DetachClientObject(0);
        items->SetClientObject(0, new Counted);
    }
    EXPECT_EQ(4, Counted::s_Alive);
    choice->Clear();
    EXPECT_EQ(2, Counted::s_Alive);
    choice->Append("d", new Counted);
    choice->Destroy();
    list->Destroy();
    EXPECT_TRUE(WaitFor([] { return Counted::s_Alive == 0; })) << Counted::s_Alive;
}

TEST_F(InputsTest, ValidatorsMoveValuesToTheControlsAndBack)
{
    int        selected = 2;
    wxString   text = "typed";
    wxArrayInt checked(2, 1);
    checked[1] = 3;
    auto* const choice = AddChoice();
    choice->SetValidator(wxtGenericValidator(&selected));
    auto* const combo = new wxtComboBox(m_Panel, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                                        Items(), 0, wxtGenericValidator(&text));
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                           Items(), 0, wxtGenericValidator(&checked));
    ASSERT_TRUE(m_Panel->TransferDataToWindow());
    EXPECT_EQ("bravo", choice->GetStringSelection());
    EXPECT_EQ("typed", combo->GetValue());
    EXPECT_TRUE(!list->IsChecked(0) && list->IsChecked(1) && list->IsChecked(3));
    choice->SetSelection(wxNOT_FOUND);
    combo->SetValue("other");
    list->Check(1, false);
    ASSERT_TRUE(m_Panel->TransferDataFromWindow());
    EXPECT_EQ(wxNOT_FOUND, selected);
    EXPECT_EQ("other", text);
    ASSERT_EQ(1u, checked.size());
    EXPECT_EQ(3, checked[0]);
}

TEST_F(InputsTest, ChoiceHoldsWhatItShows)
{
    const struct
    {
        long        style;
        const char* given;
        const char* set; // in place of it; null: nothing
        int         item;
        const char* shown;
    } cases[] = {
        {wxCB_READONLY, "beta", nullptr, 1, "beta"},
        {wxCB_READONLY, "none", nullptr, wxNOT_FOUND, ""},
        {wxCB_READONLY, "beta", "bravo", 2, "bravo"},
        {wxCB_READONLY, "beta", "none", 1, "beta"},
        {wxCB_READONLY, "beta", "", wxNOT_FOUND, ""},
        {0, "none", nullptr, wxNOT_FOUND, "none"},
        {0, "none", "bravo", 2, "bravo"},
        {0, "beta", "none", wxNOT_FOUND, "none"},
    };
    for (const auto& one : cases)
    {
        auto* const combo = new wxtComboBox(m_Panel, wxID_ANY, one.given, wxDefaultPosition,
                                            wxDefaultSize, Items(), one.style);
        combo->SetClientObject(0, new Counted); // of an item that was there from the start
        if (one.set)
        {
            combo->SetValue(one.set);
        }
        EXPECT_EQ(one.item, combo->GetSelection()) << one.given << (one.set ? one.set : "-");
        EXPECT_EQ(one.shown, combo->GetValue());
        combo->Destroy();
    }
    EXPECT_EQ(0, Counted::s_Alive);

    auto* const sorted =
        new wxtChoice(m_Panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, Items(), wxCB_SORT);
    sorted->SetSelection(1);
    EXPECT_EQ(2, sorted->Append("beta"));
    EXPECT_EQ(0, sorted->Append("aaa"));
    EXPECT_EQ(2, sorted->GetSelection()) << "its twin came after it";
    sorted->SetString(2, "bee");
    EXPECT_EQ("bee", sorted->GetValue());
    sorted->Clear();
    EXPECT_EQ("", sorted->GetValue());
}

TEST_F(InputsTest, AListLeavesWhatWasTypedUntilAnItemIsChosen)
{
    auto* const empty = new wxtChoice(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 24));
    auto* const combo =
        new wxtComboBox(m_Panel, wxID_ANY, "", wxPoint(10, 50), wxSize(200, 24), Items());
    EventCounter picks(m_Panel, wxEVT_COMBOBOX);
    const auto   press = [&](wxtComboBox* control, int key, bool isOpen)
    {
        Press(key);
        EXPECT_TRUE(WaitFor([=] { return control->IsPopupShown() == isOpen; })) << key;
    };
    Focus(empty);
    press(empty, WXK_F4, true);
    for (const int key : {WXK_HOME, WXK_END, WXK_PAGEUP, WXK_PAGEDOWN, WXK_UP, WXK_DOWN})
    {
        press(empty, key, true);
    }
    press(empty, WXK_RETURN, false);
    Press(WXK_TAB);
    ASSERT_TRUE(WaitFor([=] { return combo->GetTextCtrl()->HasFocus(); }));
    combo->SetMaxLength(2);
    Press('X');
    Press('Y');
    Press('Z');
    EXPECT_TRUE(WaitFor([=] { return combo->GetValue() == "xy"; })) << combo->GetValue();
    EventCounter texts(m_Panel, wxEVT_TEXT);
    for (const int last : {WXK_RETURN, WXK_ESCAPE})
    {
        press(combo, WXK_F4, true);
        press(combo, last, false);
    }
    EXPECT_EQ("xy", combo->GetValue());
    EXPECT_EQ(0, picks.Count() + texts.Count()) << "nothing was chosen";
}
