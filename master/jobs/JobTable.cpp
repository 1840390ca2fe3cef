#include "master/jobs/JobTable.h"

#include "tolvan/Job.h"
#include "vesta/Time.h"

#include <algorithm>

namespace master
{
const String& NameOf(JobState state)
{
    switch (state)
    {
    case JobState::kWaiting:
        return state_Waiting;
    case JobState::kRunning:
        return state_Running;
    case JobState::kSuspended:
        return state_Suspended;
    case JobState::kDone:
        return state_Done;
    case JobState::kFailed:
        return state_Failed;
    case JobState::kKilled:
        break;
    }
    return state_Killed;
}

JobRecord::JobRecord(const String& id, uint64_t number) : m_Id(id), m_Number(number)
{
    Set(p_Id, id);
    SetState(JobState::kWaiting);
    SetPriority(k_DefaultPriority);
}

String JobRecord::Get(const String& name) const
{
    const auto found = m_Params.find(name);
    return found == m_Params.end() ? String() : found->second;
}

void JobRecord::Set(const String& name, const String& value)
{
    m_Params[name] = value;
}

void JobRecord::SetState(JobState state)
{
    m_State = state;
    Set(p_State, NameOf(state));
    Set(p_Changed, String::FromInt(Time::CurrentTime().ToMicroseconds()));
}

void JobRecord::SetPriority(int priority)
{
    m_Priority = priority;
    Set(p_Priority, String::FromInt(priority));
}

JobRecord& JobTable::Add(const String& id)
{
    m_Jobs.push_back(std::make_unique<JobRecord>(id, ++m_LastNumber));
    m_ById[id] = m_Jobs.back().get();
    return *m_Jobs.back();
}

void JobTable::Remove(const String& id)
{
    m_ById.erase(id);
    m_Jobs.erase(std::remove_if(m_Jobs.begin(), m_Jobs.end(),
                                [&id](const auto& job) { return job->Id() == id; }),
                 m_Jobs.end());
}

JobRecord* JobTable::Find(const String& id) const
{
    const auto found = m_ById.find(id);
    return found == m_ById.end() ? nullptr : found->second;
}

bool JobTable::HasUnended() const
{
    return std::any_of(m_Jobs.begin(), m_Jobs.end(),
                       [](const auto& job) { return !IsEnded(job->State()); });
}
} // namespace master
