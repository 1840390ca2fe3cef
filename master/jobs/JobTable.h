#pragma once

#include "master/jobs/OutputTail.h"
#include "vesta/String.h"

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

namespace master
{
enum class JobState
{
    kWaiting,
    kRunning,
    kSuspended,
    kDone,
    kFailed,
    kKilled
};

/// The state's name in messages, and back.
const String& NameOf(JobState state);

/// Whether a job in this state has ended.
inline bool IsEnded(JobState state)
{
    return state != JobState::kWaiting && state != JobState::kRunning &&
           state != JobState::kSuspended;
}

/// A job as the master keeps it.
class JobRecord
{
public:
    static constexpr int k_MinPriority = 0;
    static constexpr int k_MaxPriority = 100;
    static constexpr int k_DefaultPriority = 50;

    JobRecord(const String& id, uint64_t number);

    const String&                   Id() const { return m_Id; }
    uint64_t                        Number() const { return m_Number; } ///< Rises with every job.
    const std::map<String, String>& Params() const { return m_Params; }
    String                          Get(const String& name) const;
    void                            Set(const String& name, const String& value);

    JobState State() const { return m_State; }
    void     SetState(JobState state);
    int      Priority() const { return m_Priority; }
    void     SetPriority(int priority);
    /// A suspended job has a process or is only kept from starting.
    bool HasProcess() const { return m_HasProcess; }
    void SetHasProcess(bool has) { m_HasProcess = has; }
    /// A waiting job that cannot start just now, because an earlier run of it has not ended.
    bool IsHeldUp() const { return m_IsHeldUp; }
    void SetHeldUp(bool is) { m_IsHeldUp = is; }

    OutputTail& Tail() { return m_Tail; }

private:
    String                   m_Id;
    uint64_t                 m_Number;
    std::map<String, String> m_Params;
    JobState                 m_State = JobState::kWaiting;
    int                      m_Priority = k_DefaultPriority;
    bool                     m_HasProcess = false;
    bool                     m_IsHeldUp = false;
    OutputTail               m_Tail;
};

/// All jobs since the master's start but those removed, in the order of their coming.
class JobTable
{
public:
    static constexpr size_t k_MostJobs = 10000;

    JobRecord& Add(const String& id);        ///< `id` must be new.
    void       Remove(const String& id);     ///< Nothing when there is none.
    JobRecord* Find(const String& id) const; ///< Null when there is none.
    bool       IsFull() const { return m_Jobs.size() >= k_MostJobs; }
    bool       HasUnended() const;

    const std::vector<std::unique_ptr<JobRecord>>& Jobs() const { return m_Jobs; }

private:
    std::vector<std::unique_ptr<JobRecord>> m_Jobs;
    std::map<String, JobRecord*>            m_ById;
    uint64_t                                m_LastNumber = 0;
};
} // namespace master
