#pragma once

#include "vesta/Descriptor.h"
#include "vesta/Path.h"

namespace wire
{
/// Stream sockets with a name in the file system. All descriptors are non-blocking and stay out of
/// child processes: a child that kept a listening socket would look like its parent for ever.
/// Names may be longer than a socket address. Any thread; nothing blocks.
class LocalSocket
{
public:
    /// A listening socket, reachable by its name only once it takes connections, so that nobody
    /// mistakes it for one that a dead program has left. Replaces what has the name. Throws an
    /// `Exception*`.
    static Descriptor Listen(const Path& path);
    /// None, with errno set, when nobody listens.
    static Descriptor Connect(const Path& path);
    /// None when there is no waiting connection, or with another errno than EAGAIN on failure.
    static Descriptor Accept(int listener);

    /// The other side: its process id; whether it belongs to this user.
    struct Peer
    {
        int  processId = 0;
        int  userId = -1;
        bool isOurs = false;
    };
    static Peer PeerOf(int descriptor);
};
} // namespace wire
