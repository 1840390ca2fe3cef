#include "internal/text/TextPainter.h"

#include "tests/support/Pictures.h"

#include <gtest/gtest.h>

#include <wx/dcmemory.h>

namespace
{
constexpr int kCell = 30; // pixels, wider than any character drawn

const wxColour kGround(40, 60, 80);
const wxColour kInk(250, 240, 200);

const wxFont kFonts[] = {
    wxFont(9, wxFONTFAMILY_MODERN, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL),
    wxFont(14, wxFONTFAMILY_MODERN, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_BOLD),
    wxFont(10, wxFONTFAMILY_SWISS, wxFONTSTYLE_ITALIC, wxFONTWEIGHT_NORMAL),
};

wxImage Draw(const std::function<void(wxMemoryDC&)>& draw)
{
    return Drawn(wxSize(40 * kCell, 40), kGround, draw);
}

int Differences(const wxImage& a, const wxImage& b, int tolerance)
{
    int count = 0;
    for (int i = 0; i < a.GetWidth() * a.GetHeight(); ++i)
    {
        const int x = i % a.GetWidth();
        const int y = i / a.GetWidth();
        count += Near(PixelAt(a, x, y), PixelAt(b, x, y), tolerance) ? 0 : 1;
    }
    return count;
}

// As the toolkit draws them, each of the texts `step` pixels further right.
void ExpectTheirs(const wxImage& ours, const wxFont& font, const std::vector<wxString>& texts,
                  int x, int step)
{
    const wxImage theirs = Draw(
        [&](wxMemoryDC& dc)
        {
            dc.SetFont(font);
            dc.SetTextForeground(kInk);
            for (const wxString& text : texts)
            {
                dc.DrawText(text, x, 5);
                x += step;
            }
        });
    EXPECT_GT(Differences(ours, Draw([](wxMemoryDC&) {}), 40), 100) << "something is drawn";
    EXPECT_EQ(Differences(ours, theirs, 2), 0)
        << font.GetNativeFontInfoUserDesc() << " " << Kept(ours, "painter-ours") << " "
        << Kept(theirs, "painter-theirs");
}
} // namespace

// Character by character the picture is the toolkit's own.
TEST(TextPainterTest, AgreesWithTheToolkit)
{
    const wxString     text(L"AMWgjqy0189.,:;/|_-+*#\u00e4\u00df\u00e9\u03b1\u03a9\u0416\u20ac");
    const std::wstring characters = text.ToStdWstring();
    for (const wxFont& font : kFonts)
    {
        const wxImage ours = Draw(
            [&](wxMemoryDC& dc)
            {
                internal::TextPainter painter(dc, font);
                EXPECT_TRUE(painter.IsFast());
                painter.SetColour(kInk);
                for (size_t i = 0; i < characters.size(); ++i)
                {
                    painter.DrawCell(&characters[i], 1, static_cast<int>(i) * kCell, 5, kCell);
                }
            });
        ExpectTheirs(ours, font, std::vector<wxString>(text.begin(), text.end()), 0, kCell);
    }
}

// Whole texts too, kerned as the toolkit does; what it lays out in a way of its own is left to it.
TEST(TextPainterTest, RunsAgreeWithTheToolkit)
{
    const wxString runs[] = {
        "/farm/projects/AVATAR/To.Wy/sh010_v7/beauty.0001.exr",
        "fifty flights, office: 100 %",
        "Type. LT VA \"quoted\", f.",
        "00:12:59  Waiting for a host (3/7)",
        wxString(L"\u00dcbergr\u00f6\u00dfe \u03a9 \u0416\u0434"),
    };
    for (const wxFont& font : kFonts)
    {
        for (const wxString& text : runs)
        {
            const std::wstring characters = text.ToStdWstring();
            bool               isRun = false;
            const wxImage      ours = Draw(
                [&](wxMemoryDC& dc)
                {
                    internal::TextPainter     painter(dc, font);
                    const std::vector<double> ends = painter.Ends(characters);
                    isRun = !ends.empty();
                    painter.SetColour(kInk);
                    painter.DrawRun(characters, ends, 3, 5);
                });
            // Only the second joins letters, in the fonts that do.
            EXPECT_TRUE(isRun || text == runs[1]) << text;
            if (isRun)
            {
                ExpectTheirs(ours, font, {text}, 3, 0);
            }
        }
    }
    wxBitmap              bitmap(10, 10);
    wxMemoryDC            dc(bitmap);
    internal::TextPainter painter(dc, kFonts[0]);
    for (const wchar_t* const other : {L"", L"e\u0301", L"\u05d0\u05d1", L"a\tb", L"\u65e5"})
    {
        EXPECT_TRUE(painter.Ends(other).empty()) << wxString(other);
    }
}

TEST(TextPainterTest, SqueezesWhatIsTooWideAndClipsToRectangles)
{
    const wxImage picture = Draw(
        [&](wxMemoryDC& dc)
        {
            internal::TextPainter painter(dc, kFonts[1]);
            painter.ClipTo({wxRect(0, 0, 5, 40)});
            painter.SetColour(kInk);
            painter.DrawCell(L"W", 1, 0, 5, kCell);
            painter.Unclip();
            painter.SetColour(kInk);
            painter.DrawCell(L"W", 1, 50, 5, kCell);
            painter.DrawCell(L"W", 1, 110, 5, 4);
            painter.SetColour(wxColour()); // draws nothing
            painter.DrawCell(L"W", 1, 150, 5, kCell);
        });
    const auto inked = [&picture](int left, int right)
    {
        const wxRect part(left, 0, right - left, picture.GetHeight());
        return CountPixels(picture.GetSubImage(part),
                           [](const wxColour& colour) { return colour != kGround; });
    };
    EXPECT_GT(inked(0, 5), 0);
    EXPECT_EQ(inked(5, 50), 0) << "clipped";
    EXPECT_GT(inked(50, 100), inked(0, 5));
    EXPECT_GT(inked(109, 115), 0) << "squeezed, and a pixel on either side for smooth edges";
    EXPECT_EQ(inked(100, 109) + inked(115, 200), 0);
}
