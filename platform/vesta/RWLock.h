#pragma once

#include "vesta/Export.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

/// A lock for many readers or one writer. The writing thread may take both kinds again, a reading
/// thread the reading kind; every lock taken needs one `Unlock`. A reader must not ask for the
/// write lock: it would wait for itself, so this throws an `Exception*`.
class TOLVAN_API RWLock
{
public:
    void GetReadLock();
    void GetWriteLock();
    void Unlock(); ///< Gives back the calling thread's latest lock.
    bool IsHeld(); ///< Whether the calling thread holds it, for reading or for writing.

private:
    std::mutex                     m_Mutex;
    std::condition_variable        m_Changed;
    std::map<std::thread::id, int> m_Readers; ///< Locks held by each reading thread.
    std::thread::id                m_Writer;
    int                            m_WriterCount = 0; ///< Locks of both kinds held by the writer.
    int                            m_WaitingWriters = 0;
};

class TOLVAN_API ReadLock
{
public:
    explicit ReadLock(RWLock& lock) : m_Lock(lock) { m_Lock.GetReadLock(); }
    ~ReadLock() { m_Lock.Unlock(); }
    ReadLock(const ReadLock&) = delete;
    ReadLock& operator=(const ReadLock&) = delete;

private:
    RWLock& m_Lock;
};

class TOLVAN_API WriteLock
{
public:
    explicit WriteLock(RWLock& lock) : m_Lock(lock) { m_Lock.GetWriteLock(); }
    ~WriteLock() { m_Lock.Unlock(); }
    WriteLock(const WriteLock&) = delete;
    WriteLock& operator=(const WriteLock&) = delete;

private:
    RWLock& m_Lock;
};
