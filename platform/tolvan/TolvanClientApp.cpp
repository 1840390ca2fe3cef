#include "tolvan/TolvanClientApp.h"

#include "tolvan/ComponentServer.h"
#include "tolvan/Messenger.h"
#include "tolvan/SocketFolder.h"
#include "vesta/CallEntry.h"
#include "vesta/EndSignals.h"
#include "vesta/File.h"
#include "vesta/Guarded.h"
#include "vesta/LibStatic.h"
#include "vesta/Path.h"
#include "vesta/Platform.h"
#include "vesta/ThreadPool.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <mutex>
#include <utility>
#include <vector>

namespace
{

constexpr int kWorkers = 2;
constexpr int kExecuteWait = 50; // ms between two looks at whether the program is to end

const char* const kLogDir = "log-dir";
const char* const kNoMaster = "no-master";
const char* const kVerbose = "verbose";

} // namespace

struct TolvanClientApp::Handlers
{
    struct Entry
    {
        int            id;
        String         type;
        MessageHandler handler;
    };

    std::vector<MessageHandler> For(const String& type)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        std::vector<MessageHandler>       found;
        for (const Entry& entry : entries)
        {
            if (entry.type.empty() || entry.type == type)
            {
                found.push_back(entry.handler);
            }
        }
        return found;
    }

    std::mutex         mutex;
    std::vector<Entry> entries;
    int                lastId = 0;
};

/// Remembers from the start on that the program is to end; `Execute` may come later.
struct TolvanClientApp::Execution : HasSlots
{
    ~Execution() override { DisconnectAll(); }

    void OnShutdown(const boost::shared_ptr<ShutdownMsg>&)
    {
        exitCode = 0;
        isOver = true;
    }

    std::atomic<bool> isOver{false};
    std::atomic<int>  exitCode{0};
};

TolvanClientApp::TolvanClientApp(LogLevel fileLevel, LogLevel consoleLevel)
    : m_FileLevel(fileLevel),
      m_ConsoleLevel(consoleLevel),
      m_Handlers(std::make_unique<Handlers>()),
      m_Execution(std::make_unique<Execution>()),
      m_Messenger(std::make_unique<Messenger>(m_Queue))
{
    Log::s_GlobalLog->SetLevels(fileLevel, consoleLevel);
}

TolvanClientApp::~TolvanClientApp()
{
    DisconnectAll();
    EndStarted();
}

int TolvanClientApp::Execute()
{
    CALL_ENTRY("TolvanClientApp::Execute");
    while (!m_Execution->isOver)
    {
        if (const auto message = m_Queue.WaitAndTake(kExecuteWait))
        {
            Handle(message);
        }
    }
    m_Execution->isOver = false;
    return m_Execution->exitCode;
}

void TolvanClientApp::EndExecute(int exitCode)
{
    m_Execution->exitCode = exitCode;
    m_Execution->isOver = true;
}

bool TolvanClientApp::Startup(CommandLine& commandLine)
{
    CALL_ENTRY("TolvanClientApp::Startup");
    commandLine.TakesValue(kLogDir);
    m_CommandLine = commandLine;
    Log::s_GlobalLog->SetLevels(m_FileLevel,
                                commandLine.Has(kVerbose) ? log_Debug : m_ConsoleLevel);
    if (!Guarded("Choosing the log folder", [&] { SetLogDir(commandLine); }) || !OpenLog())
    {
        return false;
    }
    m_IsStarted = true;
    LogSystem(SFormat("%s started: process %d of user %s on %s", GetClientName().c_str(),
                      Platform::GetProcessId(), Platform::GetCurrentUserName().c_str(),
                      Platform::GetHostName().c_str()));
    if (File::s_UserDir.empty())
    {
        LogWarning("No User Folder available: options last for this run only, the log is in " +
                   m_LogDir);
    }
    ShutdownMsg::s_Signal.Connect(m_Execution.get(), &Execution::OnShutdown);
    CatchSignals();
    ThreadPool::Start(kWorkers);
    StartServer();
    if (m_UsesMaster && !commandLine.Has(kNoMaster))
    {
        m_Messenger->Start(GetClientName());
    }
    return true;
}

void TolvanClientApp::CatchSignals()
{
    m_EndSignals = std::make_unique<EndSignals>(
        [](int signal)
        {
            LogSystem(SFormat("Received signal %d (%s)", signal, strsignal(signal)));
            Guarded("Ending the program",
                    [signal]
                    {
                        const boost::shared_ptr<ShutdownMsg> message(
                            new ShutdownMsg(SFormat("signal %d", signal)));
                        ShutdownMsg::s_Signal.Emit(message);
                    });
        });
}

void TolvanClientApp::Cleanup()
{
    CALL_ENTRY("TolvanClientApp::Cleanup");
    EndStarted();
    LibStatic::CleanupAll();
}

