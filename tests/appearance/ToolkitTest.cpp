#include "appearance/scheme/ToolkitLook.h"
#include "appearance/wxTolvanColors.h"
#include "appearance/wxtMenuKey.h"
#include "internal/drawing/ColorMix.h"
#include "internal/port/PopUps.h"
#include "internal/port/Scrollbars.h"
#include "tests/support/EventCounter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Pictures.h"

#include <wx/filedlg.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/scrolwin.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>
#include <wx/uiaction.h>

#include <memory>

namespace
{
constexpr int kDeadline = 20000; // ms; a picture of the screen takes its time

// Pixels of that colour in squares of it: without letters, icons and the frames of windows.
int AreaOf(const wxImage& image, const wxColour& colour)
{
    constexpr int        kSquare = 6; // pixels
    const unsigned char* pixel = image.GetData();
    std::vector<int>     heights(static_cast<size_t>(image.GetWidth()));
    int                  count = 0;
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        int run = 0;
        for (int& height : heights)
        {
            const bool same =
                pixel[0] == colour.Red() && pixel[1] == colour.Green() && pixel[2] == colour.Blue();
            height = same ? height + 1 : 0;
            run = height >= kSquare ? run + 1 : 0;
            count += run >= kSquare;
            pixel += 3;
        }
    }
    return count;
}

// What the theme alone would fill: grounds of windows, and of menus and lists.
int StockArea(const wxImage& image)
{
    return AreaOf(image, wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE)) +
           AreaOf(image, wxSystemSettings::GetColour(wxSYS_COLOUR_LISTBOX));
}

bool HasWhite(const wxImage& image)
{
    return CountPixels(image, [](const wxColour& colour) { return colour == *wxWHITE; }) > 0;
}

class ToolkitTest : public FrameTest
{
protected:
    // Looks while it is open, and closes it.
    void During(const std::function<void()>& open, const std::function<void()>& look)
    {
        Frame()->CallAfter(
            [look]
            {
                look();
                internal::ClosePopUps();
            });
        open();
        PumpEvents();
    }
    // The screen, when it shows that much of the colour, and nothing of the theme's if so wanted.
    static void ExpectShown(const wxColour& colour, int area, const wxString& what,
                            bool isStock = false)
    {
        wxImage picture;
        EXPECT_TRUE(WaitFor(
            [&]
            {
                picture = PictureOfScreen();
                return AreaOf(picture, colour) >= area;
            },
            kDeadline))
            << what;
        EXPECT_EQ(isStock, StockArea(picture) > 0) << what << ": " << Kept(picture, what);
    }
    void OpenMenu()
    {
        wxMenu menu;
        menu.Append(wxID_ANY, "Plain\tCtrl+P");
        menu.Append(wxID_ANY, "Disabled")->Enable(false);
        menu.AppendSeparator();
        menu.AppendCheckItem(wxID_ANY, "Checked")->Check();
        menu.AppendRadioItem(wxID_ANY, "Chosen");
        menu.AppendSubMenu(new wxMenu, "More");
        Frame()->PopupMenu(&menu, 20, 20);
    }
    void OpenMessage() { wxMessageDialog(Frame(), "A message", "", wxOK).ShowModal(); }
    void OpenFiles() { wxFileDialog(Frame(), "", "/").ShowModal(); }
};
} // namespace

TEST(ToolkitLookTest, CanBeReadInEveryScheme)
{
    const auto expectReadable = [](const String& what)
    {
        const internal::ToolkitColours look = appearance::ToolkitLook();
        const struct
        {
            const wxColour& ink;
            const wxColour& ground;
            double          least;
        } pairs[] = {{look.ink, look.ground, 4.5},
                     {look.ink, look.raised, 4.5},
                     {look.ink, look.sunk, 4.5},
                     {look.buttonInk, look.button, 4.5},
                     {look.selectedInk, look.selected, 4.5},
                     {look.greyInk, look.raised, 2},
                     {look.selected, look.raised, 1.15},
                     {look.ink, look.greyInk, 1.4}};
        for (const auto& pair : pairs)
        {
            EXPECT_GE(internal::ContrastOf(pair.ink, pair.ground), pair.least)
                << what << ": " << pair.ink.GetAsString() << " on " << pair.ground.GetAsString();
        }
        EXPECT_EQ(std::string::npos, internal::CssOf(look).find("rgba"));
    };
    for (const int scheme : {scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker})
    {
        SetColors(scheme);
        expectReadable(std::to_string(scheme));
    }
    SetColors(scheme_Dark);
    wxtSetColor(color_Selected, wxColour(40, 40, 90));
    EXPECT_EQ(wxColour(235, 235, 235), appearance::ToolkitLook().selectedInk);
    wxtSetColor(color_Selected, wxColour(118, 118, 118));
    EXPECT_GE(internal::ContrastOf(appearance::ToolkitLook().selectedInk,
                                   appearance::ToolkitLook().selected),
              4.5);
    for (const char* const name : {"Text", "WindowBG", "Selected"})
    {
        wxtSetColor(name, wxColour());
        EXPECT_TRUE(appearance::ToolkitLook().ink.IsOk()) << name;
        EXPECT_TRUE(appearance::ToolkitLook().selectedInk.IsOk()) << name;
    }
    SetColors(scheme_Dark);
}

