#include "vesta/Signal.h"

#include <algorithm>

_SignalCore::~_SignalCore() = default;

HasSlots::HasSlots() = default;

HasSlots::~HasSlots()
{
    DisconnectAll();
}

void HasSlots::DisconnectAll()
{
    std::vector<std::shared_ptr<_SignalCore>> signals;
    {
        const MutexLock lock(m_SlotsLock);
        signals = m_Signals;
    }
    // Without the own lock: a signal locks itself first and its holders after that.
    for (const auto& core : signals)
    {
        core->Disconnect(this);
    }
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
