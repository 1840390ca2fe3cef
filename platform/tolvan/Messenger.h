#pragma once

#include "tolvan/Message.h"
#include "vesta/Export.h"

#include <memory>

class MessageQueue;

/// The connection to the master. It runs on a thread of its own, connects again with back-off
/// (100 ms up to 5 s) whenever the connection is lost, and raises the four static signals of
/// Message.h on that thread.
class TOLVAN_API Messenger
{
public:
    /// `queue` gets the messages that no slot takes; not owned.
    explicit Messenger(MessageQueue& queue);
    ~Messenger(); ///< Stops.
    Messenger(const Messenger&) = delete;
    Messenger& operator=(const Messenger&) = delete;

    /// Begins to connect to the master's socket, introducing this program as `component`.
    void Start(const String& component);
    /// Sends what is waiting (at most 500 ms), closes the connection and ends the thread. No signal
    /// is raised once it has returned, or while it waits. Not from a slot.
    void Stop();

    bool IsConnected() const;
    /// Queues a message for the master; any thread, never blocks. False when there is no connection
    /// or too much (8 MiB) waits already.
    bool Send(const Message& message);

private:
    struct State;
    std::unique_ptr<State> m_State;
};
