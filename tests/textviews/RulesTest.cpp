#include "appearance/Contrast.h"
#include "internal/drawing/ColorMix.h"
#include "tests/textviews/TextViewTest.h"
#include "textviews/drawing/TextPalette.h"
#include "textviews/overview/OverviewStrip.h"
#include "textviews/wxTextRules.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace
{
const int kSchemes[] = {scheme_Default, scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker};

wxImage LineOf(const TestView& view, const wxImage& picture, int line)
{
    return picture.GetSubImage(wxRect(0, line * view.LineHeight(), 500, view.LineHeight()));
}

// As it is once all that was asked for has been drawn.
wxImage Shown(TestView& view)
{
    view.Redraw();
    view.PaintNow();
    return view.Picture();
}

int Count(const wxImage& image, const wxColour& colour)
{
    return CountPixels(image, [&](const wxColour& pixel) { return pixel == colour; });
}

// Pixels of text in that ink, more ink than ground: whatever the font, the edges of its letters are
// mixtures of both, and thin ones may have no pixel of the ink alone.
int CountInk(const wxImage& image, const wxColour& ground, const wxColour& ink)
{
    const auto isLike = [&](const wxColour& pixel)
    {
        const int parts[][3] = {{ground.Red(), ink.Red(), pixel.Red()},
                                {ground.Green(), ink.Green(), pixel.Green()},
                                {ground.Blue(), ink.Blue(), pixel.Blue()}};
        double    along = 0; // on the way from the ground to the ink
        double    whole = 0;
        for (const auto& [from, to, here] : parts)
        {
            along += (here - from) * (to - from);
            whole += (to - from) * (to - from);
        }
        const double share = along / whole;
        return share > 0.6 && share < 1.1 &&
               std::all_of(std::begin(parts), std::end(parts),
                           [share](const auto& part)
                           {
                               const auto& [from, to, here] = part;
                               return std::abs(from + share * (to - from) - here) < 4;
                           });
    };
    return CountPixels(image, isLike);
}

wxTextRule MatchRule(const String& pattern, const wxColour& colour)
{
    wxTextRule rule;
    rule.pattern = pattern;
    rule.colour = colour;
    return rule;
}

textviews::OverviewStrip* StripIn(const wxWindow& view)
{
    for (wxWindow* const child : view.GetChildren())
    {
        if (auto* const strip = dynamic_cast<textviews::OverviewStrip*>(child))
        {
            return strip;
        }
    }
    return nullptr;
}

/// The rows of the strip on the screen in which that colour is.
std::vector<int> RowsWith(wxWindow& strip, const wxColour& colour)
{
    const wxImage    image = PictureOf(&strip);
    std::vector<int> rows;
    for (int y = 0; y < image.GetHeight(); ++y)
    {
        bool has = false;
        for (int x = 0; x < image.GetWidth(); ++x)
        {
            has = has || PixelAt(image, x, y) == colour;
        }
        if (has)
        {
            rows.push_back(y);
        }
    }
    return rows;
}
} // namespace

TEST_F(TextViewTest, ColoursOfRulesCanBeReadInEveryScheme)
{
    for (const int scheme : kSchemes)
    {
        UseColors(scheme, m_View);
        const textviews::TextPalette palette(wxtGetColor(color_WindowBGLighter),
                                             wxtGetColor(color_Selected),
                                             wxtGetColor(color_TextBlue));
        for (const wxTextRule& rule : wxStandardTextRules())
        {
            for (const bool hover : {false, true})
            {
                for (const bool marked : {false, true})
                {
                    const wxColour band = palette.Band({false, hover, marked, false});
                    const wxColour ink = rule.WantedColour();
                    EXPECT_TRUE(!ink.IsOk() ||
                                internal::ContrastOf(internal::MadeReadable(ink, band), band) >=
                                    internal::k_TextContrast)
                        << rule.name << scheme;
                }
            }
        }
    }
}

