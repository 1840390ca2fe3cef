#include "shell/wxTolvanApp.h"

#include "appearance/ColorScheme.h"
#include "appearance/wxTolvanString.h"
#include "appearance/wxtColorManaged.h"
#include "appearance/wxtRenderer.h"
#include "internal/port/HiddenFrames.h"
#include "internal/port/MenuReports.h"
#include "internal/port/PressedWindow.h"
#include "internal/port/ToolTips.h"
#include "shell/OpenWindows.h"
#include "shell/app/LayoutWatch.h"
#include "shell/app/PointerWatch.h"
#include "shell/app/ProgramWords.h"
#include "shell/app/TopWindow.h"
#include "shell/app/wxTolvanLog.h"
#include "vesta/CallEntry.h"
#include "vesta/Guarded.h"
#include "vesta/Platform.h"

#include <wx/frame.h>
#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/sysopt.h>
#include <wx/tooltip.h>

wxTolvanExecutable*       the_Exe = nullptr;
std::atomic<wxTolvanApp*> the_App{nullptr};
wxWeakRef<wxWindow>       s_ActiveWin;

namespace
{
// The toolkit's generic drawing. What that has not implemented asserts there: it is drawn by the
// port's own renderer.
class _GenericDrawing : public wxDelegateRendererNative
{
public:
    _GenericDrawing() : wxDelegateRendererNative(wxRendererNative::GetGeneric()) {}

    void DrawChoice(wxWindow* window, wxDC& dc, const wxRect& rect, int flags) override
    {
        GetDefault().DrawChoice(window, dc, rect, flags);
    }
    void DrawComboBox(wxWindow* window, wxDC& dc, const wxRect& rect, int flags) override
    {
        GetDefault().DrawComboBox(window, dc, rect, flags);
    }
    void DrawTextCtrl(wxWindow* window, wxDC& dc, const wxRect& rect, int flags) override
    {
        GetDefault().DrawTextCtrl(window, dc, rect, flags);
    }
    void DrawRadioBitmap(wxWindow* window, wxDC& dc, const wxRect& rect, int flags) override
    {
        GetDefault().DrawRadioBitmap(window, dc, rect, flags);
    }
};

constexpr int kToolTipShownMs = 10000;
constexpr int kToolTipDelayMs = 330;
constexpr int kToolTipReshowMs = 0;

// The request to close the program, among the numbers of signals.
constexpr int kCloseSignal = 0;

// Once a process, whatever number of application objects it makes.
void InitLocale()
{
    static wxLocale   s_Locale;
    static const bool s_Done = s_Locale.Init(wxLANGUAGE_DEFAULT, wxLOCALE_LOAD_DEFAULT);
    static_cast<void>(s_Done);
}
} // namespace

wxTolvanExecutable::wxTolvanExecutable(TolvanClientApp* application) : Executable(application)
{
}

int wxTolvanExecutable::Signal(int signal)
{
    CALL_ENTRY("wxTolvanExecutable::Signal");
    const int result = Executable::Signal(signal);
    if (signal == kCloseSignal && the_App.load())
    {
        shell::PostToTopWindow(
            [](wxWindow& top)
            {
                auto event = std::make_unique<wxCloseEvent>(wxEVT_CLOSE_WINDOW, top.GetId());
                event->SetEventObject(&top);
                return event;
            });
    }
    return result;
}

// clang-format off
wxBEGIN_EVENT_TABLE(wxTolvanApp, wxApp)
    EVT_COMMAND(wxID_ANY, wxTOLVAN_MESSAGE_EVENT, wxTolvanApp::OnMessage)
    EVT_QUERY_END_SESSION(wxTolvanApp::_EndSession)
    EVT_CHAR_HOOK(wxTolvanApp::KeyboardHook)
    EVT_ACTIVATE(wxTolvanApp::ActivateEvent)
wxEND_EVENT_TABLE()
// clang-format on

wxTolvanApp::wxTolvanApp(LogLevel fileLevel, LogLevel consoleLevel)
    : TolvanClientApp(fileLevel, consoleLevel)
{
    CALL_ENTRY("wxTolvanApp::wxTolvanApp");
    the_Exe = new wxTolvanExecutable(this);
    EnableMessageProcessing();
    InitLocale();
}

wxTolvanApp::~wxTolvanApp()
{
    // Slots run on the messenger's thread; none may find a half-destroyed application.
    HasSlots::DisconnectAll();
    DisableMessageProcessing();
    delete the_Exe;
    the_Exe = nullptr;
}

bool wxTolvanApp::OnInit()
{
    CALL_ENTRY("wxTolvanApp::OnInit");
    // The earlier target stays alive: others may hold it.
    wxLog::SetActiveTarget(new shell::wxTolvanLog);
    wxLogStatus("Set wxLog to use VestaLib Log");
    m_TopWindowWatch = std::make_unique<shell::TopWindowWatch>();
    m_LayoutWatch = std::make_unique<shell::LayoutWatch>();
    m_PointerWatch = std::make_unique<shell::PointerWatch>();
    internal::EndOldMenuReports();
    internal::KeepPressedWindow();
    internal::ForgetHiddenFrames();
    internal::KeepToolTipsBelow();
    ConnectSignals();
    wxSystemOptions::SetOption("msw.notebook.themed-background", 0);

    std::vector<String> words;
    words.reserve(static_cast<size_t>(argc));
    for (int i = 0; i < argc; ++i)
    {
        words.push_back(wxtFromWx(argv[i]));
    }
    CommandLine commandLine(shell::ProgramWords(words));
    if (TryStartup(commandLine))
    {
        return true;
    }
    if (m_ShowStartupError)
    {
        ShowStartupError();
    }
    Guarded("Cleaning up", [this] { Cleanup(); });
    ExitedSignal.Emit();
    return false;
}

