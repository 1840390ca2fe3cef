#include "tests/support/UserFolderTest.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

UserFolderTest::UserFolderTest() : m_OldUserDir(File::s_UserDir)
{
    String pattern = (std::filesystem::temp_directory_path() / "tolvan-test-XXXXXX").string();
    if (!mkdtemp(&pattern[0]))
    {
        ADD_FAILURE() << "no temporary folder";
        return;
    }
    m_Folder = pattern;
    std::filesystem::create_directory(m_Folder + "/user");
    std::filesystem::create_directory(m_Folder + "/runtime");
    std::filesystem::permissions(m_Folder + "/runtime", std::filesystem::perms::owner_all);
    File::s_UserDir = m_Folder + "/user";
    setenv("XDG_RUNTIME_DIR", (m_Folder + "/runtime").c_str(), 1);
}

UserFolderTest::~UserFolderTest()
{
    File::s_UserDir = m_OldUserDir;
    std::error_code ignored;
    std::filesystem::remove_all(m_Folder.c_str(), ignored);
}

void UserFolderTest::WriteFile(const Path& path, const String& content)
{
    std::ofstream stream(path.Text(), std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    ASSERT_TRUE(stream.flush().good()) << path.Text();
}

String UserFolderTest::ReadFile(const Path& path)
{
    std::ifstream stream(path.Text(), std::ios::binary);
    EXPECT_TRUE(stream.good()) << path.Text();
    return String(std::string(std::istreambuf_iterator<char>(stream), {}));
}

struct stat UserFolderTest::StatusOf(const Path& path)
{
    struct stat status = {};
    EXPECT_EQ(0, lstat(path.Text().c_str(), &status)) << path.Text();
    return status;
}
