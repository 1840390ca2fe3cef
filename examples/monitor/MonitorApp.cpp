#include "monitor/MonitorFrame.h"

#include "common/CommandHelp.h"
#include "common/EndRequest.h"
#include "common/StartTime.h"
#include "master/StartMaster.h"
#include "shell/wxTolvanApp.h"
#include "tolvan/Components.h"
#include "tolvan/JobFactory.h"
#include "vesta/Platform.h"
#include "vesta/UID.h"

#include <cstdio>

namespace
{
const char* const kHelp =
    "tolvan-monitor: shows the jobs of a Tolvan render farm and acts on them.\n"
    "\n"
    "  --no-start          start no master where none runs\n"
    "  --no-master         connect to none either\n"
    "  --set-scheme=CODE   switch the colour scheme of all programs: 0 default, 1 light,\n"
    "                      2 lighter, 3 dark, 4 darker, 5 custom, 64 the desktop's\n"
    "  --time-start        print the milliseconds until the window is shown, and end\n"
    "  --log-dir FOLDER    folder of the log file TolvanMonitor.log\n"
    "  --verbose           debug lines in the log and on the console\n"
    "  --help, --version   say so and end\n";

// The farm monitor.
class MonitorApp : public wxTolvanApp
{
public:
    MonitorApp();
    ~MonitorApp() override { DisconnectAll(); }

    String GetClientName() const override { return component_Monitor; }
    bool   Startup(CommandLine& commandLine) override;

private:
    void BuildFeed();
    void BuildFrame();
    void StartMasterIfNone();
    void PrintStartTime();

    // Shared with the message handler: messages may still come when the window has gone.
    std::shared_ptr<FarmFeed> m_Feed;
    FarmJobs                  m_Jobs;
    wxWeakRef<MonitorFrame>   m_Frame;
    EndRequest                m_End{*this};
};

String ProductName(const String& type)
{
    const auto info = JobFactory::s_JobFactory->GetTypeInfo(UID(type), true);
    return info ? info->Name() : type;
}

MonitorApp::MonitorApp()
    : wxTolvanApp(log_Info, log_Warning),
      m_Jobs([this](const Message& message) { return Send(message); }, ProductName)
{
    SetApplicationName("Tolvan Monitor");
    SetAppDisplayName("Tolvan Monitor");
}

bool MonitorApp::Startup(CommandLine& commandLine)
{
    if (!TolvanClientApp::Startup(commandLine))
    {
        return false;
    }
    BuildFeed();
    BuildFrame();
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
                        m_Frame->TakeNews();
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

void MonitorApp::BuildFrame()
{
    m_Frame =
        new MonitorFrame({m_Feed, m_Jobs, [this](const Message& message) { return Send(message); },
                          [this] { return m_End.IsMade(); }});
    // The connection may have come before there was a window to tell of it.
    m_Frame->OnConnection(IsConnected());
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
                          m_Frame->Close(true);
                      }
                  });
}
} // namespace

wxIMPLEMENT_APP_NO_MAIN(MonitorApp);

int main(int argc, char** argv)
{
    wxDISABLE_DEBUG_SUPPORT();
    return AnswerCommandLine(argc, argv, "tolvan-monitor", kHelp) ? 0 : wxEntry(argc, argv);
}
