#include "logview/LogViewFrame.h"

#include "shell/wxTolvanApp.h"
#include "tolvan/Components.h"

namespace
{
// Opens text files and follows them as they grow: tolvan-logview FILE...
class LogViewApp : public wxTolvanApp
{
public:
    LogViewApp() : wxTolvanApp(log_Info, log_Warning)
    {
        SetApplicationName("Tolvan Log Viewer");
        SetAppDisplayName("Tolvan Log Viewer");
        // It would keep the master from ending when the last monitor has gone.
        m_UsesMaster = false;
    }

    String GetClientName() const override { return component_LogView; }

    bool Startup(CommandLine& commandLine) override
    {
        if (!TolvanClientApp::Startup(commandLine))
        {
            return false;
        }
        auto* const frame = new LogViewFrame;
        for (const String& file : commandLine.Arguments())
        {
            frame->OpenFile(file);
        }
        frame->Show();
        return true;
    }
};
} // namespace

wxIMPLEMENT_APP(LogViewApp);
