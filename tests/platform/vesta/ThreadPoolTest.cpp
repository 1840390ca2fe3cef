#include "vesta/ThreadPool.h"

#include "tests/support/LogCapture.h"
#include "tests/support/Threads.h"
#include "vesta/Exception.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <vector>

namespace
{

class ThreadPoolTest : public testing::Test
{
protected:
    ~ThreadPoolTest() override { ThreadPool::Stop(); }
};

TEST_F(ThreadPoolTest, StopsAfterAllThatIsPosted)
{
    EXPECT_FALSE(ThreadPool::Post([] { ADD_FAILURE(); }));
    EXPECT_FALSE(ThreadPool::PostInOrder(nullptr, [] { ADD_FAILURE(); }));
    for (int round = 0; round < 3; ++round)
    {
        ThreadPool::Start(round); // No worker at all is one.
        ThreadPool::Start(5);
        EXPECT_TRUE(ThreadPool::IsReady());
        std::atomic<int> count{0};
        for (int i = 0; i < 500; ++i)
        {
            EXPECT_TRUE(ThreadPool::Post([&count] { ++count; }));
            EXPECT_TRUE(ThreadPool::PostInOrder(this, [&count] { ++count; }));
        }
        ThreadPool::Stop();
        EXPECT_EQ(1000, count);
        EXPECT_FALSE(ThreadPool::IsReady());
    }
}

TEST_F(ThreadPoolTest, KeepsTheOrderOfEachKey)
{
    constexpr int    kTasks = 500;
    std::vector<int> seen[8]; // One task of a key at a time: no lock is needed.
    ThreadPool::Start(4);
    for (int i = 0; i < kTasks; ++i)
    {
        for (auto& key : seen)
        {
            ThreadPool::PostInOrder(&key, [&key, i] { key.push_back(i); });
        }
    }
    ThreadPool::Stop();
    for (const auto& key : seen)
    {
        ASSERT_EQ(static_cast<size_t>(kTasks), key.size());
        EXPECT_TRUE(std::is_sorted(key.begin(), key.end()));
    }
}

TEST_F(ThreadPoolTest, KeysDoNotWaitForOneAnother)
{
    int                first = 0;
    int                second = 0;
    std::promise<void> other;
    std::future_status status = std::future_status::timeout;
    ThreadPool::Start(2);
    ThreadPool::PostInOrder(&first, [&]
                            { status = other.get_future().wait_for(std::chrono::seconds(20)); });
    ThreadPool::PostInOrder(&second, [&other] { other.set_value(); });
    ThreadPool::Stop();
    EXPECT_EQ(std::future_status::ready, status);
}

TEST_F(ThreadPoolTest, ExceptionsEndOnlyTheirTask)
{
    const LogCapture log;
    std::atomic<int> count{0};
    ThreadPool::Start(1);
    ThreadPool::PostInOrder(this, [] { Exception::Throw("Test", "Task", 1, "platform's"); });
    ThreadPool::PostInOrder(this, [] { throw std::runtime_error("standard"); });
    ThreadPool::Post([] { throw 1; });
    ThreadPool::PostInOrder(this, [&count] { ++count; });
    ThreadPool::Post([&count] { ++count; });
    ThreadPool::Stop();
    EXPECT_EQ(2, count);
    EXPECT_EQ(1, log.Count("platform's", log_Error)) << log.All();
    EXPECT_EQ(1, log.Count("standard", log_Error)) << log.All();
    EXPECT_EQ(1, log.Count("unknown", log_Error)) << log.All();
}

TEST_F(ThreadPoolTest, TasksMayPostAndMustNotStop)
{
    const LogCapture   log;
    std::promise<void> posted;
    ThreadPool::Start(1);
    ThreadPool::PostInOrder(this,
                            [&]
                            {
                                ThreadPool::Stop();
                                ThreadPool::PostInOrder(this, [&posted] { posted.set_value(); });
                            });
    EXPECT_EQ(std::future_status::ready, posted.get_future().wait_for(std::chrono::seconds(20)));
    EXPECT_TRUE(log.Has("ThreadPool::Stop", log_Error)) << log.All();
}

TEST_F(ThreadPoolTest, BearsStartAndStopFromManyThreads)
{
    std::atomic<int> accepted{0};
    std::atomic<int> run{0};
    Threads(4,
            [&](int)
            {
                for (int round = 0; round < 200; ++round)
                {
                    ThreadPool::Start(2);
                    accepted += ThreadPool::Post([&run] { ++run; });
                    accepted += ThreadPool::PostInOrder(&run, [&run] { ++run; });
                    ThreadPool::Stop();
                }
            });
    EXPECT_EQ(accepted, run);
    EXPECT_GT(run, 0);
}

} // namespace
