#include "shell/wxTimed.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Threads.h"

#include <wx/thread.h>

#include <atomic>
#include <memory>

namespace
{
constexpr int kThreads = 3;
constexpr int kRounds = 200;

// Has something to lose: a tick before it is made, or after it has gone, would be seen.
class Counter : public wxTimed
{
public:
    void OnTick() override
    {
        EXPECT_TRUE(wxIsMainThread());
        ++*m_Ticks;
    }
    int Ticks() const { return *m_Ticks; }

private:
    std::unique_ptr<int> m_Ticks = std::make_unique<int>(0);
};

class ThreadedTimedTest : public UserFolderTest
{
protected:
    ThreadedTimedTest() { LibStatic::CleanupAll(); } // a fresh timer
};
} // namespace

TEST_F(ThreadedTimedTest, ATickMeetsWholeObjectsOnly)
{
    const Counter    own;
    std::atomic<int> running{kThreads};
    Threads          threads(kThreads,
                             [&](int)
                             {
                        for (int i = 0; i < kRounds; ++i)
                        {
                            std::unique_ptr<Counter> counter;
                            {
                                const wxTimed::Hold hold;
                                counter = std::make_unique<Counter>();
                            }
                            const wxTimed::Hold hold;
                            counter.reset();
                        }
                        --running;
                    });
    int              rounds = 0;
    for (; running > 0 || rounds < 10; ++rounds)
    {
        g_MasterTimer->Notify();
        PumpEvents();
    }
    threads.Join();
    EXPECT_LE(rounds / 5, own.Ticks());
}
