#include "tolvan/Messenger.h"

#include "tolvan/MessageQueue.h"
#include "tolvan/SocketFolder.h"
#include "vesta/Exception.h"
#include "vesta/Guarded.h"
#include "vesta/Platform.h"
#include "wire/FrameStream.h"
#include "wire/Framing.h"

#include <boost/asio/executor_work_guard.hpp>
#include <boost/asio/post.hpp>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

namespace asio = boost::asio;

namespace
{

using std::chrono::milliseconds;

constexpr milliseconds kFirstPause{100}; // before the second attempt to connect
constexpr milliseconds kLongestPause{5000};
constexpr milliseconds kStallTime{10000};       // for the rest of half a frame
constexpr milliseconds kDrainTime{500};         // for what still waits to be sent at the end
constexpr size_t       kMostWaiting = 8u << 20; // bytes

} // namespace

struct Messenger::State
{
    using Error = boost::system::error_code;
    using WorkGuard = asio::executor_work_guard<asio::io_context::executor_type>;

    explicit State(MessageQueue& ownQueue) : queue(ownQueue) {}

    void Connect();
    void TryConnect();
    void ConnectLater();
    void ReportFailure(const String& why);
    void Open(Descriptor socket);
    void OnFrame(const String& content);
    void OnWritten(size_t count);
    void OnClosed(const String& why);
    void Write(const String& frame);
    void Raise(const char* what, const std::function<void()>& raise);
    void BeginStop();
    void Finish();

    MessageQueue& queue;
    String        component;
    std::thread   thread;

    // Shared with the callers' threads.
    std::atomic<bool>   isConnected{false};
    std::atomic<size_t> waiting{0};         ///< Bytes on their way from `Send` to the socket.
    std::mutex          raising;            ///< Held while a signal is raised.
    bool                isStopping = false; ///< Under `raising`.

    // The rest belongs to the thread.
    asio::io_context         context{1};
    std::optional<WorkGuard> work;
    asio::steady_timer       timer{context}; ///< Next attempt; at the end: end of draining.
    std::shared_ptr<wire::FrameStream> stream;
    String                             master; ///< For the log.
    milliseconds                       pause = kFirstPause;
    String                             lastFailure; ///< As logged; empty after a success.
    bool                               isEnding = false;
};

void Messenger::State::Connect()
{
    try
    {
        TryConnect();
    }
    catch (Exception* exception)
    {
        ReportFailure(exception->Text() + (exception->Text2().empty() ? "" : ": ") +
                      exception->Text2());
        delete exception;
        ConnectLater();
    }
}

void Messenger::State::TryConnect()
{
    const Path path = SocketFolder::ForMaster();
    Descriptor socket = wire::LocalSocket::Connect(path);
    if (!socket.IsOpen())
    {
        Exception::Throw("Messenger", "TryConnect", ec_Refused,
                         "no master answers at " + path.Text(), strerror(errno));
    }
    const wire::LocalSocket::Peer peer = wire::LocalSocket::PeerOf(socket.Get());
    master = SFormat("the master (process %d)", peer.processId);
    if (!peer.isOurs)
    {
        Exception::Throw(
            "Messenger", "TryConnect", ec_Refused,
            SFormat("%s belongs to user %d and is refused", master.c_str(), peer.userId));
    }
    Open(std::move(socket));
}

void Messenger::State::ConnectLater()
{
    timer.expires_after(pause);
    pause = std::min(pause * 2, kLongestPause);
    timer.async_wait(
        [this](const Error& error)
        {
            if (!error && !isEnding)
            {
                Connect();
            }
        });
}

void Messenger::State::ReportFailure(const String& why)
{
    if (why != lastFailure)
    {
        LogInfo("Not connected to the master, trying on: " + why);
        lastFailure = why;
    }
}

void Messenger::State::Open(Descriptor socket)
{
    const String hello = wire::Framing::Wrap(Message(msg_Hello)
                                                 .Set("component", component)
                                                 .Set("user", Platform::GetCurrentUserName())
                                                 .Encode());
    stream = std::make_shared<wire::FrameStream>(context, std::move(socket), kStallTime);
    wire::FrameStream::Events events;
    events.frame = [this](const String& content) { OnFrame(content); };
    events.written = [this](size_t count) { OnWritten(count); };
    events.closed = [this](const String& why) { OnClosed(why); };
    waiting += hello.size();
    stream->Start(std::move(events));
    stream->Send(hello);

    lastFailure.clear();
    LogInfo("Connected to " + master);
    isConnected = true;
    Raise("A slot of MessengerConnectedEvt",
          []
          {
              MessengerConnectedEvt event;
              MessengerConnectedEvt::s_Signal.Emit(event);
          });
}

