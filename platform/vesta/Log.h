#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <memory>

/// How grave a log line is; a log keeps lines up to its own level.
enum LogLevel
{
    log_Fatal = 0,
    log_Error = 1,
    log_System = 2, ///< What an operator must find in any log: start, end, requests to shut down.
    log_Warning = 3,
    log_Notice = 4,
    log_Info = 5,
    log_Debug = 6
};

/// A log with a file and the console behind it. Any thread may write; lines never mix. Bytes that
/// are no valid text and line ends inside a text are written as they are.
class TOLVAN_API Log
{
public:
    /// The process's log, which the free functions below write to. Never null: before a file is
    /// opened it writes to the console only.
    static Log* s_GlobalLog;

    Log();
    ~Log();
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    void SetLevels(LogLevel file, LogLevel console);
    /// Opens (appends to) the file, creating its folder. When it cannot be written the log goes on
    /// with the console and the result is false; the reason is logged.
    bool   Open(const String& fileName);
    void   Close();
    String FileName() const; ///< Empty while no file is open.

    bool WouldLog(LogLevel level) const noexcept;
    void Write(LogLevel level, const String& text);
    void Flush();

    /// Calls `sink` with every line that is logged at all, on the thread that logs, until it is
    /// replaced (an empty one removes it). It is not to throw. For tests and for views of the
    /// program's own log.
    void SetSink(void (*sink)(void* data, LogLevel level, const String& text), void* data);

private:
    struct State;
    std::unique_ptr<State> m_State;
};

TOLVAN_API void GlobalLog(LogLevel level, const String& text);
TOLVAN_API void LogDebug(const String& text);
TOLVAN_API void LogInfo(const String& text);
TOLVAN_API void LogSystem(const String& text);
TOLVAN_API void LogWarning(const String& text);
TOLVAN_API void LogError(const String& text);
