#include "vesta/OutputFile.h"

#include "tests/support/LogCapture.h"
#include "tests/support/SmallDisk.h"
#include "tests/support/Thrown.h"
#include "tests/support/UserFolderTest.h"

#include <unistd.h>

namespace
{

using OutputFileTest = UserFolderTest;

// Whatever keeps the new content from being complete, the old one stays, and nothing else is left.
TEST_F(OutputFileTest, TheOldContentStaysUntilTheNewOneIsComplete)
{
    const Path old = UserFile("old");
    WriteFile(old, "old");
    for (const Path& path : {old, UserFile("new")})
    {
        const LogCapture log;
        {
            OutputFile file(path);
            file.Write(String(100'000, 'x'));
        }
        EXPECT_EQ(1, log.Count(path.Text(), log_Warning)) << "nobody closed it";
        const SmallDisk small(50'000);
        OutputFile      file(path);
        EXPECT_EQ(ec_System, CodeThrown([&file] { file.Write(String(300'000, 'x')); }));
        EXPECT_EQ(ec_System, CodeThrown([&file] { file.Close(); })) << "no good end";
        OutputFile other(path);
        other.Write(String(60'000, 'x')); // as much as is kept back
        EXPECT_EQ(ec_System, CodeThrown([&other] { other.Close(); }));
    }
    EXPECT_EQ("old", ReadFile(old));
    EXPECT_EQ(std::vector<String>{"old"}, File::List(old.Branch()));
}

TEST_F(OutputFileTest, WhatTheFileIsStaysAsItIs)
{
    const Path plain = UserFile("plain");
    const Path twice = UserFile("twice");
    for (const Path& path : {plain, twice})
    {
        WriteFile(path, "a longer old content");
        ASSERT_EQ(0, chmod(path.Text().c_str(), 0640));
    }
    ASSERT_EQ(0, link(twice.Text().c_str(), UserFile("second name").Text().c_str()));
    ASSERT_EQ(0, symlink("plain", UserFile("link").Text().c_str()));
    ASSERT_EQ(0, symlink("missing", UserFile("dangling").Text().c_str()));
    const ino_t replaced = StatusOf(plain).st_ino;
    const ino_t written = StatusOf(twice).st_ino;
    for (const char* name : {"link", "twice", "dangling"})
    {
        OutputFile file(UserFile(name));
        file.Write("new");
        file.Close();
        EXPECT_EQ("new", ReadFile(UserFile(name)));
    }
    EXPECT_NE(replaced, StatusOf(plain).st_ino);
    EXPECT_EQ(0640u, ModeOf(plain));
    EXPECT_TRUE(S_ISLNK(StatusOf(UserFile("link")).st_mode));
    EXPECT_EQ(written, StatusOf(twice).st_ino);
    EXPECT_EQ("new", ReadFile(UserFile("second name")));
    EXPECT_EQ("new", ReadFile(UserFile("missing")));
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(0666 & ~mask, ModeOf(UserFile("missing")));
}

} // namespace