// The toolkit would end the program without a word, and without cleaning up.
bool wxTolvanApp::TryStartup(CommandLine& commandLine)
{
    bool isStarted = false;
    return Guarded("Starting the program",
                   [&]
                   {
                       isStarted = RunStartup(commandLine);
                       if (isStarted)
                       {
                           wxToolTip::Enable(true);
                           wxToolTip::SetAutoPop(kToolTipShownMs);
                           wxToolTip::SetDelay(kToolTipDelayMs);
                           wxToolTip::SetReshow(kToolTipReshowMs);
                           StartedSignal.Emit();
                           // The master's first messages may have come before there was a
                           // window.
                           shell::TopWindowWatch::Look();
                           DispatchWaiting();
                       }
                   }) &&
           isStarted;
}

bool wxTolvanApp::RunStartup(CommandLine& commandLine)
{
    // One write of the options file for whatever the windows store while they are built.
    bool started = false;
    {
        const OptionsFile::PauseAutoWrite pause(Options());
        started = Startup(commandLine);
    }
    Options().WriteOut(); // Here, not soon: whoever hears of the start may read the file.
    return started;
}

void wxTolvanApp::ConnectSignals()
{
    ShutdownMsg::s_Signal.Connect(this, &wxTolvanApp::OnShutdownMsg);
    MessageReceivedEvt::s_Signal.Connect(this, &wxTolvanApp::_CheckReceive);
    MessengerConnectedEvt::s_Signal.Connect(this, &wxTolvanApp::_Connect);
    MessengerDisconnectedEvt::s_Signal.Connect(this, &wxTolvanApp::_Disconnect);
}

void wxTolvanApp::ShowStartupError() const
{
    const String name = AppName().empty() ? wxtFromWx(argv[0]) : AppName();
    if (g_Scheme == -1)
    {
        LoadColorScheme();
    }
    // Stock boxes take the scheme's colours from the first window that has them: one that is not
    // seen, where the program has not come to its own.
    wxFrame        hidden(nullptr, wxID_ANY, wxEmptyString);
    const wxtPanel panel(&hidden);
    wxMessageBox(
        wxString::Format(
            wxGetTranslation(
                "%s failed to start:\n\nPlease check the following:\n"
                "1. Tolvan is correctly installed and all libraries and modules are accessible\n\n"
                "2. The current user '%s' has permission to create and delete log files in the "
                "folder:\n%s\n\nCheck the startup log file for more information:\n%s"),
            wxtToWx(name), wxtToWx(Platform::GetCurrentUserName()), wxtToWx(LogDir()),
            wxtToWx(Log::s_GlobalLog->FileName())),
        wxGetTranslation("Startup Error"), wxOK | wxCENTRE);
}

int wxTolvanApp::OnRun()
{
    CALL_ENTRY("wxTolvanApp::OnRun");
    for (;;)
    {
        bool goOn = false;
        try
        {
            return wxAppBase::OnRun();
        }
        catch (Exception* exception)
        {
            const std::unique_ptr<Exception> owner(exception);
            goOn = OnException(exception);
        }
        catch (...)
        {
            goOn = OnException(nullptr);
        }
        if (!goOn)
        {
            return 0;
        }
    }
}

int wxTolvanApp::OnExit()
{
    CALL_ENTRY("wxTolvanApp::OnExit");
    Guarded("Telling of the program's end", [this] { ExitingSignal.Emit(); });
    OpenWindows::_this->Clear();
    int result = 0;
    {
        const OptionsFile::PauseAutoWrite pause(Options());
        Guarded("Cleaning up", [this] { Cleanup(); });
        result = wxAppBase::OnExit();
    }
    Options().WriteOut();
    HasSlots::DisconnectAll();
    m_PointerWatch.reset();
    m_LayoutWatch.reset();
    m_TopWindowWatch.reset();
    ExitedSignal.Emit();
    return result;
}

bool wxTolvanApp::OnExceptionInMainLoop()
{
    // Always: the toolkit ends the loop, carries the exception past its own C code, and OnRun gets
    // it.
    throw;
}

wxAppTraits* wxTolvanApp::CreateTraits()
{
    return new wxtTraits;
}

wxRendererNative* wxtTraits::CreateRenderer()
{
    static _GenericDrawing generic;
    return new wxtRenderer(generic);
}

int wxTolvanApp::Execute()
{
    return 0;
}

void wxTolvanApp::ActivateEvent(wxActivateEvent& event)
{
    CALL_ENTRY("wxTolvanApp::ActivateEvent");
    event.Skip();
    wxObject* const object = event.GetEventObject();
    if (event.GetActive())
    {
        s_ActiveWin = dynamic_cast<wxWindow*>(object);
    }
    else if (object == s_ActiveWin.get())
    {
        s_ActiveWin = nullptr;
    }
}

void wxTolvanApp::KeyboardHook(wxKeyEvent& event)
{
    CALL_ENTRY("wxTolvanApp::KeyboardHook");
    const bool centres = event.GetKeyCode() == 'C' && event.ControlDown() && event.ShiftDown();
    if (!centres)
    {
        event.Skip();
        return;
    }
    wxWindow* const target = s_ActiveWin ? s_ActiveWin.get() : GetTopWindow();
    if (target)
    {
        target->Centre(wxBOTH | wxCENTRE_ON_SCREEN);
    }
}
