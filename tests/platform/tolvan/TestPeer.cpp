#include "tests/platform/tolvan/TestPeer.h"

#include "tests/support/Thrown.h"
#include "tolvan/SocketFolder.h"
#include "wire/Framing.h"

#include <cerrno>
#include <cstring>

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{

constexpr timeval kPatience = {10, 0};

sockaddr_un AddressOf(const Path& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.Text().c_str(), sizeof address.sun_path - 1);
    return address;
}

Descriptor Patient(Descriptor socket)
{
    setsockopt(socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
    return socket;
}

} // namespace

Descriptor ListenAt(const Path& path, int backlog)
{
    const sockaddr_un address = AddressOf(path);
    Descriptor        listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (bind(listener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(listener.Get(), backlog) != 0)
    {
        Exception::ThrowErrno("TestPeer", "ListenAt", "no socket at " + path.Text());
    }
    return Patient(std::move(listener));
}

TestPeer::TestPeer(Descriptor socket) : m_Socket(Patient(std::move(socket)))
{
}

TestPeer TestPeer::ConnectTo(const Path& path)
{
    const sockaddr_un address = AddressOf(path);
    Descriptor        end(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (connect(end.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    {
        end.Close();
    }
    return TestPeer(std::move(end));
}

bool TestPeer::Send(const String& bytes)
{
    return send(m_Socket.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL) ==
           static_cast<ssize_t>(bytes.size());
}

bool TestPeer::Send(const Message& message)
{
    return Send(wire::Framing::Wrap(message.Encode()));
}

std::optional<String> TestPeer::Read(size_t count)
{
    String        bytes(count, '\0');
    const ssize_t got = recv(m_Socket.Get(), &bytes[0], count, MSG_WAITALL);
    return got == static_cast<ssize_t>(count) ? std::optional<String>(bytes) : std::nullopt;
}

boost::shared_ptr<Message> TestPeer::Receive()
{
    boost::shared_ptr<Message> message;
    const auto                 exception = Thrown(
        [&]
        {
            const auto header = Read(wire::Framing::k_HeaderSize);
            const auto content =
                header ? Read(wire::Framing::ContentLength(header->data())) : std::nullopt;
            message = content ? Message::Decode(*content) : nullptr;
        });
    if (exception)
    {
        exception->Log();
    }
    return message;
}

bool TestPeer::SeesEnd()
{
    char    bytes[4096];
    ssize_t got = 0;
    do
    {
        got = recv(m_Socket.Get(), bytes, sizeof bytes, 0);
    } while (got > 0);
    return got == 0 || errno == ECONNRESET;
}

TestMaster::TestMaster() : m_Path(SocketFolder::ForMaster())
{
    unlink(m_Path.Text().c_str());
    m_Socket = ListenAt(m_Path);
}

TestMaster::~TestMaster()
{
    unlink(m_Path.Text().c_str());
}

TestPeer TestMaster::Accept()
{
    return TestPeer(Descriptor(accept4(m_Socket.Get(), nullptr, nullptr, SOCK_CLOEXEC)));
}
