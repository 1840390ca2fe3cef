#include "vesta/Log.h"

#include "tests/support/UserFolderTest.h"

#include <regex>

namespace
{

class LogTest : public UserFolderTest
{
protected:
    LogTest() { m_Log.SetLevels(log_Info, log_Fatal); }

    String Content() const { return ReadFile(m_File); }

    const Path m_File = UserFile("logs/test.log");
    Log        m_Log;
};

TEST_F(LogTest, WritesUpToItsLevelAndBytesAsTheyAre)
{
    ASSERT_TRUE(m_Log.Open(m_File.Text()));
    m_Log.Write(log_Error, "one {} %s %v");
    m_Log.Write(log_Debug, "below the level");
    m_Log.Write(log_Info, "two");
    const std::string time = "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3}";
    const std::regex  expected(time + " error   one \\{\\} %s %v\n" + time + " info    two\n");
    EXPECT_TRUE(std::regex_match(Content(), expected)) << Content();
    m_Log.Close();
    m_Log.Write(log_Info, "after its end");

    const String odd("a\0b\xFF\n\r\x1B[1m", 11);
    const String large(500000, 'x');
    m_Log.Open(m_File.Text());
    m_Log.Write(log_Info, odd);
    m_Log.Write(log_Info, large);
    for (const String& text : {String("two"), odd, large})
    {
        EXPECT_NE(String::npos, Content().find(text + "\n"));
    }
    EXPECT_EQ(String::npos, Content().find("after its end"));
}

TEST_F(LogTest, GoesOnWithTheConsoleWhenTheFileCannotBeWritten)
{
    WriteFile(UserFile("logs"), "a file where a folder should be");
    m_Log.SetLevels(log_Info, log_Warning);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(m_Log.Open(m_File.Text()));
    EXPECT_FALSE(m_Log.Open("/proc/none/log"));
    m_Log.Write(log_Error, "after");
    m_Log.Write(log_Info, "below the console's level");
    const String console = testing::internal::GetCapturedStderr();
    EXPECT_NE(String::npos, console.find("logs\"")) << console;
    EXPECT_NE(String::npos, console.find("error   after\n")) << console;
    EXPECT_EQ(String::npos, console.find("below")) << console;
}

} // namespace
