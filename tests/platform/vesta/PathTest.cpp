#include "vesta/Path.h"

#include <gtest/gtest.h>

namespace
{

TEST(Path, FallsIntoBranchAndLeaf)
{
    const struct
    {
        const char* path;
        const char* branch;
        const char* leaf;
        const char* extension;
    } cases[] = {
        {"/home/me/file.tar.gz", "/home/me", "file.tar.gz", "gz"},
        {"/file", "/", "file", ""},
        {"file.", "", "file.", ""},
        {"folder.d/file", "folder.d", "file", ""},
        {"/home/me/", "/home/me", "", ""},
        {"/home//me", "/home", "me", ""},
        {"/home/.profile", "/home", ".profile", ""},
        {"", "", "", ""},
        {"/", "/", "", ""},
    };
    for (const auto& c : cases)
    {
        const Path path = c.path;
        EXPECT_EQ(c.branch, path.Branch().Text()) << c.path;
        EXPECT_EQ(c.leaf, path.Leaf()) << c.path;
        EXPECT_EQ(c.extension, path.Extension()) << c.path;
    }
}

TEST(Path, BranchOfAFolderIsTheFolder)
{
    EXPECT_EQ("/home/me", Path("/home/me").Branch(true).Text());
    EXPECT_EQ("/home/me/", Path("/home/me").Branch(true, true).Text());
    EXPECT_EQ("/", Path("/me").Branch(false, true).Text());
    EXPECT_EQ("", Path("me").Branch(false, true).Text());
}

TEST(Path, JoinsWithOneSlash)
{
    EXPECT_EQ("/a/b", (Path("/a/") / "/b").Text());
    EXPECT_EQ("/b", (Path("/") / "b").Text());
    EXPECT_EQ("b", (Path() / "b").Text());
}

} // namespace
