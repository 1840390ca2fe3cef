#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Path.h"

#include <vector>

namespace master
{
/// Takes the lock on a job's folder, which the processes of a run inherit with the file: it is free
/// again when the last of them that kept it is gone, whatever has become of the master that started
/// them. So no two runs of one job are at work at a time. Not open when a run holds it. Throws an
/// `Exception*` when the folder cannot be used.
Descriptor LockFolder(const Path& folder);

/// The processes of this user that hold it.
std::vector<int> HoldersOf(const Path& folder);
} // namespace master
