#include "master/farm/Commands.h"

namespace master
{
const char* const command_Suspend = "Suspend";
const char* const command_Resume = "Resume";
const char* const command_Kill = "Kill";
const char* const command_Retry = "Retry";
const char* const command_SetPriority = "Set Priority";
const char* const command_Remove = "Remove";

namespace
{

Decision Refuse(const String& reason)
{
    return {Action::kRefuse, 0, reason};
}

Decision Accept(Action action)
{
    return {action, 0, String()};
}

Decision Suspend(const JobRecord& job, const String&)
{
    switch (job.State())
    {
    case JobState::kWaiting:
        return Accept(Action::kHold);
    case JobState::kRunning:
        return Accept(Action::kStop);
    case JobState::kSuspended:
        return Refuse("The job is suspended already.");
    default:
        return Refuse("The job has ended.");
    }
}

Decision Resume(const JobRecord& job, const String&)
{
    if (job.State() == JobState::kSuspended)
    {
        return Accept(job.HasProcess() ? Action::kContinue : Action::kRelease);
    }
    return Refuse("Only a suspended job can be resumed.");
}

Decision Kill(const JobRecord& job, const String&)
{
    if (IsEnded(job.State()))
    {
        return Refuse("The job has ended.");
    }
    return Accept(job.HasProcess() ? Action::kKill : Action::kCancel);
}

Decision Retry(const JobRecord& job, const String&)
{
    return IsEnded(job.State()) ? Accept(Action::kRetry)
                                : Refuse("Only a job that has ended can be run again.");
}

Decision Remove(const JobRecord& job, const String&)
{
    return IsEnded(job.State()) ? Accept(Action::kRemove)
                                : Refuse("Only a job that has ended can be removed.");
}

Decision SetPriority(const JobRecord&, const String& item)
{
    const String text = item.Trim();
    const auto   number = text.ToInt(-1);
    if (number < JobRecord::k_MinPriority || number > JobRecord::k_MaxPriority ||
        String::FromInt(number) != text)
    {
        return Refuse(SFormat("A priority is a number from %d to %d.", JobRecord::k_MinPriority,
                              JobRecord::k_MaxPriority));
    }
    return {Action::kSetPriority, static_cast<int>(number), String()};
}

struct Command
{
    const char* name;
    Decision (*decide)(const JobRecord& job, const String& item);
};

const Command kCommands[] = {
    {command_Suspend, Suspend}, {command_Resume, Resume},           {command_Kill, Kill},
    {command_Retry, Retry},     {command_SetPriority, SetPriority}, {command_Remove, Remove}};

} // namespace

Decision Decide(const JobRecord& job, const String& command, const String& item)
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
} // namespace master
