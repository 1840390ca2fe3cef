#include "appearance/Contrast.h"
#include "appearance/wxtAutoCompleter.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtGenericValidator.h"
#include "appearance/wxtSearchField.h"
#include "appearance/wxtTextCtrl.h"
#include "internal/port/Completions.h"
#include "tests/appearance/PanelTest.h"
#include "tests/support/EventCounter.h"
#include "tests/support/Pictures.h"
#include "tests/support/TestApp.h"
#include "tolvan/ClientOptions.h"

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

class InputsTest : public PanelTest
{
protected:
    static wxArrayString Items()
    {
        const wxString items[] = {"Alpha", "beta", "bravo", "two\nlines\tand & more",
                                  wxString('W', 10000)};
        return wxArrayString(WXSIZEOF(items), items);
    }
    wxtChoice* AddChoice()
    {
        return new wxtChoice(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 24), Items());
    }
    // Types until the list of completions is open.
    static bool Completes()
    {
        return WaitFor(
            []
            {
                Press('O');
                return WaitFor(internal::CompletionsAreOpen, 500);
            });
    }
};
} // namespace

TEST_F(InputsTest, OpenListsFollowTheScheme)
{
    const auto expectGround = [&](const wxWindow* control)
    {
        // In the second item.
        const wxPoint at = control->ClientToScreen(wxPoint(150, control->GetSize().y * 5 / 2));
        for (const int scheme : {g_Scheme, int(scheme_Dark), int(scheme_Light)})
        {
            if (scheme != g_Scheme)
            {
                UseColors(scheme, Frame());
            }
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
    auto* const field = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 60), wxSize(200, -1));
    Focus(field);
    ASSERT_TRUE(Completes());
    expectGround(field);
    const wxString typed = field->GetValue();
    Press(WXK_DOWN);
    Press(WXK_TAB, wxMOD_SHIFT); // Shift goes down first
    EXPECT_TRUE(WaitFor([&] { return field->GetValue() != typed; })) << "what was chosen";
}

TEST_F(InputsTest, EveryFieldMayGoWithItsListOfCompletions)
{
    auto* const search = new wxtSearchField(m_Panel, wxID_ANY, "", wxPoint(10, 10));
    auto* const combo = new wxtComboBox(m_Panel, wxID_ANY, "", wxPoint(10, 60));
    for (wxTextCtrl* const field : {search->GetField(), combo->GetTextCtrl()})
    {
        field->AutoComplete(new wxtAutoCompleter);
        field->SetFocus();
        ASSERT_TRUE(WaitFor([&] { return field->HasFocus(); }) && Completes());
        field->GetParent()->Destroy();
        EXPECT_TRUE(WaitFor([] { return !internal::CompletionsAreOpen(); }));
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
    const wxSize                 size(200, 24);
    auto* const                  choice = AddChoice();
    const std::vector<wxWindow*> controls = {
        choice,
        new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 60), size),
        new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 90), size, wxTE_READONLY),
        new wxtComboBox(m_Panel, wxID_ANY, "", wxPoint(10, 120), size),
        new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 150), size),
        new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 180), size),
    };
    controls.back()->Disable();
    const wxString block(L"\u2588\u2588"); // its colour is the ink's, whatever the font
    auto* const    search = new wxtSearchField(m_Panel, wxID_ANY, block, wxPoint(10, 210), size);
    auto* const    field = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 240), size);
    field->SetHint(block);
    Focus(choice);
    for (const int scheme : {scheme_Dark, scheme_Lighter})
    {
        UseColors(scheme, Frame());
        for (wxWindow* const control : controls)
        {
            const wxColour ground =
                wxtGetColor(control->IsEnabled() ? color_WindowBGLighter : color_WindowBGDarker);
            EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(control), 100, 12) == ground; }))
                << scheme << control->GetName() << Kept(PictureOf(control), "input");
        }
        const wxImage picture = PictureOf(choice);
        EXPECT_EQ(wxtGetColor(color_ButtonFace), PixelAt(picture, 198, 2)) << scheme;
        const wxColour ground = wxtGetColor(color_WindowBGLighter);
        for (wxWindow* const focused : {static_cast<wxWindow*>(choice), controls[1]})
        {
            Focus(focused);
            EXPECT_TRUE(WaitFor(
                [=] { return PixelAt(PictureOf(focused), 0, 12) == wxtFocusColor({ground}); }))
                << scheme << focused->GetName() << Kept(PictureOf(focused), "frame of the focus");
        }
        for (wxTextCtrl* const hinted : {search->GetField(), static_cast<wxTextCtrl*>(field)})
        {
            const wxColour grey = wxtGetColor(color_TextGrey);
            for (const bool isEnabled : {true, false, true})
            {
                search->Enable(isEnabled);
                field->Enable(isEnabled);
                const wxColour ink = isEnabled ? wxtReadableColor(grey, ground) : grey;
                EXPECT_TRUE(WaitFor([&] { return PixelAt(PictureOf(hinted), 9, 11) == ink; }))
                    << scheme << isEnabled << Kept(PictureOf(hinted), "hint");
            }
            EXPECT_TRUE(hinted->IsEmpty()) << "the hint is no text";
        }
    }
}

