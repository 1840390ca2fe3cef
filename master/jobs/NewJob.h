#pragma once

#include "tolvan/Message.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <map>
#include <vector>

namespace master
{
/// What is asked of the farm: a job that is not there yet.
struct NewJob
{
    String                   id;       ///< Empty: a new one.
    String                   type;     ///< Identifier or name of the job's type.
    String                   name;     ///< Empty: the type's.
    String                   priority; ///< Empty: the default.
    std::map<String, String> params;

    /// From a message msg_Submit. Parameters that only the master sets are left out.
    static NewJob FromMessage(const Message& message);
    /// From a job file (ini): [Job] Type, Name, Priority; [Parameters] with the parameters' values.
    /// The identifier comes from the file's name, so that a job keeps it, and its folder, however
    /// often the master starts. Throws an `Exception*` for a file that cannot be read or names no
    /// type.
    static NewJob FromFile(const Path& file);
};

/// The files "*.job" of a folder, sorted by name.
std::vector<Path> FindJobFiles(const Path& folder);
} // namespace master
