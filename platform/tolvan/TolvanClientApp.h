#pragma once

#include "tolvan/Message.h"
#include "tolvan/MessageQueue.h"
#include "vesta/Application.h"
#include "vesta/CommandLine.h"
#include "vesta/Exception.h"
#include "vesta/Export.h"
#include "vesta/Log.h"
#include "vesta/Signal.h"

#include <functional>
#include <memory>
#include <shared_mutex>

class ComponentServer;
class EndSignals;
class Messenger;

/// The client program of the farm: its command line, log, options, its connection to the master
/// and the handlers of the master's messages. A program derives from it (graphical ones through
/// `wxTolvanApp`), gives it a name and overrides `Startup`.
///
/// Options of the command line that `Startup` knows: "--log-dir FOLDER", "--no-master" (do not
/// connect), "--verbose" (debug lines on the console too).
///
/// What the master says is raised as the signals of Message.h by the messenger; a message
/// msg_Shutdown is raised as a `ShutdownMsg` only, a message msg_Failed that no handler takes ends
/// in `RequestHasFailed`. The first SIGTERM, SIGINT or SIGHUP of a started program is a
/// `ShutdownMsg` too; the next one kills.
class TOLVAN_API TolvanClientApp : public Application, public HasSlots
{
public:
    TolvanClientApp(LogLevel fileLevel, LogLevel consoleLevel);
    ~TolvanClientApp() override;

    /// Runs the program until `EndExecute` or until the master asks it to shut down, dispatching
    /// messages; the exit code. Graphical clients let their toolkit do it.
    virtual int Execute();
    /// Reads the command line, opens the log, starts the thread pool, the component server and the
    /// messenger. False (the log cannot be written) ends the program. An override calls this first
    /// and stops when it fails.
    virtual bool Startup(CommandLine& commandLine);
    /// Ends what `Startup` began, in the reverse order: no signal of the messenger, no handler and
    /// no request comes any more. Also called after a `Startup` that failed; calling it again does
    /// nothing. Main thread. Waits for handlers that are running: they must not wait for the main
    /// thread.
    virtual void Cleanup();
    /// An exception reached the main loop; null when it was none of the platform (it is the one
    /// that is being handled then). Logs it; the result tells whether the program goes on (true
    /// here).
    virtual bool OnException(Exception* exception);
    /// Chooses the log folder: "--log-dir", else "logs" in the user's folder, else this user's
    /// private folder in the temporary folder.
    virtual void SetLogDir(CommandLine& commandLine);
    /// A message that no handler took; here it is logged at debug level.
    virtual void OnUnhandledMessage(const boost::shared_ptr<Message>& message);
    /// "<client name>.ini" in the user's folder; empty when there is none.
    String OptionsFilename() const override;
    /// The component's name; also names the options file, the log and the socket.
    virtual String GetClientName() const = 0;
    /// A request to the master has failed; `text` says why. Any thread of the platform. Whether it
    /// was dealt with (false here; it is always logged).
    virtual bool RequestHasFailed(const String& text);

    /// @name Start and end
    /// Raised after a successful start, at the start of the program's end, and after the end (or
    /// after a start that failed). Main thread.
    /// @{
    Signal0<> StartedSignal;
    Signal0<> ExitingSignal;
    Signal0<> ExitedSignal;
    /// @}

    const String&      AppName() const { return m_AppName; } ///< As shown to users; may be empty.
    void               SetApplicationName(const String& name) { m_AppName = name; }
    const String&      LogDir() const { return m_LogDir; }
    const CommandLine& GetCommandLine() const { return m_CommandLine; }

    /// A handler takes a message or leaves it (false) to the next one. It runs on a thread of the
    /// pool or on the main thread. Handlers of one type run in the order of registration; an empty
    /// type stands for every type.
    using MessageHandler = std::function<bool(const boost::shared_ptr<Message>&)>;
    /// The result names the handler for `RemoveMessageHandler`.
    int AddMessageHandler(const String& type, MessageHandler handler);
    /// The handler is not called for any further message; one that is being handled just now on
    /// another thread may still reach it. An unknown id does nothing.
    void RemoveMessageHandler(int id);

    /// Takes the oldest queued message, if any, and calls its handlers on the calling thread.
    void DispatchMessage();
    /// Takes over a message and has its handlers called on the thread pool, one message after
    /// another in the order of the calls; without a pool on the calling thread.
    void CallMessageHandlers(const boost::shared_ptr<Message>& message);
    /// Has the handlers of the messages that wait in the queue called on the thread pool, before
    /// those of any message that is handed over later. Without a pool they go on waiting.
    void CallQueuedMessageHandlers();

    /// Sends a message to the master; false when there is no connection. Any thread.
    bool Send(const Message& message);
    bool IsConnected() const;
    /// Makes `Execute` return. Any thread.
    void EndExecute(int exitCode);
    bool SendRequest(const String& component, const String& request) override;

    MessageQueue& Queue() { return m_Queue; }

protected:
    /// Whether `Startup` connects to the master; a program that has no use for it clears it.
    bool m_UsesMaster = true;

    void SetLogFolder(const String& folder) { m_LogDir = folder; }

private:
    struct Handlers;
    struct Execution;

    bool OpenLog();
    void CatchSignals();
    void EndStarted();
    void StartServer();
    void StopServer();
    void Handle(const boost::shared_ptr<Message>& message);
    void ReportFailedRequest(const Message& message);

    LogLevel                         m_FileLevel;
    LogLevel                         m_ConsoleLevel;
    String                           m_AppName;
    String                           m_LogDir;
    CommandLine                      m_CommandLine;
    MessageQueue                     m_Queue;
    std::unique_ptr<Handlers>        m_Handlers;
    std::unique_ptr<Execution>       m_Execution;
    mutable std::shared_mutex        m_ServerLock; ///< Held shared while the server is used.
    std::unique_ptr<ComponentServer> m_Server;
    std::unique_ptr<Messenger>       m_Messenger;
    std::unique_ptr<EndSignals>      m_EndSignals;
    bool                             m_IsStarted = false;
};
