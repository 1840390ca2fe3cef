#pragma once

#include "tolvan/requests/Conversation.h"
#include "vesta/Path.h"

#include <boost/asio/posix/stream_descriptor.hpp>

namespace tolvan
{
/// Takes requests on a socket and answers them, all on the thread of the `io_context`. Peers of
/// another user and those beyond 256 connections are refused.
class RequestServer
{
public:
    using Handler = std::function<bool(const String& request)>;

    RequestServer(boost::asio::io_context& context, Conversation::All& conversations,
                  Handler handler);

    void Listen(const Path& path); ///< Throws an `Exception*`.
    void Close();

private:
    using Error = boost::system::error_code;

    void Accept();
    void TakeConnections();
    void Serve(Descriptor socket);
    void Answer(Conversation& with, const String& content);

    boost::asio::io_context&              m_Context;
    Conversation::All&                    m_Conversations;
    const Handler                         m_Handler;
    boost::asio::posix::stream_descriptor m_Listener;
    boost::asio::steady_timer             m_AcceptPause;
    bool m_IsFull = false; ///< A connection was refused, and none has been taken since.
    bool m_IsClosing = false;
};
} // namespace tolvan
