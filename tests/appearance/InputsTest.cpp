#include "appearance/_PortStyle.h"
#include "appearance/wxTolvanColors.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtGenericValidator.h"
#include "appearance/wxtTextCtrl.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"
#include "tests/support/TestApp.h"
#include "tolvan/ClientOptions.h"

#include <wx/uiaction.h>

namespace
{
// Counts those that are alive.
class Counted : public wxClientData
{
public:
    Counted() { ++s_Alive; }
    ~Counted() override { --s_Alive; }
    static int s_Alive;
};
int Counted::s_Alive = 0;

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

TEST_F(InputsTest, FieldCompletesWhatIsTypedAndTellsOfEachChange)
{
    auto* const  field = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 10), wxSize(200, -1));
    EventCounter changes(m_Panel, wxEVT_TEXT);
    Focus(field);
    m_Input.Text("1:o");
    ASSERT_TRUE(WaitFor([&] { return field->GetValue() == "1:o"; }));
    EXPECT_EQ(3, changes.Count());
    const auto taken = [&]
    {
        // Again where the list was just being made: it misses the keys then.
        Press(WXK_BACK);
        Press('O');
        EXPECT_TRUE(WaitFor(_CompletionsAreOpen));
        Press(WXK_DOWN);
        Press(WXK_RETURN);
        return WaitFor([&] { return field->GetValue() == "1:Off"; }, 500);
    };
    EXPECT_TRUE(WaitFor(taken)) << field->GetValue();
    EXPECT_TRUE(WaitFor([] { return !_CompletionsAreOpen(); })) << "nothing is left to complete";
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
        EXPECT_FALSE(WaitFor(_CompletionsAreOpen, 300)) << one.style << one.option;
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

TEST_F(InputsTest, OpenListFollowsTheScheme)
{
    auto* const choice = AddChoice();
    Focus(choice);
    Press(WXK_F4);
    ASSERT_TRUE(WaitFor([=] { return choice->IsPopupShown(); }));
    wxWindow* const list = choice->GetPopupControl()->GetControl();
    for (const int scheme : {scheme_Dark, scheme_Light})
    {
        SwitchTo(scheme, Frame());
        const wxColour ground = wxtGetColor(color_WindowBGLighter);
        const int      below = choice->GetCharHeight() * 2; // in the second item
        EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(list), 150, below) == ground; }))
            << scheme << Kept(PictureOf(list), "list");
    }
    Press(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([=] { return !choice->IsPopupShown(); }));
    EXPECT_EQ(wxNOT_FOUND, choice->GetSelection());
}

TEST_F(InputsTest, ChoiceIsMadeWithKeysAndMouse)
{
    auto* const  choice = AddChoice();
    EventCounter picks(m_Panel, wxEVT_COMBOBOX);
    EventCounter choices(m_Panel, wxEVT_CHOICE);
    choice->SetSelection(0);
    EXPECT_EQ(0, picks.Count()) << "only the user's choices are told";
    Focus(choice);

    const auto picked = [&](int item)
    { return WaitFor([&] { return choice->GetCurrentSelection() == item; }); };
    Press('B');
    EXPECT_TRUE(picked(1)) << "by how it begins";
    Press(WXK_DOWN);
    EXPECT_TRUE(picked(2));
    const auto* const last = dynamic_cast<const wxCommandEvent*>(choices.Last());
    ASSERT_TRUE(last);
    EXPECT_EQ("bravo", last->GetString());
    EXPECT_EQ(2, last->GetInt());
    EXPECT_EQ(picks.Count(), choices.Count());

    Press(WXK_DOWN, wxMOD_ALT);
    ASSERT_TRUE(WaitFor([=] { return choice->IsPopupShown(); }));
    Press(WXK_UP);
    Press(WXK_RETURN);
    EXPECT_TRUE(picked(1));
    ASSERT_TRUE(WaitFor([=] { return !choice->IsPopupShown(); }));

    m_Input.MouseMove(choice->GetScreenRect().GetTopLeft() + wxPoint(50, 12));
    const auto opened = [&]
    {
        m_Input.MouseClick(); // one that comes right after a list has closed does not count
        return WaitFor([=] { return choice->IsPopupShown(); }, 300);
    };
    ASSERT_TRUE(WaitFor(opened));
    wxWindow* const list = choice->GetPopupControl()->GetControl();
    const wxRect    place = list->GetScreenRect();
    const auto      clicked = [&]
    {
        m_Input.MouseMove(place.GetTopLeft() + wxPoint(51, 8));
        m_Input.MouseMove(place.GetTopLeft() + wxPoint(50, 8));
        m_Input.MouseClick();
        return WaitFor([&] { return choice->GetSelection() == 0; }, 300);
    };
    EXPECT_TRUE(WaitFor(clicked));
}

TEST_F(InputsTest, CheckListTogglesByBoxAndBlankAndFindsWhatIsTyped)
{
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 150),
                                           Items(), wxLB_SORT);
    EXPECT_EQ("Alpha", list->GetString(0));
    EventCounter checks(m_Panel, wxEVT_CHECKLISTBOX);
    EventCounter selections(m_Panel, wxEVT_LISTBOX);
    Focus(list);
    Press('B');
    Press('R');
    ASSERT_TRUE(WaitFor([=] { return list->GetStringSelection() == "bravo"; }));
    EXPECT_EQ(2, selections.Count()) << "beta on the way";
    const unsigned bravo = static_cast<unsigned>(list->GetSelection());
    m_Input.MouseMove(list->ClientToScreen(list->GetBoxRect(bravo).GetTopLeft()) + wxPoint(4, 4));
    m_Input.MouseClick();
    ASSERT_TRUE(WaitFor([&] { return checks.Count() == 1; }));
    EXPECT_TRUE(list->IsChecked(bravo));
    EXPECT_EQ("bravo", dynamic_cast<const wxCommandEvent*>(checks.Last())->GetString());
    list->Delete(0);
    wxArrayInt checked;
    EXPECT_EQ(1u, list->GetCheckedItems(checked));
    EXPECT_EQ(static_cast<int>(bravo) - 1, checked[0]);
    EXPECT_EQ("bravo", list->GetStringSelection());
    Press(WXK_SPACE);
    ASSERT_TRUE(WaitFor([&] { return checks.Count() == 2; }));
    EXPECT_FALSE(list->IsChecked(bravo - 1));
    list->Check(1000);
    EXPECT_FALSE(list->IsChecked(1000));
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
