#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Path.h"
#include "vesta/String.h"

namespace vesta
{
Path FolderOf(const String& fileName); ///< Never empty.
bool MayWrite(const String& name);     ///< By the user that the process acts for.
/// Makes a rename in the folder last. Some file systems cannot; the new content is then there all
/// the same, only a crash of the machine may bring back the old.
void SyncFolder(const Path& folder);

/// A new file in the folder of one that it is to replace (mode 0600); removed again unless it was
/// renamed. What a program that was killed has left behind is removed by the next one that makes
/// such a file in the folder: a living owner holds a lock on it. Not exported.
class TemporaryFile
{
public:
    explicit TemporaryFile(const Path& folder);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const Descriptor& Opened() const { return m_File; } ///< Not open when it could not be made.

    /// These are false, with errno, when any step fails.
    /// @{
    bool Fill(const String& content); ///< Writes all of it, down to the disk.
    bool RenameTo(const String& fileName);
    /// @}

private:
    bool Create(const Path& folder);

    String     m_Name;
    Descriptor m_File;
    bool       m_Exists = false;
};
} // namespace vesta
