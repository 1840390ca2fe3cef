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
    Listener(wxWindow* parent, int& heard)
        : wxTolvanDlg(parent, "Listener", "", false), m_Heard(heard)
    {
    }
    void OnConnected(bool) override
    {
        EXPECT_TRUE(wxIsMainThread());
        ++m_Heard;
    }

private:
    int& m_Heard;
};
} // namespace

class ThreadedDialogTest : public FrameTest
{
};

TEST_F(ThreadedDialogTest, NoticesComeFromAnyThreadWhileDialogsOpenAndClose)
{
    int      heardByAll = 0;
    Listener last(Frame(), heardByAll);
    int      heard = 0;

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
    do
    {
        auto* const dialog = new Listener(Frame(), heard);
        PumpEvents();
        dialog->Destroy();
        wxTolvanDlg::NotifyConnected(true);
        --heardByAll;
        PumpEvents();
    } while (running > 0);
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_TRUE(WaitFor([&] { return heardByAll == kThreads * kNotices; })) << heardByAll;
    EXPECT_GT(heard, 0);
}
