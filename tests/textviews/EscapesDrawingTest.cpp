#include "internal/drawing/ColorMix.h"
#include "internal/port/PopUps.h"
#include "tests/textviews/TextViewTest.h"
#include "textviews/drawing/StyleColours.h"

#include <wx/menu.h>

namespace
{
using Escapes = wxTextLineCtrl::Escapes;

const int kSchemes[] = {scheme_Default, scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker};

/// What is shown of one line, or of cells of it, in a view that is not scrolled.
struct Look
{
    const TestView& view;
    wxImage         picture;

    explicit Look(TestView& shown) : view(shown), picture(shown.Picture()) {}

    wxImage Line(int line) const
    {
        return picture.GetSubImage(wxRect(0, line * view.LineHeight(), 600, view.LineHeight()));
    }
    wxImage Cells(int line, int first, int end) const
    {
        const int width = view.ColumnWidth();
        return Line(line).GetSubImage(
            wxRect(width / 2 + first * width, 0, (end - first) * width, view.LineHeight()));
    }
};

int Count(const wxImage& image, const wxColour& colour)
{
    return CountPixels(image, [&](const wxColour& pixel) { return pixel == colour; });
}

textviews::TextColour Table(int index)
{
    return {textviews::TextColour::Kind::Table, static_cast<uint8_t>(index), 0, 0};
}
} // namespace

TEST_F(TextViewTest, EveryColourCanBeReadInEveryScheme)
{
    textviews::StyleColours colours;
    for (const int scheme : kSchemes)
    {
        UseColors(scheme, m_View);
        const wxColour own = wxtGetColor(color_Text);
        const wxColour bands[] = {wxtGetColor(color_WindowBGLighter), wxtGetColor(color_Selected)};
        for (int i = 0; i < 256 * 3; ++i)
        {
            textviews::TextStyle style;
            style.ink = i < 256 ? Table(i) : textviews::TextColour();
            style.ground = i >= 256 ? Table(i % 256) : textviews::TextColour();
            style.inverse = i >= 512;
            for (const wxColour& band : bands)
            {
                const textviews::TextInks inks = colours.Of(style, own, band);
                const wxColour            ground = inks.ground.IsOk() ? inks.ground : band;
                ASSERT_GE(internal::ContrastOf(inks.ink, ground), internal::k_TextContrast)
                    << "scheme " << scheme << " colour " << i;
            }
        }
    }
}

TEST_F(TextViewTest, SequencesColourWhatIsShown)
{
    Append({"\x1b[31mMMMM\x1b[0m MMMM", "MMMM MMMM", "\x1b[30;43m    \x1b[7m    \x1b[m",
            "\x1b[4m    \x1b[m    ", "\x1b[1mMMMM\x1b[m MMMM", "\x1b[38;2;1;2;3mMMMM"});
    m_View->SetEscapes(Escapes::Coloured);
    textviews::StyleColours colours;
    for (const int scheme : kSchemes)
    {
        UseColors(scheme, m_View);
        const wxColour band = wxtGetColor(color_WindowBGLighter);
        const wxColour own = wxtGetColor(color_Text);
        const auto     inks = [&](int ink, int ground)
        {
            textviews::TextStyle style;
            style.ink = ink < 0 ? textviews::TextColour() : Table(ink);
            style.ground = ground < 0 ? textviews::TextColour() : Table(ground);
            return colours.Of(style, own, band);
        };
        const Look     look(*m_View);
        const wxString kept = Kept(look.picture, "escapes");
        EXPECT_GT(Count(look.Cells(0, 0, 4), inks(1, -1).ink), 0) << scheme << kept;
        EXPECT_EQ(Count(look.Cells(0, 4, 9), inks(1, -1).ink), 0) << scheme;
        EXPECT_TRUE(SamePixels(look.Cells(0, 4, 9), look.Cells(1, 4, 9))) << scheme << kept;
        const int area = 4 * m_View->ColumnWidth() * m_View->LineHeight();
        EXPECT_EQ(Count(look.Cells(2, 0, 4), wxtGetColor(color_TextDarkYellow)), area) << scheme;
        EXPECT_EQ(Count(look.Cells(2, 4, 8), wxColour(0, 0, 0)), area) << scheme;
        EXPECT_EQ(Count(look.Cells(2, 8, 12), band), area) << scheme;
        EXPECT_EQ(Count(look.Cells(3, 0, 4), own), 4 * m_View->ColumnWidth()) << scheme << kept;
        EXPECT_EQ(Count(look.Cells(3, 4, 8), band), area) << scheme;
        EXPECT_FALSE(SamePixels(look.Cells(4, 0, 4), look.Cells(1, 0, 4))) << "bold";
        EXPECT_TRUE(SamePixels(look.Cells(4, 5, 9), look.Cells(1, 5, 9))) << kept;
        const int inked = Count(look.Cells(5, 0, 4), wxColour(1, 2, 3));
        EXPECT_EQ(inked > 0,
                  internal::ContrastOf(wxColour(1, 2, 3), band) >= internal::k_TextContrast);
    }
}