TEST_F(TextViewTest, RulesColourLinesAndMatches)
{
    Append({"MMMM MMMM", "MMMM error MMMM", "MMMM info MMMM",
            "\x1b[34m\u2588\u2588\x1b[0m error MMMM"});
    Focus(m_View);
    const wxImage without = Shown(*m_View);
    m_View->SetRules(wxStandardTextRules());
    const wxImage raw = Shown(*m_View);
    EXPECT_TRUE(SamePixels(LineOf(*m_View, raw, 0), LineOf(*m_View, without, 0)));
    const wxColour ground = wxtGetColor(color_WindowBGLighter);
    const wxColour red = wxtReadableColor(wxtGetColor(color_TextRed), ground);
    const wxColour blue = wxtReadableColor(wxtGetColor(color_TextBlue), ground);
    const wxColour own = wxtGetColor(color_Text);
    const auto     has = [&](const wxImage& picture, int line, const wxColour& colour)
    { return CountInk(LineOf(*m_View, picture, line), ground, colour) > 5; };
    EXPECT_TRUE(has(raw, 1, red)) << Kept(raw, "rules");
    EXPECT_FALSE(has(raw, 1, own));
    EXPECT_TRUE(has(raw, 2, blue)) << Kept(raw, "rules");
    EXPECT_TRUE(has(raw, 2, own));
    // What a program has coloured keeps its colour.
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Coloured);
    const wxImage  coloured = Shown(*m_View);
    const wxColour programs = wxtReadableColor(wxtGetColor(color_TextDarkBlue), ground);
    EXPECT_TRUE(has(coloured, 3, red));
    EXPECT_TRUE(has(coloured, 3, programs)) << Kept(coloured, "rules");
    EXPECT_FALSE(has(coloured, 3, own));
    // A selected line looks as without rules.
    Drag(1, 2);
    const wxImage selected = Shown(*m_View);
    m_View->SetRules({});
    const wxImage plain = Shown(*m_View);
    for (const int line : {1, 2})
    {
        EXPECT_TRUE(SamePixels(LineOf(*m_View, selected, line), LineOf(*m_View, plain, line)));
    }
    m_View->SelectNone();
    m_View->SetEscapes(wxTextLineCtrl::Escapes::Raw);
    m_View->SetHighlightLine(-1);
    EXPECT_TRUE(SamePixels(Shown(*m_View), without));
}

