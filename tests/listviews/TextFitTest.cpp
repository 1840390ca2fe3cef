#include "listviews/cells/TextFit.h"
#include "appearance/wxTolvanString.h"
#include "internal/text/TextPainter.h"
#include "listviews/wxDBListCtrl.h"
#include "tests/support/FrameTest.h"

#include <wx/dcmemory.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace
{
// As it is meant, a step at a time.
listviews::Fitted StepByStep(const std::wstring& text, int available,
                             const std::function<int(const std::wstring&)>& measure)
{
    listviews::Fitted result;
    size_t            cut = 0;
    do
    {
        result.text = text;
        if (cut > 0)
        {
            const size_t head = (text.size() - cut) / 2 + 1;
            result.text = text.substr(0, head) + L"..." + text.substr(head + cut);
        }
        result.width = measure(result.text);
        cut = cut == 0 ? 4 : cut + 1;
    } while (result.width > available && result.text.size() >= 5);
    return result;
}

const std::wstring kAlphabets[] = {
    L"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 /._-%",
    L"fiflffiAVTo.,LTWA.r,f.\"'y.P,", // kerned and joined where the font does so
    L"\u00e4\u00f6\u00fc\u00df\u03b1\u03a9\u0416\u0434 a.",
    L"e\u0301a\u0308n\u0303 x\u0327.o",                          // combining marks
    L"\u65e5\u672c\u8a9e\u30c6 ab\u0627\u0644\u0633.\U0001f600", // wide, joined, right to left
};

class TextFitTest : public FrameTest
{
protected:
    TextFitTest() : m_Bitmap(100, 100), m_Dc(m_Bitmap) {}

    std::wstring RandomText(const std::wstring& alphabet, size_t longest)
    {
        std::wstring text(m_Random() % (longest + 1), L' ');
        for (wchar_t& character : text)
        {
            character = alphabet[m_Random() % alphabet.size()];
        }
        return text;
    }
    int Measure(const std::wstring& text) { return m_Dc.GetTextExtent(text).x; }

    std::mt19937 m_Random{11};
    wxBitmap     m_Bitmap;
    wxMemoryDC   m_Dc;
};
} // namespace

TEST_F(TextFitTest, FewMeasurementsAndThePainterGiveTheSameAsOneForEachStep)
{
    const auto measure = [this](const std::wstring& text) { return Measure(text); };
    int        shortened = 0;
    int        runs = 0;
    for (const int points : {8, 9, 10, 13})
    {
        const wxFont font(points, wxFONTFAMILY_SWISS, wxFONTSTYLE_NORMAL, wxFONTWEIGHT_NORMAL);
        m_Dc.SetFont(font);
        internal::TextPainter painter(m_Dc, font);
        ASSERT_TRUE(painter.IsFast());
        for (int i = 0; i < 2000; ++i)
        {
            const std::wstring      text = RandomText(kAlphabets[i % 5], 60);
            const int               room = static_cast<int>(m_Random() % 260);
            const listviews::Fitted expected = StepByStep(text, room, measure);
            SCOPED_TRACE(wxString(text) << " in " << room << " of " << points);
            int        asked = 0;
            const auto counted = [&](const std::wstring& form)
            {
                ++asked;
                return Measure(form);
            };
            const listviews::Fitted fitted = listviews::FitMeasured(text, room, counted);
            ASSERT_EQ(expected.text, fitted.text);
            ASSERT_EQ(expected.width, fitted.width);
            EXPECT_LE(asked, 25);
            int          width = room;
            const String bytes(wxString(text).utf8_str().data());
            EXPECT_EQ(wxString(expected.text),
                      wxDBListCtrl::FormatDisplayString(bytes, width, m_Dc));
            EXPECT_EQ(expected.width, width);
            shortened += expected.text != text;
            if (const std::vector<double> ends = painter.Ends(text); !ends.empty())
            {
                ++runs;
                ASSERT_EQ(Measure(text), std::lround(ends.back()));
                const auto run = listviews::FitRun(
                    text, ends, room, [&](wchar_t a, wchar_t b) { return painter.Step(a, b); });
                ASSERT_TRUE(run);
                ASSERT_EQ(expected.text, run->text);
                ASSERT_EQ(expected.width, run->width);
            }
        }
    }
    EXPECT_GT(shortened, 1000);
    EXPECT_GT(runs, 2000) << "plain texts are the painter's";
}

TEST_F(TextFitTest, EndsOfTheRule)
{
    const auto ten = [](const std::wstring& text) { return static_cast<int>(text.size()) * 10; };
    struct
    {
        const wchar_t* text;
        int            room;
        const wchar_t* fitted;
    } const cases[] = {
        {L"abcdefghij", 100, L"abcdefghij"},
        {L"abcdefghij", 99, L"abcd...ij"},
        {L"abcdefghij", 50, L"ab..."},
        {L"abcdefghij", 0, L"a..."},
        {L"abcde", 40, L"a..."},
        {L"abcd", 0, L"abcd"},
        {L"", 0, L""},
        {L"abcdef", -5, L"a..."},
    };
    for (const auto& c : cases)
    {
        const listviews::Fitted fitted = listviews::FitMeasured(c.text, c.room, ten);
        EXPECT_EQ(c.fitted, fitted.text) << c.room;
        EXPECT_EQ(ten(c.fitted), fitted.width);
    }
    // A cell of a megabyte is not measured as a whole.
    size_t                  longest = 0;
    const listviews::Fitted huge = listviews::FitMeasured(std::wstring(1 << 20, L'\u05d0'), 160,
                                                          [&](const std::wstring& form)
                                                          {
                                                              longest =
                                                                  std::max(longest, form.size());
                                                              return ten(form);
                                                          });
    EXPECT_EQ(16u, huge.text.size());
    EXPECT_LT(longest, 2000u);
    // Nor looked at, and it shows the same.
    for (const std::wstring& alphabet : kAlphabets)
    {
        std::wstring whole(100000, L' ');
        std::generate(whole.begin(), whole.end(),
                      [&] { return alphabet[m_Random() % alphabet.size()]; });
        const std::string ends = listviews::WithoutHidden(wxtFromWx(wxString(whole)), 160);
        EXPECT_LT(ends.size(), 11000u);
        EXPECT_EQ(listviews::FitMeasured(whole, 160, ten).text,
                  listviews::FitMeasured(wxtToWx(ends.data(), ends.size()).ToStdWstring(), 160, ten)
                      .text);
    }
}
