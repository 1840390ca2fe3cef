#include "examples/master/_Commands.h"

const char* const command_Suspend = "Suspend";
const char* const command_Resume = "Resume";
const char* const command_Kill = "Kill";
const char* const command_Retry = "Retry";
const char* const command_SetPriority = "Set Priority";

namespace
{

_Decision Refuse(const String& reason)
{
    return {_Action::kRefuse, 0, reason};
}

_Decision Accept(_Action action)
{
    return {action, 0, String()};
}

_Decision Suspend(const _JobRecord& job, const String&)
{
    switch (job.State())
    {
    case _JobState::kWaiting:
        return Accept(_Action::kHold);
    case _JobState::kRunning:
        return Accept(_Action::kStop);
    case _JobState::kSuspended:
        return Refuse("The job is suspended already.");
    default:
        return Refuse("The job has ended.");
    }
}

_Decision Resume(const _JobRecord& job, const String&)
{
    if (job.State() == _JobState::kSuspended)
    {
        return Accept(job.HasProcess() ? _Action::kContinue : _Action::kRelease);
    }
    return Refuse("Only a suspended job can be resumed.");
}

_Decision Kill(const _JobRecord& job, const String&)
{
    if (IsEnded(job.State()))
    {
        return Refuse("The job has ended.");
    }
    return Accept(job.HasProcess() ? _Action::kKill : _Action::kCancel);
}

_Decision Retry(const _JobRecord& job, const String&)
{
    return IsEnded(job.State()) ? Accept(_Action::kRetry)
                                : Refuse("Only a job that has ended can be run again.");
}

_Decision SetPriority(const _JobRecord&, const String& item)
{
    const String text = item.Trim();
    const auto   number = text.ToInt(-1);
    if (number < _JobRecord::k_MinPriority || number > _JobRecord::k_MaxPriority ||
        String::FromInt(number) != text)
    {
        return Refuse(SFormat("A priority is a number from %d to %d.", _JobRecord::k_MinPriority,
                              _JobRecord::k_MaxPriority));
    }
    return {_Action::kSetPriority, static_cast<int>(number), String()};
}

struct Command
{
    const char* name;
    _Decision (*decide)(const _JobRecord& job, const String& item);
};

const Command kCommands[] = {{command_Suspend, Suspend},
                             {command_Resume, Resume},
                             {command_Kill, Kill},
                             {command_Retry, Retry},
                             {command_SetPriority, SetPriority}};

} // namespace

_Decision Decide(const _JobRecord& job, const String& command, const String& item)
{
    for (const Command& known : kCommands)
    {
        if (command.EqualsNoCase(known.name))
        {
            return known.decide(job, item);
        }
    }
    return Refuse("The master does not know this command.");
}
