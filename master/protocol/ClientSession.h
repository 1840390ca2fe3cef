#pragma once

#include "master/protocol/SendQueue.h"
#include "tolvan/Message.h"
#include "vesta/String.h"
#include "wire/FrameStream.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/steady_timer.hpp>

#include <memory>

namespace master
{
/// One connected client. It must introduce itself first (msg_Hello); until then it is told nothing.
/// A client that sends what is no message, or asks without reading the answers, is closed and that
/// is logged; one that is merely slow misses lines of output, as `SendQueue` describes.
class ClientSession : public std::enable_shared_from_this<ClientSession>
{
public:
    /// Whoever owns the sessions.
    class Host
    {
    public:
        virtual ~Host() = default;
        virtual void OnHello(ClientSession& session) = 0;
        virtual void OnMessage(ClientSession& session, const Message& message) = 0;
        virtual void OnGone(ClientSession& session) = 0; ///< Once; the session is closed.
    };

    /// `host` must outlive the session.
    ClientSession(boost::asio::io_context& context, Descriptor socket, Host& host, SendQueue queue);

    void Start();
    void Close(); ///< No call of the host follows.

    bool HasIntroduced() const { return m_HasIntroduced; }
    void Send(const Frame& frame);
    void SendJob(const String& job);
    void SendOutput(const String& job, const SendQueue::MakeFrame& frame);

private:
    void OnFrame(const String& content);
    void OnClosed(const String& why);
    void WaitForHello();
    void Pump();
    void End(const String& why);

    std::shared_ptr<wire::FrameStream> m_Stream;
    boost::asio::steady_timer          m_HelloTimer;
    Host&                              m_Host;
    SendQueue                          m_Queue;
    String                             m_Name = "A client";
    bool                               m_HasIntroduced = false;
    bool                               m_IsSending = false;
};
} // namespace master
