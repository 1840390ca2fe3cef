#include "wire/FrameStream.h"

#include "vesta/Exception.h"
#include "wire/Framing.h"

#include <boost/asio/buffer.hpp>
#include <boost/asio/error.hpp>
#include <boost/asio/write.hpp>

namespace asio = boost::asio;

namespace wire
{
namespace
{

constexpr size_t kChunkSize = 64 << 10; // bytes read at once

} // namespace

FrameStream::FrameStream(asio::io_context& context, Descriptor socket,
                         std::chrono::milliseconds stallTime)
    : m_Socket(context, asio::local::stream_protocol(), socket.Release()),
      m_StallTimer(context),
      m_StallTime(stallTime)
{
    Error ignored; // Without it a read that finds nothing would only wait.
    m_Socket.non_blocking(true, ignored);
}

void FrameStream::Start(Events events)
{
    m_Events = std::make_shared<const Events>(std::move(events));
    Read();
}

void FrameStream::Send(String frame)
{
    if (!IsOpen() || frame.empty())
    {
        return;
    }
    m_Waiting += frame.size();
    m_Output.push_back(std::move(frame));
    if (m_Output.size() == 1)
    {
        Write();
    }
}

void FrameStream::Close()
{
    Error ignored; // A socket that fails to close is gone all the same.
    m_Socket.close(ignored);
    m_StallTimer.cancel();
    m_Events.reset(); // They may hold the owner.
}

/// Waits first and reads then: a connection that says nothing holds no memory for it.
void FrameStream::Read()
{
    m_Socket.async_wait(asio::socket_base::wait_read,
                        [self = shared_from_this()](const Error& error)
                        { self->OnReadable(error); });
}

void FrameStream::OnReadable(const Error& waitError)
{
    if (!IsOpen())
    {
        return;
    }
    char         chunk[kChunkSize];
    Error        error = waitError;
    const size_t count = error ? 0 : m_Socket.read_some(asio::buffer(chunk), error);
    if (error && error != asio::error::would_block && error != asio::error::interrupted)
    {
        EndAfter(error);
        return;
    }
    m_Input.append(chunk, count);
    if (TakeFrames() && IsOpen())
    {
        WatchForStall();
        Read();
    }
}

void FrameStream::EndAfter(const Error& error)
{
    const bool isEnd = error == asio::error::eof || error == asio::error::connection_reset;
    End(!isEnd            ? String(error.message())
        : m_Input.empty() ? String()
                          : String("it ended inside a frame"));
}

bool FrameStream::TakeFrames()
{
    const std::shared_ptr<const Events> events = m_Events; // One of them may close us.
    size_t                              begin = 0;
    try
    {
        while (IsOpen() && m_Input.size() - begin >= Framing::k_HeaderSize)
        {
            const size_t length = Framing::ContentLength(m_Input.data() + begin);
            const size_t end = begin + Framing::k_HeaderSize + length;
            if (m_Input.size() < end)
            {
                break;
            }
            events->frame(m_Input.substr(begin + Framing::k_HeaderSize, length));
            begin = end;
        }
    }
    catch (Exception* exception)
    {
        const String why = exception->Text();
        delete exception;
        End(why);
        return false;
    }
    m_Input.erase(0, begin);
    if (m_Input.empty())
    {
        m_Input = String(); // The room of a large frame is not kept for the next.
    }
    return true;
}

void FrameStream::WatchForStall()
{
    m_StallTimer.cancel();
    if (m_Input.empty())
    {
        return;
    }
    m_StallTimer.expires_after(m_StallTime);
    m_StallTimer.async_wait(
        [self = shared_from_this()](const Error& error)
        {
            // A timer that was set anew meanwhile has not expired, though its handler may be due.
            if (!error && self->IsOpen() && !self->m_Input.empty() &&
                self->m_StallTimer.expiry() <= std::chrono::steady_clock::now())
            {
                self->End("half a frame, and nothing more for " +
                          String::FromInt(self->m_StallTime.count()) + " ms");
            }
        });
}

void FrameStream::Write()
{
    asio::async_write(m_Socket, asio::buffer(m_Output.front()),
                      [self = shared_from_this()](const Error& error, size_t count)
                      { self->OnWritten(error, count); });
}

void FrameStream::OnWritten(const Error& error, size_t count)
{
    if (!IsOpen())
    {
        return;
    }
    if (error)
    {
        // What the other side said before it went is still to be read; the reader ends it then.
        if (error != asio::error::broken_pipe && error != asio::error::connection_reset)
        {
            End(error.message());
        }
        return;
    }
    m_Waiting -= count;
    m_Output.pop_front();
    if (!m_Output.empty())
    {
        Write();
    }
    if (const auto events = m_Events; events->written)
    {
        events->written(count);
    }
}

void FrameStream::End(const String& why)
{
    if (const auto events = m_Events)
    {
        Close();
        events->closed(why);
    }
}
} // namespace wire
