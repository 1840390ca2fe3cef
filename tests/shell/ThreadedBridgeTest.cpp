#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"
#include "tests/support/Threads.h"

#include "dialogs/wxTolvanDlg.h"
#include "vesta/ThreadPool.h"

#include <atomic>

namespace
{
constexpr int kThreads = 4;
constexpr int kRounds = 300;

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