void Messenger::State::OnFrame(const String& content)
{
    const auto message = Message::Decode(content);
    pause = kFirstPause; // Not before it talks sense: it may be something else than a master.
    if (message->Type() == msg_Shutdown)
    {
        const auto shutdown = boost::make_shared<ShutdownMsg>(message->Get("Reason"));
        Raise("A slot of ShutdownMsg", [&] { ShutdownMsg::s_Signal.Emit(shutdown); });
        return;
    }
    Raise("A slot of MessageReceivedEvt",
          [&]
          {
              MessageReceivedEvt event;
              event.m_Message = message;
              queue.RaiseAndQueue(event, [](MessageReceivedEvt& raised)
                                  { MessageReceivedEvt::s_Signal.Emit(raised); });
          });
}

void Messenger::State::OnWritten(size_t count)
{
    waiting -= count;
    if (isEnding && stream->Waiting() == 0)
    {
        Finish();
    }
}

void Messenger::State::OnClosed(const String& why)
{
    const size_t lost = stream->Waiting();
    waiting -= lost;
    stream.reset();
    isConnected = false;
    if (!why.empty())
    {
        LogWarning("Closed the connection to " + master + ": " + why);
    }
    LogInfo("Disconnected from " + master +
            (lost == 0 ? String() : SFormat("; %zu bytes could not be sent", lost)));
    if (isEnding)
    {
        Finish();
        return;
    }
    Raise("A slot of MessengerDisconnectedEvt",
          []
          {
              MessengerDisconnectedEvt event;
              MessengerDisconnectedEvt::s_Signal.Emit(event);
          });
    ConnectLater();
}

void Messenger::State::Write(const String& frame)
{
    if (stream)
    {
        stream->Send(frame);
        return;
    }
    // The connection was lost on the way from the caller's thread to this one.
    waiting -= frame.size();
    LogInfo("A message to the master could not be sent");
}

void Messenger::State::Raise(const char* what, const std::function<void()>& raise)
{
    const std::lock_guard<std::mutex> lock(raising);
    if (!isStopping)
    {
        Guarded(what, raise);
    }
}

void Messenger::State::BeginStop()
{
    isEnding = true;
    timer.cancel();
    if (!stream || stream->Waiting() == 0)
    {
        Finish();
        return;
    }
    timer.expires_after(kDrainTime);
    timer.async_wait(
        [this](const Error& error)
        {
            if (!error && stream)
            {
                LogInfo(SFormat("Ended with %zu bytes for the master unsent", stream->Waiting()));
                Finish();
            }
        });
}

void Messenger::State::Finish()
{
    timer.cancel();
    if (stream)
    {
        waiting -= stream->Waiting();
        stream->Close();
        stream.reset();
    }
    work.reset();
}

Messenger::Messenger(MessageQueue& queue) : m_State(std::make_unique<State>(queue))
{
}

Messenger::~Messenger()
{
    Stop();
}

void Messenger::Start(const String& component)
{
    State& state = *m_State;
    if (state.thread.joinable())
    {
        return;
    }
    state.component = component;
    state.isStopping = false;
    state.isEnding = false;
    state.pause = kFirstPause;
    state.lastFailure.clear();
    state.context.restart();
    state.work.emplace(state.context.get_executor());
    asio::post(state.context, [&state] { state.Connect(); });
    state.thread = std::thread([&state] { state.context.run(); });
}

void Messenger::Stop()
{
    State& state = *m_State;
    if (!state.thread.joinable())
    {
        return;
    }
    if (state.thread.get_id() == std::this_thread::get_id())
    {
        LogError("Messenger::Stop was called from a slot of the messenger and does nothing");
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(state.raising);
        state.isStopping = true;
    }
    asio::post(state.context, [&state] { state.BeginStop(); });
    state.thread.join();
    state.thread = std::thread();
    state.isConnected = false;
}

bool Messenger::IsConnected() const
{
    return m_State->isConnected;
}

bool Messenger::Send(const Message& message)
{
    State& state = *m_State;
    String frame;
    if (!state.isConnected || !Guarded("Sending a message to the master",
                                       [&] { frame = wire::Framing::Wrap(message.Encode()); }))
    {
        return false;
    }
    const size_t size = frame.size();
    if (state.waiting.fetch_add(size) + size > kMostWaiting)
    {
        state.waiting -= size;
        return false;
    }
    asio::post(state.context, [&state, sent = std::move(frame)] { state.Write(sent); });
    return true;
}
