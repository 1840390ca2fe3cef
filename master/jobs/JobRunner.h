#pragma once

#include "master/jobs/ChildProcess.h"
#include "master/jobs/JobLog.h"
#include "master/jobs/LineSplitter.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>
#include <boost/asio/steady_timer.hpp>

#include <array>
#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

namespace master
{
/// One run of one job: the child process, its log file and its lines. Output is read in small
/// pieces, each written to the log before the next is read: a job that floods is slowed down to
/// the speed of the disk, and this program has time for others between two pieces. With a full
/// disk the job stands until there is room again.
class JobRunner : public std::enable_shared_from_this<JobRunner>
{
public:
    static constexpr size_t k_MaxLine = 256 << 10; ///< Bytes; a longer line comes in pieces.
    static constexpr std::chrono::milliseconds k_KillAfter{3000}; ///< From SIGTERM to SIGKILL.

    struct Events
    {
        std::function<void(std::string_view line)> output;
        /// The log cannot be written (`why`), or it can again (empty).
        std::function<void(const String& why)> trouble;
        /// Once, after the last line. `lost`: bytes of output that could not be written.
        std::function<void(const ChildExit& exit, size_t lost)> ended;
    };

    JobRunner(boost::asio::io_context& context, Events events);

    /// Starts the program. Returns an empty text, or why that failed; no event comes then.
    String Start(const ChildSpec& childSpec, const Path& logFile);

    void Suspend(); ///< Stops all processes of the job.
    void Resume();
    /// Asks all processes of the job to end; those that don't are killed. Once is enough.
    void Stop();
    void Kill();      ///< At once.
    void CheckExit(); ///< To be called whenever some child process has ended.

private:
    using Error = boost::system::error_code;

    void Read();
    void OnRead(const Error& error, size_t count);
    void TakeOutput();
    bool WriteLog();
    void RetryLater();
    void EndWithin(std::chrono::milliseconds time);
    void Finish();
    void TryToFinish();

    static constexpr size_t k_Chunk = 16 << 10; ///< Bytes read at once.

    Events                                m_Events;
    ChildProcess                          m_Child;
    boost::asio::posix::stream_descriptor m_Output;
    boost::asio::steady_timer             m_KillTimer;
    boost::asio::steady_timer             m_DrainTimer;
    boost::asio::steady_timer             m_RetryTimer;
    JobLog                                m_Log;
    LineSplitter                          m_Lines{k_MaxLine};
    std::array<char, k_Chunk>             m_Chunk;
    std::string_view                      m_Unwritten; ///< Part of the chunk.
    bool                                  m_InTrouble = false;
    bool                                  m_IsStopping = false;
    bool                                  m_HasExited = false;
    bool                                  m_IsFinished = false;
    ChildExit                             m_Exit;
};
} // namespace master
