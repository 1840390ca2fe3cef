#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Path.h"
#include "vesta/files/TemporaryFile.h"

#include <memory>
#include <optional>

#include <sys/stat.h>

namespace vesta
{
/// Where the bytes of a new content go. An ordinary file that may be replaced keeps its old content
/// until the new one is complete, which is written beside it and then takes over name, owner, mode
/// and attributes. A file of several names, a device, a pipe, and a file that could not be replaced
/// as it is or in a folder that may not be written in, is written in place. Symbolic links are
/// followed. Not exported.
class OutputTarget
{
public:
    /// Throws an `Exception*` for links in a circle; what else fails leaves it closed, with errno.
    explicit OutputTarget(const Path& path);
    ~OutputTarget() { Abandon(); }
    OutputTarget(const OutputTarget&) = delete;
    OutputTarget& operator=(const OutputTarget&) = delete;

    bool IsOpen() const { return Opened().IsOpen(); }

    /// These are false, with errno, when it is closed or a step fails.
    /// @{
    bool Write(const char* bytes, size_t count) const { return Opened().WriteAll(bytes, count); }
    bool Commit(); ///< The new content takes effect; the last call.
    /// @}
    /// Leaves the old content, or no file where there was none. In place, what is written stays.
    /// Keeps errno.
    void Abandon();

private:
    const Descriptor& Opened() const { return m_Beside ? m_Beside->Opened() : m_InPlace; }
    void              CreateIfMissing(const Path& path);
    bool              MayReplace(const struct stat& status, const Path& path) const;
    void              OpenInPlace(const Path& path);

    String                         m_Name; ///< Behind all links.
    std::unique_ptr<TemporaryFile> m_Beside;
    Descriptor                     m_InPlace;
    std::optional<struct stat>     m_Created; ///< The file, when there was none before.
};
} // namespace vesta
