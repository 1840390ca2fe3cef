#include "textviews/chart/BarHistory.h"

namespace textviews
{
uint64_t BarHistory::Average() const
{
    return m_Values.empty() ? 0 : m_Sum / m_Values.size();
}

// A value that stays at the peak does not reach it again and again.
bool BarHistory::MovesPeak(uint32_t value) const
{
    return m_Last == m_Peak ? value > m_Last : value >= m_Peak;
}

bool BarHistory::Push(uint32_t value)
{
    m_Values.push_front(value);
    uint32_t dropped = 0;
    if (m_Values.size() > m_Limit)
    {
        dropped = m_Values.back();
        m_Values.pop_back();
    }
    const bool peaks = MovesPeak(value);
    m_Peak = peaks ? value : m_Peak;
    m_Last = value;
    m_Sum = m_Sum - dropped + value;
    return peaks;
}

void BarHistory::Limit(uint32_t limit)
{
    m_Limit = limit;
    if (m_Values.size() > limit)
    {
        m_Values.resize(limit);
    }
}
} // namespace textviews
