#include "tests/support/Threads.h"
#include "tests/support/UserFolderTest.h"
#include "vesta/Log.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <set>

namespace
{

class SharedLogTest : public UserFolderTest
{
protected:
    const String m_File = UserFile("shared.log").Text();
    Log          m_Log;
};

TEST_F(SharedLogTest, LinesNeverMix)
{
    constexpr int kThreads = 8;
    constexpr int kLines = 500;
    Log           other; // As another program would have it.
    for (Log* log : {&m_Log, &other})
    {
        log->SetLevels(log_Info, log_Fatal);
        ASSERT_TRUE(log->Open(m_File));
    }
    Threads(kThreads,
            [&](int thread)
            {
                for (int line = 0; line < kLines; ++line)
                {
                    const String id = SFormat("<%d>", thread * kLines + line);
                    (thread % 2 ? m_Log : other).Write(log_Info, id + String(200, 'x') + "!");
                }
            });
    std::set<String> seen;
    for (const String& line : StringTokenizer::Split(File::Read(m_File, 10 << 20), "\n"))
    {
        const size_t start = line.find('<');
        if (!line.empty())
        {
            ASSERT_EQ(start, line.rfind('<')) << line;
            ASSERT_EQ('!', line.back()) << line;
            seen.insert(line.substr(start));
        }
    }
    EXPECT_EQ(static_cast<size_t>(kThreads * kLines), seen.size());
}

/// A sink that is gone is never called again, whatever thread is logging.
TEST_F(SharedLogTest, MayBeReconfiguredWhileOthersWrite)
{
    m_Log.SetLevels(log_Info, log_Fatal);
    std::atomic<bool> running{true};
    const Threads     writers(3,
                              [this, &running](int)
                              {
                              while (running)
                              {
                                  m_Log.Write(log_Info, "line");
                              }
                          });
    for (int round = 0; round < 300; ++round)
    {
        auto lines = std::make_unique<std::vector<String>>();
        m_Log.SetSink([](void* data, LogLevel, const String& text)
                      { static_cast<std::vector<String>*>(data)->push_back(text); },
                      lines.get());
        round % 2 ? static_cast<void>(m_Log.Open(m_File)) : m_Log.Close();
        m_Log.SetLevels(log_Info, log_Fatal);
        m_Log.Write(log_Info, "own line");
        m_Log.SetSink(nullptr, nullptr);
        EXPECT_EQ(1, std::count(lines->begin(), lines->end(), "own line"));
    }
    running = false;
}

} // namespace
