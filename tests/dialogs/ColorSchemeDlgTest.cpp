#include "tests/dialogs/DialogTest.h"

#include "dialogs/colours/ColourFile.h"
#include "dialogs/colours/ColourHistory.h"
#include "dialogs/colours/ColourPairs.h"
#include "dialogs/colours/ColourText.h"
#include "dialogs/wxColorSchemeDlg.h"
#include "shell/wxTolvanFrame.h"

#include <wx/textctrl.h>

using namespace dialogs;

namespace
{
class ColorSchemeDlgTest : public DialogTest
{
protected:
    ColorSchemeDlgTest() { SetColors(g_Scheme = scheme_Light); }
    ~ColorSchemeDlgTest() override { SetColors(g_Scheme = scheme_Default); }

    Path   IniPath() const { return UserFile("Colors.ini"); }
    String Ini() const { return File::Exists(IniPath()) ? ReadFile(IniPath()) : String("none"); }

    static SchemeColours With(SchemeColours colours, const String& key, const wxColour& colour)
    {
        colours[IndexOf(key)] = colour;
        return colours;
    }

    const SchemeColours dark = ColoursOf(scheme_Dark);
};

const wxColour kRed(255, 0, 0);
} // namespace

TEST_F(ColorSchemeDlgTest, AColourIsNoneBeforeItIsTypedWhole)
{
    for (const auto& [text, colour] :
         std::vector<std::pair<String, String>>{{"#12aBcD", "#12ABCD"},
                                                {" navy ", "#000080"},
                                                {"rgb(1, 2, 3)", "#010203"},
                                                {"rgba(1, 2, 3, 0.5)", "#010203"},
                                                {"", ""},
                                                {"#", ""},
                                                {"#484", ""},
                                                {"#48484", ""},
                                                {"#48484g", ""},
                                                {"#4848484", ""},
                                                {"484848", ""},
                                                {"rgb(1, 2", ""},
                                                {"mauve-ish", ""}})
    {
        EXPECT_EQ(colour, ColourText(TypedColour(text))) << text;
    }
}

TEST_F(ColorSchemeDlgTest, ContrastIsThatOfWhatIsShown)
{
    SchemeColours     colours = ColoursOf(scheme_Lighter);
    const ColourPair& field = ColourPairs()[1];
    ASSERT_EQ(&color_WindowBGLighter, field.ground);
    const auto contrast = [&](const wxColour& ink)
    { return field.ContrastIn(With(colours, color_Text, ink)); };
    EXPECT_NEAR(21, contrast(*wxBLACK), 1e-9);
    EXPECT_NEAR(4.54, contrast(wxColour(0x76, 0x76, 0x76)), 0.005);
    EXPECT_NEAR(4.48, contrast(wxColour(0x77, 0x77, 0x77)), 0.005);
    EXPECT_EQ(0, contrast(wxColour()));

    colours.fill(*wxBLACK);
    EXPECT_EQ(ColourPairs().size(), CountOfPoor(colours));
    // The ground of a selected row is partly the selection's.
    colours = With(With(colours, color_Text, *wxWHITE), color_Selected, *wxWHITE);
    EXPECT_EQ(wxColour(84, 84, 84), ColourPairs()[3].GroundOf(colours));
    EXPECT_NEAR(7.57, ColourPairs()[3].ContrastIn(colours), 0.01);
}

TEST_F(ColorSchemeDlgTest, TheFileIsChangedAsByAHand)
{
    const String before =
        "; mine\r\nText = navy ; ink\r\nscheme = 1\r\nHeader=oops\r\n\r\n[x]\r\nText=1";
    SchemeColours colours = ReadColours(before, dark).colours;
    const auto    written = [&](const String& text)
    { return WithColours(text, before, colours, dark); };
    String chosen = before;
    chosen.replace(chosen.find("scheme = 1"), 10, "scheme = 5");
    EXPECT_EQ(chosen, written(before)) << "what is no colour stays, too";

    colours = With(colours, color_Header, kRed);
    String expected = chosen;
    expected.replace(expected.find("oops"), 4, "#FF0000");
    EXPECT_EQ(expected, written(before));
    colours = With(With(colours, color_Selected, *wxBLACK), color_Text, dark[IndexOf(color_Text)]);
    expected.erase(expected.find("Text"), expected.find("scheme") - expected.find("Text"));
    expected.insert(expected.find("\r\n\r\n[x]") + 2, "Selected = #000000\r\n");
    EXPECT_EQ(expected, written(before)) << "the dark one is not named";
    EXPECT_EQ(colours, ReadColours(expected, dark).colours);

    EXPECT_EQ("scheme = 5\n", WithColours("", "", dark, dark));
    const ReadScheme read = ReadColours("Header = mauve-ish\n[x]\nscheme = 5\n", dark);
    EXPECT_TRUE(read.isScheme);
    EXPECT_EQ(std::vector<String>{"Header"}, read.wrong);
    EXPECT_FALSE(ReadColours("[x]\nText = red\n", dark).isScheme);
}

