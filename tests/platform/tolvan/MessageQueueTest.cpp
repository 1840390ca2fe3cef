#include "tolvan/MessageQueue.h"
#include "tests/platform/tolvan/TestPeer.h"
#include "tests/support/Threads.h"

#include <gtest/gtest.h>

#include <atomic>

namespace
{

class MessageQueueTest : public testing::Test
{
protected:
    template <class Slot> void Raise(const String& type, const Slot& slot)
    {
        MessageReceivedEvt event;
        event.m_Message = boost::shared_ptr<Message>(new Message(type));
        m_Queue.RaiseAndQueue(event, slot);
    }

    MessageQueue m_Queue;
};

TEST_F(MessageQueueTest, KeepsWhatNoSlotTakes)
{
    const auto slot = [&](MessageReceivedEvt& event)
    {
        EXPECT_LT(m_Queue.Size(), 3u) << "a slot may look into the queue";
        if (event.m_Message->Type() == "taken")
        {
            event.m_Message.reset();
        }
        else if (event.m_Message->Type() == "fails")
        {
            throw 1;
        }
    };
    Raise("a", slot);
    Raise("taken", slot);
    EXPECT_THROW(Raise("fails", slot), int);
    Raise("b", slot);
    EXPECT_EQ(m_Queue.Size(), 3u);
    for (const char* const type : {"a", "fails", "b"})
    {
        EXPECT_EQ(m_Queue.Take()->Type(), type);
    }
    EXPECT_FALSE(m_Queue.Take());
}

TEST_F(MessageQueueTest, WhoIsToldOfAMessageFindsIt)
{
    // The reader looks as soon as it has been told, while the slot that told it still runs.
    constexpr int    kCount = 2000;
    std::atomic<int> told{0};
    int              found = 0;
    Threads          reader(1,
                            [&](int)
                            {
                       for (int i = 0; i < kCount && WaitFor([&] { return told > i; }); ++i)
                       {
                           found += m_Queue.Take() != nullptr;
                       }
                   });
    for (int i = 0; i < kCount; ++i)
    {
        Raise("a",
              [&](MessageReceivedEvt&)
              {
                  ++told;
                  std::this_thread::yield();
              });
    }
    reader.Join();
    EXPECT_EQ(found, kCount);
}

TEST_F(MessageQueueTest, WakesWhoWaits)
{
    EXPECT_FALSE(m_Queue.WaitAndTake(1));
    const Threads writer(1, [&](int) { Raise("a", [](MessageReceivedEvt&) {}); });
    EXPECT_TRUE(m_Queue.WaitAndTake(10000));
}

} // namespace
