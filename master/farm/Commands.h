#pragma once

#include "master/jobs/JobTable.h"

namespace master
{
/// What the master does on a command.
enum class Action
{
    kRefuse,
    kHold,     ///< Keeps a job that has no process from starting.
    kRelease,  ///< Lets a job wait for its start again.
    kStop,     ///< Stops the processes.
    kContinue, ///< Lets the processes go on.
    kCancel,   ///< Ends a job that has no process.
    kKill,     ///< Ends the processes.
    kRetry,    ///< Runs an ended job from its start.
    kSetPriority,
    kRemove ///< Forgets an ended job.
};

struct Decision
{
    Action action = Action::kRefuse;
    int    priority = 0; ///< The new one.
    String reason;       ///< Why it is refused, one sentence.
};

/// Names of the commands that the master carries out.
/// @{
extern const char* const command_Suspend;
extern const char* const command_Resume;
extern const char* const command_Kill;
extern const char* const command_Retry;
extern const char* const command_SetPriority;
extern const char* const command_Remove;
/// @}

/// Decides what a command means for a job as it stands; changes nothing.
Decision Decide(const JobRecord& job, const String& command, const String& item);
} // namespace master
