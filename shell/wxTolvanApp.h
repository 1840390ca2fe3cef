#pragma once

#include "tolvan/TolvanClientApp.h"
#include "vesta/Executable.h"
#include "vesta/Export.h"

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/event.h>
#include <wx/weakref.h>

#include <atomic>

namespace shell
{
class LayoutWatch;
class PointerWatch;
class TopWindowWatch;
} // namespace shell
class wxTolvanApp;

/// @name Events of the bridge
/// Posted to the application's top window; plain command events without content.
/// @{
/// A message waits: the application dispatches one for every event.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxTOLVAN_MESSAGE_EVENT, wxCommandEvent);
/// The messenger has connected to the master.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxTOLVAN_CONNECT_EVENT, wxCommandEvent);
/// The messenger has lost the master.
wxDECLARE_EXPORTED_EVENT(TOLVAN_API, wxTOLVAN_DISCONNECT_EVENT, wxCommandEvent);
/// @}

/// The process of a graphical client: signal 0 asks its top window to close.
class TOLVAN_API wxTolvanExecutable : public Executable
{
public:
    explicit wxTolvanExecutable(TolvanClientApp* application);

    /// Any thread. A signal other than 0 only reaches the base class, as does any signal while
    /// message processing is disabled or there is no top window.
    int Signal(int signal) override;
};

/// The application object of every graphical client program: the toolkit's application and the
/// farm's client application in one. A program derives from it, gives its name (`GetClientName`),
/// overrides `Startup` to build its main window and hands the class to wxIMPLEMENT_APP.
///
/// An exception that leaves an event handler ends the main loop, goes to `OnException` and, when
/// that says so, a fresh main loop goes on. One that leaves `Startup` is logged, and the start has
/// failed.
///
/// All on the main thread except where a function says otherwise.
class TOLVAN_API wxTolvanApp : public wxApp, public TolvanClientApp
{
public:
    wxTolvanApp(LogLevel fileLevel, LogLevel consoleLevel);
    ~wxTolvanApp() override;

    bool         OnInit() override;
    int          OnRun() override;
    int          OnExit() override;
    bool         OnExceptionInMainLoop() override;
    wxAppTraits* CreateTraits() override;

    /// The toolkit runs the program, not the platform: 0.
    int Execute() override;
    /// Tells the user what the master reported, unless they asked not to hear of it again. Any
    /// thread: the box is shown on the main thread, later if need be. False.
    bool RequestHasFailed(const String& text) override;

    /// @name Message processing
    /// Message processing: while it is disabled nothing that the messenger receives is handled;
    /// what came meanwhile, a request to end among it, is once the main loop gets to it after
    /// processing has been enabled again. Enabled from construction on.
    /// @{
    void EnableMessageProcessing();
    void DisableMessageProcessing();
    bool IsMessageProcessingEnabled() const;
    void ProcessNextMessage(); ///< Dispatches one queued message if processing is enabled.
    /// Hands what waits in the queue to the thread pool, if that is ready. Any thread.
    void DeliverQueuedMessages();
    /// @}

    /// @name Slots
    /// Slots of the platform's signals. Any thread: they touch no window.
    /// @{
    void _Connect(MessengerConnectedEvt& event);
    void _Disconnect(MessengerDisconnectedEvt& event);
    void _CheckReceive(MessageReceivedEvt& event);
    void OnShutdownMsg(const boost::shared_ptr<ShutdownMsg>& message);
    /// @}

    void OnMessage(wxCommandEvent& event);
    void _EndSession(wxCloseEvent& event);
    /// Keeps the active window. Frames send their activations here too.
    void ActivateEvent(wxActivateEvent& event);
    /// Ctrl+Shift+C brings the active window (else the top window) to the middle of the screen.
    void KeyboardHook(wxKeyEvent& event);

protected:
    /// Whether a failed start is explained in a dialog; a program may clear it to fail silently.
    bool m_ShowStartupError = true;

private:
    bool TryStartup(CommandLine& commandLine);
    bool RunStartup(CommandLine& commandLine);
    void ConnectSignals();
    void ShowStartupError() const;
    void DispatchWaiting();
    void TakeLeftMessage(bool hasTopWindow);
    void AskToClose();
    void CloseIfStillAsked();

    std::unique_ptr<shell::TopWindowWatch> m_TopWindowWatch;
    std::unique_ptr<shell::LayoutWatch>    m_LayoutWatch;
    std::unique_ptr<shell::PointerWatch>   m_PointerWatch;
    std::atomic<bool>                      m_IsToClose{false}; ///< Asked, and not done yet.

    wxDECLARE_EVENT_TABLE();
};

/// The process's executable object, made and deleted by the application.
extern TOLVAN_API wxTolvanExecutable* the_Exe;
/// The application while message processing is enabled, else null.
extern TOLVAN_API std::atomic<wxTolvanApp*> the_App;
/// The window activated last, or null.
extern TOLVAN_API wxWeakRef<wxWindow> s_ActiveWin;

/// Traits of graphical clients: stock controls that draw through the toolkit's renderer are drawn
/// in the colours of the scheme.
class TOLVAN_API wxtTraits : public wxGUIAppTraits
{
public:
    wxRendererNative* CreateRenderer() override;
};
