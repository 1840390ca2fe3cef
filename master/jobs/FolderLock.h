#pragma once

#include "vesta/Path.h"

#include <vector>

namespace master
{
/// The lock on a job's folder, which the processes of a run inherit: it is free again when the last
/// of them that kept it is gone, whatever has become of the master that started them. So no two
/// runs of one job are at work at a time.
class FolderLock
{
public:
    FolderLock() = default;
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// False when a run holds it. Throws an `Exception*` when the folder cannot be used.
    bool Take(const Path& folder);
    int  Descriptor() const { return m_Descriptor; } ///< -1 unless it is taken.

    /// The processes of this user that hold it.
    static std::vector<int> HoldersOf(const Path& folder);

private:
    int m_Descriptor = -1;
};
} // namespace master
