#pragma once

#include <cstdint>
#include <deque>

namespace textviews
{
/// What a bar history chart shows: the latest values of one quantity, their peak and their sum.
/// Without a window.
class BarHistory
{
public:
    /// Puts the value in front. True when the peak has moved to it.
    bool Push(uint32_t value);
    /// Drops the oldest values beyond the limit. They stay part of the sum: only a value that a new
    /// one pushes out leaves it.
    void Limit(uint32_t limit);
    /// Forgets the values; peak, last value and sum stay.
    void Clear() { m_Values.clear(); }

    const std::deque<uint32_t>& Values() const { return m_Values; } ///< Newest first.
    uint32_t                    GetLimit() const { return m_Limit; }
    uint32_t                    Newest() const { return m_Values.empty() ? 0 : m_Values.front(); }
    uint32_t                    Peak() const { return m_Peak; }
    uint64_t                    Average() const; ///< 0 without values.

private:
    bool MovesPeak(uint32_t value) const;

    std::deque<uint32_t> m_Values;
    uint32_t             m_Limit = 0;
    uint32_t             m_Peak = 0;
    uint32_t             m_Last = 0;
    uint64_t             m_Sum = 0;
};
} // namespace textviews
