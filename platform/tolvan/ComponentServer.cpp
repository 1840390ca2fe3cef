#include "tolvan/ComponentServer.h"

#include "tolvan/Components.h"
#include "tolvan/Message.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/Guarded.h"
#include "vesta/Log.h"
#include "vesta/Platform.h"
#include "wire/FrameStream.h"
#include "wire/Framing.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/posix/stream_descriptor.hpp>
#include <boost/asio/post.hpp>

#include <cerrno>
#include <cstring>
#include <set>
#include <thread>
#include <utility>

#include <sys/socket.h>
#include <unistd.h>

namespace asio = boost::asio;

namespace
{

constexpr std::chrono::milliseconds kPatience{5000};    // for a peer's next request or answer
constexpr std::chrono::milliseconds kAcceptPause{1000}; // after a failure to accept
constexpr size_t                    kMostConversations = 256;

const char* const kRequest = "Request";
const char* const kName = "Name";
const char* const kAnswer = "Answer";
const char* const kDone = "Done";

String RequestFrame(const String& request)
{
    return wire::Framing::Wrap(Message(kRequest).Set(kName, request).Encode());
}

String AnswerFrame(bool done)
{
    return wire::Framing::Wrap(Message(kAnswer).Set(kDone, String::FromBool(done)).Encode());
}

boost::shared_ptr<Message> DecodeAs(const String& content, const char* type)
{
    const auto message = Message::Decode(content);
    if (message->Type() != type)
    {
        Exception::Throw("ComponentServer", "DecodeAs", ec_BadData,
                         "a message \"" + message->Type() + "\" came instead of \"" + type + "\"");
    }
    return message;
}

} // namespace

struct ComponentServer::State
{
    using Error = boost::system::error_code;

    /// One connection, in either direction.
    struct Conversation : std::enable_shared_from_this<Conversation>
    {
        Conversation(State& owner, Descriptor socket, const String& with)
            : state(owner),
              partner(with),
              deadline(owner.context),
              stream(
                  std::make_shared<wire::FrameStream>(owner.context, std::move(socket), kPatience))
        {
        }

        void Start(std::function<void(const String&)> onFrame);
        void ExpectMore();
        void Close();

        State&                             state;
        String                             partner; ///< For the log.
        asio::steady_timer                 deadline;
        bool                               isWaitedFor = true; ///< The partner owes us a frame.
        std::shared_ptr<wire::FrameStream> stream;
    };

    State(const String& ownComponent, Handler ownHandler);

    void Listen();
    void Accept();
    void TakeConnections();
    void Serve(Descriptor socket);
    void Answer(Conversation& with, const String& content);
    bool SendTo(const Path& to, const String& component, const String& request,
                const String& frame);
    void AwaitAnswer(Descriptor socket, const String& component, const String& request,
                     const String& rest);
    void CloseAll();

    const String  component;
    const Handler handler;

    asio::io_context                                           context{1};
    asio::executor_work_guard<asio::io_context::executor_type> work{context.get_executor()};
    asio::posix::stream_descriptor                             listener{context};
    asio::steady_timer                                         acceptPause{context};
    std::set<std::shared_ptr<Conversation>>                    conversations;
    Path                                                       path; ///< Empty: not listening.
    bool        isFull = false; ///< A connection was refused, and none has ended since.
    bool        isClosing = false;
    std::thread thread;
};

void ComponentServer::State::Conversation::Start(std::function<void(const String&)> onFrame)
{
    wire::FrameStream::Events events;
    events.frame = std::move(onFrame);
    events.closed = [self = shared_from_this()](const String& why)
    {
        if (!why.empty())
        {
            LogWarning("Closed the connection of " + self->partner + ": " + why);
        }
        self->Close();
    };
    ExpectMore();
    stream->Start(std::move(events));
}

void ComponentServer::State::Conversation::ExpectMore()
{
    deadline.expires_after(kPatience);
    deadline.async_wait(
        [self = shared_from_this()](const Error& error)
        {
            if (!error && self->deadline.expiry() <= std::chrono::steady_clock::now())
            {
                if (self->isWaitedFor)
                {
                    LogWarning("Closed the connection of " + self->partner +
                               SFormat(": silent for %d ms", static_cast<int>(kPatience.count())));
                }
                self->Close();
            }
        });
}

void ComponentServer::State::Conversation::Close()
{
    stream->Close();
    deadline.cancel();
    state.conversations.erase(shared_from_this());
    state.isFull = false;
}

ComponentServer::State::State(const String& ownComponent, Handler ownHandler)
    : component(ownComponent), handler(std::move(ownHandler))
{
    try
    {
        Listen();
    }
    catch (Exception* exception)
    {
        LogError("Other programs cannot reach this one:");
        exception->Log();
        delete exception;
        path = Path();
    }
    thread = std::thread([this] { context.run(); });
}

void ComponentServer::State::Listen()
{
    path = SocketFolder::ForProgram(component, Platform::GetProcessId());
    listener.assign(wire::LocalSocket::Listen(path).Release());
    Accept();
}

