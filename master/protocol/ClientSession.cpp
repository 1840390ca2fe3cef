#include "master/protocol/ClientSession.h"

#include "vesta/Exception.h"
#include "vesta/Log.h"

#include <chrono>

namespace master
{
namespace
{

constexpr std::chrono::milliseconds kStallTime{10000}; // for half a frame
constexpr std::chrono::milliseconds kHelloTime{10000};
constexpr size_t                    kAtOnce = 256 << 10; // bytes handed to the socket at a time
// Only the answers to a client's own requests can fill the queue this far.
constexpr size_t kTooMuch = 2 * SendQueue::k_Limit;
constexpr size_t kMostName = 100; // bytes of a client's name that are worth logging

} // namespace

ClientSession::ClientSession(boost::asio::io_context& context, Descriptor socket, Host& host,
                             SendQueue queue)
    : m_Stream(std::make_shared<wire::FrameStream>(context, std::move(socket), kStallTime)),
      m_HelloTimer(context),
      m_Host(host),
      m_Queue(std::move(queue))
{
}

void ClientSession::Start()
{
    const auto self = shared_from_this();
    m_Stream->Start({[self](const String& content) { self->OnFrame(content); },
                     [self](const String& why) { self->OnClosed(why); },
                     [self](size_t)
                     {
                         self->m_IsSending = false;
                         self->m_Queue.Sent();
                         self->Pump();
                     }});
    WaitForHello();
}

void ClientSession::WaitForHello()
{
    m_HelloTimer.expires_after(kHelloTime);
    m_HelloTimer.async_wait(
        [weak = weak_from_this()](const boost::system::error_code& error)
        {
            const auto self = weak.lock();
            if (!error && self && !self->m_HasIntroduced && self->m_Stream->IsOpen())
            {
                self->End("it has not said who it is");
            }
        });
}

void ClientSession::Close()
{
    m_HelloTimer.cancel();
    m_Stream->Close();
}

void ClientSession::OnFrame(const String& content)
{
    const auto message = Message::Decode(content); // what it throws ends the connection
    if (message->Type() == msg_Hello && !m_HasIntroduced)
    {
        m_HasIntroduced = true;
        m_HelloTimer.cancel();
        m_Name = message->Get("component").substr(0, kMostName);
        LogInfo(m_Name + " has connected");
        m_Host.OnHello(*this);
    }
    else if (m_HasIntroduced)
    {
        m_Host.OnMessage(*this, *message);
    }
    else
    {
        Exception::Throw("ClientSession", "OnFrame", ec_BadData,
                         "it sent a message before it said who it is");
    }
}

void ClientSession::OnClosed(const String& why)
{
    if (!why.empty())
    {
        LogWarning(m_Name + " has been disconnected: " + why);
    }
    else if (m_HasIntroduced)
    {
        LogInfo(m_Name + " has disconnected");
    }
    m_HelloTimer.cancel();
    m_Host.OnGone(*this);
}

void ClientSession::End(const String& why)
{
    const auto self = shared_from_this();
    Close();
    OnClosed(why);
}

void ClientSession::Send(const Frame& frame)
{
    m_Queue.Push(frame);
    if (m_Queue.Bytes() > kTooMuch)
    {
        End("it does not read the answers to what it asks");
        return;
    }
    Pump();
}

void ClientSession::SendJob(const String& job)
{
    m_Queue.PushJob(job);
    Pump();
}

void ClientSession::SendOutput(const String& job, const SendQueue::MakeFrame& frame)
{
    m_Queue.PushOutput(job, frame);
    Pump();
}

void ClientSession::Pump()
{
    if (!m_Stream->IsOpen() || m_IsSending)
    {
        return;
    }
    String bytes;
    for (const Frame& frame : m_Queue.Next(kAtOnce))
    {
        bytes += *frame;
    }
    m_IsSending = !bytes.empty();
    m_Stream->Send(std::move(bytes));
}
} // namespace master
