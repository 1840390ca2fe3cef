#include "appearance/wxTolvanString.h"
#include "internal/text/OneLine.h"

#include <gtest/gtest.h>

TEST(StringConversion, ShowsEveryByteString)
{
    const struct
    {
        const char* name;
        String      bytes;
        wxString    shown;
    } cases[] = {
        {"plain", "frame 12", "frame 12"},
        {"valid UTF-8 of all lengths", "\x41\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80",
         wxString(L"A\u00e9\u20ac\U0001F600")},
        {"a lone byte between valid text", "a\xE9z\xC3\xA9", wxString(L"a\u00e9z\u00e9")},
        {"an overlong slash", "\xC0\xAF", wxString(L"\u00c0\u00af")},
        {"a surrogate", "\xED\xA0\x80", wxString(L"\u00ed\u00a0\u0080")},
        {"beyond the last code point", "\xF4\x90\x80\x80", wxString(L"\u00f4\u0090\u0080\u0080")},
        {"cut off", "ab\xE2\x82", wxString(L"ab\u00e2\u0082")},
    };
    for (const auto& row : cases)
    {
        EXPECT_EQ(row.shown, wxtToWx(row.bytes)) << row.name;
    }
    const String withNul("a\0\xC3\xA9", 4);
    EXPECT_EQ(3u, wxtToWx(withNul).length());
    EXPECT_EQ(withNul, wxtFromWx(wxtToWx(withNul)));
}

TEST(StringConversion, AnyTextFitsOneLine)
{
    EXPECT_EQ(wxString(L"a b c \u00e9 d e f"),
              internal::OneLine(wxString(L"a\nb\tc\x7f\u00e9\u0085d\u2028e\0f", 13)));
    EXPECT_EQ(wxString(L"\u00e9\U0001F600\u2026"),
              internal::Shortened(wxString(L"\u00e9\U0001F600xy"), 2));
    EXPECT_EQ("ab", internal::Shortened("ab", 2));
}