TEST_F(InputsTest, CheckListStaysWhereItIsWhenItemsComeAndGo)
{
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 60),
                                           Items(), wxLB_SORT);
    Focus(list);
    Press('B');
    Press('R');
    ASSERT_TRUE(WaitFor([=] { return list->GetStringSelection() == "bravo"; }));
    list->Check(static_cast<unsigned>(list->GetSelection()));
    list->Check(1000);
    Press(WXK_PAGEUP);
    ASSERT_TRUE(WaitFor([&] { return list->GetSelection() < 2; }));
    Press(WXK_PAGEDOWN);
    ASSERT_TRUE(WaitFor([&] { return list->GetStringSelection() == "bravo"; }));
    const size_t first = list->GetVisibleRowsBegin();
    list->Append("more");
    list->Delete(0);
    EXPECT_EQ(first, list->GetVisibleRowsBegin());
    wxArrayInt checked;
    ASSERT_EQ(1u, list->GetCheckedItems(checked));
    EXPECT_EQ("bravo", list->GetString(static_cast<unsigned>(checked[0])));
    EXPECT_EQ("bravo", list->GetStringSelection());
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

TEST_F(InputsTest, KeysStayWithinWhatThereIs)
{
    auto* const list = new wxtCheckListBox(m_Panel, wxID_ANY, wxPoint(10, 60), wxSize(200, 100));
    auto* const choice = new wxtChoice(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 24));
    Focus(choice);
    Press(WXK_F4);
    ASSERT_TRUE(WaitFor([=] { return choice->IsPopupShown(); }));
    const auto pressAll = []
    {
        for (const int key : {WXK_HOME, WXK_END, WXK_PAGEUP, WXK_PAGEDOWN, WXK_UP, WXK_SPACE})
        {
            Press(key);
        }
    };
    pressAll();
    Press(WXK_RETURN);
    EXPECT_TRUE(WaitFor([=] { return !choice->IsPopupShown(); }));
    Focus(list);
    pressAll();
    EXPECT_EQ(wxNOT_FOUND, list->GetSelection());

    auto* const combo = new wxtComboBox(m_Panel, wxID_ANY, "", wxPoint(10, 200), wxSize(200, 24));
    combo->SetMaxLength(2);
    Focus(combo->GetTextCtrl());
    for (const int key : {'X', 'Y', 'Z'})
    {
        Press(key);
    }
    EXPECT_TRUE(WaitFor([=] { return combo->GetValue() == "xy"; })) << combo->GetValue();
}

TEST_F(InputsTest, WithAltALetterIsTheMenusNotTheBeginningOfAnItem)
{
    auto* const  choice = AddChoice();
    EventCounter picks(m_Panel, wxEVT_CHOICE);
    Focus(choice);
    Press('A', wxMOD_ALT);
    Press('B');
    EXPECT_TRUE(WaitFor([=] { return choice->GetStringSelection() == "beta"; }));
    EXPECT_EQ(1, picks.Count());
}
