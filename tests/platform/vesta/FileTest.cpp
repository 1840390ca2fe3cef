#include "vesta/File.h"

#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"
#include "vesta/Exception.h"
#include "vesta/FileLock.h"

#include <cstdlib>
#include <functional>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace
{

class FileTest : public UserFolderTest
{
protected:
    FileTest() { File::MakeFolder(UserFile("").Branch()); }

    static int Code(const std::function<void()>& action)
    {
        try
        {
            action();
        }
        catch (Exception* e)
        {
            const int code = e->Code();
            delete e;
            return code;
        }
        return 0;
    }
};

/// Sets variables of the environment and puts the old ones back.
class Environment
{
public:
    explicit Environment(const std::map<String, const char*>& values)
    {
        for (const auto& item : values)
        {
            const char* const old = std::getenv(item.first.c_str());
            m_Old.emplace_back(item.first, std::make_pair(old != nullptr, String(old)));
            item.second ? setenv(item.first.c_str(), item.second, 1) : unsetenv(item.first.c_str());
        }
    }
    ~Environment()
    {
        for (const auto& item : m_Old)
        {
            item.second.first ? setenv(item.first.c_str(), item.second.second.c_str(), 1)
                              : unsetenv(item.first.c_str());
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    std::vector<std::pair<String, std::pair<bool, String>>> m_Old;
};

String UserDirIn(const char* own, const char* config, const char* home)
{
    const Environment environment(
        {{"TOLVAN_USER_DIR", own}, {"XDG_CONFIG_HOME", config}, {"HOME", home}});
    return File::FindUserDir();
}

TEST_F(FileTest, FindsTheUserFolder)
{
    EXPECT_EQ("/own", UserDirIn("/own", "/config", "/home/me"));
    EXPECT_EQ("/config/tolvan", UserDirIn("", "/config", "/home/me"));
    EXPECT_EQ("/home/me/.config/tolvan", UserDirIn(nullptr, "relative", "/home/me"));
    EXPECT_EQ("", UserDirIn(nullptr, nullptr, ""));
}

TEST_F(FileTest, SaysThatThereIsNoUserFolder)
{
    File::s_UserDir = "";
    try
    {
        File::GetUserDir();
        FAIL();
    }
    catch (Exception* e)
    {
        EXPECT_EQ("File", e->ClassName());
        EXPECT_EQ("GetUserDir", e->Method());
        EXPECT_EQ(0x20000003, e->Code());
        EXPECT_EQ("No User Folder available", e->Text());
        delete e;
    }
    File::s_UserDir = "/x";
    EXPECT_EQ("/x", File::GetUserDir().Text());
}

TEST_F(FileTest, MakesFolders)
{
    const Path folder = UserFile("a/b/c/");
    File::MakeFolder(folder);
    File::MakeFolder(folder);
    File::MakeFolder("");
    EXPECT_TRUE(File::IsFolder(folder));
    WriteFile(UserFile("file"), "x");
    EXPECT_EQ(ec_System, Code([this] { File::MakeFolder(UserFile("file/sub")); }));
    EXPECT_EQ(ec_System, Code([this] { File::MakeFolder(UserFile("file")); }));
}

TEST_F(FileTest, ReadsUpToTheLimit)
{
    const Path   path = UserFile("f");
    const String content(100000, '\0');
    File::WriteAtomically(path, content);
    EXPECT_EQ(content, File::Read(path, content.size()));
    EXPECT_EQ(ec_TooLarge, Code([&] { File::Read(path, content.size() - 1); }));
    EXPECT_EQ(ec_BadData, Code([this] { File::Read(UserFile("").Branch(), 10); }));
    EXPECT_EQ(ec_BadData, Code([] { File::Read("/dev/zero", 10); }));
    EXPECT_EQ(ec_System, Code([this] { File::Read(UserFile("none"), 10); }));
    EXPECT_FALSE(File::Read("/proc/self/status", 1 << 20).empty()); // Reports no size.
    EXPECT_EQ(ec_TooLarge, Code([] { File::Read("/proc/self/status", 10); }));
}

TEST_F(FileTest, ListsNamesInOrder)
{
    WriteFile(UserFile("b"), "");
    WriteFile(UserFile("a"), "");
    WriteFile(UserFile(".c"), "");
    EXPECT_EQ((std::vector<String>{".c", "a", "b"}), File::List(UserFile("").Branch()));
    EXPECT_TRUE(File::List(UserFile("none")).empty());
    EXPECT_TRUE(File::Remove(UserFile("a")));
    EXPECT_FALSE(File::Remove(UserFile("a")));
}

TEST_F(FileTest, WritingFollowsLinks)
{
    const Path target = UserFile("real/target");
    File::MakeFolder(target.Branch());
    ASSERT_EQ(0, symlink("real/second", UserFile("first").Text().c_str()));
    ASSERT_EQ(0, symlink("target", UserFile("real/second").Text().c_str()));
    for (const char* content : {"new", "old"}) // There is no target at first.
    {
        File::WriteAtomically(UserFile("first"), content);
        EXPECT_EQ(content, File::Read(target, 10));
    }
    struct stat status
    {
    };
    ASSERT_EQ(0, lstat(UserFile("first").Text().c_str(), &status));
    EXPECT_TRUE(S_ISLNK(status.st_mode));

    ASSERT_EQ(0, symlink("loop", UserFile("loop").Text().c_str()));
    EXPECT_EQ(ec_System, Code([this] { File::WriteAtomically(UserFile("loop"), "x"); }));
}

TEST_F(FileTest, WritingNeverReplacesADevice)
{
    ASSERT_EQ(0, symlink("/dev/null", UserFile("null").Text().c_str()));
    EXPECT_EQ(ec_System, Code([this] { File::WriteAtomically(UserFile("null"), "x"); }));
    struct stat status
    {
    };
    ASSERT_EQ(0, stat("/dev/null", &status));
    EXPECT_TRUE(S_ISCHR(status.st_mode));
    EXPECT_EQ(ec_System, Code([this] { File::WriteAtomically(UserFile("none/f"), "x"); }));
}

TEST_F(FileTest, LockKeepsOthersOut)
{
    const Path       path = UserFile("f");
    const LogCapture log;
    {
        const FileLock first(path);
        EXPECT_TRUE(first.IsHeld());
        const FileLock second(path, 30);
        EXPECT_FALSE(second.IsHeld());
        EXPECT_EQ(1, log.Count("f.lock", log_Warning)) << log.All();
    }
    EXPECT_TRUE(FileLock(path).IsHeld()); // Also behind the one that came too late.
    EXPECT_FALSE(FileLock(UserFile("none/f")).IsHeld());
    EXPECT_EQ(2, log.Count("f.lock", log_Warning)) << log.All();
}

} // namespace
