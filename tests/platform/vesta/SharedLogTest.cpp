#include "tests/support/UserFolderTest.h"
#include "vesta/Log.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <set>
#include <thread>
#include <vector>

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
    constexpr int            kThreads = 4;
    constexpr int            kLines = 500;
    Log                      other; // As another program would have it.
    std::vector<std::thread> threads;
    for (Log* log : {&m_Log, &other})
    {
        log->SetLevels(log_Info, log_Fatal);
        ASSERT_TRUE(log->Open(m_File));
        for (int i = 0; i < kThreads; ++i)
        {
            threads.emplace_back(
                [log, i, &other]
                {
                    for (int line = 0; line < kLines; ++line)
                    {
                        const int id = (log == &other ? kThreads + i : i) * kLines + line;
                        log->Write(log_Info, SFormat("<%d>", id) + String(200, 'x') + "!");
                    }
                });
        }
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    std::set<long long> seen;
    for (const String& line : StringTokenizer::Split(File::Read(m_File, 10 << 20), "\n"))
    {
        const size_t start = line.find('<');
        if (!line.empty())
        {
            ASSERT_EQ(start, line.rfind('<')) << line;
            ASSERT_EQ('!', line.back()) << line;
            seen.insert(String(line.substr(start + 1)).ToInt(-1));
        }
    }
    EXPECT_EQ(static_cast<size_t>(2 * kThreads * kLines), seen.size());
}

/// A sink that is gone is never called again, whatever thread is logging.
TEST_F(SharedLogTest, MayBeReconfiguredWhileOthersWrite)
{
    m_Log.SetLevels(log_Info, log_Fatal);
    std::atomic<bool>        running{true};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i)
    {
        threads.emplace_back(
            [this, &running]
            {
                while (running)
                {
                    m_Log.Write(log_Info, "line");
                }
            });
    }
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
    for (std::thread& thread : threads)
    {
        thread.join();
    }
}

} // namespace