TEST_F(ColorSchemeDlgTest, UndoGoesBackByDeeds)
{
    ColourHistory history(dark);
    const auto    add = [&](unsigned char red, int deed)
    { history.Add(With(dark, color_Text, wxColour(red, 0, 0)), deed); };
    const auto red = [&] { return int(history.Now()[IndexOf(color_Text)].Red()); };
    add(1, 7); // letter by letter
    add(2, 7);
    add(3, ColourHistory::k_OwnStep);
    add(3, ColourHistory::k_OwnStep); // nothing
    history.Undo();
    EXPECT_EQ(2, red());
    history.Undo();
    EXPECT_EQ(235, red());
    EXPECT_FALSE(history.CanUndo());
    history.Undo();
    history.Redo();
    add(4, 7); // after a return it is another deed
    EXPECT_FALSE(history.CanRedo());
    history.Undo();
    EXPECT_EQ(2, red());
    for (unsigned i = 0; i < 2 * ColourHistory::k_Most; ++i)
    {
        add(static_cast<unsigned char>(i), ColourHistory::k_OwnStep);
    }
    size_t steps = 0;
    for (; history.CanUndo(); ++steps)
    {
        history.Undo();
    }
    EXPECT_EQ(ColourHistory::k_Most, steps);
}

TEST_F(ColorSchemeDlgTest, TheFileComesBackToTheByte)
{
    for (const String& before :
         {String("none"), String("Selected = #FF8800"), String("scheme = 1\nText = red\n")})
    {
        File::Remove(IniPath());
        if (before != "none")
        {
            WriteFile(IniPath(), before);
        }
        ColourFile file(IniPath(), dark);
        file.Write(With(file.Colours(), color_Selected, kRed));
        EXPECT_EQ(kRed, ReadColours(Ini(), dark).colours[IndexOf(color_Selected)]);
        EXPECT_TRUE(file.IsAlone());
        EXPECT_FALSE(ColourFile(IniPath(), dark).IsAlone());
        file.Restore();
        EXPECT_EQ(before, Ini());
    }
    // Somebody else has written meanwhile.
    ColourFile file(IniPath(), dark);
    file.Write(With(dark, color_Selected, kRed));
    WriteFile(IniPath(), "scheme = 2\nSelected = #FF0000\nHeader = blue\n; theirs\n");
    file.Restore();
    EXPECT_EQ("scheme = 2\nHeader = blue\nText = red\n; theirs\n", Ini());
    File::Remove(IniPath());
    file.Restore();
    EXPECT_EQ("none", Ini());
}

TEST_F(ColorSchemeDlgTest, WhatIsTypedIsShownAtOnceAndTakenBack)
{
    const String before = "scheme = 1\n; mine\n";
    WriteFile(IniPath(), before);
    for (const int key : {WXK_ESCAPE, WXK_RETURN})
    {
        g_Scheme = scheme_Light;
        wxColorSchemeDlg dialog(Frame());
        const auto       act = [&]
        {
            EXPECT_EQ(scheme_Custom, g_Scheme);
            wxTextCtrl* field = nullptr;
            for (wxWindow* const child : dialog.GetChildren())
            {
                field = field ? field : dynamic_cast<wxTextCtrl*>(child);
            }
            Press(WXK_DOWN); // in the list
            ASSERT_TRUE(WaitFor([&] { return field->GetValue() == "#5C5C5C"; }));
            Focus(field);
            field->SelectAll();
            Press('R');
            Press('E');
            Press('D');
            Press('D');
            ASSERT_TRUE(WaitFor([&] { return field->GetValue() == "redd"; }));
            EXPECT_FALSE(dialog.Validate());
            ASSERT_TRUE(WaitFor([] { return wxtGetColor(color_WindowBGLighter) == kRed; }));
            EXPECT_EQ("scheme = 5\nWindowBGLighter = #FF0000\n; mine\n", Ini());
            Press('Z', wxMOD_CONTROL); // what is no colour goes first, and the colour stays
            ASSERT_TRUE(WaitFor([&] { return field->GetValue() == "#FF0000"; }));
            EXPECT_EQ("scheme = 5\nWindowBGLighter = #FF0000\n; mine\n", Ini());
            Press('Z', wxMOD_CONTROL);
            ASSERT_TRUE(WaitFor([&] { return Ini() == "scheme = 5\n; mine\n"; }));
            EXPECT_EQ("#5C5C5C", field->GetValue());
            Press('Z', wxMOD_CONTROL | wxMOD_SHIFT);
            ASSERT_TRUE(WaitFor([&] { return field->GetValue() == "#FF0000"; }));
            const auto button = [&](const wxString& label)
            { return wxWindow::FindWindowByLabel(label, &dialog); };
            Focus(button("&Undo"));
            Press(WXK_SPACE);
            EXPECT_TRUE(WaitFor([&] { return button("&Redo")->HasFocus(); }));
            Press(WXK_SPACE);
            EXPECT_TRUE(WaitFor([&] { return field->GetValue() == "#FF0000"; }));
            EXPECT_TRUE(WaitFor([&] { return button("&Undo")->HasFocus(); }))
                << "all is done again";
            Focus(field);
            Press(key);
        };
        const bool isKept = Run(dialog, act) == wxID_OK;
        EXPECT_EQ(key == WXK_RETURN, isKept);
        EXPECT_EQ(isKept ? "scheme = 5\nWindowBGLighter = #FF0000\n; mine\n" : before, Ini());
        EXPECT_EQ(isKept ? scheme_Custom : scheme_Light, g_Scheme);
    }
}
