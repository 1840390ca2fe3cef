#include "tolvan/MessageQueue.h"

#include <chrono>

void MessageQueue::Push(boost::shared_ptr<Message>& message)
{
    if (message)
    {
        m_Messages.push_back(std::move(message));
        m_Arrived.notify_one();
    }
}

void MessageQueue::RaiseAndQueue(MessageReceivedEvt&                             event,
                                 const std::function<void(MessageReceivedEvt&)>& raise)
{
    const std::lock_guard<std::recursive_mutex> lock(m_Mutex);
    try
    {
        raise(event);
    }
    catch (...)
    {
        // A slot that fails must not lose the message.
        Push(event.m_Message);
        throw;
    }
    Push(event.m_Message);
}

boost::shared_ptr<Message> MessageQueue::Take()
{
    return WaitAndTake(0);
}

boost::shared_ptr<Message> MessageQueue::WaitAndTake(int timeoutMs)
{
    std::unique_lock<std::recursive_mutex> lock(m_Mutex);
    if (timeoutMs > 0)
    {
        m_Arrived.wait_for(lock, std::chrono::milliseconds(timeoutMs),
                           [this] { return !m_Messages.empty(); });
    }
    if (m_Messages.empty())
    {
        return nullptr;
    }
    auto message = std::move(m_Messages.front());
    m_Messages.pop_front();
    return message;
}

size_t MessageQueue::Size() const
{
    const std::lock_guard<std::recursive_mutex> lock(m_Mutex);
    return m_Messages.size();
}

void MessageQueue::Clear()
{
    const std::lock_guard<std::recursive_mutex> lock(m_Mutex);
    m_Messages.clear();
}