// Whatever is done to it, a line with sequences looks in plain mode as one without them.
TEST_F(TextViewTest, WithoutColoursSequencesLeaveNoTrace)
{
    const String text = "\xc3\xa4 bold and red, \xe6\xbc\xa2 then the rest of a line";
    const String coloured = "\xc3\xa4 \x1b[1mbo\x1b[Kld\x1b[0m an\x1b]0;title\x07"
                            "d \x1b[31mred, "
                            "\xe6\xbc\xa2 then\x1b[0m the rest\x1b[44m of a line";
    const String progress = "10 %\r20 %\r\x1b[K" + text;
    Append({coloured, text, progress, text});
    m_View->SetEscapes(Escapes::Plain);
    const auto expectSame = [&](const char* what)
    {
        const Look look(*m_View);
        EXPECT_TRUE(SamePixels(look.Line(0), look.Line(1))) << what << Kept(look.picture, "plain");
        EXPECT_TRUE(SamePixels(look.Line(2), look.Line(3))) << what << Kept(look.picture, "plain");
    };
    expectSame("as it is");
    m_View->SelectAll();
    expectSame("selected");
    m_View->SelectNone();
    m_View->SetScrollPos(wxHORIZONTAL, 7);
    m_View->SetScrollPos(wxHORIZONTAL, 0);

    // The hit is drawn where it is shown, the marked lines one after the other.
    for (const char* const hit : {"\xe6\xbc\xa2 then", "ld"})
    {
        std::vector<wxImage> marked;
        for (int line = 0; line < 4; ++line)
        {
            m_View->Search(hit, true, true);
            if (m_View->GetMarkedLine() == line)
            {
                marked.push_back(Look(*m_View).Line(line));
            }
        }
        ASSERT_EQ(marked.size(), 4u) << hit;
        EXPECT_TRUE(SamePixels(marked[0], marked[1])) << hit << Kept(marked[0], "hit");
        EXPECT_TRUE(SamePixels(marked[2], marked[3])) << hit << Kept(marked[2], "hit");
        EXPECT_FALSE(SamePixels(Look(*m_View).Line(0), marked[0]));
    }
}

