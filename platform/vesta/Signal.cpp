#include "vesta/Signal.h"

#include <algorithm>

_SignalCore::~_SignalCore() = default;

void _SignalCore::Forget(HasSlots* holder)
{
    const MutexLock lock(m_Lock);
    Disconnect(holder);
    m_Leaving.erase(std::remove(m_Leaving.begin(), m_Leaving.end(), holder), m_Leaving.end());
}

void _SignalCore::Leave(HasSlots* holder)
{
    if (m_Emissions == 0)
    {
        holder->_Left(this);
    }
    else if (std::find(m_Leaving.begin(), m_Leaving.end(), holder) == m_Leaving.end())
    {
        m_Leaving.push_back(holder);
    }
}

_SignalCore::Emission::~Emission()
{
    if (--m_Core.m_Emissions > 0)
    {
        return;
    }
    for (HasSlots* const holder : m_Core.m_Leaving)
    {
        if (!m_Core.IsConnected(holder)) // It may have connected anew.
        {
            holder->_Left(&m_Core);
        }
    }
    m_Core.m_Leaving.clear();
}

HasSlots::HasSlots() = default;

HasSlots::~HasSlots()
{
    for (const auto& core : Signals())
    {
        core->Forget(this);
    }
}

void HasSlots::DisconnectAll()
{
    for (const auto& core : Signals())
    {
        core->Disconnect(this);
    }
}

std::vector<std::shared_ptr<_SignalCore>> HasSlots::Signals() const
{
    // A copy, used without the own lock: a signal locks itself first and its holders after that.
    const MutexLock lock(m_SlotsLock);
    return m_Signals;
}

size_t HasSlots::ConnectionCount() const
{
    const MutexLock lock(m_SlotsLock);
    return m_Signals.size();
}

void HasSlots::_Joined(const std::shared_ptr<_SignalCore>& core)
{
    const MutexLock lock(m_SlotsLock);
    if (std::find(m_Signals.begin(), m_Signals.end(), core) == m_Signals.end())
    {
        m_Signals.push_back(core);
    }
}

void HasSlots::_Left(const _SignalCore* core)
{
    const MutexLock lock(m_SlotsLock);
    m_Signals.erase(std::remove_if(m_Signals.begin(), m_Signals.end(),
                                   [core](const auto& signal) { return signal.get() == core; }),
                    m_Signals.end());
}
