#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"
#include "tests/support/Threads.h"

#include "dialogs/wxTolvanDlg.h"
#include "shell/wxTimed.h"
#include "vesta/ThreadPool.h"

#include <atomic>
#include <memory>

namespace
{
constexpr int kThreads = 4;
constexpr int kRounds = 300; // a thread

class Listener : public wxTolvanDlg
{
public:
    explicit Listener(wxWindow* parent) : wxTolvanDlg(parent, "Listener", "", false) {}
    void OnConnected(bool) override
    {
        EXPECT_TRUE(wxIsMainThread());
        ++heard;
    }
    int heard = 0;
};

void Raise()
{
    for (int i = 0; i < kRounds; ++i)
    {
        MessengerConnectedEvt connected;
        MessengerConnectedEvt::s_Signal.Emit(connected);
        MessageReceivedEvt received;
        received.m_Message.reset(new Message("Test"));
        TestApp::Get().Queue().RaiseAndQueue(received, [](MessageReceivedEvt& event)
                                             { MessageReceivedEvt::s_Signal.Emit(event); });
        MessengerDisconnectedEvt disconnected;
        MessengerDisconnectedEvt::s_Signal.Emit(disconnected);
        the_Exe->Signal(1);
    }
}

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

using ThreadedBridgeTest = UserFolderTest;

// What the messenger's threads do may not touch a window that the main thread is about to destroy.
TEST_F(ThreadedBridgeTest, SignalsMayComeWhileWindowsOpenAndClose)
{
    TestApp&         app = TestApp::Get();
    std::atomic<int> handled{0};
    const int        handler =
        app.AddMessageHandler("", [&](const boost::shared_ptr<Message>&) { return ++handled > 0; });
    Listener lasting(nullptr);
    ThreadPool::Start(2);
    std::atomic<int> running{kThreads};
    Threads          threads(kThreads,
                             [&](int)
                             {
                        Raise();
                        --running;
                    });
    for (int round = 0; running > 0; ++round)
    {
        auto* const frame = new wxFrame(nullptr, wxID_ANY, "Short-lived");
        new Listener(frame);
        frame->Show();
        app.SetTopWindow(round % 2 ? frame : nullptr);
        if (round % 8 == 0)
        {
            app.DisableMessageProcessing();
            PumpEvents();
            app.EnableMessageProcessing();
        }
        PumpEvents();
        frame->Destroy();
        PumpEvents();
    }
    threads.Join();
    app.SetTopWindow(nullptr);
    ThreadPool::Stop();
    while (app.Queue().Size() > 0)
    {
        app.DispatchMessage();
    }
    EXPECT_TRUE(WaitFor([&] { return lasting.heard == 2 * kThreads * kRounds; })) << lasting.heard;
    EXPECT_GT(handled, 0);
    EXPECT_EQ(1u, wxTolvanDlg::s_Dialogs.size());
    app.RemoveMessageHandler(handler);
}

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
