#include "vesta/File.h"

#include "tests/support/SmallDisk.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>

namespace
{

class FileTest : public UserFolderTest
{
protected:
    void Link(const char* target, const char* name) const
    {
        ASSERT_EQ(0, symlink(target, UserFile(name).Text().c_str()));
    }
};

TEST_F(FileTest, FindsTheUserFolder)
{
    const struct
    {
        const char* own;
        const char* config;
        const char* home;
        const char* expected;
    } cases[] = {
        {"/own", "/config", "/home/me", "/own"},
        {"", "/config", "/home/me", "/config/tolvan"},
        {"", "relative", "/home/me", "/home/me/.config/tolvan"},
        {"", "", "", ""},
    };
    const String home = getenv("HOME");
    for (const auto& c : cases)
    {
        setenv("TOLVAN_USER_DIR", c.own, 1);
        setenv("XDG_CONFIG_HOME", c.config, 1);
        setenv("HOME", c.home, 1);
        EXPECT_EQ(c.expected, File::FindUserDir());
    }
    unsetenv("TOLVAN_USER_DIR");
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", home.c_str(), 1);

    File::s_UserDir = "";
    const auto exception = Thrown([] { File::GetUserDir(); });
    ASSERT_TRUE(exception);
    EXPECT_EQ(ec_NoUserDir, exception->Code());
    EXPECT_EQ("No User Folder available", exception->Text());
}

TEST_F(FileTest, WritingFollowsLinks)
{
    File::MakeFolder(UserFile("real"));
    Link("real/second", "first");
    Link("target", "real/second");
    for (const char* content : {"new", "old"}) // There is no target at first.
    {
        File::WriteAtomically(UserFile("first"), content);
        EXPECT_EQ(content, ReadFile(UserFile("real/target")));
    }
    EXPECT_TRUE(S_ISLNK(StatusOf(UserFile("first")).st_mode));
    Link("loop", "loop");
    EXPECT_EQ(ec_System, CodeThrown([this] { File::WriteAtomically(UserFile("loop"), "x"); }));
}

TEST_F(FileTest, WritingLeavesNothingBehindAndRemovesWhatKilledProgramsHaveLeft)
{
    const std::vector<String> kept{".tolvan-12345", ".tolvan-1234567", ".tolvan-12.456",
                                   "a.tolvan-123456"};
    for (const String& name : kept)
    {
        WriteFile(UserFile(name), "");
    }
    WriteFile(UserFile(".tolvan-aB3456"), "half");
    Link("f", ".tolvan-linked");
    File::MakeFolder(UserFile(".tolvan-folder"));
    const auto othersAreThere = [this]
    {
        File::WriteAtomically(UserFile("g"), "x"); // Leaves the one that is being written alone.
        return true;
    };
    EXPECT_TRUE(File::WriteAtomically(UserFile("f"), "new", othersAreThere));
    EXPECT_EQ("new", ReadFile(UserFile("f")));
    EXPECT_FALSE(File::WriteAtomically(UserFile("f"), "newer", [] { return false; }));
    {
        const SmallDisk small(50);
        const String    large(100, 'x');
        EXPECT_EQ(ec_System, CodeThrown([&] { File::WriteAtomically(UserFile("f"), large); }));
    }
    EXPECT_EQ("new", ReadFile(UserFile("f")));
    std::vector<String> expected = kept;
    expected.insert(expected.end(), {"f", "g", ".tolvan-linked", ".tolvan-folder"});
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(expected, File::List(UserFile("f").Branch()));
}

} // namespace
