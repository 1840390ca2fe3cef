#include "appearance/wxTolvanColors.h"
#include "internal/drawing/ColorMix.h"
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

wxColour Same(const wxColour& colour)
{
    return colour;
}

using Change = wxColour (*)(const wxColour&);

class RendererTest : public testing::Test
{
protected:
    RendererTest() { SetColors(scheme_Dark); }
};
} // namespace

TEST_F(RendererTest, BoxIsAFrameTwoStepsOfBevelAndAFace)
{
    const std::pair<int, Change> looks[] = {
        {0, Same},
        {wxCONTROL_CURRENT, Hilight},
        {wxCONTROL_FOCUSED | wxCONTROL_CURRENT, Hilight},
        {wxCONTROL_DISABLED, Disabled},
        {wxCONTROL_CHECKED, Same},
        {wxCONTROL_CHECKED | wxCONTROL_FOCUSED, Hilight},
        {wxCONTROL_CHECKED | wxCONTROL_DISABLED, Disabled},
    };
    for (const auto& [flags, change] : looks)
    {
        const bool     checked = flags & wxCONTROL_CHECKED;
        const wxColour frame = change(wxtGetColor(color_WindowBGDarker));
        const wxColour face = change(wxtGetColor(checked ? color_Selected : color_ButtonFace));
        const wxColour light = change(wxtGetColor(checked ? color_3DDark : color_3DLight));
        const wxColour dark = change(wxtGetColor(checked ? color_3DLight : color_3DDark));
        const wxImage  image =
            Picture(&wxtRenderer::DrawCheckBox, wxRect(1, 1, kSide, kSide), flags);
        const wxColour across[] = {kPaper, frame, light, internal::MixColours(light, face, 0.5),
                                   face};
        const wxColour back[] = {kPaper, frame, dark, internal::MixColours(dark, face, 0.5), face};
        for (int i = 0; i < 5; ++i)
        {
            SCOPED_TRACE(std::to_string(flags) + " " + std::to_string(i));
            EXPECT_EQ(across[i], PixelAt(image, i, kSide / 2));
            EXPECT_EQ(across[i], PixelAt(image, kSide / 2, i));
            EXPECT_EQ(back[i], PixelAt(image, kSide + 1 - i, kSide / 2));
            EXPECT_EQ(back[i], PixelAt(image, kSide / 2, kSide + 1 - i));
        }
        EXPECT_EQ(light, PixelAt(image, 2, kSide - 1)) << "the lit edges reach the corners";
        EXPECT_FALSE(HasFailure()) << Kept(image, "check-box");
    }
}

// Unlike a box's, its states add up.
TEST_F(RendererTest, RadioButtonIsRingsRoundAFace)
{
    const auto of = [](const String& name) { return wxtGetColor(name); };
    const auto lit = [](const String& name) { return Hilight(wxtGetColor(name)); };
    const struct
    {
        int      flags;
        wxColour face, light, dark, frame;
    } looks[] = {
        {0, of(color_ButtonFace), of(color_3DLight), of(color_3DDark), of(color_WindowBGDarker)},
        {wxCONTROL_FOCUSED | wxCONTROL_CURRENT, lit(color_ButtonFace), lit(color_3DLight),
         lit(color_3DDark), lit(color_WindowBG)},
        {wxCONTROL_CHECKED | wxCONTROL_CURRENT, lit(color_Selected), of(color_3DDark),
         of(color_3DLight), lit(color_WindowBGDarker)},
        {wxCONTROL_CHECKED | wxCONTROL_DISABLED, Disabled(of(color_Selected)),
         Disabled(of(color_3DDark)), Disabled(of(color_3DLight)),
         Disabled(of(color_WindowBGDarker))},
    };
    for (const auto& look : looks)
    {
        SCOPED_TRACE(look.flags);
        const wxImage image =
            Picture(&wxtRenderer::DrawRadioBitmap, wxRect(1, 1, kSide, kSide), look.flags);
        // Where the rings lie flat on the pixels: straight up and down of the centre. The edge of a
        // circle is smoothed, and not the same way on both ports.
        const int           kEdge = 60;
        const unsigned long kRingColours = 12; // with the paper
        const int           middle = 1 + kSide / 2;
        EXPECT_EQ(look.face, PixelAt(image, middle, middle));
        EXPECT_TRUE(Near(look.frame, PixelAt(image, middle, 1), kEdge));
        EXPECT_TRUE(Near(look.light, PixelAt(image, middle, 2), kEdge));
        EXPECT_TRUE(Near(look.dark, PixelAt(image, middle, kSide - 1), kEdge));
        EXPECT_EQ(kPaper, PixelAt(image, 1, 1)) << "the corners stay free";
        EXPECT_LT(kRingColours, image.CountColours()) << "smooth edges";
        EXPECT_FALSE(HasFailure()) << Kept(image, "radio-button");
    }
}

TEST_F(RendererTest, ArrowStandsAtTheRightEnd)
{
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
TEST_F(RendererTest, MarksAreDrawnHoweverSmallTheirPlaceIs)
{
    for (const Draw mark : {&wxtRenderer::DrawCheckBox, &wxtRenderer::DrawRadioBitmap,
                            &wxtRenderer::DrawDropArrow, &wxtRenderer::DrawComboBoxDropButton})
    {
        for (int side = -12; side < 12; ++side)
        {
            Picture(mark, wxRect(12, 12, side, 12), 0);
            Picture(mark, wxRect(12, 12, 12, side), 0);
            const wxImage image = Picture(mark, wxRect(12, 12, side, side), 0);
            EXPECT_EQ(kPaper, PixelAt(image, std::max(12 + side, 12), 12)) << side;
        }
    }
}

// The toolkit's generic renderer has not implemented all of them, and asserts.
TEST_F(RendererTest, TheProgramsOwnDrawsWhateverItIsAsked)
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
TEST_F(RendererTest, InvalidColoursAreLeftOut)
{
    wxtSetColor(color_ButtonFace, wxColour());
    wxtSetColor(color_3DDark, wxColour());
    const wxImage image = Picture(&wxtRenderer::DrawCheckBox, wxRect(0, 0, 20, 20), 0);
    EXPECT_EQ(wxtGetColor(color_WindowBGDarker), PixelAt(image, 0, 10));
    EXPECT_EQ(kPaper, PixelAt(Picture(&wxtRenderer::DrawComboBoxDropButton, wxRect(0, 0, 20, 20),
                                      wxCONTROL_DISABLED),
                              1, 1));
}