TEST_F(TextViewTest, RulesColourLongLinesWhereverTheyAreSeen)
{
    const wxColour green(0, 255, 0);
    UseColors(scheme_Darker, m_View);
    m_View->Append(String(300'000, 'x') + "needle" + String(500, 'y'), false);
    m_View->SetRules({MatchRule("needle", green)});
    EXPECT_EQ(Count(Shown(*m_View), green), 0);
    m_View->SetScrollPos(wxHORIZONTAL, m_View->ColumnWidth() * 299'980);
    const auto shows = [&] { return Count(Shown(*m_View), green) > 0; };
    EXPECT_TRUE(WaitFor(shows)) << Kept(Shown(*m_View), "long");
    // Lines that come before it, and go, take the colour along.
    m_View->Append("another", false);
    m_View->Erase(0);
    EXPECT_EQ(Count(Shown(*m_View), green), 0);
}

TEST_F(TextViewTest, TheKeysGoFromErrorToError)
{
    AppendNumbered(2000);
    m_View->Append("an error", false);
    AppendNumbered(1000);
    m_View->Append("one more error", false);
    m_View->OfferReadingCommands(true);
    Focus(m_View);
    Press(WXK_F8);
    PumpEvents();
    EXPECT_EQ(m_View->GetSelectionEnd(), -1) << "there are no rules";
    m_View->SetRules(wxStandardTextRules());
    const auto press = [&](int modifiers, int line)
    {
        Press(WXK_F8, modifiers);
        return WaitFor([&] { return m_View->GetSelectionEnd() == line; }) &&
               !m_View->IsFindingError();
    };
    EXPECT_TRUE(press(0, 2000));
    EXPECT_EQ(m_View->GetNote(), "");
    EXPECT_TRUE(press(0, 3001));
    EXPECT_TRUE(press(0, 2000));
    EXPECT_EQ(m_View->GetNote(), "Went on from the top");
    EXPECT_TRUE(press(wxMOD_SHIFT, 3001));
    EXPECT_EQ(m_View->GetNote(), "Went on from the bottom");
    Press(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return m_View->GetNote().empty(); }));
    m_View->Erase(3001);
    m_View->Erase(2000);
    m_View->Append("a warning", false);
    m_View->Menu(wxTextLineCtrl::id_NextError);
    EXPECT_TRUE(WaitFor([&] { return m_View->GetSelectionEnd() == 3000; }));
    EXPECT_EQ(m_View->GetNote(), "There are no errors: a warning");
    m_View->Clear();
    AppendNumbered(3);
    m_View->FindError(true);
    EXPECT_EQ(m_View->GetNote(), "There are no errors and no warnings");
}

TEST_F(TextViewTest, ALongSearchForErrorsIsStoppedByEsc)
{
    m_View->SetRules(wxStandardTextRules());
    for (int i = 0; i < 400'000; ++i)
    {
        m_View->Append("frame 12 of the scene has been rendered and was written to its file",
                       false);
    }
    m_View->FindError(true);
    ASSERT_TRUE(m_View->IsFindingError()) << m_View->GetNote();
    EXPECT_FALSE(m_View->GetNote().empty());
    m_View->Append("an error that comes meanwhile", false);
    EXPECT_TRUE(WaitFor([&] { return m_View->GetSelectionEnd() == 400'000; }));
    m_View->Erase(400'000);
    m_View->FindError(true);
    ASSERT_TRUE(m_View->IsFindingError());
    Focus(m_View);
    Press(WXK_ESCAPE);
    EXPECT_TRUE(WaitFor([&] { return !m_View->IsFindingError(); }));
    EXPECT_EQ(m_View->GetNote(), "");
    m_View->FindError(true);
    m_View->Clear();
    EXPECT_FALSE(m_View->IsFindingError());
    PumpEvents();
    EXPECT_EQ(m_View->GetNote(), "");
}

TEST_F(TextViewTest, TheStripShowsWhereErrorsAre)
{
    UseColors(scheme_Darker, m_View);
    m_View->SetRules(wxStandardTextRules());
    m_View->ShowOverview(true);
    for (int i = 0; i < 10'000; ++i)
    {
        m_View->Append(i == 5000 ? "an error" : i == 9000 ? "a warning" : "frame done", false);
    }
    textviews::OverviewStrip* const strip = StripIn(*m_View);
    ASSERT_TRUE(strip);
    UseColors(scheme_Darker, strip);
    const int height = strip->GetClientSize().y;
    EXPECT_EQ(strip->GetRect().GetRight(), m_View->GetClientSize().x - 1);
    EXPECT_EQ(height, m_View->GetClientSize().y);
    const wxColour red = wxtGetColor(color_TextRed); // 3 to 1 or more on that ground
    const auto     isAt = [&](const wxColour& colour, int line, int count)
    {
        return WaitFor(
            [&]
            {
                const std::vector<int> rows = RowsWith(*strip, colour);
                return !rows.empty() && rows.front() == line * height / count && rows.size() <= 3;
            });
    };
    EXPECT_TRUE(isAt(red, 5000, 10'000));
    EXPECT_TRUE(isAt(wxtGetColor(color_TextOrange), 9000, 10'000));
    for (int i = 0; i < 10'000; ++i)
    {
        m_View->Append("frame done", false);
    }
    EXPECT_TRUE(isAt(red, 5000, 20'000)) << "it follows lines that come";
    m_View->SetBookmark(16'000);
    EXPECT_TRUE(isAt(wxtGetColor(color_TextBlue), 16'000, 20'000));
    m_View->Erase(5000);
    EXPECT_TRUE(WaitFor([&] { return RowsWith(*strip, red).empty(); }));
    m_View->ShowOverview(false);
    PumpEvents();
    EXPECT_FALSE(StripIn(*m_View));
}

TEST_F(TextViewTest, AClickIntoTheStripGoesToWhatIsMarkedThere)
{
    m_View->SetRules(wxStandardTextRules());
    m_View->ShowOverview(true);
    for (int i = 0; i < 100'000; ++i)
    {
        m_View->Append(i == 50'123 ? "an error" : "frame done", false);
    }
    textviews::OverviewStrip* const strip = StripIn(*m_View);
    const auto                      mouse = [&](wxEventType type, int y, bool down)
    {
        wxMouseEvent event(type);
        event.SetEventObject(strip);
        event.SetPosition(wxPoint(4, y));
        event.SetLeftDown(down);
        strip->ProcessWindowEvent(event);
    };
    const int height = strip->GetClientSize().y;
    PumpEvents();
    EXPECT_TRUE(WaitFor(
        [&]
        {
            mouse(wxEVT_LEFT_DOWN, height * 50'123 / 100'000, true);
            mouse(wxEVT_LEFT_UP, height / 2, false);
            const int top = m_View->GetScrollPos(wxVERTICAL) / m_View->LineHeight();
            return top <= 50'123 && top + height / m_View->LineHeight() >= 50'123;
        }));
    // A drag takes what is seen along, as far as both ends, and past them.
    mouse(wxEVT_LEFT_DOWN, height / 2, true);
    mouse(wxEVT_MOTION, -50, true);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), 0);
    mouse(wxEVT_MOTION, height + 50, true);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    mouse(wxEVT_LEFT_UP, height + 50, false);
    mouse(wxEVT_MOTION, 10, false);
    EXPECT_EQ(m_View->GetScrollPos(wxVERTICAL), Bottom());
    // It goes in the middle of a drag.
    mouse(wxEVT_LEFT_DOWN, height / 2, true);
    m_View->ShowOverview(false);
    PumpEvents();
    EXPECT_EQ(wxWindow::GetCapture(), nullptr);
}

// Nothing is hidden by the strip for good.
TEST_F(TextViewTest, TheEndOfTheLongestLineIsLeftOfTheStrip)
{
    m_View->Append(String(500, 'M') + "E", false);
    PumpEvents();
    const int before = m_View->VirtualWidth();
    m_View->ShowOverview(true);
    EXPECT_EQ(m_View->VirtualWidth(), before + StripIn(*m_View)->GetSize().x);
    ASSERT_TRUE(m_View->Search("E", true, true));
    const int end = 501 * m_View->ColumnWidth() - m_View->GetScrollPos(wxHORIZONTAL);
    EXPECT_LE(end, StripIn(*m_View)->GetPosition().x);
}
