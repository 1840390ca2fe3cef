#include "tests/support/FrameTest.h"
#include "tests/support/TestApp.h"

#include "dialogs/wxTolvanDlg.h"
#include "vesta/ThreadPool.h"

#include <atomic>
#include <thread>
#include <vector>

namespace
{
constexpr int kThreads = 4;
constexpr int kRounds = 300;

class Listener : public wxTolvanDlg
{
public:
    Listener(wxWindow* parent, int& heard)
        : wxTolvanDlg(parent, "Listener", "", false), m_Heard(heard)
    {
    }
    void OnConnected(bool) override { ++m_Heard; }

private:
    int& m_Heard;
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

class ThreadedBridgeTest : public UserFolderTest
{
};

// What the messenger's threads do may not touch a window that the main thread is about to destroy.
TEST_F(ThreadedBridgeTest, SignalsMayComeWhileWindowsOpenAndClose)
{
    TestApp&         app = TestApp::Get();
    std::atomic<int> handled{0};
    const int        handler = app.AddMessageHandler("",
                                                     [&handled](const boost::shared_ptr<Message>&)
                                                     {
                                                  ++handled;
                                                  return true;
                                              });
    ThreadPool::Start(2);
    std::atomic<int>         running{kThreads};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
    {
        threads.emplace_back(
            [&running]
            {
                Raise();
                --running;
            });
    }
    int heard = 0;
    for (int round = 0; running > 0; ++round)
    {
        auto* const frame = new wxFrame(nullptr, wxID_ANY, "Short-lived");
        new Listener(frame, heard);
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
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    app.SetTopWindow(nullptr);
    ThreadPool::Stop();
    while (app.Queue().Size() > 0)
    {
        app.DispatchMessage();
    }
    PumpEvents();
    EXPECT_GT(handled, 0);
    EXPECT_GT(heard, 0);
    EXPECT_TRUE(wxTolvanDlg::s_Dialogs.empty());
    app.RemoveMessageHandler(handler);
}
