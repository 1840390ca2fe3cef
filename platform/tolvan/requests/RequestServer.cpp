#include "tolvan/requests/RequestServer.h"

#include "vesta/Guarded.h"
#include "vesta/Log.h"
#include "wire/LocalSocket.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace tolvan
{
namespace
{

constexpr std::chrono::milliseconds kAcceptPause{1000}; // after a failure to accept
constexpr size_t                    kMostConversations = 256;

} // namespace

RequestServer::RequestServer(boost::asio::io_context& context, Conversation::All& conversations,
                             Handler handler)
    : m_Context(context),
      m_Conversations(conversations),
      m_Handler(std::move(handler)),
      m_Listener(context),
      m_AcceptPause(context)
{
}

void RequestServer::Listen(const Path& path)
{
    m_Listener.assign(wire::LocalSocket::Listen(path).Release());
    Accept();
}

void RequestServer::Close()
{
    m_IsClosing = true; // What the listener or the timer has brought already finds it closed.
    Error ignored;
    m_Listener.close(ignored);
    m_AcceptPause.cancel();
}

void RequestServer::Accept()
{
    m_Listener.async_wait(boost::asio::posix::stream_descriptor::wait_read,
                          [this](const Error& error)
                          {
                              if (!error && !m_IsClosing)
                              {
                                  TakeConnections();
                              }
                          });
}

void RequestServer::TakeConnections()
{
    const int  listener = m_Listener.native_handle();
    Descriptor socket = wire::LocalSocket::Accept(listener);
    for (; socket.IsOpen(); socket = wire::LocalSocket::Accept(listener))
    {
        Serve(std::move(socket));
    }
    if (errno == EAGAIN || errno == ECONNABORTED || errno == EINTR)
    {
        Accept();
        return;
    }
    // Out of descriptors, most likely: the connection stays waiting and would wake us at once.
    LogWarning(String("A connection could not be accepted: ") + std::strerror(errno));
    m_AcceptPause.expires_after(kAcceptPause);
    m_AcceptPause.async_wait(
        [this](const Error& error)
        {
            if (!error && !m_IsClosing)
            {
                Accept();
            }
        });
}

void RequestServer::Serve(Descriptor socket)
{
    const wire::LocalSocket::Peer peer = wire::LocalSocket::PeerOf(socket.Get());
    if (!peer.isOurs)
    {
        LogWarning(SFormat("Refused a connection of process %d, which belongs to user %d",
                           peer.processId, peer.userId));
        return;
    }
    const bool wasFull = std::exchange(m_IsFull, m_Conversations.size() >= kMostConversations);
    if (m_IsFull)
    {
        if (!wasFull) // One line for a flood.
        {
            LogWarning(
                SFormat("Refused a connection of process %d: there are too many", peer.processId));
        }
        return;
    }
    const auto conversation = Conversation::Add(m_Conversations, m_Context, std::move(socket),
                                                SFormat("process %d", peer.processId));
    conversation->Start([this, with = conversation.get()](const String& content)
                        { Answer(*with, content); });
}

void RequestServer::Answer(Conversation& with, const String& content)
{
    const String request = DecodeRequest(content);
    bool         done = false;
    Guarded("The request \"" + request + "\" from " + with.Partner(),
            [&] { done = m_Handler && m_Handler(request); });
    LogDebug("Answered the request \"" + request + "\" of " + with.Partner() + ": " +
             String::FromBool(done));
    with.Send(AnswerFrame(done));
    with.ExpectMore();
}
} // namespace tolvan
