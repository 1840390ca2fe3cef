#include "monitor/MonitorFrame.h"

#include "common/StartTime.h"
#include "master/StartMaster.h"
#include "shell/wxTolvanApp.h"
#include "tolvan/Components.h"
#include "vesta/Platform.h"

#include <cstdio>

namespace
{
// The farm monitor. Options beside those of every client: "--no-start" (start no master),
// "--set-scheme=CODE" (switch the colour scheme of all programs), "--time-start" (print the
// milliseconds from the process's start to the first complete paint, and end).
class MonitorApp : public wxTolvanApp
{
public:
    MonitorApp() : wxTolvanApp(log_Info, log_Warning) { SetApplicationName("Tolvan Monitor"); }

    String GetClientName() const override { return component_Monitor; }
    bool   Startup(CommandLine& commandLine) override;

private:
    void BuildFeed();
    void StartMasterIfNone();
    void PrintStartTime();

    // Shared with the message handler: messages may still come when the window has gone.
    std::shared_ptr<FarmFeed> m_Feed;
    wxWeakRef<MonitorFrame>   m_Frame;
};

bool MonitorApp::Startup(CommandLine& commandLine)
{
    if (!TolvanClientApp::Startup(commandLine))
    {
        return false;
    }
    BuildFeed();
    m_Frame = new MonitorFrame(m_Feed);
    // The connection may have come before there was a window to tell of it.
    m_Frame->OnConnection(IsConnected());
    if (!commandLine.Has("no-start") && !commandLine.Has("no-master"))
    {
        StartMasterIfNone();
    }
    m_Frame->Show();
    if (commandLine.Has("set-scheme"))
    {
        wxTolvanFrame::SetColorScheme(static_cast<int>(commandLine.Value("set-scheme").ToInt(-1)));
    }
    if (commandLine.Has("time-start"))
    {
        PrintStartTime();
    }
    return true;
}

void MonitorApp::BuildFeed()
{
    m_Feed = std::make_shared<FarmFeed>(
        [this]
        {
            CallAfter(
                [this]
                {
                    if (m_Frame)
                    {
                        m_Frame->TakeLines();
                    }
                });
        });
    AddMessageHandler("",
                      [feed = m_Feed](const boost::shared_ptr<Message>& message)
                      {
                          feed->OnMessage(*message);
                          // What failed is told in a box too, by the application.
                          return message->Type() != msg_Failed;
                      });
}

void MonitorApp::StartMasterIfNone()
{
    if (Components::DidStart(component_Master))
    {
        return;
    }
    const String error = StartMaster();
    if (error.empty())
    {
        m_Frame->ShowNotice("No master answers on this machine: one is started");
    }
    else
    {
        LogError("The master cannot be started: " + error);
        m_Frame->ShowNotice("The master cannot be started: " + error);
    }
}

void MonitorApp::PrintStartTime()
{
    // The first idle moment after the first paint: everything that was to be shown is shown.
    m_Frame->Bind(wxEVT_IDLE,
                  [this](wxIdleEvent& event)
                  {
                      event.Skip();
                      if (m_Frame->IsShownOnScreen())
                      {
                          std::printf("%ld\n", MillisecondsSinceStart());
                          std::fflush(stdout);
                          m_Frame->Close();
                      }
                  });
}
} // namespace

wxIMPLEMENT_APP(MonitorApp);
