#include "appearance/Contrast.h"
#include "appearance/inputs/ItemDrawing.h"
#include "appearance/tabs/TabLook.h"
#include "appearance/wxtCheckListBox.h"
#include "appearance/wxtChoice.h"
#include "appearance/wxtDockArt.h"
#include "appearance/wxtSearchField.h"
#include "appearance/wxtTextCtrl.h"
#include "internal/drawing/ColorMix.h"
#include "jobwidgets/JobColors.h"
#include "listviews/wxtListCtrl.h"
#include "tests/appearance/PanelTest.h"
#include "tests/support/Pictures.h"
#include "textviews/wxTextLineCtrl.h"
#include "tolvan/Job.h"

#include <wx/dcmemory.h>

using internal::ContrastOf;

namespace
{
const int kSchemes[] = {scheme_Default, scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker};

struct Pair
{
    wxString what;
    wxColour ink;
    wxColour ground;
};

class ContrastTest : public PanelTest
{
protected:
    // The ways in which the library chooses ink and ground itself.
    std::vector<Pair> Pairs()
    {
        std::vector<Pair> pairs = {
            {"button", wxtGetColor(color_ButtonText), wxtGetColor(color_ButtonFace)}};
        for (const String& ground : {color_WindowBG, color_WindowBGLighter, color_WindowBGDarker})
        {
            const wxColour paper = wxtGetColor(ground);
            pairs.push_back({"text", wxtGetColor(color_Text), paper});
            for (const String& ink : {color_TextGrey, color_TextRed, color_TextGreen})
            {
                m_Label->m_ForegroundName = ink;
                m_Label->m_BackgroundName = ground;
                m_Label->KeepReadable();
                pairs.push_back(
                    {ink, m_Label->GetForegroundColour(), m_Label->GetBackgroundColour()});
            }
        }
        const auto item = appearance::ItemLook::Of(wxColour(), wxColour(), true);
        pairs.push_back({"item", item.ink, item.ground});
        for (const bool active : {false, true})
        {
            for (const bool hovered : {false, true})
            {
                const auto tab = appearance::TabLook::Of({active, true, hovered, false});
                pairs.push_back({"tab", tab.ink, tab.inner});
                pairs.push_back({"tab's edge", tab.ink, tab.outer});
                const auto disabled = appearance::TabLook::Of({active, true, hovered, true});
                pairs.push_back({"disabled tab", disabled.ink, disabled.inner});
            }
        }
        wxtDockArt dock;
        pairs.push_back({"caption", dock.GetColour(wxAUI_DOCKART_ACTIVE_CAPTION_TEXT_COLOUR),
                         dock.GetColour(wxAUI_DOCKART_ACTIVE_CAPTION_COLOUR)});
        pairs.push_back({"quiet caption",
                         dock.GetColour(wxAUI_DOCKART_INACTIVE_CAPTION_TEXT_COLOUR),
                         dock.GetColour(wxAUI_DOCKART_INACTIVE_CAPTION_COLOUR)});
        for (const String& state : {state_Running, state_Suspended, state_Failed, state_Done})
        {
            const wxImage bar = Drawn({9, 9}, *wxWHITE,
                                      [&](wxMemoryDC& dc)
                                      { wxtDrawJobProgress(dc, wxRect(0, 0, 9, 9), state, 100); });
            pairs.push_back({"bar: " + state, wxtGetColor(color_Text), PixelAt(bar, 4, 4)});
        }
        return pairs;
    }

    wxtStaticText* m_Label = new wxtStaticText(m_Panel, wxID_ANY, "label");
};

// Pixels that the two tell apart as a mark has to be told from its ground.
int Marked(const wxImage& a, const wxImage& b, const wxRect& area)
{
    int count = 0;
    for (int y = area.y; y < area.y + area.height; ++y)
    {
        for (int x = area.x; x < area.x + area.width; ++x)
        {
            count += ContrastOf(PixelAt(a, x, y), PixelAt(b, x, y)) >= internal::k_MarkContrast;
        }
    }
    return count;
}

// A line as long as the label, without a gap.
bool IsUnderlined(wxWindow* button)
{
    const wxImage  picture = PictureOf(button);
    const wxColour ground = button->GetBackgroundColour();
    const int      wanted = button->GetTextExtent(button->GetLabel()).x * 9 / 10;
    for (int y = 0; y < picture.GetHeight(); ++y)
    {
        int run = 0;
        for (int x = 0; x < picture.GetWidth() && run < wanted; ++x)
        {
            run = PixelAt(picture, x, y) == ground ? 0 : run + 1;
        }
        if (run == wanted)
        {
            return true;
        }
    }
    return false;
}
} // namespace

