#pragma once

#include "vesta/String.h"

#include <cstddef>

/// Text that grows, of a file or of several, as a `LogReader` reads it. What is read goes to a sink
/// of its own.
class TextFollower
{
public:
    enum class State
    {
        kMissing,    ///< There is no such file (yet).
        kUnreadable, ///< It is there but cannot be read (any further); `Problem` says why.
        kFollowing,
        kGone ///< As before, but its name stands for no file any more.
    };

    virtual ~TextFollower() = default;

    /// Reads what has come since, at most about `limit` bytes. True when there may be more to read
    /// at once. With 0 it is only opened: it can be read even if another file takes its name.
    virtual bool Read(size_t limit) = 0;

    virtual State         CurrentState() const = 0;
    virtual const String& Problem() const = 0;
    /// Bytes of text read so far of what is there now.
    virtual long long Position() const = 0;
};
