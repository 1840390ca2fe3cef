#include "vesta/ThreadPool.h"

#include "tests/support/LogCapture.h"
#include "vesta/Exception.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>

namespace
{

class ThreadPoolTest : public testing::Test
{
protected:
    ~ThreadPoolTest() override { ThreadPool::Stop(); }
};

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
    EXPECT_EQ(1, log.Count("unknown type", log_Error)) << log.All();
}

} // namespace
