#include "appearance/Contrast.h"
#include "internal/drawing/ColorMix.h"
#include "tests/textviews/TextViewTest.h"
#include "textviews/drawing/HitMarks.h"
#include "textviews/drawing/TextPalette.h"

#include <wx/stopwatch.h>

#include <algorithm>
#include <functional>
#include <random>

namespace
{
/// The pixels of one cell of a line, in a picture of the view that is not scrolled.
wxImage CellOf(const TestView& view, const wxImage& picture, int line, int cell)
{
    const int width = view.ColumnWidth();
    return picture.GetSubImage(
        wxRect(width / 2 + cell * width, line * view.LineHeight(), width, view.LineHeight()));
}

bool IsBlank(const wxImage& image)
{
    const unsigned char* const data = image.GetData();
    const int                  size = image.GetWidth() * image.GetHeight() * 3;
    return std::equal(data, data + size - 3, data + 3); // every pixel is as the next one
}
} // namespace

TEST_F(TextViewTest, BandsTellTheStateInEveryScheme)
{
    AppendNumbered(6);
    Drag(1, 2);
    ASSERT_TRUE(m_View->Search("line 4", true, true));
    for (const int scheme : {scheme_Dark, scheme_Light, scheme_Lighter, scheme_Darker})
    {
        UseColors(scheme, m_View);
        const wxColour plain = wxtGetColor(color_WindowBGLighter);
        const wxColour selected = wxtGetColor(color_Selected);
        const wxColour marked = internal::MixColours(plain, wxtGetColor(color_TextBlue), 0.75);
        // The last one is below the lines.
        const wxColour expected[] = {
            plain, selected, OffsetColor(selected, 10, 10, 10), plain, marked, plain, plain};
        const wxImage picture = m_View->Picture();
        for (int line = 0; line < 7; ++line)
        {
            const wxRect band(0, line * m_View->LineHeight(), picture.GetWidth(),
                              m_View->LineHeight());
            const wxRect inside = wxRect(band).Deflate(2); // of the mark of the keyboard's focus
            for (const wxPoint& corner : {inside.GetTopLeft(), inside.GetBottomRight()})
            {
                EXPECT_EQ(PixelAt(picture, corner.x, corner.y), expected[line])
                    << "scheme " << scheme << " line " << line << " " << Kept(picture, "bands");
            }
        }
        EXPECT_EQ(PixelAt(picture, 5, picture.GetHeight() - 3), plain);
        EXPECT_EQ(PixelAt(picture, 5, picture.GetHeight() - 1), wxtFocusColor({plain, selected}));
    }
}

TEST_F(TextViewTest, SelectedTextCanBeMadeReadable)
{
    AppendNumbered(6);
    Drag(1, 2);
    for (const int scheme :
         {scheme_Default, scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker})
    {
        UseColors(scheme, m_View);
        const wxColour text = wxtGetColor(color_Text);
        const wxColour ground = wxtGetColor(color_Selected);
        const wxColour ink = textviews::ReadableInk(text, ground);
        EXPECT_GE(internal::ContrastOf(ink, ground), internal::k_TextContrast) << scheme;
        // In the second line, where the letters are thickest.
        const auto nearest = [&]
        {
            const wxImage picture = m_View->Picture();
            double        least = 21;
            for (int y = m_View->LineHeight(); y < 2 * m_View->LineHeight(); ++y)
            {
                for (int x = 5; x < 60; ++x)
                {
                    least = std::min(least, internal::ContrastOf(PixelAt(picture, x, y), ink));
                }
            }
            return least;
        };
        m_View->SetReadableSelection(false);
        EXPECT_EQ(ink == text, nearest() < 2) << scheme;
        m_View->SetReadableSelection(true);
        EXPECT_LT(nearest(), 2) << scheme;
    }
}

