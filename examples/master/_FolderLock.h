#pragma once

#include "vesta/Path.h"

#include <vector>

/// The lock on a job's folder, which the processes of a run inherit: it is free again when the last
/// of them that kept it is gone, whatever has become of the master that started them. So no two
/// runs of one job are at work at a time.
class _FolderLock
{
public:
    _FolderLock() = default;
    ~_FolderLock();
    _FolderLock(const _FolderLock&) = delete;
    _FolderLock& operator=(const _FolderLock&) = delete;

    /// False when a run holds it. Throws an `Exception*` when the folder cannot be used.
    bool Take(const Path& folder);
    int  Descriptor() const { return m_Descriptor; } ///< -1 unless it is taken.

    /// The processes of this user that hold it.
    static std::vector<int> HoldersOf(const Path& folder);

private:
    int m_Descriptor = -1;
};
