#pragma once

#include "vesta/Path.h"

#include <utility>

namespace wire
{
/// A file descriptor that closes itself; -1 is none.
class SocketHandle
{
public:
    explicit SocketHandle(int number = -1) : m_Number(number) {}
    ~SocketHandle();
    SocketHandle(SocketHandle&& other) noexcept : m_Number(other.Release()) {}
    SocketHandle& operator=(SocketHandle&& other) noexcept
    {
        std::swap(m_Number, other.m_Number);
        return *this;
    }

    int  Get() const { return m_Number; }
    bool IsOpen() const { return m_Number >= 0; }
    int  Release() { return std::exchange(m_Number, -1); }

private:
    int m_Number;
};

/// Stream sockets with a name in the file system. All descriptors are non-blocking and stay out of
/// child processes: a child that kept a listening socket would look like its parent for ever.
/// Names may be longer than a socket address. Any thread; nothing blocks.
class LocalSocket
{
public:
    /// A listening socket, reachable by its name only once it takes connections, so that nobody
    /// mistakes it for one that a dead program has left. Replaces what has the name. Throws an
    /// `Exception*`.
    static SocketHandle Listen(const Path& path);
    /// None, with errno set, when nobody listens.
    static SocketHandle Connect(const Path& path);
    /// None when there is no waiting connection, or with another errno than EAGAIN on failure.
    static SocketHandle Accept(int listener);

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
