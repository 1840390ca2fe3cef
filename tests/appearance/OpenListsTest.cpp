#include "appearance/wxtTextCtrl.h"
#include "tests/appearance/InputsTest.h"
#include "tests/support/EventCounter.h"
#include "tests/support/Pictures.h"

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

TEST_F(InputsTest, KeysOpenAndLeaveAList)
{
    auto* const empty = new wxtChoice(m_Panel, wxID_ANY, wxPoint(10, 10), wxSize(200, 24));
    auto* const combo =
        new wxtComboBox(m_Panel, wxID_ANY, "", wxPoint(10, 50), wxSize(200, 24), Items());
    auto* const  last = new wxtTextCtrl(m_Panel, wxID_ANY, "", wxPoint(10, 90), wxSize(200, 24));
    EventCounter picks(m_Panel, wxEVT_COMBOBOX);
    const auto   opens = [&](wxtComboBox* control, int key, int modifiers = 0)
    {
        Press(key, modifiers);
        return WaitFor([=] { return control->IsPopupShown(); });
    };
    const auto closes = [&](wxtComboBox* control, int key, int modifiers = 0)
    {
        Press(key, modifiers);
        return WaitFor([=] { return !control->IsPopupShown(); });
    };
    Focus(empty);
    EXPECT_TRUE(opens(empty, WXK_F4) && closes(empty, WXK_F4));
    EXPECT_TRUE(opens(empty, WXK_DOWN, wxMOD_ALT) && closes(empty, WXK_UP, wxMOD_ALT));
    EXPECT_TRUE(opens(empty, WXK_F4));
    for (const int key : {WXK_HOME, WXK_END, WXK_PAGEUP, WXK_PAGEDOWN, WXK_UP, WXK_DOWN})
    {
        Press(key);
    }
    EXPECT_TRUE(closes(empty, WXK_RETURN));
    Press(WXK_TAB);
    ASSERT_TRUE(WaitFor([=] { return combo->GetTextCtrl()->HasFocus(); }));

    combo->SetMaxLength(2);
    Press('X');
    Press('Y');
    Press('Z');
    EXPECT_TRUE(WaitFor([=] { return combo->GetValue() == "xy"; })) << combo->GetValue();
    EventCounter texts(m_Panel, wxEVT_TEXT);
    EXPECT_TRUE(opens(combo, WXK_F4) && closes(combo, WXK_RETURN));
    EXPECT_TRUE(opens(combo, WXK_F4));
    Press(WXK_DOWN);
    EXPECT_TRUE(closes(combo, WXK_ESCAPE));
    EXPECT_EQ("xy", combo->GetValue());
    EXPECT_EQ(0, picks.Count() + texts.Count()) << "nothing was chosen";
    combo->SetMaxLength(0);
    EXPECT_TRUE(opens(combo, WXK_F4));
    Press(WXK_DOWN);
    Press(WXK_TAB);
    EXPECT_TRUE(WaitFor([=] { return last->HasFocus(); }));
    EXPECT_TRUE(WaitFor([&] { return picks.Count() == 1; }));
    EXPECT_EQ(0, combo->GetSelection());
    EXPECT_EQ(1, texts.Count());
}
