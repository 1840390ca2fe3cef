#include "vesta/ThreadPool.h"

#include "tests/support/LogCapture.h"
#include "vesta/Exception.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>
#include <thread>
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
    EXPECT_FALSE(ThreadPool::IsReady());
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
        ThreadPool::Stop();
    }
}

TEST_F(ThreadPoolTest, KeepsTheOrderOfEachKey)
{
    constexpr int                 kKeys = 8;
    constexpr int                 kTasks = 500;
    std::vector<std::vector<int>> seen(kKeys); // One task of a key at a time: no lock is needed.
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
    ThreadPool::Start(2);
    int                first = 0;
    int                second = 0;
    std::promise<void> other;
    const auto         done = other.get_future().share();
    std::atomic<bool>  inTime{false};
    ThreadPool::PostInOrder(
        &first,
        [&] { inTime = done.wait_for(std::chrono::seconds(20)) == std::future_status::ready; });
    ThreadPool::PostInOrder(&second, [&other] { other.set_value(); });
    ThreadPool::Stop();
    EXPECT_TRUE(inTime);
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
    std::promise<bool> posted;
    ThreadPool::Start(1);
    ThreadPool::PostInOrder(this,
                            [this, &posted]
                            {
                                ThreadPool::Stop();
                                ThreadPool::PostInOrder(this,
                                                        [&posted] { posted.set_value(true); });
                            });
    auto       result = posted.get_future();
    const auto status = result.wait_for(std::chrono::seconds(20));
    EXPECT_EQ(std::future_status::ready, status);
    EXPECT_TRUE(log.Has("ThreadPool::Stop", log_Error)) << log.All();
}

TEST_F(ThreadPoolTest, BearsStartAndStopFromManyThreads)
{
    std::atomic<int>         accepted{0};
    std::atomic<int>         run{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
    {
        threads.emplace_back(
            [&]
            {
                for (int round = 0; round < 200; ++round)
                {
                    ThreadPool::Start(2);
                    accepted += ThreadPool::Post([&run] { ++run; });
                    accepted += ThreadPool::PostInOrder(&run, [&run] { ++run; });
                    ThreadPool::Stop();
                }
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(accepted, run);
    EXPECT_GT(run, 0);
}

} // namespace
