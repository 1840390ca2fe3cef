#pragma once

#include "tolvan/Message.h"
#include "vesta/Export.h"

#include <deque>
#include <functional>
#include <mutex>

/// The received messages that wait for the main thread.
class TOLVAN_API MessageQueue
{
public:
    /// Runs `raise`, which tells the world of the message, and queues the message that it left in
    /// the event, as one step: `Take` waits meanwhile. So whoever is told of a message finds it in
    /// the queue, however soon it looks.
    void RaiseAndQueue(MessageReceivedEvt& event,
                       const std::function<void(MessageReceivedEvt&)>& raise);
    boost::shared_ptr<Message> Take(); ///< The oldest message, or null.
    size_t                     Size() const;
    void                       Clear();

private:
    mutable std::mutex                     m_Mutex;
    std::deque<boost::shared_ptr<Message>> m_Messages;
};