TEST_F(ToolkitTest, FollowsTheSchemeInWindowsThatDo)
{
    auto* const inside = new wxPanel(Frame());
    inside->SetBackgroundColour(*wxBLACK);
    wxFrame               other(nullptr, wxID_ANY, "");
    const wxtColorManaged otherFollows(&other); // the style is set
    const wxColour        stock = wxSystemSettings::GetColour(wxSYS_COLOUR_MENU);
    const auto            openMenu = [this] { OpenMenu(); };
    During(openMenu, [&] { ExpectShown(stock, 1000, "a window that does not follow", true); });

    const wxtColorManaged follows(Frame());
    const struct
    {
        const char*           what;
        std::function<void()> open;
        const String&         ground;
        int                   area; // pixels
    } kParts[] = {
        {"menu", openMenu, color_WindowBGLighter, 1000},
        {"message", [this] { OpenMessage(); }, color_WindowBG, 1000},
        {"files", [this] { OpenFiles(); }, color_WindowBGLighter, 10000},
        {"files again", [this] { OpenFiles(); }, color_WindowBGLighter, 10000},
    };
    int scheme = scheme_Dark;
    for (const auto& part : kParts)
    {
        During(part.open,
               [&]
               {
                   for (int i = 0; i < 2; ++i) // with another scheme while it is open
                   {
                       ExpectShown(wxtGetColor(part.ground), part.area, part.what);
                       EXPECT_FALSE(&part == kParts && HasWhite(PictureOf(Frame())))
                           << "disabled items: " << Kept(PictureOf(Frame()), "disabled");
                       scheme = scheme == scheme_Dark ? scheme_Darker : scheme_Dark;
                       UseColors(scheme, Frame());
                   }
               });
    }
}

TEST_F(ToolkitTest, AMessageBeforeAnyWindowFollowsTheScheme)
{
    const wxtColorManaged follows(Frame()); // the style is set
    Frame()->Hide();
    During([] { wxMessageDialog(nullptr, "A message", "", wxOK).ShowModal(); },
           [] { ExpectShown(wxtGetColor(color_WindowBG), 1000, "lone message"); });
}

TEST_F(ToolkitTest, ScrollbarsAndTooltipsFollowTheScheme)
{
    const wxtColorManaged follows(Frame());
    auto* const           view = new wxScrolledWindow(Frame());
    const wxtColorManaged viewFollows(view);
    internal::UseSolidScrollbars(*view);
    view->SetScrollbars(10, 10, 500, 500);
    Frame()->SendSizeEvent();
    for (const int scheme : {scheme_Dark, scheme_Light})
    {
        UseColors(scheme, Frame());
        const auto look = appearance::ToolkitLook();
        ExpectShown(look.sunk, 3000, "troughs");
        ExpectShown(internal::MixColours(look.ink, look.sunk, 0.5), 50, "thumbs");
    }
    view->Destroy();
    auto* const hovered = new wxPanel(Frame());
    hovered->SetBackgroundColour(*wxBLACK);
    hovered->SetToolTip("A tooltip\n\n\nwith room between its lines"); // for squares
    Frame()->SendSizeEvent();
    wxUIActionSimulator().MouseMove(Frame()->ClientToScreen(wxPoint(100, 100)));
    PumpEvents();
    wxUIActionSimulator().MouseMove(Frame()->ClientToScreen(wxPoint(103, 103)));
    ExpectShown(wxtGetColor(color_WindowBGDarker), 1000, "tooltip");
    UseColors(scheme_Darker, Frame());
    ExpectShown(wxtGetColor(color_WindowBGDarker), 1000, "tooltip while it is shown");
}

// The control that has the keys gets it, once.
TEST_F(ToolkitTest, AKeyBesideAMenuEntryIsNoAccelerator)
{
    auto* const panel =
        new wxtPanel(Frame(), wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS);
    EventCounter keys(panel, wxEVT_KEY_DOWN);
    EventCounter commands(Frame(), wxEVT_MENU);
    auto* const  menu = new wxMenu;
    auto* const  bar = new wxMenuBar;
    wxMenuItem&  item = *menu->Append(wxID_ANY, "One");
    bar->Append(menu, "Menu");
    Frame()->SetMenuBar(bar);
    EXPECT_FALSE(wxtShowMenuKey(item, ""));
    EXPECT_FALSE(wxtShowMenuKey(item, "Ctrl+Nonsense"));
    EXPECT_TRUE(wxtShowMenuKey(item, "Ctrl+F"));
    EXPECT_FALSE(wxtShowMenuKey(item, "F3")) << "it has one";
    for (const char* const key : {"F3", "Shift+Home", "Alt+PgDn", "Esc", "Ctrl+,"})
    {
        EXPECT_TRUE(wxtShowMenuKey(*menu->Append(wxID_ANY, key), key)) << key;
    }
    panel->SetFocus();
    EXPECT_TRUE(WaitFor([&] { return panel->HasFocus() && Frame()->IsActive(); }));
    wxUIActionSimulator().Char('f', wxMOD_CONTROL);
    EXPECT_TRUE(WaitFor([&] { return keys.Count() == 2; })); // and Ctrl itself
    PumpEvents();
    EXPECT_EQ(0, commands.Count());
}
