#include "vesta/OptionsFile.h"
#include "tests/support/LogCapture.h"
#include "tests/support/UserFolderTest.h"

#include <sys/stat.h>

namespace
{

class OptionsFileTest : public UserFolderTest
{
protected:
    const Path m_File = UserFile("options.ini");
};

TEST_F(OptionsFileTest, WritesEveryChangeAtOnce)
{
    OptionsFile file(m_File);
    file.SetValue("S", "a", "1");
    EXPECT_EQ("[S]\na = 1\n", ReadFile(m_File));
    file.SetValue("S", "a", "1");
    {
        const OptionsFile::PauseAutoWrite nothing(file);
    }
    EXPECT_EQ(1, file.WriteCount());
    file.RemoveValue("S", "a");
    EXPECT_EQ(2, file.WriteCount());
    EXPECT_EQ("[S]\n", ReadFile(m_File));
}

TEST_F(OptionsFileTest, LogsAFailingDiskOnceAndTriesAgain)
{
    WriteFile(m_File, "");
    chmod(m_File.Text().c_str(), 0400);
    const LogCapture log;
    {
        OptionsFile file(m_File);
        for (int i = 0; i < 10; ++i)
        {
            file.SetValue("S", "a", String::FromInt(i));
        }
        EXPECT_FALSE(file.WriteOut());
        EXPECT_EQ(1, log.Count("write-protected", log_Error)) << log.All();
        EXPECT_EQ(1, log.Count("Call trace", log_Warning)) << log.All();
        chmod(m_File.Text().c_str(), 0600);
    }
    EXPECT_EQ("[S]\na = 9\n", ReadFile(m_File)); // Written at the end of its life.
}

} // namespace
