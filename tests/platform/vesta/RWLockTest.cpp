#include "vesta/RWLock.h"

#include "tests/support/LogCapture.h"
#include "tests/support/Threads.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

#include <future>

namespace
{

constexpr std::chrono::milliseconds kMoment{20}; // for what must not happen
constexpr std::chrono::seconds      kDeadline{20};

TEST(RWLock, WriterMayTakeItAgain)
{
    RWLock lock;
    {
        const WriteLock outer(lock);
        const WriteLock inner(lock);
        const ReadLock  read(lock);
        const WriteLock again(lock);
    }
    // All of them are given back: another thread gets it.
    EXPECT_EQ(std::future_status::ready,
              std::async(std::launch::async, [&lock] { const WriteLock other(lock); })
                  .wait_for(kDeadline));
}

TEST(RWLock, ReaderMustNotAskForTheWriteLock)
{
    RWLock lock;
    {
        const ReadLock read(lock);
        EXPECT_EQ(ec_Refused, CodeThrown([&lock] { lock.GetWriteLock(); }));
    }
    const WriteLock write(lock); // It still works.
}

TEST(RWLock, ReaderMayReadAgainWhileAWriterWaits)
{
    RWLock lock;
    lock.GetReadLock();
    auto writer = std::async(std::launch::async, [&lock] { const WriteLock write(lock); });
    EXPECT_EQ(std::future_status::timeout, writer.wait_for(kMoment));
    lock.GetReadLock(); // Would wait for ever behind the writer.
    auto stranger = std::async(std::launch::async, [&lock] { const ReadLock read(lock); });
    EXPECT_EQ(std::future_status::timeout, stranger.wait_for(kMoment)); // The writer is first.
    lock.Unlock();
    EXPECT_EQ(std::future_status::timeout, writer.wait_for(kMoment));
    lock.Unlock();
    EXPECT_EQ(std::future_status::ready, writer.wait_for(kDeadline));
    EXPECT_EQ(std::future_status::ready, stranger.wait_for(kDeadline));
}

TEST(RWLock, UnlockWithoutLockIsLogged)
{
    const LogCapture log;
    RWLock           lock;
    lock.Unlock();
    EXPECT_TRUE(log.Has("RWLock::Unlock", log_Error)) << log.All();
    const WriteLock write(lock);
}

TEST(RWLock, KeepsWritersApart)
{
    RWLock     lock;
    int        first = 0; // Unguarded but for the lock.
    int        second = 0;
    const auto write = [&]
    {
        const WriteLock outer(lock);
        ++first;
        std::this_thread::yield();
        const ReadLock read(lock);
        ++second;
    };
    const auto read = [&]
    {
        const ReadLock outer(lock);
        const ReadLock again(lock);
        ASSERT_EQ(first, second);
    };
    Threads(4,
            [&](int thread)
            {
                for (int round = 0; round < 3000; ++round)
                {
                    (round + thread) % 3 == 0 ? write() : read();
                }
            });
    EXPECT_EQ(4000, first);
}

} // namespace
