#include "appearance/wxTolvanColors.h"
#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/dcmemory.h>

namespace
{
using Draw = void (wxtRenderer::*)(wxWindow*, wxDC&, const wxRect&, int);

const wxColour kPaper(1, 2, 3);
constexpr int  kSide = 18; // pixels of a box in a control of one line

wxImage Picture(Draw draw, const wxRect& rect, int flags)
{
    return Drawn(wxSize(24, 24), kPaper,
                 [&](wxDC& dc)
                 {
                     wxtRenderer renderer(wxRendererNative::GetDefault());
                     (renderer.*draw)(nullptr, dc, rect, flags);
                 });
}

struct State
{
    const char* name;
    int         flags;
};

// The nine looks; of several states at once, too.
const State kStates[] = {
    {"plain", 0},
    {"hovered", wxCONTROL_CURRENT},
    {"focused", wxCONTROL_FOCUSED},
    {"focused and hovered", wxCONTROL_FOCUSED | wxCONTROL_CURRENT},
    {"disabled", wxCONTROL_DISABLED},
    {"checked", wxCONTROL_CHECKED},
    {"checked, hovered", wxCONTROL_CHECKED | wxCONTROL_CURRENT},
    {"checked, focused", wxCONTROL_CHECKED | wxCONTROL_FOCUSED},
    {"checked, disabled", wxCONTROL_CHECKED | wxCONTROL_DISABLED},
};

wxColour Half(const wxColour& a, const wxColour& b)
{
    const auto half = [](int first, int second)
    { return static_cast<unsigned char>((first + second) / 2); };
    return wxColour(half(a.Red(), b.Red()), half(a.Green(), b.Green()), half(a.Blue(), b.Blue()));
}

wxColour Same(const wxColour& colour)
{
    return colour;
}

class RendererTest : public testing::TestWithParam<State>
{
protected:
    RendererTest() { SetColors(scheme_Dark); }

    static bool     Has(int flag) { return GetParam().flags & flag; }
    static bool     Checked() { return Has(wxCONTROL_CHECKED); }
    static wxColour Face() { return wxtGetColor(Checked() ? color_Selected : color_ButtonFace); }
    static wxColour Light() { return wxtGetColor(Checked() ? color_3DDark : color_3DLight); }
    static wxColour Dark() { return wxtGetColor(Checked() ? color_3DLight : color_3DDark); }
};
} // namespace

TEST_P(RendererTest, BoxIsAFrameTwoStepsOfBevelAndAFace)
{
    const auto     lit = Has(wxCONTROL_DISABLED)                      ? &Disabled
                         : Has(wxCONTROL_FOCUSED | wxCONTROL_CURRENT) ? &Hilight
                                                                      : &Same;
    const wxColour frame = lit(wxtGetColor(color_WindowBGDarker));
    const wxColour face = lit(Face());
    const wxColour light = lit(Light());
    const wxColour dark = lit(Dark());
    const wxImage  image =
        Picture(&wxtRenderer::DrawCheckBox, wxRect(1, 1, kSide, kSide), GetParam().flags);

    const wxColour across[] = {kPaper, frame, light, Half(light, face), face};
    const wxColour back[] = {kPaper, frame, dark, Half(dark, face), face};
    for (int i = 0; i < 5; ++i)
    {
        SCOPED_TRACE(i);
        EXPECT_EQ(across[i], PixelAt(image, i, kSide / 2));
        EXPECT_EQ(across[i], PixelAt(image, kSide / 2, i));
        EXPECT_EQ(back[i], PixelAt(image, kSide + 1 - i, kSide / 2));
        EXPECT_EQ(back[i], PixelAt(image, kSide / 2, kSide + 1 - i));
    }
    EXPECT_EQ(light, PixelAt(image, 2, kSide - 1)) << "the lit edges reach the corners";
    EXPECT_FALSE(testing::Test::HasFailure()) << Kept(image, "check-box");
}

