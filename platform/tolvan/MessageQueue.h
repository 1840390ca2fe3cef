#pragma once

#include "tolvan/Message.h"
#include "vesta/Export.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>

/// The received messages that wait for the main thread. Any thread, also from within `raise`.
class TOLVAN_API MessageQueue
{
public:
    /// Runs `raise`, which tells the world of the message, and queues the message that it left in
    /// the event, as one step: `Take` waits meanwhile. So whoever is told of a message finds it in
    /// the queue, however soon it looks. What `raise` throws passes on; the message is queued.
    void                       RaiseAndQueue(MessageReceivedEvt&                             event,
                                             const std::function<void(MessageReceivedEvt&)>& raise);
    boost::shared_ptr<Message> Take(); ///< The oldest message, or null.
    /// The same, but waits up to `timeoutMs` milliseconds for one.
    boost::shared_ptr<Message> WaitAndTake(int timeoutMs);
    size_t                     Size() const;
    void                       Clear();

private:
    void Push(boost::shared_ptr<Message>& message);

    // Recursive: a slot may look into the queue.
    mutable std::recursive_mutex           m_Mutex;
    std::condition_variable_any            m_Arrived;
    std::deque<boost::shared_ptr<Message>> m_Messages;
};
