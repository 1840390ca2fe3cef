#include "tests/support/TestApp.h"

#include "vesta/File.h"

#include <gtest/gtest.h>

#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/init.h>

#include <glib.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace
{
void OnAssert(const wxString& file, int line, const wxString& function, const wxString& condition,
              const wxString& message)
{
    ADD_FAILURE() << "assertion of the toolkit: " << condition << " in " << function << " at "
                  << file << ":" << line << " " << message;
}

// A handler would not hear of what the toolkit below says by its structured log.
GLogWriterOutput OnGLog(GLogLevelFlags level, const GLogField* fields, size_t count, void*)
{
    if (level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING))
    {
        const std::unique_ptr<char, decltype(&g_free)> text(
            g_log_writer_format_fields(level, fields, count, FALSE), g_free);
        // Said now and then of an entry that has no size yet; the next layout gives it one.
        if (level & G_LOG_LEVEL_WARNING && std::strstr(text.get(), "Negative content"))
        {
            std::fprintf(stderr, "%s\n", text.get());
            return G_LOG_WRITER_HANDLED;
        }
        ADD_FAILURE() << text.get();
    }
    return G_LOG_WRITER_HANDLED;
}

void CatchToolkitFaults()
{
    wxSetAssertHandler(OnAssert);
    g_log_set_writer_func(OnGLog, nullptr, nullptr);
}

// The desktop's services are no part of what is tested.
void DetachFromDesktop()
{
    setenv("NO_AT_BRIDGE", "1", 1);
    setenv("GSETTINGS_BACKEND", "memory", 1);
    setenv("GIO_USE_VFS", "local", 1);
    setenv("GTK_THEME", "Adwaita", 0);
}
} // namespace

TestApp::TestApp() : wxTolvanApp(log_Debug, log_Warning)
{
}

TestApp::~TestApp() = default;

TestApp& TestApp::Get()
{
    return *static_cast<TestApp*>(wxTheApp);
}

bool TestApp::Startup(CommandLine&)
{
    return !m_Startup || m_Startup();
}

void TestApp::Cleanup()
{
    if (m_Cleanup)
    {
        m_Cleanup();
    }
}

bool TestApp::OnException(Exception* exception)
{
    if (m_OnException)
    {
        return m_OnException(exception);
    }
    ADD_FAILURE() << "exception in the main loop: " << (exception ? exception->Text() : "unknown");
    return false;
}

String TestApp::OptionsFilename() const
{
    return File::s_UserDir.empty() ? String() : (Path(File::s_UserDir) / "TolvanTests.ini").Text();
}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    DetachFromDesktop();
    wxApp::SetInstance(new TestApp);
    if (!wxEntryStart(argc, argv))
    {
        std::fprintf(stderr, "no display\n");
        return EXIT_FAILURE;
    }
    CatchToolkitFaults();
    wxTheApp->SetExitOnFrameDelete(false);
    wxImage::AddHandler(new wxPNGHandler);
    int result = EXIT_FAILURE;
    if (wxTheApp->CallOnInit())
    {
        wxEventLoop                loop;
        const wxEventLoopActivator active(&loop);
        result = RUN_ALL_TESTS();
        wxTheApp->OnExit();
    }
    wxEntryCleanup();
    return result;
}
