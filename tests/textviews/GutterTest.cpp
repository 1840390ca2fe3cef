#include "appearance/Contrast.h"
#include "internal/drawing/ColorMix.h"
#include "tests/textviews/TextViewTest.h"

#include <algorithm>

namespace
{
wxRect LeftOf(const wxImage& image, int width)
{
    return {0, 0, width, image.GetHeight()};
}
} // namespace

TEST_F(TextViewTest, TheGutterStaysWhileTextScrollsSideways)
{
    for (int i = 0; i < 60; ++i)
    {
        m_View->Append(SFormat("%d ", i) + String(400, 'M'), false);
    }
    EXPECT_TRUE(WaitFor([this] { return !m_View->RedrawPending(); })); // the scrollbars are there
    const int     range = m_View->VirtualWidth();
    const wxImage without = m_View->Picture();
    m_View->ShowLineNumbers(true);
    const int width = m_View->VirtualWidth() - range;
    ASSERT_GT(width, 3 * m_View->ColumnWidth());
    const wxImage with = m_View->Picture();
    // The text is the same, further to the right.
    const wxRect text(3, 3, with.GetWidth() - width - 20, 200);
    EXPECT_TRUE(
        SamePixels(with.GetSubImage(wxRect(text.x + width, text.y, text.width, text.height)),
                   without.GetSubImage(text)))
        << Kept(with, "gutter");
    for (const int position : {1, m_View->ColumnWidth(), 101})
    {
        m_View->SetScrollPos(wxHORIZONTAL, position);
        const wxImage scrolled = m_View->Picture();
        EXPECT_TRUE(SamePixels(scrolled.GetSubImage(LeftOf(scrolled, width)),
                               with.GetSubImage(LeftOf(with, width))))
            << position << Kept(scrolled, "scrolled");
        EXPECT_FALSE(SamePixels(scrolled, with));
    }
    // The last character can be reached.
    m_View->SetScrollPos(wxHORIZONTAL, m_View->GetScrollRange(wxHORIZONTAL));
    EXPECT_EQ(m_View->GetScrollPos(wxHORIZONTAL) + m_View->GetClientSize().x - width, range);
    m_View->ShowLineNumbers(false);
    EXPECT_EQ(m_View->VirtualWidth(), range);
    m_View->SetScrollPos(wxHORIZONTAL, 0);
    EXPECT_TRUE(SamePixels(m_View->Picture(), without));
}

TEST_F(TextViewTest, LineNumbersCanBeReadInEverySchemeAndState)
{
    AppendNumbered(20);
    m_View->ShowLineNumbers(true);
    Drag(1, 2);
    ASSERT_TRUE(m_View->Search("line 4", true, true));
    for (const int scheme : {scheme_Dark, scheme_Light, scheme_Lighter, scheme_Darker})
    {
        UseColors(scheme, m_View);
        const wxImage picture = m_View->Picture();
        for (const int line : {1, 2, 3, 4, 5})
        {
            const int      top = line * m_View->LineHeight();
            const wxColour ground = PixelAt(picture, 3, top + 3);
            double         most = 1;
            for (int y = top; y < top + m_View->LineHeight(); ++y)
            {
                for (int x = 2 * m_View->ColumnWidth(); x < 6 * m_View->ColumnWidth(); ++x)
                {
                    most = std::max(most, internal::ContrastOf(PixelAt(picture, x, y), ground));
                }
            }
            // Strokes are thinner than a pixel at this size.
            EXPECT_GE(most, 3.5) << "scheme " << scheme << " line " << line
                                 << Kept(picture, "numbers");
        }
        EXPECT_EQ(PixelAt(picture, 3, m_View->LineHeight() + 3), wxtGetColor(color_Selected));
    }
}

