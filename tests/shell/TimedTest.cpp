#include "shell/wxTimed.h"
#include "tests/support/FrameTest.h"

#include <memory>

namespace
{
class Counter : public wxTimed
{
public:
    explicit Counter(std::function<void()> work = [] {}) : m_Work(std::move(work)) {}
    void OnTick() override
    {
        ++ticks;
        m_Work();
    }
    int ticks = 0;

private:
    std::function<void()> m_Work;
};

// Made before the application object.
Counter s_Early;

class TimedTest : public UserFolderTest
{
protected:
    TimedTest() { LibStatic::CleanupAll(); } // a fresh timer for every test

    static void Tick(int count)
    {
        for (int i = 0; i < count; ++i)
        {
            g_MasterTimer->Notify();
        }
    }
};
} // namespace

TEST(EarlyTimedTest, TicksOnceThereIsAnApplication)
{
    EXPECT_TRUE(WaitFor([] { return s_Early.ticks > 0; }));
}

TEST_F(TimedTest, RunsOnlyWhileSomebodyNeedsIt)
{
    EXPECT_EQ(nullptr, g_MasterTimer);
    auto first = std::make_unique<Counter>();
    auto second = std::make_unique<Counter>();
    ASSERT_NE(nullptr, g_MasterTimer);
    EXPECT_TRUE(g_MasterTimer->IsRunning());
    EXPECT_EQ(50, g_MasterTimer->GetInterval());
    first.reset();
    EXPECT_TRUE(g_MasterTimer->IsRunning());
    second.reset();
    EXPECT_FALSE(g_MasterTimer->IsRunning());
    const Counter third;
    EXPECT_TRUE(g_MasterTimer->IsRunning());
}

TEST_F(TimedTest, FirstTickFiresEverythingAndThePeriodsHold)
{
    const Counter counter;
    HasSlots      slots;
    int           fast = 0;
    int           slow = 0;
    wxTimed::s_Timer0100.Connect(&slots, [&fast] { ++fast; });
    wxTimed::s_Timer0250.Connect(&slots, [&slow] { ++slow; });
    const auto expectAfter = [&](int ticks, const std::vector<int>& fired)
    {
        Tick(ticks);
        EXPECT_EQ(fired, (std::vector<int>{fast, slow, counter.ticks}));
    };
    expectAfter(1, {1, 1, 1});
    expectAfter(9, {5, 2, 2});
}

TEST_F(TimedTest, ObjectsMayGoAndComeInsideATick)
{
    auto                     victim = std::make_unique<Counter>();
    std::unique_ptr<Counter> self;
    std::unique_ptr<Counter> born;
    // One of them ticks before the victim, one after it, whatever their addresses.
    const Counter before([&] { victim.reset(); });
    self = std::make_unique<Counter>(
        [&]
        {
            victim.reset();
            born = std::make_unique<Counter>();
            self.reset();
        });
    Tick(1);
    EXPECT_EQ(nullptr, victim);
    EXPECT_EQ(nullptr, self);
    Tick(5);
    EXPECT_EQ(1, born->ticks);
}
