#include "vesta/Log.h"

#include "vesta/CallEntry.h"
#include "vesta/Descriptor.h"
#include "vesta/Path.h"
#include "vesta/files/PrivateFolder.h"
#include "vesta/trace/CallTrace.h"

#include <spdlog/details/log_msg.h>
#include <spdlog/sinks/base_sink.h>

#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <mutex>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace
{

constexpr const char* kLevelWords[] = {"fatal",  "error", "system", "warning",
                                       "notice", "info",  "debug"};
static_assert(sizeof kLevelWords / sizeof *kLevelWords == log_Debug + 1, "one word a level");

// The level's word travels in the place of the logger's name: the formatting library knows fewer
// levels than we do.
constexpr const char* kPattern = "%Y-%m-%d %H:%M:%S.%e %-7n %v";

constexpr mode_t kMode = 0666; // what the user's mask leaves of it

const char* LevelWord(LogLevel level)
{
    return level >= log_Fatal && level <= log_Debug ? kLevelWords[level] : "?";
}

/// Writes every line with one call, so that the lines of several programs do not mix in one file
/// and none is lost in a crash.
class _DescriptorSink final : public spdlog::sinks::base_sink<std::mutex>
{
public:
    /// Takes the descriptor over, unless it is the console's.
    explicit _DescriptorSink(Descriptor file) : m_File(std::move(file)) { set_pattern_(kPattern); }
    ~_DescriptorSink() override
    {
        if (m_File.Get() == STDERR_FILENO)
        {
            m_File.Release();
        }
    }

    /// The error of the first line that could not be written since the last one that could; 0 when
    /// there is nothing new to report.
    int TakeError() { return m_NewError.exchange(0); }

protected:
    void sink_it_(const spdlog::details::log_msg& message) override
    {
        spdlog::memory_buf_t line;
        formatter_->format(message, line);
        const bool written = m_File.WriteAll(line.data(), line.size());
        if (!written && !m_Failing)
        {
            m_NewError = errno;
        }
        m_Failing = !written;
    }
    void flush_() override { fsync(m_File.Get()); }

private:
    Descriptor       m_File;
    bool             m_Failing = false;
    std::atomic<int> m_NewError{0};
};

using SinkFunction = void (*)(void* data, LogLevel level, const String& text);

/// Set while a sink runs on this thread: what it logs itself does not come back to it.
thread_local bool t_InSink = false;

} // namespace

struct Log::State
{
    std::atomic<int>                 fileLevel{log_Debug};
    std::atomic<int>                 consoleLevel{log_Warning};
    std::atomic<bool>                hasFile{false};
    std::atomic<bool>                hasSink{false};
    std::shared_ptr<_DescriptorSink> console =
        std::make_shared<_DescriptorSink>(Descriptor(STDERR_FILENO));

    std::mutex                       fileMutex; ///< Guards the two that follow.
    std::shared_ptr<_DescriptorSink> file;
    String                           fileName;

    /// Held while the sink runs, so that a replaced sink is never called again; recursive, because
    /// a sink may replace itself.
    std::recursive_mutex sinkMutex;
    SinkFunction         sink = nullptr;
    void*                sinkData = nullptr;

    std::shared_ptr<_DescriptorSink> CurrentFile()
    {
        const std::lock_guard<std::mutex> lock(fileMutex);
        return file;
    }
    void WriteFile(const spdlog::details::log_msg& message);
    void CallSink(LogLevel level, const String& text);
};

void Log::State::WriteFile(const spdlog::details::log_msg& message)
{
    const auto target = CurrentFile();
    if (!target)
    {
        return;
    }
    target->log(message);
    if (const int error = target->TakeError())
    {
        const String text = "Cannot write the log file: " + std::generic_category().message(error);
        console->log({LevelWord(log_Error), spdlog::level::err, std::string_view(text)});
    }
}

void Log::State::CallSink(LogLevel level, const String& text)
{
    if (t_InSink)
    {
        return;
    }
    const std::lock_guard<std::recursive_mutex> lock(sinkMutex);
    if (!sink)
    {
        return;
    }
    t_InSink = true;
    try
    {
        sink(sinkData, level, text);
    }
    catch (...)
    {
        // Whoever logs a line is not to suffer from a view of the log.
    }
    t_InSink = false;
}

Log* Log::s_GlobalLog = []
{
    vesta::SetTracePrinter([](const String& trace)
                           { LogWarning("Call trace of an exception:\n" + trace); });
    return new Log; // Never destroyed: other statics log while they go.
}();

Log::Log() : m_State(new State)
{
}

Log::~Log() = default;

void Log::SetLevels(LogLevel file, LogLevel console)
{
    m_State->fileLevel = file;
    m_State->consoleLevel = console;
}

bool Log::Open(const String& fileName)
{
    CALL_ENTRY("Log::Open");
    const String failed = vesta::MakePrivateFolder(Path(fileName).Branch().Text());
    const String what = failed.empty() ? "Cannot write the log file \"" + fileName + "\": "
                                       : "Cannot create the folder \"" + failed + "\": ";
    Descriptor   file;
    if (failed.empty())
    {
        file = Descriptor::Open(fileName, O_WRONLY | O_CREAT | O_APPEND, kMode);
    }
    if (!file.IsOpen())
    {
        Write(log_Error, what + std::generic_category().message(errno));
        return false;
    }
    const std::lock_guard<std::mutex> lock(m_State->fileMutex);
    m_State->file = std::make_shared<_DescriptorSink>(std::move(file));
    m_State->fileName = fileName;
    m_State->hasFile = true;
    return true;
}

void Log::Close()
{
    const std::lock_guard<std::mutex> lock(m_State->fileMutex);
    m_State->hasFile = false;
    m_State->file.reset();
    m_State->fileName.clear();
}

String Log::FileName() const
{
    const std::lock_guard<std::mutex> lock(m_State->fileMutex);
    return m_State->fileName;
}

bool Log::WouldLog(LogLevel level) const noexcept
{
    return level <= m_State->consoleLevel ||
           (level <= m_State->fileLevel && (m_State->hasFile || m_State->hasSink));
}

void Log::Write(LogLevel level, const String& text)
{
    if (!WouldLog(level))
    {
        return;
    }
    const spdlog::details::log_msg message(LevelWord(level), spdlog::level::info,
                                           std::string_view(text));
    if (level <= m_State->fileLevel && m_State->hasFile)
    {
        m_State->WriteFile(message);
    }
    if (level <= m_State->consoleLevel)
    {
        m_State->console->log(message);
    }
    if (m_State->hasSink)
    {
        m_State->CallSink(level, text);
    }
}

void Log::Flush()
{
    // Every line has been handed to the system already; what is left is its way to the disk.
    if (const auto file = m_State->CurrentFile())
    {
        file->flush();
    }
}

void Log::SetSink(void (*sink)(void* data, LogLevel level, const String& text), void* data)
{
    const std::lock_guard<std::recursive_mutex> lock(m_State->sinkMutex);
    m_State->sink = sink;
    m_State->sinkData = data;
    m_State->hasSink = sink != nullptr;
}

void GlobalLog(LogLevel level, const String& text)
{
    Log::s_GlobalLog->Write(level, text);
}

void LogDebug(const String& text)
{
    GlobalLog(log_Debug, text);
}

void LogInfo(const String& text)
{
    GlobalLog(log_Info, text);
}

void LogSystem(const String& text)
{
    GlobalLog(log_System, text);
}

void LogWarning(const String& text)
{
    GlobalLog(log_Warning, text);
}

void LogError(const String& text)
{
    GlobalLog(log_Error, text);
}
