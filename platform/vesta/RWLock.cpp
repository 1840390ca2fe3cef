#include "vesta/RWLock.h"

#include "vesta/Exception.h"

void RWLock::GetReadLock()
{
    const std::thread::id        self = std::this_thread::get_id();
    std::unique_lock<std::mutex> lock(m_Mutex);
    if (m_WriterCount > 0 && m_Writer == self)
    {
        ++m_WriterCount;
        return;
    }
    const auto held = m_Readers.find(self);
    if (held != m_Readers.end())
    {
        // At once, even while a writer waits: the writer waits for this very thread.
        ++held->second;
        return;
    }
    m_Changed.wait(lock, [this] { return m_WriterCount == 0 && m_WaitingWriters == 0; });
    m_Readers.emplace(self, 1);
}

void RWLock::GetWriteLock()
{
    const std::thread::id        self = std::this_thread::get_id();
    std::unique_lock<std::mutex> lock(m_Mutex);
    if (m_WriterCount > 0 && m_Writer == self)
    {
        ++m_WriterCount;
        return;
    }
    if (m_Readers.count(self) != 0)
    {
        lock.unlock();
        Exception::Throw("RWLock", "GetWriteLock", ec_Refused,
                         "A thread that holds the read lock asked for the write lock");
    }
    ++m_WaitingWriters;
    m_Changed.wait(lock, [this] { return m_WriterCount == 0 && m_Readers.empty(); });
    --m_WaitingWriters;
    m_Writer = self;
    m_WriterCount = 1;
}

bool RWLock::IsHeld()
{
    const std::thread::id             self = std::this_thread::get_id();
    const std::lock_guard<std::mutex> lock(m_Mutex);
    return (m_WriterCount > 0 && m_Writer == self) || m_Readers.count(self) != 0;
}

void RWLock::Unlock()
{
    const std::thread::id        self = std::this_thread::get_id();
    std::unique_lock<std::mutex> lock(m_Mutex);
    bool                         free = false;
    const auto                   held = m_Readers.find(self);
    if (m_WriterCount > 0 && m_Writer == self)
    {
        free = --m_WriterCount == 0;
    }
    else if (held != m_Readers.end())
    {
        if (--held->second == 0)
        {
            m_Readers.erase(held);
            free = m_Readers.empty();
        }
    }
    else
    {
        lock.unlock();
        LogError("RWLock::Unlock: the calling thread does not hold the lock");
    }
    if (free)
    {
        // Under the lock: once another thread has it, it may destroy this object.
        m_Changed.notify_all();
    }
}