void ComponentServer::State::Accept()
{
    listener.async_wait(asio::posix::stream_descriptor::wait_read,
                        [this](const Error& error)
                        {
                            if (!error && !isClosing)
                            {
                                TakeConnections();
                            }
                        });
}

void ComponentServer::State::TakeConnections()
{
    Descriptor socket = wire::LocalSocket::Accept(listener.native_handle());
    for (; socket.IsOpen(); socket = wire::LocalSocket::Accept(listener.native_handle()))
    {
        Serve(std::move(socket));
    }
    if (errno == EAGAIN || errno == ECONNABORTED || errno == EINTR)
    {
        Accept();
        return;
    }
    // Out of descriptors, most likely: the connection stays waiting and would wake us at once.
    LogWarning(String("A connection could not be accepted: ") + strerror(errno));
    acceptPause.expires_after(kAcceptPause);
    acceptPause.async_wait(
        [this](const Error& error)
        {
            if (!error && !isClosing)
            {
                Accept();
            }
        });
}

void ComponentServer::State::Serve(Descriptor socket)
{
    const wire::LocalSocket::Peer peer = wire::LocalSocket::PeerOf(socket.Get());
    if (!peer.isOurs)
    {
        LogWarning(SFormat("Refused a connection of process %d, which belongs to user %d",
                           peer.processId, peer.userId));
        return;
    }
    if (conversations.size() >= kMostConversations)
    {
        if (!std::exchange(isFull, true)) // One line for a flood.
        {
            LogWarning(
                SFormat("Refused a connection of process %d: there are too many", peer.processId));
        }
        return;
    }
    const auto conversation = std::make_shared<Conversation>(*this, std::move(socket),
                                                             SFormat("process %d", peer.processId));
    conversations.insert(conversation);
    conversation->Start([this, with = conversation.get()](const String& content)
                        { Answer(*with, content); });
}

void ComponentServer::State::Answer(Conversation& with, const String& content)
{
    const String request = DecodeAs(content, kRequest)->Get(kName);
    bool         done = false;
    Guarded("The request \"" + request + "\" from " + with.partner,
            [&] { done = handler && handler(request); });
    LogDebug("Answered the request \"" + request + "\" of " + with.partner + ": " +
             String::FromBool(done));
    with.stream->Send(AnswerFrame(done));
    with.isWaitedFor = false;
    with.ExpectMore();
}

bool ComponentServer::State::SendTo(const Path& program, const String& to, const String& request,
                                    const String& frame)
{
    Descriptor socket = wire::LocalSocket::Connect(program);
    if (!socket.IsOpen())
    {
        LogInfo("The request \"" + request + "\" did not reach " + program.Text() + ": " +
                strerror(errno));
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
    asio::post(context, [this, socket = std::make_shared<Descriptor>(std::move(socket)), to,
                         request, rest = String(frame.substr(written))]
               { AwaitAnswer(std::move(*socket), to, request, rest); });
    return true;
}

void ComponentServer::State::AwaitAnswer(Descriptor socket, const String& to, const String& request,
                                         const String& rest)
{
    const int  processId = wire::LocalSocket::PeerOf(socket.Get()).processId;
    const auto conversation = std::make_shared<Conversation>(
        *this, std::move(socket), SFormat("%s (process %d)", to.c_str(), processId));
    conversations.insert(conversation);
    conversation->Start(
        [with = conversation.get(), request](const String& content)
        {
            const auto answer = DecodeAs(content, kAnswer);
            LogDebug(with->partner + " answers the request \"" + request +
                     "\": " + answer->Get(kDone));
            with->Close();
        });
    conversation->stream->Send(rest);
}

void ComponentServer::State::CloseAll()
{
    isClosing = true; // What the listener or the timer has brought already finds it closed.
    Error ignored;
    listener.close(ignored);
    acceptPause.cancel();
    while (!conversations.empty())
    {
        (*conversations.begin())->Close();
    }
    work.reset();
}

ComponentServer::ComponentServer(const String& component, Handler handler)
    : m_State(std::make_unique<State>(component, std::move(handler)))
{
}

ComponentServer::~ComponentServer()
{
    if (IsListening())
    {
        unlink(m_State->path.Text().c_str());
    }
    asio::post(m_State->context, [state = m_State.get()] { state->CloseAll(); });
    m_State->thread.join();
}

bool ComponentServer::IsListening() const
{
    return !m_State->path.IsEmpty();
}

bool ComponentServer::Send(const String& component, const String& request)
{
    bool taken = false;
    Guarded("Sending the request \"" + request + "\" to " + component,
            [&]
            {
                const String frame = RequestFrame(request);
                for (const Path& path : SocketFolder::Find(component))
                {
                    taken = (path.Text() != m_State->path.Text() &&
                             m_State->SendTo(path, component, request, frame)) ||
                            taken;
                }
            });
    return taken;
}
