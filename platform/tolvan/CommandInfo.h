#pragma once

#include "vesta/Export.h"
#include "vesta/String.h"

#include <cstdint>

class Job;

/// One command that a job's type offers.
class TOLVAN_API CommandInfo
{
public:
    /// What the name of a command or of an item begins with when it cannot be chosen now.
    static const String k_Disabled;

    String  name;
    int32_t flags = 0; ///< Kinds (`CommandKind`); negative (top bit set): a separator.
    String  description;

    /// The command's items for one job, separated by ";"; empty for a command with a single item.
    /// An item that the job's state rules out begins with "DISABLED:".
    String Itemize(const Job& job) const;
    /// The command as it stands for one job: as declared, but where the job's state rules out a
    /// command without items its name begins with "DISABLED:".
    CommandInfo ForJob(const Job& job) const;
    /// Whether the command makes sense in the job's state.
    bool IsAllowed(const Job& job) const;

    String items;  ///< As declared: items, separated by ";".
    String states; ///< The states in which the command makes sense, separated by ";"; empty: all.
};

/// Kinds of commands: the bits of `CommandInfo::flags`.
enum CommandKind : int32_t
{
    cmd_Job = 0x1,    ///< Acts on the job.
    cmd_Output = 0x2, ///< Concerns what the job has written.
    cmd_Admin = 0x4   ///< For the farm's operators.
};