// In every scheme, and whatever else the line is; the one that was found last is marked otherwise.
TEST_F(TextViewTest, AllHitsAreMarkedAndCanBeRead)
{
    Append({"a hit, a hit", "none", "\xe6\xbc\xa2 hit", String(300, 'x') + "hit"});
    Panel().SetText("hit");
    Panel().SetMarkAll(true);
    Panel().Show();
    Panel().SetMatchCase(true);
    Drag(2, 2);
    Panel().Find(true);
    ASSERT_EQ(m_View->GetMatchColumn(), 2);
    // Below the letters.
    const auto cell = [&](const wxImage& picture, int line, int column)
    { return PixelAt(CellOf(*m_View, picture, line, column), 1, m_View->LineHeight() - 2); };
    for (const int scheme : {scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker})
    {
        UseColors(scheme, m_View);
        const textviews::TextPalette palette(wxtGetColor(color_WindowBGLighter),
                                             wxtGetColor(color_Selected),
                                             wxtGetColor(color_TextBlue));
        const auto                   markOf = [&](const textviews::LineState& state)
        {
            const textviews::HitMark mark = textviews::MarkOn(
                palette.Band(state), wxtGetColor(color_Text), wxtGetColor(color_TextIndigo));
            EXPECT_GE(internal::ContrastOf(mark.ink, mark.ground), internal::k_TextContrast);
            const wxColour band = palette.Band(state);
            EXPECT_GE(std::abs(mark.ground.Red() - band.Red()) +
                          std::abs(mark.ground.Green() - band.Green()) +
                          std::abs(mark.ground.Blue() - band.Blue()),
                      40)
                << scheme;
            return mark.ground;
        };
        const wxImage picture = m_View->Picture();
        EXPECT_EQ(cell(picture, 0, 9), markOf({false, false, true})) << Kept(picture, "marks");
        EXPECT_EQ(cell(picture, 2, 3), markOf({true, true, false})) << Kept(picture, "marks");
        EXPECT_NE(cell(picture, 0, 2), markOf({false, false, true})) << "this is the current one";
        EXPECT_EQ(cell(picture, 1, 0), palette.Band({}));
    }
    m_View->SetScrollPos(wxHORIZONTAL, 250 * m_View->ColumnWidth());
    const int      column = 300 - m_View->GetScrollPos(wxHORIZONTAL) / m_View->ColumnWidth();
    const wxColour plain = wxtGetColor(color_WindowBGLighter);
    EXPECT_EQ(cell(m_View->Picture(), 3, column - 1), plain);
    EXPECT_NE(cell(m_View->Picture(), 3, column), plain);
    m_View->ToggleSearch(); // closes the bar
    EXPECT_EQ(cell(m_View->Picture(), 3, column), plain);
}

TEST_F(TextViewTest, EveryKindOfCharacterTakesItsCells)
{
    const struct
    {
        const char* name;
        String      text;
        int         cells;
    } cases[] = {
        {"a long row, which would show a drift", String(58, 'M'), 58},
        {"two and three bytes", "\xc3\xa4\xe2\x82\xac\xd0\x96", 3},
        {"wide", "\xe6\xbc\xa2\xe5\xad\x97", 4},
        {"combining", "e\xcc\x81o\xcc\x88", 2},
        {"overlong and surrogate forms", "\xc0\xaf\xed\xa0\x80", 5},
        {"controls", String("\0\x01\x1b\x7f", 4), 4},
        {"invalid bytes", "\xff\x80\xe9", 3},
        {"right to left", "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d \xd8\xb3\xd9\x84\xd8\xa7", 8},
        {"picture", "\xf0\x9f\x98\x80", 2},
        {"line ends", "a\nb\r\xe2\x80\xa8", 5},
    };
    Append({"x |"});
    for (const auto& c : cases)
    {
        m_View->Append(c.text + " |", false);
    }
    const wxImage picture = m_View->Picture();
    const wxImage bar = CellOf(*m_View, picture, 0, 2);
    int           line = 1;
    for (const auto& c : cases)
    {
        EXPECT_TRUE(SamePixels(CellOf(*m_View, picture, line, c.cells + 1), bar))
            << c.name << " " << Kept(picture, "cells");
        EXPECT_FALSE(IsBlank(CellOf(*m_View, picture, line, 0))) << c.name;
        ++line;
    }
}

