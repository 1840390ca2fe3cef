#include "examples/master/_JobTable.h"

#include "tolvan/Job.h"
#include "vesta/Time.h"

#include <algorithm>

const String& NameOf(_JobState state)
{
    switch (state)
    {
    case _JobState::kWaiting:
        return state_Waiting;
    case _JobState::kRunning:
        return state_Running;
    case _JobState::kSuspended:
        return state_Suspended;
    case _JobState::kDone:
        return state_Done;
    case _JobState::kFailed:
        return state_Failed;
    case _JobState::kKilled:
        break;
    }
    return state_Killed;
}

_JobRecord::_JobRecord(const String& id, uint64_t number) : m_Id(id), m_Number(number)
{
    Set(p_Id, id);
    SetState(_JobState::kWaiting);
    SetPriority(k_DefaultPriority);
}

String _JobRecord::Get(const String& name) const
{
    const auto found = m_Params.find(name);
    return found == m_Params.end() ? String() : found->second;
}

void _JobRecord::Set(const String& name, const String& value)
{
    m_Params[name] = value;
}

void _JobRecord::SetState(_JobState state)
{
    m_State = state;
    Set(p_State, NameOf(state));
    Set(p_Changed, String::FromInt(Time::CurrentTime().ToMicroseconds()));
}

void _JobRecord::SetPriority(int priority)
{
    m_Priority = priority;
    Set(p_Priority, String::FromInt(priority));
}

_JobRecord& _JobTable::Add(const String& id)
{
    m_Jobs.push_back(std::make_unique<_JobRecord>(id, m_Jobs.size()));
    m_ById[id] = m_Jobs.back().get();
    return *m_Jobs.back();
}

_JobRecord* _JobTable::Find(const String& id) const
{
    const auto found = m_ById.find(id);
    return found == m_ById.end() ? nullptr : found->second;
}

bool _JobTable::HasUnended() const
{
    return std::any_of(m_Jobs.begin(), m_Jobs.end(),
                       [](const auto& job) { return !IsEnded(job->State()); });
}
