#include "appearance/wxTolvanColors.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"

#include <sys/stat.h>

namespace
{
class ColorSchemeTest : public UserFolderTest
{
protected:
    ColorSchemeTest() { Reset(); }
    ~ColorSchemeTest() override { Reset(); }

    static void Reset()
    {
        g_Scheme = -1;
        g_Colors.clear();
    }
    Path ColorFile() const { return UserFile("Colors.ini"); }
};
} // namespace

TEST_F(ColorSchemeTest, PresetsFillThe27ColoursAndOtherCodesAreDark)
{
    Dark();
    const std::map<String, wxColour> dark = g_Colors;
    for (const int code : {1, 2, 4, 0, 3, 7, -5})
    {
        Lighter();
        const std::map<String, wxColour> lighter = g_Colors;
        SetColors(code);
        EXPECT_EQ(27u, g_Colors.size());
        EXPECT_EQ(code == scheme_Lighter, g_Colors == lighter) << code;
        EXPECT_EQ(code != 1 && code != 2 && code != 4, g_Colors == dark) << code;
    }
}

TEST_F(ColorSchemeTest, FreshUserGetsTheDefaultAndOneKeyIsStored)
{
    LoadColorScheme();
    EXPECT_EQ(scheme_Default, g_Scheme);
    EXPECT_EQ(wxColour(72, 72, 72), wxtGetColor(color_WindowBG));
    EXPECT_FALSE(File::Exists(ColorFile()));

    g_Scheme = scheme_Light;
    SaveColorScheme();
    EXPECT_EQ("scheme = 1\n", ReadFile(ColorFile()));

    g_Scheme = -1;
    LoadColorScheme();
    EXPECT_EQ(scheme_Light, g_Scheme);
    EXPECT_EQ(wxColour(185, 185, 185), wxtGetColor(color_WindowBG));
}

TEST_F(ColorSchemeTest, CustomColoursLieOverTheDarkPreset)
{
    Dark();
    std::map<String, wxColour> expected = g_Colors;
    WriteFile(ColorFile(), "scheme = 5\nSelected = #FF0000\nheader = rgb(1, 2, 3)\nText = red\n"
                           "TextGrey = #123456\nTextGray = #010203\n3DDark = mauve-ish\n");
    LoadColorScheme();
    expected["Selected"] = wxColour(255, 0, 0);
    expected["Header"] = wxColour(1, 2, 3);
    expected["Text"] = wxColour(255, 0, 0);
    expected["TextGray"] = wxColour(1, 2, 3);
    expected["3DDark"] = wxColour(); // a misspelt colour is no colour, not the preset's
    EXPECT_EQ(expected, g_Colors);
    g_Scheme = scheme_Darker;
    SaveColorScheme();
    const String after = ReadFile(ColorFile());
    EXPECT_NE(after.find("\nSelected = #FF0000\nheader = rgb(1, 2, 3)\n"), String::npos) << after;
    LoadColorScheme();
    EXPECT_EQ(scheme_Darker, g_Scheme);
}

TEST_F(ColorSchemeTest, UnusableFilesLeaveTheColoursAndSayWhy)
{
    g_Scheme = scheme_Light;
    ASSERT_EQ(0, mkdir(ColorFile().Text().c_str(), 0700));
    const LogCapture log;
    LoadColorScheme();
    SaveColorScheme();
    EXPECT_EQ(scheme_Light, g_Scheme);
    EXPECT_TRUE(log.Has("Colors.ini")) << log.All();

    const String userDir = File::s_UserDir;
    File::s_UserDir.clear();
    g_Scheme = -1;
    LoadColorScheme();
    SaveColorScheme();
    CustomColors();
    File::s_UserDir = userDir;
    EXPECT_EQ(scheme_Default, g_Scheme);
}
