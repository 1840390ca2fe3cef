#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Export.h"
#include "vesta/Path.h"

/// Holds a lock file (beside `path`, its name with ".lock" added) while it lives, against other
/// programs that save the same file. Waits at most `timeoutMs` milliseconds; when it cannot be had
/// `IsHeld` is false and the reason is logged: the caller goes on without. A holder that has let
/// somebody of this program wait so long already is logged once, and not waited for again.
class TOLVAN_API FileLock
{
public:
    explicit FileLock(const Path& path, int timeoutMs = 2000);

    bool IsHeld() const { return m_File.IsOpen(); }

private:
    Descriptor m_File;
};
