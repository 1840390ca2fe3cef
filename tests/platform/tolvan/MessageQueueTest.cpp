#include "tolvan/MessageQueue.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "vesta/Exception.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace
{

MessageReceivedEvt Event(const String& type)
{
    MessageReceivedEvt event;
    event.m_Message = boost::shared_ptr<Message>(new Message(type));
    return event;
}

void Ignore(MessageReceivedEvt&)
{
}

TEST(MessageQueue, KeepsWhatNoSlotTakes)
{
    MessageQueue queue;
    EXPECT_FALSE(queue.Take());
    for (const char* const type : {"a", "taken", "b"})
    {
        MessageReceivedEvt event = Event(type);
        queue.RaiseAndQueue(event,
                            [&](MessageReceivedEvt& raised)
                            {
                                EXPECT_TRUE(raised.m_Message);
                                EXPECT_LT(queue.Size(), 2u) << "a slot may look into the queue";
                                if (raised.m_Message->Type() == "taken")
                                {
                                    raised.m_Message.reset();
                                }
                            });
    }
    EXPECT_EQ(queue.Size(), 2u);
    EXPECT_EQ(queue.Take()->Type(), "a");
    EXPECT_EQ(queue.Take()->Type(), "b");
    EXPECT_FALSE(queue.Take());
}

TEST(MessageQueue, KeepsTheMessageOfASlotThatFails)
{
    MessageQueue       queue;
    MessageReceivedEvt event = Event("a");
    EXPECT_THROW(queue.RaiseAndQueue(event, [](MessageReceivedEvt&) { throw 1; }), int);
    EXPECT_EQ(queue.Size(), 1u);
    queue.Clear();
    EXPECT_EQ(queue.Size(), 0u);
}

TEST(MessageQueue, WhoIsToldOfAMessageFindsIt)
{
    // The reader looks as soon as it has been told, while the slot that told it still runs.
    MessageQueue     queue;
    std::atomic<int> told{0};
    std::atomic<int> found{0};
    constexpr int    kCount = 2000;
    std::thread      reader(
        [&]
        {
            for (int i = 0; i < kCount && WaitFor([&] { return told > i; }); ++i)
            {
                found += queue.Take() != nullptr;
            }
        });
    for (int i = 0; i < kCount; ++i)
    {
        MessageReceivedEvt event = Event("a");
        queue.RaiseAndQueue(event,
                            [&](MessageReceivedEvt&)
                            {
                                ++told;
                                std::this_thread::yield();
                            });
    }
    reader.join();
    EXPECT_EQ(found, kCount);
}

TEST(MessageQueue, WakesWhoWaits)
{
    MessageQueue queue;
    EXPECT_FALSE(queue.WaitAndTake(1));
    std::thread writer(
        [&]
        {
            MessageReceivedEvt event = Event("a");
            queue.RaiseAndQueue(event, &Ignore);
        });
    EXPECT_TRUE(queue.WaitAndTake(10000));
    writer.join();
}

} // namespace
