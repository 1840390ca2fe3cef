#pragma once

#include "vesta/String.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace master
{
/// A message ready to be sent; clients share it.
using Frame = std::shared_ptr<const String>;

/// What waits to be sent to one client, bounded however slow the client is. Over the limit the
/// client lags: lines of output are only counted and changes of jobs only noted, until half of the
/// limit has been sent. Then it is told how many lines of each job it has missed, and how each
/// changed job stands now. Answers to the client's own requests always go in; whoever uses the
/// queue takes no requests while the client lags.
class SendQueue
{
public:
    static constexpr size_t k_Limit = 8u << 20; ///< Bytes.

    using MakeFrame = std::function<Frame()>;
    /// Makes the message of a job's present state; null when the job is no more.
    using MakeJob = std::function<Frame(const String& job)>;
    using MakeSkipped = std::function<Frame(const String& job, uint64_t count)>;

    SendQueue(MakeJob makeJob, MakeSkipped makeSkipped, size_t limit = k_Limit)
        : m_MakeJob(std::move(makeJob)), m_MakeSkipped(std::move(makeSkipped)), m_Limit(limit)
    {
    }

    void Push(const Frame& frame);
    void PushJob(const String& job);
    /// `frame` is called only when the line goes in.
    void PushOutput(const String& job, const MakeFrame& frame);

    bool   IsLagging() const { return m_Lags; }
    size_t Bytes() const { return m_Bytes; } ///< Waiting or being sent.

    /// The frames to send next, about `most` bytes of them; they count until `Sent`.
    std::vector<Frame> Next(size_t most);
    void               Sent(); ///< What `Next` gave last is on its way.

private:
    void CheckLimit() { m_Lags = m_Lags || m_Bytes > m_Limit; }
    void CatchUp();

    MakeJob                    m_MakeJob;
    MakeSkipped                m_MakeSkipped;
    size_t                     m_Limit;
    std::deque<Frame>          m_Frames;
    size_t                     m_Bytes = 0;
    size_t                     m_SendingBytes = 0;
    bool                       m_Lags = false;
    std::map<String, uint64_t> m_Skipped;    ///< Lines by job.
    std::vector<String>        m_Changed;    ///< Jobs to tell of, in order of their first change.
    std::set<String>           m_ChangedSet; ///< The same, to find one.
};
} // namespace master
