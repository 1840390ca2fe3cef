#include "tests/appearance/InputsTest.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtGenericValidator.h"
#include "appearance/wxtTextCtrl.h"
#include "internal/port/Completions.h"
#include "tests/support/EventCounter.h"
#include "tests/support/Pictures.h"
#include "tests/support/TestApp.h"
#include "tolvan/ClientOptions.h"

#include <tuple>

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
        EXPECT_TRUE(WaitFor(internal::CompletionsAreOpen));
        Press(WXK_DOWN);
        Press(WXK_RETURN);
        return WaitFor([&] { return field->GetValue() == "1:Off"; }, 500);
    };
    EXPECT_TRUE(WaitFor(taken)) << field->GetValue();
    EXPECT_TRUE(WaitFor([] { return !internal::CompletionsAreOpen(); }))
        << "nothing is left to complete";
}

TEST_F(InputsTest, CompletionsHaveTheColoursOfTheScheme)
{
    auto* const field = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 10), wxSize(200, -1));
    Focus(field);
    ASSERT_TRUE(WaitFor(
        [&]
        {
            Press('O');
            return WaitFor(internal::CompletionsAreOpen, 500);
        }));
    const wxPoint below = field->ClientToScreen(wxPoint(150, field->GetSize().y + 10));
    for (const int scheme : {scheme_Dark, scheme_Light})
    {
        SwitchTo(scheme, Frame());
        const wxColour ground = wxtGetColor(color_WindowBGLighter);
        EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOfScreen(), below.x, below.y) == ground; }))
            << scheme << Kept(PictureOfScreen(), "completions");
    }
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

TEST_F(InputsTest, CheckListMovesAndTellsAsTheStockOne)
{
    auto* const  empty = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 40));
    auto* const  list = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 60), wxSize(200, 100));
    EventCounter checks(m_Panel, wxEVT_CHECKLISTBOX);
    EventCounter selections(m_Panel, wxEVT_LISTBOX);
    const int keys[] = {WXK_HOME, WXK_END, WXK_PAGEUP, WXK_PAGEDOWN, WXK_UP, WXK_DOWN, WXK_SPACE};
    Focus(empty);
    for (const int key : keys)
    {
        Press(key);
    }
    EXPECT_EQ(wxNOT_FOUND, empty->GetSelection());
    EXPECT_EQ(0, checks.Count() + selections.Count());

    for (int i = 0; i < 30; ++i)
    {
        list->Append(wxString::Format("item %d", i));
    }
    const auto click = [&](unsigned item)
    {
        m_Input.MouseMove(list->ClientToScreen(list->GetBoxRect(item).GetTopLeft()) +
                          wxPoint(4, 4));
        m_Input.MouseClick();
        PumpEvents();
    };
    list->SetSelection(0);
    click(2);
    EXPECT_TRUE(WaitFor([&] { return selections.Count() == 1 && checks.Count() == 1; }));
    EXPECT_EQ(2, list->GetSelection());
    EXPECT_TRUE(list->IsChecked(2));
    const auto moved = [&](int key, int item)
    {
        Press(key);
        return WaitFor([&] { return list->GetSelection() == item; });
    };
    EXPECT_TRUE(moved(WXK_END, 29));
    Press(WXK_PAGEDOWN);
    EXPECT_TRUE(moved(WXK_UP, 28)) << "from the last one, where the page ended";
    EXPECT_TRUE(moved(WXK_HOME, 0));
    Press(WXK_PAGEDOWN);
    EXPECT_TRUE(WaitFor([&] { return list->GetSelection() > 1; }));
    EXPECT_TRUE(moved(WXK_PAGEUP, 0));
    // What the user looks at stays where it is when items come and go above or below.
    list->EnsureVisible(29);
    const size_t first = list->GetVisibleRowsBegin();
    list->Append("more");
    list->Delete(29);
    EXPECT_EQ(first, list->GetVisibleRowsBegin());
    EXPECT_EQ(0, list->GetSelection());
    // A handler may take the list away.
    const wxWeakRef<wxWindow> left(list);
    list->Bind(wxEVT_CHECKLISTBOX, [list](wxCommandEvent&) { list->Destroy(); });
    click(static_cast<unsigned>(first));
    EXPECT_TRUE(WaitFor([&] { return !left; }));
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
