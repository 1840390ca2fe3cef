#include "vesta/Signal.h"

#include "tests/support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <random>

namespace
{

using Numbers = std::vector<int>;
using NumberSignal = Signal1<int>;

TEST(Signal, CallsSlotsInOrder)
{
    Numbers      heard;
    NumberSignal signal;
    HasSlots     listener;
    HasSlots     other;
    const auto   times = [&heard](int factor)
    { return [&heard, factor](int number) { heard.push_back(factor * number); }; };
    signal.Connect(&listener, times(1));
    signal.Connect(&other, times(10));
    signal.Connect(&listener, times(100));
    signal.Connect(nullptr, times(-1));
    signal.Connect(&other, std::function<void(int)>());
    signal.Emit(1);
    signal(2);
    EXPECT_EQ((Numbers{1, 10, 100, 2, 20, 200}), heard);
    EXPECT_EQ(1u, listener.ConnectionCount());
    signal.Disconnect(&listener);
    signal.Disconnect(&listener);
    signal.Emit(3);
    EXPECT_EQ(30, heard.back());
    EXPECT_EQ(0u, listener.ConnectionCount());
    EXPECT_EQ(1u, signal.SlotCount());
}

TEST(Signal, SlotMayDestroyItsHolderOrTheSignal)
{
    Numbers calls;
    auto    signal = std::make_unique<Signal0<>>();
    auto    holder = std::make_unique<HasSlots>();
    auto    other = std::make_unique<HasSlots>();
    signal->Connect(holder.get(),
                    [&]
                    {
                        calls.push_back(1);
                        signal->Disconnect(holder.get());
                        holder.reset();
                        signal->Connect(other.get(), [&calls] { calls.push_back(2); });
                    });
    signal->Emit();
    signal->Connect(other.get(), [&signal] { signal.reset(); });
    signal->Connect(other.get(), [&calls] { calls.push_back(3); });
    signal->Emit();
    EXPECT_EQ((Numbers{1, 2}), calls);
    EXPECT_EQ(nullptr, signal);
    EXPECT_EQ(0u, other->ConnectionCount());
}

/// Whoever disconnects on another thread waits for the slot that runs, also when the slot has
/// disconnected itself meanwhile.
TEST(Signal, DestroyingWaitsForARunningSlot)
{
    for (const bool disconnectsItself : {false, true})
    {
        Signal0<>          signal;
        auto               holder = std::make_unique<HasSlots>();
        HasSlots* const    raw = holder.get();
        std::promise<void> entered;
        std::promise<void> goOn;
        std::atomic<bool>  left{false};
        signal.Connect(raw,
                       [&]
                       {
                           if (disconnectsItself)
                           {
                               signal.Disconnect(raw);
                           }
                           entered.set_value();
                           goOn.get_future().wait();
                           left = true;
                       });
        std::thread emitter([&signal] { signal.Emit(); });
        entered.get_future().wait();
        auto destroyed = std::async(std::launch::async,
                                    [&]
                                    {
                                        holder.reset();
                                        return left.load();
                                    });
        EXPECT_EQ(std::future_status::timeout, destroyed.wait_for(std::chrono::milliseconds(20)));
        goOn.set_value();
        EXPECT_TRUE(destroyed.get());
        emitter.join();
    }
}

/// A listener whose slot notices when it is called after its end.
struct FragileListener : HasSlots
{
    static constexpr int kAlive = 0x600D;

    int                 alive = kAlive;
    std::atomic<size_t> heard{0}; // Several signals call at once.

    ~FragileListener() override
    {
        DisconnectAll();
        alive = 0;
    }
    void Hear(int)
    {
        ASSERT_EQ(kAlive, alive);
        ++heard;
    }
};

TEST(Signal, BearsEverythingAtOnce)
{
    NumberSignal      signals[2];
    std::atomic<bool> running{true};
    Threads           emitters(2,
                               [&](int i)
                               {
                         while (running)
                         {
                             signals[i].Emit(i);
                         }
                     });
    Threads(3,
            [&](int thread)
            {
                std::mt19937 random(static_cast<unsigned>(thread));
                for (int round = 0; round < 3000; ++round)
                {
                    FragileListener listener;
                    NumberSignal    shortLived;
                    signals[random() % 2].Connect(&listener, &FragileListener::Hear);
                    shortLived.Connect(&listener, &FragileListener::Hear);
                    signals[0].Connect(&listener, [&](int) { signals[0].Disconnect(&listener); });
                    if (random() % 2)
                    {
                        signals[random() % 2].Disconnect(&listener);
                    }
                    shortLived.Emit(1);
                    ASSERT_GT(listener.heard, 0u);
                }
            });
    running = false;
    emitters.Join();
    EXPECT_EQ(0u, signals[0].SlotCount() + signals[1].SlotCount());
}

} // namespace