TEST_F(TextViewTest, TheWidthIsThatOfWhatIsShown)
{
    String line;
    for (int i = 0; i < 60; ++i)
    {
        line += "\x1b[3" + String(1, static_cast<char>('1' + i % 6)) + "mword\x1b[0m ";
    }
    m_View->SetEscapes(Escapes::Coloured);
    for (int i = 0; i < 100; ++i)
    {
        m_View->Append(line, false);
    }
    const int coloured = m_View->VirtualWidth();
    EXPECT_EQ(coloured, (300 + 1) * m_View->ColumnWidth());
    EXPECT_EQ(m_View->GetScrollRange(wxHORIZONTAL), coloured);
    const int     dx = 21 * m_View->ColumnWidth() + 3;
    const wxImage expected = Look(*m_View).picture.GetSubImage(wxRect(dx, 0, 100, 100));
    m_View->SetScrollPos(wxHORIZONTAL, dx);
    EXPECT_TRUE(SamePixels(Look(*m_View).picture.GetSubImage(wxRect(0, 0, 100, 100)), expected));

    m_View->SetEscapes(Escapes::Raw);
    EXPECT_EQ(m_View->VirtualWidth(), (static_cast<int>(line.size()) + 1) * m_View->ColumnWidth());
    m_View->SetScrollPos(wxHORIZONTAL, m_View->GetScrollRange(wxHORIZONTAL));
    m_View->SetEscapes(Escapes::Plain);
    EXPECT_EQ(m_View->VirtualWidth(), coloured);
    EXPECT_EQ(m_View->GetScrollPos(wxHORIZONTAL), coloured - m_View->GetClientSize().x)
        << "what was in view is no more";

    // A hit far right in the stored line is not so far right where it is shown.
    m_View->Append("word " + line + "needle", false);
    EXPECT_TRUE(m_View->Search("needle", true, true));
    const int cell = (5 + 300) * m_View->ColumnWidth() - m_View->GetScrollPos(wxHORIZONTAL);
    EXPECT_GE(cell, 0);
    EXPECT_LT(cell, m_View->GetClientSize().x);
}

TEST_F(TextViewTest, StandInsLookLikeNoCharacter)
{
    // Carriage return, form feed, NUL and escape, and the characters that are their pictures.
    using namespace std::string_literals;
    Append({"x\r", "x\xe2\x90\x8d", "x\f", "x\xe2\x90\x8c", "x\0"s, "x\xe2\x90\x80", "x\x1b",
            "x\xe2\x90\x9b", "x\xc2\x85", "x\xef\xbf\xbd", "x"});
    for (const int scheme : kSchemes)
    {
        UseColors(scheme, m_View);
        const Look    look(*m_View);
        const wxImage blank = look.Cells(10, 1, 2);
        for (int line = 0; line < 10; line += 2)
        {
            const wxImage shown = look.Cells(line, 1, 2);
            EXPECT_FALSE(SamePixels(shown, look.Cells(line + 1, 1, 2)))
                << line << " " << scheme << Kept(look.picture, "standins");
            EXPECT_FALSE(SamePixels(shown, blank)) << line << " " << scheme;
            for (int other = 0; other < line; other += 2)
            {
                EXPECT_FALSE(SamePixels(shown, look.Cells(other, 1, 2))) << line << " " << other;
            }
            EXPECT_TRUE(SamePixels(look.Cells(line, 0, 1), look.Cells(10, 0, 1))) << line;
        }
    }
    const Look raw(*m_View);
    m_View->SetEscapes(Escapes::Coloured);
    EXPECT_TRUE(SamePixels(Look(*m_View).picture, raw.picture)) << "no sequence is among them";
}

TEST_F(TextViewTest, CopiesPlainTextWhereSequencesAreNotShown)
{
    const String line = "a \x1b[31mred\x1b[0m line";
    Append({line, "10%\r100%\r"});
    m_View->SelectAll();
    // The entry is there when it does something.
    wxString offered;
    m_View->Bind(wxEVT_MENU_OPEN,
                 [&](wxMenuEvent& event)
                 {
                     offered += event.GetMenu()->FindItem(7308) ? "yes " : "no ";
                     m_View->CallAfter([] { internal::ClosePopUps(); });
                 });
    for (const Escapes escapes : {Escapes::Raw, Escapes::Plain, Escapes::Coloured})
    {
        m_View->SetEscapes(escapes);
        m_View->Mouse(wxEVT_RIGHT_DOWN, 20, 20);
    }
    EXPECT_EQ(offered, "no yes yes ");
    m_View->Menu(7308);
    EXPECT_EQ(PastedElsewhere("application/octet-stream"), "a red line\n100%\n");
    m_View->Menu(7303);
    EXPECT_EQ(PastedElsewhere("application/octet-stream"), line + "\n10%\r100%\r\n");
    EXPECT_EQ(m_View->GetLine(0), line);
}