// The box is the same line with every pixel inverted; checked against the line with the box
// somewhere else.
TEST_F(TextViewTest, TheHitIsAnInvertedRoundedBox)
{
    // Wide characters and marks before the hit move it.
    Append({"\xe6\xbc\xa2"
            "e\xcc\x81 find \xe5\xad\x97 here, other \xe5\xad\x97 there"});
    for (const bool selected : {false, true})
    {
        selected ? m_View->SelectAll() : m_View->SelectNone();
        ASSERT_TRUE(m_View->Search("find \xe5\xad\x97", true, true));
        const wxImage with = m_View->Picture();
        ASSERT_TRUE(m_View->Search("other \xe5\xad\x97", true, true));
        const wxImage without = m_View->Picture();
        const int     width = m_View->ColumnWidth();
        const int     height = m_View->LineHeight();
        const wxRect  box(4 * width + width / 2, 0, 7 * width, height);
        const wxRect  other(18 * width + width / 2, 0, 8 * width, height);
        int           corners = 0; // cut off by the rounding
        int           wrong = 0;
        for (int i = 0; i < height * with.GetWidth(); ++i)
        {
            const wxPoint  at(i % with.GetWidth(), i / with.GetWidth());
            const wxColour a = PixelAt(with, at.x, at.y);
            const wxColour b = PixelAt(without, at.x, at.y);
            const bool     isInside = box.Contains(at);
            const bool     isSame = a == b;
            corners += isInside && isSame;
            wrong += isInside ? !isSame && !Near(a, internal::InvertedColour(b), 1)
                              : !isSame && !other.Contains(at);
        }
        EXPECT_EQ(wrong, 0) << Kept(with, "hit");
        EXPECT_GE(corners, 4) << Kept(with, "hit");
        EXPECT_LT(corners, width * width) << Kept(with, "hit");
    }
}

TEST_F(TextViewTest, ScrolledTextShowsTheSamePixels)
{
    String text;
    for (int i = 0; i < 300; ++i)
    {
        text += static_cast<char>('!' + i % 90);
    }
    for (int i = 0; i < 100; ++i)
    {
        m_View->Append(text, false);
    }
    const int     dx = 11 * m_View->ColumnWidth() + 3;
    const wxImage expected = m_View->Picture().GetSubImage(wxRect(dx, 4, 200, 100));
    m_View->SetScrollPos(wxHORIZONTAL, dx);
    m_View->SetScrollPos(wxVERTICAL, 7 * m_View->LineHeight() + 4);
    const wxImage scrolled = m_View->Picture();
    EXPECT_TRUE(SamePixels(scrolled.GetSubImage(wxRect(0, 0, 200, 100)), expected))
        << Kept(scrolled, "scrolled");
}

TEST_F(TextViewTest, AVeryLongLineIsDrawnAtBothEnds)
{
    String text;
    while (text.size() < 10'000'000)
    {
        text += "0123456789 \xc3\xa4\xe6\xbc\xa2 ";
    }
    Append({text + " |"});
    m_View->SetScrollPos(wxHORIZONTAL, m_View->GetScrollRange(wxHORIZONTAL)); // the far right
    m_View->Picture();
    const wxStopWatch watch;
    const wxImage     picture = m_View->Picture();
    EXPECT_LT(watch.Time(), 500) << "only what is visible may be laid out";
    const int width = m_View->ColumnWidth();
    const int end = m_View->GetClientSize().x;
    EXPECT_EQ(end, m_View->VirtualWidth() - m_View->GetScrollPos(wxHORIZONTAL));
    EXPECT_FALSE(
        IsBlank(picture.GetSubImage(wxRect(end - 2 * width, 0, width, m_View->LineHeight()))));
}

TEST_F(TextViewTest, AnInvalidColourDrawsNothingAndAssertsNothing)
{
    AppendNumbered(3);
    m_View->SelectAll();
    wxtSetColor(color_Selected, wxColour());
    wxtSetColor(color_TextBlue, wxColour());
    wxtSetColor(color_Text, wxColour());
    m_View->Search("line 1", true, true);
    EXPECT_EQ(PixelAt(m_View->Picture(), 0, 0), wxtGetColor(color_WindowBGLighter));
    SetColors(scheme_Dark);
}

