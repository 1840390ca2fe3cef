#include "master/protocol/SendQueue.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

/// A queue of short texts instead of messages: "J:a" is job a's state, "S:a:3" three lines skipped.
class SendQueue : public testing::Test
{
protected:
    static master::Frame Make(const String& text) { return std::make_shared<const String>(text); }

    void Output(const String& job, const String& line)
    {
        queue.PushOutput(job, [&] { return Make(line); });
    }
    void OutputThreeTens() ///< One more than there is room for.
    {
        for (int i = 0; i < 3; ++i)
        {
            Output("a", ten);
        }
    }
    /// Sends all there is, `most` bytes at a time.
    std::vector<String> SendAll(size_t most)
    {
        std::vector<String> sent;
        for (auto frames = queue.Next(most); !frames.empty(); frames = queue.Next(most))
        {
            for (const master::Frame& frame : frames)
            {
                sent.push_back(*frame);
            }
            queue.Sent();
            m_Most = std::max(m_Most, queue.Bytes());
        }
        return sent;
    }

    size_t            m_Most = 0; ///< That waited after anything was sent.
    master::SendQueue queue{[](const String& job)
                            { return job == "gone" ? nullptr : Make("J:" + job); },
                            [](const String& job, uint64_t count)
                            { return Make("S:" + job + ":" + std::to_string(count)); },
                            20};
    const String      ten = "0123456789";
};

TEST_F(SendQueue, KeepsTheOrderWhileItIsUnderItsLimit)
{
    queue.Push(Make("hello"));
    queue.PushJob("a");
    Output("a", "1");
    queue.PushJob("gone");
    queue.PushJob("a");
    EXPECT_EQ(SendAll(4), (std::vector<String>{"hello", "J:a", "1", "J:a"}));
    EXPECT_EQ(queue.Bytes(), 0u);
}

TEST_F(SendQueue, SkipsOutputOverTheLimitAndReportsItBeforeTheJobsStates)
{
    Output("a", ten);
    Output("a", ten);
    EXPECT_FALSE(queue.IsLagging());
    Output("a", ten); // the one that goes over is still sent
    EXPECT_TRUE(queue.IsLagging());
    Output("a", "lost");
    Output("b", "lost");
    Output("a", "lost");
    queue.PushJob("b");
    queue.PushJob("a");
    queue.PushJob("b");
    queue.Push(Make("answer")); // never dropped
    EXPECT_EQ(SendAll(1),
              (std::vector<String>{ten, ten, ten, "answer", "S:a:2", "S:b:1", "J:b", "J:a"}));
    EXPECT_FALSE(queue.IsLagging());
    Output("a", "again");
    EXPECT_EQ(SendAll(100), std::vector<String>{"again"});
}

TEST_F(SendQueue, LagsUntilHalfOfTheLimitIsFree)
{
    OutputThreeTens();
    queue.Next(10);
    EXPECT_EQ(queue.Bytes(), 30u); // what is being sent still counts
    queue.Sent();
    EXPECT_TRUE(queue.IsLagging());
    queue.Next(10);
    queue.Sent();
    EXPECT_FALSE(queue.IsLagging());
}

TEST_F(SendQueue, ManyChangedJobsCatchUpInSeveralSteps)
{
    OutputThreeTens();
    std::vector<String> expected = {ten, ten, ten};
    for (char name = 'a'; name <= 'z'; ++name)
    {
        queue.PushJob(String(1, name));
        expected.push_back(String("J:") + String(1, name));
    }
    EXPECT_EQ(SendAll(1), expected);
    EXPECT_LE(m_Most, 20u + 3u);
}

} // namespace
