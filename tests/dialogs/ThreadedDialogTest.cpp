#include "tests/support/FrameTest.h"

#include "dialogs/wxTolvanDlg.h"

#include <atomic>
#include <thread>
#include <vector>

namespace
{
constexpr int kThreads = 4;
constexpr int kNotices = 500;

class Listener : public wxTolvanDlg
{
public:
    Listener() : wxTolvanDlg(nullptr, "Listener", "", false) {}
    void OnConnected(bool) override
    {
        EXPECT_TRUE(wxIsMainThread());
        ++heard;
    }

    int heard = 0;
};
} // namespace

// No window is shown: the toolkit would begin threads of its own.
class ThreadedDialogTest : public UserFolderTest
{
};

TEST_F(ThreadedDialogTest, NoticesComeFromAnyThreadWhileDialogsOpenAndClose)
{
    Listener                 lasting;
    std::atomic<int>         running{kThreads};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
    {
        threads.emplace_back(
            [&running]
            {
                for (int notice = 0; notice < kNotices; ++notice)
                {
                    wxTolvanDlg::NotifyConnected(notice % 2);
                }
                --running;
            });
    }
    while (running > 0)
    {
        auto* const brief = new Listener;
        PumpEvents();
        brief->Destroy();
        PumpEvents();
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_TRUE(WaitFor([&] { return lasting.heard == kThreads * kNotices; })) << lasting.heard;
}