TEST_F(ContrastTest, WhatTheLibraryWritesCanBeReadInEveryScheme)
{
    for (const int scheme : kSchemes)
    {
        UseColors(scheme, Frame());
        for (const Pair& pair : Pairs())
        {
            EXPECT_GE(ContrastOf(pair.ink, pair.ground), internal::k_TextContrast)
                << scheme << " " << pair.what << " " << pair.ink.GetAsString() << " on "
                << pair.ground.GetAsString();
        }
        // On one ground, and on the pairs of a text view, of a tab and of a list's rows.
        const wxColour dark = wxtGetColor(color_WindowBGDarker);
        const wxColour middle = wxtGetColor(color_WindowBG);
        const wxColour light = wxtGetColor(color_WindowBGLighter);
        const wxColour selected = wxtGetColor(color_Selected);
        const wxColour row = internal::MixColours(dark, selected, 0.67);
        for (const auto& [one, other] : {std::pair(dark, wxColour()),
                                         {middle, wxColour()},
                                         {light, wxColour()},
                                         {selected, wxColour()},
                                         {wxtGetColor(color_ButtonFace), wxColour()},
                                         {light, selected},
                                         {light, middle},
                                         {middle, dark},
                                         {dark, row}})
        {
            const wxColour focus = wxtFocusColor({one, other});
            EXPECT_GE(ContrastOf(focus, one), internal::k_MarkContrast) << scheme;
            EXPECT_GE(ContrastOf(focus, other.IsOk() ? other : one), internal::k_MarkContrast)
                << scheme << one.GetAsString() << other.GetAsString();
        }
    }
    // The wanted colour where it will do, and no other hue where it will not.
    const wxColour red(200, 0, 0);
    EXPECT_EQ(red, wxtReadableColor(red, *wxWHITE));
    const wxColour lighter = wxtReadableColor(red, *wxBLACK);
    EXPECT_EQ(lighter.Green(), lighter.Blue());
    EXPECT_GT(lighter.Red(), lighter.Green() + 100);
    EXPECT_FALSE(wxtReadableColor(wxColour(), *wxWHITE).IsOk());
    EXPECT_EQ(red, wxtReadableColor(red, wxColour()));
}

TEST_F(ContrastTest, TheFocusIsSeenOnEveryControl)
{
    wxArrayString items;
    items.Add("one");
    items.Add("two");
    const wxSize           size(150, 40);
    std::vector<wxWindow*> controls;
    const auto             add = [&](wxWindow* control)
    {
        const int place = static_cast<int>(controls.size());
        control->SetSize(10 + place % 3 * 180, 10 + place / 3 * 60, size.x, size.y);
        controls.push_back(control);
    };
    auto* const button = new wxtButton(m_Panel, wxID_OK, "Default");
    add(button);
    add(new wxtButton(m_Panel, wxID_ANY, "Other"));
    add(new wxtBitmapButton(m_Panel, wxID_ANY, wxBitmap(11, 11)));
    add(new wxtCheckBox(m_Panel, wxID_ANY, wxString()));
    add(new wxtRadioButton(m_Panel, wxID_ANY, "Radio"));
    add(new wxtTextCtrl(m_Panel, wxID_ANY));
    add(new wxtChoice(m_Panel, wxID_ANY, wxDefaultPosition, size, items));
    add(new wxtComboBox(m_Panel, wxID_ANY, "", wxDefaultPosition, size, items));
    add(new wxtCheckListBox(m_Panel, wxID_ANY, wxDefaultPosition, size, items));
    add(new wxtCheckListBox(m_Panel, wxID_ANY, wxDefaultPosition, size));
    add(new wxtSearchField(m_Panel, wxID_ANY, "hint"));
    add(new wxtListCtrl(m_Panel, wxID_ANY));
    auto* const text = new wxTextLineCtrl(m_Panel);
    add(text);
    for (int i = 0; i < 9; ++i)
    {
        text->Append("line", false);
    }
    text->SelectAll(); // its frame stands on them
    button->SetDefault();
    for (const int scheme : {scheme_Light, scheme_Dark})
    {
        UseColors(scheme, Frame());
        Focus(controls.back());
        wxImage before = PictureOf(m_Panel);
        // The buttons' line is in the colour of their label, which is the scheme's choice.
        for (std::size_t i = 2; i < controls.size(); ++i)
        {
            wxWindow* const control = controls[i];
            control->SetFocus();
            wxImage    now;
            const auto isSeen = [&]
            {
                now = PictureOf(m_Panel);
                return Marked(before, now, control->GetRect()) >= 20;
            };
            EXPECT_TRUE(WaitFor(isSeen, 2000))
                << scheme << control->GetName() << Kept(now, "focus");
            before = now;
        }
        // The button that has the role by the focus alone, and the one that has it anyway.
        for (wxWindow* const each : {controls[0], controls[1]})
        {
            Focus(each);
            EXPECT_TRUE(WaitFor([&] { return IsUnderlined(each); })) << each->GetName();
        }
        Focus(text);
        EXPECT_TRUE(WaitFor([&] { return !IsUnderlined(button); }));
    }
}