// What the numbers are is told by the pictures: those of lines that another view has at that place.
TEST_F(TextViewTest, DroppedLinesAreCountedOn)
{
    const auto gutterAt = [this](int line)
    {
        m_View->SetScrollPos(wxVERTICAL, line * m_View->LineHeight());
        const wxImage picture = m_View->Picture();
        return picture.GetSubImage(
            wxRect(3, 0, 6 * m_View->ColumnWidth(), m_View->LineHeight() * 5));
    };
    m_View->ShowLineNumbers(true);
    AppendNumbered(1100);
    const wxImage expected = gutterAt(221);
    m_View->Clear();
    m_View->SetLineLimit(1000);
    AppendNumbered(1100);
    ASSERT_EQ(m_View->GetLine(0), "line 126");
    EXPECT_TRUE(SamePixels(gutterAt(221 - 126), expected));
    m_View->Clear();
    AppendNumbered(1000);
    EXPECT_FALSE(SamePixels(gutterAt(221 - 126), expected)) << "it begins anew";
    EXPECT_TRUE(SamePixels(gutterAt(221), expected));
}

TEST_F(TextViewTest, AClickInTheGutterSelectsTheLine)
{
    AppendNumbered(20);
    m_View->ShowLineNumbers(true);
    Drag(3, 5);
    EXPECT_TRUE(IsSelected(3, 5));
}

TEST_F(TextViewTest, AHitIsScrolledOutOfTheGutter)
{
    const int range = m_View->VirtualWidth();
    AppendNumbered(1200);
    m_View->Append(String(300, '-') + "needle" + String(300, '-'), false);
    m_View->ShowLineNumbers(true);
    const int width = m_View->VirtualWidth() - 607 * m_View->ColumnWidth();
    EXPECT_EQ(range, 0);
    for (const int size : {9, 30})
    {
        m_View->SetTextSize(size);
        m_View->SetScrollPos(wxHORIZONTAL, 300 * m_View->ColumnWidth() + 8);
        EXPECT_TRUE(m_View->Search("needle", true, true));
        const int left = m_View->VirtualWidth() - 607 * m_View->ColumnWidth();
        const int x = left + 300 * m_View->ColumnWidth() - m_View->GetScrollPos(wxHORIZONTAL);
        EXPECT_GE(x, left) << size;
        EXPECT_LE(x + 7 * m_View->ColumnWidth(), m_View->GetClientSize().x) << size;
        EXPECT_EQ(left > width, size > 9);
    }
}

// The name has the ink that the bar is filled with.
TEST_F(TextViewTest, PlacesThatLinesComeFromAreToldApartInEveryScheme)
{
    constexpr int kPlaces = 6;
    AppendNumbered(20);
    const int           range = m_View->VirtualWidth();
    std::vector<String> names;
    for (int i = 0; i < kPlaces; ++i)
    {
        names.push_back(SFormat("\xc3\xa4 %d\n.log", i));
    }
    m_View->ShowOrigins(names, [](int line) { return line < 10 ? line % kPlaces : 99; });
    const int width = m_View->VirtualWidth() - range;
    EXPECT_GT(width, 8 * m_View->ColumnWidth());
    Drag(7, 8);
    for (const int scheme : {scheme_Dark, scheme_Light, scheme_Lighter, scheme_Darker})
    {
        UseColors(scheme, m_View);
        const wxImage         picture = m_View->Picture();
        std::vector<wxColour> colours;
        for (int line = 0; line < 10; ++line)
        {
            const int      y = line * m_View->LineHeight() + 5;
            const wxColour bar = PixelAt(picture, width - 2, y);
            EXPECT_GE(internal::ContrastOf(bar, PixelAt(picture, 4, y)), 4.5)
                << "scheme " << scheme << " line " << line << Kept(picture, "places");
            colours.push_back(bar);
        }
        for (int line = 0; line < kPlaces; ++line)
        {
            EXPECT_EQ(1, std::count(colours.begin(), colours.begin() + kPlaces,
                                    colours[static_cast<size_t>(line)]))
                << "scheme " << scheme << " line " << line << Kept(picture, "places");
        }
        EXPECT_EQ(colours[0], colours[6]);
        const int none = 12 * m_View->LineHeight() + 5;
        EXPECT_EQ(PixelAt(picture, width - 2, none), PixelAt(picture, 4, none));
    }
    m_View->ShowOrigins({}, nullptr);
    EXPECT_EQ(m_View->VirtualWidth(), range);
}
