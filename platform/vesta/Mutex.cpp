#include "vesta/Mutex.h"

void Mutex::Lock()
{
    m_Mutex.lock();
}

bool Mutex::TryLock()
{
    return m_Mutex.try_lock();
}

void Mutex::Unlock()
{
    m_Mutex.unlock();
}