void TolvanClientApp::EndStarted()
{
    m_Messenger->Stop();
    m_EndSignals.reset();
    m_Execution->DisconnectAll();
    StopServer();
    if (std::exchange(m_IsStarted, false))
    {
        ThreadPool::Stop();
        LogSystem("The program has ended its work");
        Log::s_GlobalLog->Flush();
    }
}

bool TolvanClientApp::OnException(Exception* exception)
{
    if (exception)
    {
        exception->Log();
    }
    else
    {
        LogError("An exception has reached the main loop: " + TakeCurrentException());
    }
    return true;
}

void TolvanClientApp::SetLogDir(CommandLine& commandLine)
{
    if (const String named = commandLine.Value(kLogDir); !named.empty())
    {
        SetLogFolder(named);
    }
    else if (!File::s_UserDir.empty())
    {
        SetLogFolder((File::GetUserDir() / "logs").Text());
    }
    else
    {
        SetLogFolder(SocketFolder::GetTemporary().Text());
    }
}

bool TolvanClientApp::OpenLog()
{
    bool isOpen = false;
    Guarded("Creating the log folder " + m_LogDir,
            [&]
            {
                File::MakeFolder(m_LogDir);
                isOpen =
                    Log::s_GlobalLog->Open((Path(m_LogDir) / (GetClientName() + ".log")).Text());
            });
    return isOpen;
}

void TolvanClientApp::OnUnhandledMessage(const boost::shared_ptr<Message>& message)
{
    LogDebug("Nobody handles the message \"" + message->Type() + "\"");
}

String TolvanClientApp::OptionsFilename() const
{
    return File::s_UserDir.empty() ? String()
                                   : (File::GetUserDir() / (GetClientName() + ".ini")).Text();
}

bool TolvanClientApp::RequestHasFailed(const String&)
{
    return false;
}

int TolvanClientApp::AddMessageHandler(const String& type, MessageHandler handler)
{
    const std::lock_guard<std::mutex> lock(m_Handlers->mutex);
    m_Handlers->entries.push_back({++m_Handlers->lastId, type, std::move(handler)});
    return m_Handlers->lastId;
}

void TolvanClientApp::RemoveMessageHandler(int id)
{
    const std::lock_guard<std::mutex> lock(m_Handlers->mutex);
    auto&                             entries = m_Handlers->entries;
    entries.erase(std::remove_if(entries.begin(), entries.end(),
                                 [id](const Handlers::Entry& entry) { return entry.id == id; }),
                  entries.end());
}

void TolvanClientApp::DispatchMessage()
{
    if (const auto message = m_Queue.Take())
    {
        Handle(message);
    }
}

void TolvanClientApp::CallMessageHandlers(const boost::shared_ptr<Message>& message)
{
    if (message && !ThreadPool::PostInOrder(this, [this, message] { Handle(message); }))
    {
        Handle(message);
    }
}

void TolvanClientApp::CallQueuedMessageHandlers()
{
    ThreadPool::PostInOrder(this,
                            [this]
                            {
                                while (m_Queue.Size() > 0)
                                {
                                    DispatchMessage();
                                }
                            });
}

void TolvanClientApp::Handle(const boost::shared_ptr<Message>& message)
{
    for (const MessageHandler& handler : m_Handlers->For(message->Type()))
    {
        bool isTaken = false;
        Guarded("A handler of the message \"" + message->Type() + "\"",
                [&] { isTaken = handler && handler(message); });
        if (isTaken)
        {
            return;
        }
    }
    if (message->Type() == msg_Failed)
    {
        ReportFailedRequest(*message);
        return;
    }
    Guarded("OnUnhandledMessage", [&] { OnUnhandledMessage(message); });
}

void TolvanClientApp::ReportFailedRequest(const Message& message)
{
    const String detail = message.Get("Text2");
    const String text = message.Get("Text") + (detail.empty() ? "" : "\n") + detail;
    LogError("The master reports that a request has failed: " + text);
    Guarded("RequestHasFailed", [&] { RequestHasFailed(text); });
}

bool TolvanClientApp::Send(const Message& message)
{
    return m_Messenger->Send(message);
}

bool TolvanClientApp::IsConnected() const
{
    return m_Messenger->IsConnected();
}

void TolvanClientApp::StartServer()
{
    auto server = std::make_unique<ComponentServer>(GetClientName(), [this](const String& request)
                                                    { return HandleRequest(request); });
    const std::unique_lock<std::shared_mutex> lock(m_ServerLock);
    m_Server = std::move(server);
}

void TolvanClientApp::StopServer()
{
    std::unique_ptr<ComponentServer> server;
    {
        const std::unique_lock<std::shared_mutex> lock(m_ServerLock);
        server = std::move(m_Server);
    }
    // It ends here, outside the lock: it waits for a handler that may be sending just now.
}

bool TolvanClientApp::SendRequest(const String& component, const String& request)
{
    const std::shared_lock<std::shared_mutex> lock(m_ServerLock);
    return m_Server && m_Server->Send(component, request);
}
