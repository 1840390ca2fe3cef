#pragma once

#include "vesta/String.h"
#include "wire/LocalSocket.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/local/stream_protocol.hpp>
#include <boost/asio/steady_timer.hpp>

#include <chrono>
#include <deque>
#include <functional>
#include <memory>

namespace wire
{
/// Reads and writes frames on one connected socket, on the thread of its `io_context` only. It
/// closes itself, and says why, when the other side goes, sends what is no frame or lets half a
/// frame stall. Asynchronous operations keep it alive until it is closed.
class FrameStream : public std::enable_shared_from_this<FrameStream>
{
public:
    struct Events
    {
        /// An `Exception*` that it throws ends the connection, with its text as the reason.
        std::function<void(const String& content)> frame;
        /// Once, whatever ends the connection but a call of `Close`; `why` is empty when the other
        /// side has closed it between two frames.
        std::function<void(const String& why)> closed;
        std::function<void(size_t count)>      written; ///< After every frame; may be empty.
    };

    FrameStream(boost::asio::io_context& context, Descriptor socket,
                std::chrono::milliseconds stallTime);

    void Start(Events events);
    void Send(String frame); ///< Queues the bytes of a whole frame (or the rest of one).
    void Close();            ///< No event follows. May be called from one.

    bool   IsOpen() const { return m_Socket.is_open(); }
    size_t Waiting() const { return m_Waiting; } ///< Bytes not written (yet, or ever).

private:
    using Error = boost::system::error_code;

    void Read();
    void OnReadable(const Error& error);
    void EndAfter(const Error& error);
    bool TakeFrames(); ///< False when the connection ended over one.
    void WatchForStall();
    void Write();
    void OnWritten(const Error& error, size_t count);
    void End(const String& why);

    boost::asio::local::stream_protocol::socket m_Socket;
    boost::asio::steady_timer                   m_StallTimer;
    std::chrono::milliseconds                   m_StallTime;
    std::shared_ptr<const Events>               m_Events; ///< Null once closed.
    String                                      m_Input;  ///< Begins with a frame's header.
    std::deque<String>                          m_Output;
    size_t                                      m_Waiting = 0;
};
} // namespace wire
