#include "vesta/Log.h"

#include "tests/support/UserFolderTest.h"
#include "vesta/Exception.h"

#include <stdexcept>

namespace
{

/// The text with every digit as "0".
String Shape(String text)
{
    for (char& c : text)
    {
        c = c >= '0' && c <= '9' ? '0' : c;
    }
    return text;
}

class LogTest : public UserFolderTest
{
protected:
    const String m_File = UserFile("logs/test.log").Text();
    Log          m_Log;

    String Content() { return File::Read(m_File, 10 << 20); }
};

TEST_F(LogTest, WritesTimeLevelAndText)
{
    m_Log.SetLevels(log_Debug, log_Fatal);
    ASSERT_TRUE(m_Log.Open(m_File));
    EXPECT_EQ(m_File, m_Log.FileName());
    m_Log.Write(log_Error, "one {} %s %v");
    m_Log.Write(log_Debug, "two");
    const String time = "0000-00-00 00:00:00.000";
    EXPECT_EQ(time + " error   one {} %s %v\n" + time + " debug   two\n", Shape(Content()));
}

TEST_F(LogTest, LeavesTheBytesAlone)
{
    m_Log.SetLevels(log_Info, log_Fatal);
    m_Log.Open(m_File);
    const String text("a\0b\xFF\n\r\x1B[1m", 11);
    m_Log.Write(log_Info, text);
    EXPECT_NE(String::npos, Content().find(text + "\n"));
    const String large(500000, 'x');
    m_Log.Write(log_Info, large);
    EXPECT_NE(String::npos, Content().find(large + "\n"));
}

TEST_F(LogTest, KeepsLinesUpToItsLevel)
{
    m_Log.SetLevels(log_Warning, log_Fatal);
    m_Log.Open(m_File);
    for (int level = log_Fatal + 1; level <= log_Debug; ++level)
    {
        m_Log.Write(static_cast<LogLevel>(level), SFormat("level %d;", level));
        EXPECT_EQ(level <= log_Warning, m_Log.WouldLog(static_cast<LogLevel>(level)));
        EXPECT_EQ(level <= log_Warning,
                  Content().find(SFormat("level %d;", level)) != String::npos);
    }
}

TEST_F(LogTest, AppendsAndCloses)
{
    m_Log.SetLevels(log_Info, log_Fatal);
    for (const char* text : {"first", "second"})
    {
        m_Log.Open(m_File);
        m_Log.Write(log_Info, text);
        m_Log.Flush();
        m_Log.Close();
    }
    m_Log.Write(log_Info, "third");
    EXPECT_EQ("", m_Log.FileName());
    EXPECT_NE(String::npos, Content().find("first"));
    EXPECT_NE(String::npos, Content().find("second"));
    EXPECT_EQ(String::npos, Content().find("third"));
}

TEST_F(LogTest, GoesOnWithTheConsoleWhenTheFileCannotBeWritten)
{
    File::MakeFolder(UserFile("").Branch());
    WriteFile(UserFile("logs"), "a file where a folder should be");
    testing::internal::CaptureStderr();
    m_Log.Write(log_Warning, "before");
    m_Log.Write(log_Info, "below the console's level");
    EXPECT_FALSE(m_Log.Open(m_File));
    EXPECT_FALSE(m_Log.Open("/proc/none/log"));
    m_Log.Write(log_Error, "after");
    const String console = testing::internal::GetCapturedStderr();
    EXPECT_NE(String::npos, console.find("warning before\n")) << console;
    EXPECT_NE(String::npos, console.find("logs\"")) << console;
    EXPECT_NE(String::npos, console.find("error   after\n")) << console;
    EXPECT_EQ(String::npos, console.find("below")) << console;
}

TEST_F(LogTest, ReportsAFullDiskOnce)
{
    testing::internal::CaptureStderr();
    m_Log.SetLevels(log_Info, log_Fatal);
    ASSERT_TRUE(m_Log.Open("/dev/full"));
    for (int i = 0; i < 5; ++i)
    {
        m_Log.Write(log_Info, "line");
    }
    const String console = testing::internal::GetCapturedStderr();
    EXPECT_NE(String::npos, console.find("Cannot write the log file")) << console;
    EXPECT_EQ(console.find("Cannot"), console.rfind("Cannot")) << console;
}

struct SinkProbe
{
    Log*                log;
    std::vector<String> lines;
    int                 misbehaviour = 0;

    static void Take(void* data, LogLevel level, const String& text)
    {
        auto* const self = static_cast<SinkProbe*>(data);
        self->lines.push_back(SFormat("%d:", level) + text);
        self->log->Write(log_Error, "from the sink"); // Must neither come back nor block.
        if (self->misbehaviour == 1)
        {
            throw std::runtime_error("from the sink");
        }
        if (self->misbehaviour == 2)
        {
            Exception::Throw("Sink", "Take", 1, "from the sink");
        }
        if (self->misbehaviour == 3)
        {
            self->log->SetSink(nullptr, nullptr);
        }
    }
};

TEST_F(LogTest, SinkMayDoAsItPleases)
{
    testing::internal::CaptureStderr();
    SinkProbe probe{&m_Log, {}};
    m_Log.SetLevels(log_Debug, log_Fatal);
    EXPECT_FALSE(m_Log.WouldLog(log_Debug)); // Nobody would see it.
    m_Log.SetSink(&SinkProbe::Take, &probe);
    EXPECT_TRUE(m_Log.WouldLog(log_Debug));
    for (probe.misbehaviour = 0; probe.misbehaviour <= 3; ++probe.misbehaviour)
    {
        m_Log.Write(log_Debug, SFormat("line %d", probe.misbehaviour));
    }
    m_Log.Write(log_Debug, "nobody listens");
    const std::vector<String> expected{"6:line 0", "6:line 1", "6:line 2", "6:line 3"};
    EXPECT_EQ(expected, probe.lines);
    testing::internal::GetCapturedStderr();
}

} // namespace
