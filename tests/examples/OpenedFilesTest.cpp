#include "logview/OpenedFiles.h"

#include <gtest/gtest.h>

namespace
{
String NamesOf(const RecentFiles& recent)
{
    String names;
    for (const Path& name : recent.Names())
    {
        names += name.Text() + " ";
    }
    return names;
}
} // namespace

TEST(RecentFiles, KeepsTheLatestTen)
{
    IniFile     options;
    RecentFiles recent(options);
    for (int i = 1; i <= 12; ++i)
    {
        recent.Add(String::FromInt(i));
    }
    recent.Add("5");
    EXPECT_EQ("5 12 11 10 9 8 7 6 4 3 ", NamesOf(recent));
    EXPECT_EQ("5 12 11 10 9 8 7 6 4 3 ", NamesOf(RecentFiles(options)));
    recent.Remove("12");
    recent.Remove("not there");
    EXPECT_EQ("5 11 10 9 8 7 6 4 3 ", NamesOf(RecentFiles(options)));
    recent.Clear();
    EXPECT_EQ("", NamesOf(RecentFiles(options)));
}

// A name may hold anything but a NUL; the user may have edited the file.
TEST(OpenedFiles, ComeBackWithTheirPlaces)
{
    IniFile options;
    KeepOpenedFiles(options, {{"/tmp/one two.log", 120, false}, {" \n\"odd\xff ", 0, true}, {"c"}});
    KeepOpenedFiles(options, {{"/tmp/one two.log", 120, false}, {" \n\"odd\xff ", 0, true}});
    std::vector<OpenedFile> files = KeptOpenedFiles(options);
    ASSERT_EQ(2u, files.size());
    EXPECT_EQ("/tmp/one two.log", files[0].name.Text());
    EXPECT_EQ(120, files[0].firstLine);
    EXPECT_FALSE(files[0].follows);
    EXPECT_EQ(" \n\"odd\xff ", files[1].name.Text());
    EXPECT_TRUE(files[1].follows);
    EXPECT_TRUE(files[1].bookmarks.empty());
    options.SetValue("OpenedFiles", "1", "nonsense");
    options.SetValue("OpenedFiles", "2", "-99999999999999 x /a b");
    files = KeptOpenedFiles(options);
    ASSERT_EQ(1u, files.size());
    EXPECT_EQ("/a b", files[0].name.Text());
    EXPECT_EQ(0, files[0].firstLine);
}

// Each stays with its file, whatever becomes of the others.
TEST(OpenedFiles, ComeBackWithBookmarksAndSearches)
{
    IniFile    options;
    OpenedFile first{"/a"};
    first.bookmarks = {0, 7, 2147483646};
    first.search = {" \"odd\n; text \xff", true, false, true, true, false};
    OpenedFile second{"/b"};
    second.search = {"", false, true, false, false, true};
    second.merged = {"/b", "/c d"};
    KeepOpenedFiles(options, {second, second, first});
    KeepOpenedFiles(options, {first, second});
    const std::vector<OpenedFile> files = KeptOpenedFiles(options);
    ASSERT_EQ(2u, files.size());
    EXPECT_EQ(first.bookmarks, files[0].bookmarks);
    EXPECT_EQ(first.search.text, files[0].search.text);
    EXPECT_TRUE(files[0].search.matchCase && files[0].search.expression && files[0].search.isOpen);
    EXPECT_FALSE(files[0].search.wholeWords || files[0].search.onlyMatching);
    EXPECT_TRUE(files[1].search.wholeWords && files[1].search.onlyMatching);
    EXPECT_TRUE(files[1].bookmarks.empty());
    EXPECT_TRUE(files[0].merged.empty());
    ASSERT_EQ(2u, files[1].merged.size());
    EXPECT_EQ("/c d", files[1].merged[1].Text());
    EXPECT_EQ(6u, options.Keys("OpenedPages").size());
    options.SetValue("OpenedPages", "1.Bookmarks", "9 x -3 4 99999999999 4");
    EXPECT_EQ((std::vector<int>{4, 9}), KeptOpenedFiles(options)[0].bookmarks);
}
