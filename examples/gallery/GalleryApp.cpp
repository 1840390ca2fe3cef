#include "gallery/GalleryFrame.h"

#include "shell/wxTolvanApp.h"

namespace
{
// Shows the library's controls. "--set-scheme=CODE": in that colour scheme, from now on.
class GalleryApp : public wxTolvanApp
{
public:
    GalleryApp() : wxTolvanApp(log_Info, log_Warning)
    {
        SetApplicationName("Tolvan Gallery");
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

wxIMPLEMENT_APP(GalleryApp);
