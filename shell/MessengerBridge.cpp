#include "appearance/wxTolvanString.h"
#include "internal/windows/UpperFloors.h"
#include "shell/app/TopWindow.h"
#include "shell/wxTolvanApp.h"
#include "vesta/CallEntry.h"
#include "vesta/ThreadPool.h"

#include <wx/thread.h>

// The bridge from the messenger's signals, which come on threads of the platform, to events on the
// main thread.

wxDEFINE_EVENT(wxTOLVAN_MESSAGE_EVENT, wxCommandEvent);
wxDEFINE_EVENT(wxTOLVAN_CONNECT_EVENT, wxCommandEvent);
wxDEFINE_EVENT(wxTOLVAN_DISCONNECT_EVENT, wxCommandEvent);

namespace
{
void PostCommand(wxEventType type)
{
    shell::PostToTopWindow([type](wxWindow&) { return std::make_unique<wxCommandEvent>(type, 0); });
}

void TranslateConnection(wxEventType type, const char* translating, const char* ignoring)
{
    shell::AskForTopWindow(
        [=](wxWindow* top)
        {
            LogDebug(top ? translating : ignoring);
            if (top)
            {
                PostCommand(type);
            }
        });
}

void TranslateMessage()
{
    LogDebug("... Received message: translating to wxTOLVAN_MESSAGE_EVENT");
    PostCommand(wxTOLVAN_MESSAGE_EVENT);
}
} // namespace

void wxTolvanApp::EnableMessageProcessing()
{
    auto* const app = dynamic_cast<wxTolvanApp*>(Application::the_Application);
    the_App = app;
    if (app)
    {
        app->CloseIfStillAsked();
    }
    if (app && app->Queue().Size() > 0)
    {
        // Later: whoever enables it may want to dispatch some at once.
        app->CallAfter([app] { app->DispatchWaiting(); });
    }
}

void wxTolvanApp::DisableMessageProcessing()
{
    the_App = nullptr;
}

bool wxTolvanApp::IsMessageProcessingEnabled() const
{
    Application* const enabled = the_App.load();
    return enabled && enabled == Application::the_Application;
}

void wxTolvanApp::ProcessNextMessage()
{
    CALL_ENTRY("wxTolvanApp::ProcessNextMessage");
    if (IsMessageProcessingEnabled())
    {
        the_App.load()->DispatchMessage();
    }
}

void wxTolvanApp::DeliverQueuedMessages()
{
    if (Queue().Size() > 0)
    {
        CallQueuedMessageHandlers();
    }
}

void wxTolvanApp::DispatchWaiting()
{
    if (!IsMessageProcessingEnabled() || !shell::HasTopWindow())
    {
        return;
    }
    if (ThreadPool::IsReady())
    {
        DeliverQueuedMessages();
        return;
    }
    for (size_t i = Queue().Size(); i > 0; --i)
    {
        PostCommand(wxTOLVAN_MESSAGE_EVENT);
    }
}

void wxTolvanApp::OnMessage(wxCommandEvent&)
{
    CALL_ENTRY("wxTolvanApp::OnMessage");
    ProcessNextMessage();
}

void wxTolvanApp::_Connect(MessengerConnectedEvt&)
{
    CALL_ENTRY("wxTolvanApp::_Connect");
    TranslateConnection(wxTOLVAN_CONNECT_EVENT,
                        "... Messenger Connected: translating to wxTOLVAN_CONNECT_EVENT",
                        "... Ignoring MessageConnectedEvt because app has no top window");
    internal::g_UpperFloors.tellDialogs(true);
}

void wxTolvanApp::_Disconnect(MessengerDisconnectedEvt&)
{
    CALL_ENTRY("wxTolvanApp::_Disconnect");
    TranslateConnection(wxTOLVAN_DISCONNECT_EVENT,
                        "... Messenger Disconnected: translating to wxTOLVAN_DISCONNECT_EVENT",
                        "... Ignoring MessageDisconnectedEvt because app has no top window");
    internal::g_UpperFloors.tellDialogs(false);
}

void wxTolvanApp::_CheckReceive(MessageReceivedEvt& event)
{
    CALL_ENTRY("wxTolvanApp::_CheckReceive");
    if (!shell::HasTopWindow())
    {
        // The message stays in the queue; the window may have come after the latest look at it.
        shell::AskForTopWindow([this](wxWindow* top) { TakeLeftMessage(top != nullptr); });
        return;
    }
    // Read once: the main thread may disable processing at any moment.
    wxTolvanApp* const app = the_App.load();
    if (ThreadPool::IsReady() && app)
    {
        LogDebug("... Received message: initiating deferred processing");
        boost::shared_ptr<Message> message;
        message.swap(event.m_Message);
        // What came before there was a window, or while processing was disabled, comes first.
        app->DeliverQueuedMessages();
        if (message)
        {
            app->CallMessageHandlers(message);
        }
        return;
    }
    TranslateMessage();
}

void wxTolvanApp::TakeLeftMessage(bool hasTopWindow)
{
    if (!hasTopWindow)
    {
        LogDebug("... Ignoring MessageReceivedEvt because app has no top window");
    }
    else if (ThreadPool::IsReady() && IsMessageProcessingEnabled())
    {
        LogDebug("... Received message: initiating deferred processing");
        DeliverQueuedMessages();
    }
    else
    {
        TranslateMessage();
    }
}

void wxTolvanApp::OnShutdownMsg(const boost::shared_ptr<ShutdownMsg>&)
{
    CALL_ENTRY("wxTolvanApp::OnShutdownMsg");
    LogSystem("Received Shutdown request");
    AskToClose();
}

// Whoever asks the program to end does it once: the wish outlasts a while without processing, in
// which the signal closes nothing.
void wxTolvanApp::AskToClose()
{
    m_IsToClose = true; // before it is looked at: another thread may enable it just now
    if (IsMessageProcessingEnabled())
    {
        m_IsToClose = false;
    }
    if (the_Exe)
    {
        the_Exe->Signal(0);
    }
}

void wxTolvanApp::CloseIfStillAsked()
{
    if (the_Exe && m_IsToClose.exchange(false))
    {
        the_Exe->Signal(0);
    }
}

void wxTolvanApp::_EndSession(wxCloseEvent&)
{
    CALL_ENTRY("wxTolvanApp::_EndSession");
    LogSystem("Notified of user request to log out or shut down the system");
    AskToClose();
}