TEST_P(RendererTest, RadioButtonIsRingsRoundAFace)
{
    // Unlike a box's, its states add up.
    wxColour frame = wxtGetColor(color_WindowBGDarker);
    wxColour face = Face();
    wxColour light = Light();
    wxColour dark = Dark();
    for (wxColour* const colour : {&frame, &face, &light, &dark})
    {
        *colour = Has(wxCONTROL_DISABLED) ? Disabled(*colour) : *colour;
    }
    if (Has(wxCONTROL_FOCUSED))
    {
        light = Hilight(light);
        dark = Hilight(dark);
        frame = wxtGetColor(color_WindowBG);
    }
    if (Has(wxCONTROL_CURRENT))
    {
        face = Hilight(face);
        frame = Hilight(frame);
    }
    const wxImage image =
        Picture(&wxtRenderer::DrawRadioBitmap, wxRect(1, 1, kSide, kSide), GetParam().flags);

    // Where the rings lie flat on the pixels: straight up, down, left and right of the centre. The
    // edge of a circle is smoothed, and not the same way on both ports.
    const int kEdge = 60;
    const int middle = 1 + kSide / 2;
    const int top = 2;
    const int bottom = kSide - 1;
    EXPECT_EQ(face, PixelAt(image, middle, middle));
    EXPECT_TRUE(Near(frame, PixelAt(image, middle, 1), kEdge));
    EXPECT_TRUE(Near(light, PixelAt(image, middle, top), kEdge));
    EXPECT_TRUE(Near(dark, PixelAt(image, middle, bottom), kEdge));
    EXPECT_EQ(kPaper, PixelAt(image, 1, 1)) << "the corners stay free";
    EXPECT_FALSE(testing::Test::HasFailure()) << Kept(image, "radio-button");
}

INSTANTIATE_TEST_SUITE_P(States, RendererTest, testing::ValuesIn(kStates));

TEST(RendererDropButton, ArrowStandsAtTheRightEnd)
{
    SetColors(scheme_Dark);
    const wxColour face = wxtGetColor(color_ButtonFace);
    const wxColour ink = wxtGetColor(color_ButtonText);
    const wxImage  image = Picture(&wxtRenderer::DrawComboBoxDropButton, wxRect(0, 0, 20, 20), 0);
    struct
    {
        int  x, y;
        bool inked;
    } const probes[] = {{11, 5, true},   {17, 5, true},   {14, 9, true},
                        {14, 12, true},  {8, 5, false},   {14, 3, false},
                        {14, 16, false}, {10, 12, false}, {18, 12, false}};
    for (const auto& probe : probes)
    {
        EXPECT_EQ(probe.inked ? ink : face, PixelAt(image, probe.x, probe.y))
            << probe.x << ", " << probe.y << ": " << Kept(image, "drop-button");
    }
    EXPECT_EQ(kPaper, PixelAt(image, 20, 10));
}

// The toolkit asserts when it is asked for an arc in nothing.
TEST(RendererMarks, AreDrawnHoweverSmallTheirPlaceIs)
{
    SetColors(scheme_Dark);
    for (const Draw mark : {&wxtRenderer::DrawCheckBox, &wxtRenderer::DrawRadioBitmap})
    {
        for (int side = 0; side < 12; ++side)
        {
            const wxImage image = Picture(mark, wxRect(12, 12, side, side), 0);
            EXPECT_EQ(kPaper, PixelAt(image, 12 + side, 12)) << side;
        }
    }
}

// The toolkit's generic renderer has not implemented all of them, and asserts.
TEST(RendererOfTheProgram, DrawsWhateverItIsAsked)
{
    using Call = void (wxRendererNative::*)(wxWindow*, wxDC&, const wxRect&, int);
    for (const Call call : {&wxRendererNative::DrawChoice, &wxRendererNative::DrawComboBox,
                            &wxRendererNative::DrawTextCtrl, &wxRendererNative::DrawRadioBitmap})
    {
        wxBitmap   bitmap(40, 24);
        wxMemoryDC dc(bitmap);
        (wxRendererNative::Get().*call)(wxTheApp->GetTopWindow(), dc, wxRect(0, 0, 40, 24), 0);
    }
}

// A colour that the user has misspelt draws nothing rather than asserting.
TEST(RendererColours, InvalidOnesAreLeftOut)
{
    SetColors(scheme_Dark);
    wxtSetColor(color_ButtonFace, wxColour());
    wxtSetColor(color_3DDark, wxColour());
    const wxImage image = Picture(&wxtRenderer::DrawCheckBox, wxRect(0, 0, 20, 20), 0);
    EXPECT_EQ(wxtGetColor(color_WindowBGDarker), PixelAt(image, 0, 10));
    EXPECT_EQ(kPaper, PixelAt(Picture(&wxtRenderer::DrawComboBoxDropButton, wxRect(0, 0, 20, 20),
                                      wxCONTROL_DISABLED),
                              1, 1));
}
