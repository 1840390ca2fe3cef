#include "vesta/EndSignals.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

namespace
{
bool Becomes(const std::atomic<int>& value, int expected)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (value != expected && std::chrono::steady_clock::now() < deadline)
    {
        std::this_thread::yield();
    }
    return value == expected;
}
} // namespace

TEST(EndSignalsDeathTest, TheFirstSignalIsToldAndTheSecondKills)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(
        {
            std::atomic<int> told{0};
            const EndSignals signals([&told](int signal) { told = signal; });
            raise(SIGTERM);
            raise(Becomes(told, SIGTERM) ? SIGINT : SIGABRT);
        },
        testing::KilledBySignal(SIGINT), "");
}

TEST(EndSignalsTest, LastsAsLongAsTheObjectAndLeavesIgnoredSignalsAlone)
{
    std::atomic<int> told{0};
    const auto       old = std::signal(SIGHUP, SIG_IGN);
    for (const int signal : {SIGTERM, SIGINT, SIGTERM})
    {
        told = 0;
        const EndSignals signals([&told](int number) { told = number; });
        raise(SIGHUP);
        raise(signal);
        EXPECT_TRUE(Becomes(told, signal));
    }
    EXPECT_EQ(SIG_DFL, std::signal(SIGTERM, SIG_DFL));
    EXPECT_EQ(SIG_IGN, std::signal(SIGHUP, old));
}
