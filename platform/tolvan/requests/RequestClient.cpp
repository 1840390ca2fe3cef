#include "tolvan/requests/RequestClient.h"

#include "tolvan/SocketFolder.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"
#include "wire/LocalSocket.h"

#include <boost/asio/post.hpp>

#include <cerrno>
#include <cstring>
#include <utility>

#include <sys/socket.h>

namespace tolvan
{

bool RequestClient::Send(const String& component, const String& request, const Path& own)
{
    bool taken = false;
    Guarded("Sending the request \"" + request + "\" to " + component,
            [&]
            {
                const String frame = RequestFrame(request);
                for (const Path& program : SocketFolder::Find(component))
                {
                    taken = (program.Text() != own.Text() &&
                             SendTo(program, component, request, frame)) ||
                            taken;
                }
            });
    return taken;
}

bool RequestClient::SendTo(const Path& program, const String& component, const String& request,
                           const String& frame)
{
    Descriptor socket = wire::LocalSocket::Connect(program);
    if (!socket.IsOpen())
    {
        LogInfo("The request \"" + request + "\" did not reach " + program.Text() + ": " +
                std::strerror(errno));
        return false;
    }
    if (const wire::LocalSocket::Peer peer = wire::LocalSocket::PeerOf(socket.Get()); !peer.isOurs)
    {
        LogWarning(SFormat("%s is refused: process %d belongs to user %d", program.Text().c_str(),
                           peer.processId, peer.userId));
        return false;
    }
    const ssize_t sent =
        send(socket.Get(), frame.data(), frame.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0 && errno != EAGAIN)
    {
        return false;
    }
    const size_t written = sent < 0 ? 0 : static_cast<size_t>(sent);
    boost::asio::post(m_Context, [this, socket = std::make_shared<Descriptor>(std::move(socket)),
                                  component, request, rest = String(frame.substr(written))]
                      { AwaitAnswer(std::move(*socket), component, request, rest); });
    return true;
}

void RequestClient::AwaitAnswer(Descriptor socket, const String& component, const String& request,
                                const String& rest)
{
    const int  processId = wire::LocalSocket::PeerOf(socket.Get()).processId;
    const auto conversation =
        Conversation::Add(m_Conversations, m_Context, std::move(socket),
                          SFormat("%s (process %d)", component.c_str(), processId));
    conversation->Start(
        [with = conversation.get(), request](const String& content)
        {
            const String answer = String::FromBool(DecodeAnswer(content));
            LogDebug(with->Partner() + " answers the request \"" + request + "\": " + answer);
            with->Close();
        });
    conversation->Send(rest);
}
} // namespace tolvan