TEST_F(TextViewTest, PartsMakeTheSamePictureAsTheWhole)
{
    constexpr int kSteps = 160;
    std::mt19937  random(4711);
    const auto    any = [&random](int below)
    { return static_cast<int>(random() % static_cast<unsigned>(std::max(below, 1))); };
    std::vector<wxTextRule> rules(2);
    rules[0].pattern = "7";
    rules[0].colourName = color_TextGreen;
    rules[1].pattern = "new";
    rules[1].colourName = color_TextRed;
    rules[1].part = wxTextRule::Part::Line;
    AppendNumbered(100);
    m_View->KeepArrivalTimes();
    m_View->SetFocus();
    PumpEvents();
    const std::function<void()> changes[] = {
        [&] { m_View->Append(SFormat("new line %d", any(1000)), false); },
        [&] { m_View->Append(SFormat("line %d", any(1000)), true); },
        [&] { m_View->Erase(any(m_View->GetLineCount() - 1)); },
        [&] { m_View->Mouse(wxEVT_MOTION, 20, any(300)); },
        [&] { Drag(any(20), any(20)); },
        [&] { m_View->SelectNone(); },
        [&] { m_View->SelectAll(); },
        [&] { m_View->Search("1", any(2) == 0, true); },
        [&] { m_View->SetScrollPos(wxVERTICAL, any(Bottom() + 1)); },
        [&] { m_View->SetScrollPos(wxVERTICAL, Bottom()); },
        [&] { m_View->SetScrollPos(wxHORIZONTAL, any(30)); },
        [&] { m_View->Append("\x1b[4;32mline\x1b[0m 1\rL\x1b[7mI\x1b[41;1m", any(2) == 0); },
        [&] { m_View->SetEscapes(static_cast<wxTextLineCtrl::Escapes>(any(3))); },
        [&] { m_View->SetHighlightLine(any(m_View->GetLineCount())); },
        [&] { m_View->SetRules(any(2) ? rules : std::vector<wxTextRule>()); },
        [&] { m_View->ShowLineNumbers(any(3) > 0); },
        [&] { m_View->ShowArrivalTimes(any(3) > 0); },
        [&] { m_View->SetBookmark(any(20), any(3) > 0); },
        [&] { m_View->GoToBookmark(any(2) == 0); },
        [&] { m_View->SetWrap(any(2) == 0); },
        [&] { m_View->ScrollLines(any(7) - 3); },
        [&] { m_View->Append(SFormat("a long line %d", any(1000)) + String(150, '7'), true); },
        [&]
        {
            // Something else of the screen uncovers a part of it before the delay is over.
            const wxRect part(0, any(200), 200, 50);
            m_View->Refresh(false, &part);
            m_View->Update();
        }};
    for (int step = 0; step < kSteps; ++step)
    {
        for (int i = any(3); i >= 0; --i)
        {
            changes[any(static_cast<int>(std::size(changes)))]();
        }
        m_View->PaintNow();
        m_View->PaintNow(); // what was found out while painting
        const wxImage parts = PictureOf(m_View);
        m_View->Redraw();
        m_View->PaintNow();
        const wxImage whole = PictureOf(m_View);
        ASSERT_TRUE(SamePixels(parts, whole))
            << "step " << step << Kept(parts, "parts") << Kept(whole, "whole");
    }
}

// Whoever looks at a log that grows has its lines drawn once.
TEST_F(TextViewTest, OnlyWhatChangesInSightIsDrawn)
{
    AppendNumbered(200);
    EXPECT_TRUE(WaitFor([this] { return !m_View->RedrawPending(); }));
    PumpEvents();
    const int before = m_View->Drawn();
    m_View->Append("out of sight", false);
    m_View->PaintNow();
    EXPECT_EQ(before, m_View->Drawn());
    m_View->SetHighlightLine(2);
    m_View->PaintNow();
    EXPECT_EQ(before + 1, m_View->Drawn());
    m_View->SetHighlightLine(3);
    m_View->SetHighlightLine(2);
    m_View->PaintNow();
    EXPECT_EQ(before + 1, m_View->Drawn()) << "it looks as it did";
}
