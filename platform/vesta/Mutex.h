#pragma once

#include "vesta/Export.h"

#include <mutex>

/// A recursive mutex: the thread that holds it may lock it again.
class TOLVAN_API Mutex
{
public:
    void Lock();
    bool TryLock();
    void Unlock(); ///< Only by the thread that holds it, once for every `Lock`.

private:
    std::recursive_mutex m_Mutex;
};

/// Holds a mutex while it lives.
class TOLVAN_API MutexLock
{
public:
    explicit MutexLock(Mutex& mutex) : m_Mutex(mutex) { m_Mutex.Lock(); }
    ~MutexLock() { m_Mutex.Unlock(); }
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

private:
    Mutex& m_Mutex;
};
