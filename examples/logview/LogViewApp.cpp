#include "logview/LogViewFrame.h"

#include "common/CommandHelp.h"
#include "common/EndRequest.h"
#include "shell/wxTolvanApp.h"
#include "tolvan/Components.h"

namespace
{
const char* const kHelp =
    "tolvan-logview NAME...: shows text files and follows them as they grow, also those that gzip "
    "or\n"
    "zstd has packed. A folder stands for the log files in it, - for the standard input.\n"
    "\n"
    "  --merge             all of them as one text, in the order of their time stamps\n"
    "  --log-dir FOLDER    folder of the log file TolvanLogView.log\n"
    "  --verbose           debug lines in the log and on the console\n"
    "  --help, --version   say so and end\n";

// Opens text files and follows them as they grow.
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
        auto* const frame = new LogViewFrame(m_End);
        const auto& files = commandLine.Arguments();
        if (files.empty())
        {
            frame->ReopenFiles();
        }
        const std::vector<Path> names(files.begin(), files.end());
        commandLine.Has("merge") ? frame->MergeFiles(names) : frame->OpenFiles(names);
        frame->RestoreLayout();
        frame->Show();
        return true;
    }

private:
    EndRequest m_End{*this};
};
} // namespace

wxIMPLEMENT_APP_NO_MAIN(LogViewApp);

int main(int argc, char** argv)
{
    wxDISABLE_DEBUG_SUPPORT();
    return AnswerCommandLine(argc, argv, "tolvan-logview", kHelp) ? 0 : wxEntry(argc, argv);
}
