#include "gallery/GalleryFrame.h"

#include "common/CommandHelp.h"
#include "shell/wxTolvanApp.h"

namespace
{
const char* const kHelp =
    "tolvan-gallery: shows every control of the library once.\n"
    "\n"
    "  --set-scheme=CODE   in that colour scheme, from now on: 0 default, 1 light, 2 lighter,\n"
    "                      3 dark, 4 darker, 5 custom, 64 as the desktop has it\n"
    "  --help, --version   say so and end\n";

class GalleryApp : public wxTolvanApp
{
public:
    GalleryApp() : wxTolvanApp(log_Info, log_Warning)
    {
        SetApplicationName("Tolvan Gallery");
        SetAppDisplayName("Tolvan Gallery");
        m_UsesMaster = false;
    }

    String GetClientName() const override { return "TolvanGallery"; }
    bool   Startup(CommandLine& commandLine) override
    {
        if (!TolvanClientApp::Startup(commandLine))
        {
            return false;
        }
        auto* const frame = new GalleryFrame;
        frame->Show();
        if (commandLine.Has("set-scheme"))
        {
            wxTolvanFrame::SetColorScheme(
                static_cast<int>(commandLine.Value("set-scheme").ToInt(-1)));
        }
        return true;
    }
};
} // namespace

wxIMPLEMENT_APP_NO_MAIN(GalleryApp);

int main(int argc, char** argv)
{
    wxDISABLE_DEBUG_SUPPORT();
    return AnswerCommandLine(argc, argv, "tolvan-gallery", kHelp) ? 0 : wxEntry(argc, argv);
}
