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

TEST_F(ColorSchemeTest, PresetsFillThe27Colours)
{
    // Where the presets differ or are easily mixed up.
    const struct
    {
        const String& name;
        wxColour      of[4];
    } probes[] = {
        {color_WindowBG, {{185, 185, 185}, {233, 233, 233}, {72, 72, 72}, {32, 32, 32}}},
        {color_TextYellow, {{97, 90, 16}, {242, 227, 19}, {255, 225, 0}, {235, 210, 0}}},
        {color_TextGrey, {{85, 90, 105}, {85, 90, 105}, {160, 170, 190}, {160, 170, 190}}},
        {color_Selected, {{222, 163, 62}, {250, 169, 35}, {230, 163, 48}, {199, 129, 16}}},
    };
    const int schemes[] = {scheme_Light, scheme_Lighter, scheme_Dark, scheme_Darker};
    for (const int scheme : {0, 1, 2, 3})
    {
        SetColors(schemes[scheme]);
        for (const auto& probe : probes)
        {
            EXPECT_EQ(probe.of[scheme], wxtGetColor(probe.name)) << probe.name << scheme;
        }
        EXPECT_EQ(27u, g_Colors.size());
    }
    Dark();
    const std::map<String, wxColour> dark = g_Colors;
    for (const int code : {0, 3, 7, -5})
    {
        Lighter();
        SetColors(code);
        EXPECT_EQ(dark, g_Colors) << "of no scheme: " << code;
    }
}

TEST_F(ColorSchemeTest, UnknownNameIsAnInvalidColourThatNothingTripsOver)
{
    const wxColour colour = wxtGetColor("NoSuchColour");
    EXPECT_FALSE(colour.IsOk());
    EXPECT_FALSE(OffsetColor(colour, 10, 10, 10).IsOk());
    EXPECT_FALSE(Disabled(colour).IsOk());
    EXPECT_FALSE(Hilight(colour).IsOk());
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
    struct stat status = {};
    ASSERT_EQ(0, stat(ColorFile().Text().c_str(), &status));
    EXPECT_EQ(0600u, status.st_mode & 0777u);

    g_Scheme = -1;
    LoadColorScheme();
    EXPECT_EQ(scheme_Light, g_Scheme);
    EXPECT_EQ(wxColour(185, 185, 185), wxtGetColor(color_WindowBG));
}

TEST_F(ColorSchemeTest, SavingKeepsTheUsersOwnLines)
{
    const String before = "; my colours\n\nSelected=#FF0000   \n  Scheme =5\nno ini line at all\n"
                          "[elsewhere]\nscheme=4\n# the end";
    WriteFile(ColorFile(), before);
    LoadColorScheme();
    EXPECT_EQ(scheme_Custom, g_Scheme);
    g_Scheme = scheme_Darker;
    SaveColorScheme();
    const String after = ReadFile(ColorFile());
    EXPECT_EQ(after.find("; my colours\n\nSelected=#FF0000   \n"), 0u) << after;
    EXPECT_NE(after.find("no ini line at all\n[elsewhere]\nscheme=4\n# the end"), String::npos)
        << after;
    g_Scheme = -1;
    LoadColorScheme();
    EXPECT_EQ(scheme_Darker, g_Scheme);
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
}

TEST_F(ColorSchemeTest, UnusableFilesLeaveTheColoursAndSayWhy)
{
    g_Scheme = scheme_Light;
    const auto expectRefused = []
    {
        const LogCapture log;
        LoadColorScheme();
        SaveColorScheme();
        EXPECT_EQ(scheme_Light, g_Scheme);
        EXPECT_TRUE(log.Has("Colors.ini")) << log.All();
    };
    WriteFile(ColorFile(), "scheme = 4\n" + String(std::string(IniFile::k_Limit, '#')));
    expectRefused();
    EXPECT_GT(ReadFile(ColorFile()).size(), IniFile::k_Limit); // not overwritten
    ASSERT_TRUE(File::Remove(ColorFile()));
    ASSERT_EQ(0, mkdir(ColorFile().Text().c_str(), 0700));
    expectRefused();

    const String userDir = File::s_UserDir;
    File::s_UserDir.clear();
    g_Scheme = -1;
    LoadColorScheme();
    SaveColorScheme();
    CustomColors();
    File::s_UserDir = userDir;
    EXPECT_EQ(scheme_Default, g_Scheme);
}
