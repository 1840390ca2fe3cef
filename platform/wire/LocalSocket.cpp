#include "wire/LocalSocket.h"

#include "vesta/Exception.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace wire
{
namespace
{

constexpr int kBacklog = 256; // connections that wait to be accepted

/// The address of a socket. A name that is too long for one is reached through its opened folder.
class Address
{
public:
    explicit Address(const Path& path)
    {
        m_Address.sun_family = AF_UNIX;
        String name = path.Text();
        if (name.size() >= sizeof m_Address.sun_path)
        {
            m_Folder = Descriptor::Open(path.Branch().Text(), O_PATH | O_DIRECTORY);
            name = SFormat("/proc/self/fd/%d/%s", m_Folder.Get(), path.Leaf().c_str());
        }
        m_Fits = name.size() < sizeof m_Address.sun_path;
        if (m_Fits)
        {
            std::memcpy(m_Address.sun_path, name.c_str(), name.size() + 1);
        }
    }

    bool Fits() const { return m_Fits; }

    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&m_Address); }
    socklen_t       Size() const { return sizeof m_Address; }

private:
    sockaddr_un m_Address = {};
    Descriptor  m_Folder;
    bool        m_Fits = false;
};

Descriptor NewSocket()
{
    return Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

} // namespace

Descriptor LocalSocket::Listen(const Path& path)
{
    const Path    unfinished(SFormat("%s.%d.new", path.Text().c_str(), getpid()));
    const Address address(unfinished);
    if (!address.Fits())
    {
        Exception::Throw("LocalSocket", "Listen", ec_System,
                         "The name of the socket is too long: " + path.Text());
    }
    Descriptor listener = NewSocket();
    unlink(unfinished.Text().c_str());
    if (!listener.IsOpen() || bind(listener.Get(), address.Get(), address.Size()) != 0 ||
        listen(listener.Get(), kBacklog) != 0 ||
        rename(unfinished.Text().c_str(), path.Text().c_str()) != 0)
    {
        const int error = errno;
        unlink(unfinished.Text().c_str());
        errno = error;
        Exception::ThrowErrno("LocalSocket", "Listen",
                              "The socket cannot be created: " + path.Text());
    }
    return listener;
}

Descriptor LocalSocket::Connect(const Path& path)
{
    const Address address(path);
    if (!address.Fits())
    {
        errno = ENAMETOOLONG;
        return Descriptor();
    }
    Descriptor socket = NewSocket();
    if (socket.IsOpen() && connect(socket.Get(), address.Get(), address.Size()) != 0)
    {
        socket.Close();
    }
    return socket;
}

Descriptor LocalSocket::Accept(int listener)
{
    return Descriptor(accept4(listener, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

LocalSocket::Peer LocalSocket::PeerOf(int descriptor)
{
    ucred     credentials = {};
    socklen_t size = sizeof credentials;
    Peer      peer;
    if (getsockopt(descriptor, SOL_SOCKET, SO_PEERCRED, &credentials, &size) == 0)
    {
        peer.processId = credentials.pid;
        peer.userId = static_cast<int>(credentials.uid);
        peer.isOurs = credentials.uid == geteuid();
    }
    return peer;
}
} // namespace wire
