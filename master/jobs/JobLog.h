#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Path.h"
#include "vesta/String.h"

#include <string_view>

namespace master
{
/// The file with the whole output of a job's run, byte for byte.
class JobLog
{
public:
    static constexpr int k_Earlier = 4; ///< Logs of earlier runs that are kept: "output.1.log" ...

    /// Moves the logs of earlier runs in the folder one number on; the name of the new one.
    static Path MakeRoom(const Path& folder);

    /// Creates the file or empties it. Returns an empty text, or why that cannot be done.
    String Open(const Path& file);
    /// Appends the bytes. Returns how many it took: fewer than there are when the disk is full or
    /// fails, and then `why` says so.
    size_t Write(std::string_view bytes, String& why);
    void   Close() { m_File.Close(); }

private:
    Descriptor m_File;
};
} // namespace master
